// The process around the command line: arguments become UTF-16, output UTF-8.
#include <quorkit/utf8.h>

#include <ext/stdio_filebuf.h>
#include <iostream>

#include "cli/run.h"

#ifdef _WIN32
#include <windows.h>
// <shellapi.h> needs <windows.h> first.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>
#else
#include <fcntl.h>
#include <unistd.h>

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

/// Standard streams that pass bytes unchanged; while the program runs, a console shows them as
/// UTF-8.
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

int copyOf(int stream) {
    return _dup(stream);
}
void put(int source, int stream) {
    _dup2(source, stream);
}
int openNothing() {
    return _open("NUL", _O_RDONLY | _O_NOINHERIT);
}
#else
std::vector<quorkit::String> arguments(int count, char** words) {
    std::vector<quorkit::String> result;
    for (int i = 1; i < count; ++i) result.push_back(quorkit::fromUtf8(words[i]));
    return result;
}

struct Streams {
    Streams() { std::ios::sync_with_stdio(false); }
};

int copyOf(int stream) {
    return fcntl(stream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}
void put(int source, int stream) {
    dup2(source, stream);
}
int openNothing() {
    return open("/dev/null", O_RDONLY | O_CLOEXEC);
}
#endif

/// Reserves standard input and output for this program. Programs that it starts have no input, and
/// their output goes to standard error.
class Session {
   public:
    Session() : requests_(copyOf(0), std::ios::in), answers_(copyOf(1), std::ios::out) {
        const int nothing = openNothing();
        put(nothing, 0);
        if (nothing > 2) close(nothing);
        put(2, 1);
    }

   private:
    __gnu_cxx::stdio_filebuf<char> requests_;
    __gnu_cxx::stdio_filebuf<char> answers_;

   public:
    std::istream in{&requests_};
    std::ostream out{&answers_};
};

}  // namespace

int main(int count, char** words) {
    const Streams streams;
    const auto line = arguments(count, words);
    if (line.empty() || line.front() != u"rpc")
        return quorkit::cli::run(line, std::cin, std::cout, std::cerr);
    Session session;
    return quorkit::cli::run(line, session.in, session.out, std::cerr);
}
