// quorkit-type-library BITS FILE: writes the type library for programs of 32 or 64 bits.
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>

#include "automation/type_library/writer.h"

int main(int count, char** words) {
    using namespace quorkit::automation;
    const bool wide = count == 3 && std::strcmp(words[1], "64") == 0;
    if (count != 3 || (!wide && std::strcmp(words[1], "32") != 0)) {
        std::fputs("usage: quorkit-type-library 32 | 64 FILE\n", stderr);
        return 2;
    }
    try {
        TypeLibraryWriter(wide ? SYS_WIN64 : SYS_WIN32, std::filesystem::absolute(words[2])).save();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "quorkit-type-library: %s\n", failure.what());
        return 1;
    }
}
