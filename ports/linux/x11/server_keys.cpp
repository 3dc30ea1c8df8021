#include "../no_display/server_keys.cpp"
