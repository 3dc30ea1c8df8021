#include "../no_display/clipboard.cpp"
