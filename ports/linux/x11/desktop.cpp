#include "../no_display/desktop.cpp"
