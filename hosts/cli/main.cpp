// The process around the command line: its arguments as UTF-16, its streams as UTF-8 bytes.
#include <iostream>

#include "cli/run.h"

#ifdef _WIN32
#include <windows.h>
// Behind windows.h, which it needs.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>
#else
#include "cli/utf8.h"
#endif

namespace {

#ifdef _WIN32
static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::vector<quorkit::String> arguments(int, char**) {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<quorkit::String> result;
    for (int i = 1; i < count; ++i) {
        const std::wstring_view word = words[i];
        result.emplace_back(word.begin(), word.end());
    }
    LocalFree(words);
    return result;
}

/// Bytes go through as they are, and a console shows them as UTF-8 while the program runs.
class Streams {
   public:
    Streams() {
        for (FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
        SetConsoleOutputCP(CP_UTF8);
    }
    ~Streams() { SetConsoleOutputCP(codePage_); }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;

   private:
    const UINT codePage_ = GetConsoleOutputCP();
};
#else
std::vector<quorkit::String> arguments(int count, char** words) {
    std::vector<quorkit::String> result;
    for (int i = 1; i < count; ++i) result.push_back(quorkit::cli::fromUtf8(words[i]));
    return result;
}

struct Streams {
    Streams() { std::ios::sync_with_stdio(false); }
};
#endif

}  // namespace

int main(int count, char** words) {
    const Streams streams;
    return quorkit::cli::run(arguments(count, words), std::cin, std::cout, std::cerr);
}
