#include "support/child.h"

#include <map>
#include <stdexcept>

#ifdef _WIN32
#include <windows.h>
#else
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace quorkit::test {
namespace {

constexpr const char* kFlag = "--play";

std::string self() {
#ifdef _WIN32
    char name[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, name, sizeof name);
    return name;
#else
    return "/proc/self/exe";
#endif
}

std::map<std::string, Part>& parts() {
    static std::map<std::string, Part> all;
    return all;
}

}  // namespace

PartName::PartName(const char* name, Part part) {
    parts()[name] = part;
}

std::string lineOf(const std::string& part, const std::vector<std::string>& arguments) {
    std::string line = "\"" + self() + "\" " + kFlag + " " + part;
    for (const std::string& one : arguments) line += " \"" + one + "\"";
    return line;
}

bool playPart(int argc, char** argv, int& status) {
    if (argc < 3 || std::string(argv[1]) != kFlag) return false;
    status = parts().at(argv[2])({argv + 3, argv + argc});
    return true;
}

#ifdef _WIN32

Child::Child(const std::string& part, const std::vector<std::string>& arguments) {
    std::string line = lineOf(part, arguments);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made = {};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &made))
        throw std::runtime_error("cannot start a child");
    CloseHandle(made.hThread);
    process_ = reinterpret_cast<std::intptr_t>(made.hProcess);
}

void Child::kill() {
    TerminateProcess(reinterpret_cast<HANDLE>(process_), 9);
}

int Child::wait() {
    const auto process = reinterpret_cast<HANDLE>(process_);
    if (process_ == -1) return -1;
    WaitForSingleObject(process, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process, &status);
    CloseHandle(process);
    process_ = -1;
    return status == 9 ? -1 : static_cast<int>(status);
}

#else

Child::Child(const std::string& part, const std::vector<std::string>& arguments) {
    process_ = fork();
    if (process_ == -1) throw std::runtime_error("cannot start a child");
    if (process_ != 0) return;
    std::vector<char*> line;
    std::vector<std::string> words = {self(), kFlag, part};
    words.insert(words.end(), arguments.begin(), arguments.end());
    for (std::string& word : words) line.push_back(word.data());
    line.push_back(nullptr);
    execv(line[0], line.data());
    _exit(127);
}

void Child::kill() {
    ::kill(static_cast<pid_t>(process_), SIGKILL);
}

int Child::wait() {
    if (process_ == -1) return -1;
    int status = 0;
    waitpid(static_cast<pid_t>(process_), &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#endif

Child::~Child() {
    if (process_ == -1) return;
    kill();
    wait();
}

}  // namespace quorkit::test
