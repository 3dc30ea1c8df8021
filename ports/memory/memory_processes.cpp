#include <quorkit/ports/memory.h>

#include <algorithm>

namespace quorkit {
namespace {

std::size_t indexOf(Handle process) {
    return static_cast<std::size_t>(process);
}

}  // namespace

ErrorCode MemoryProcesses::CreateProcessA(const String& commandLine, const String& title,
                                          Ending ending, Handle& process) {
    if (commandLine.find(u'\0') != String::npos) return kInvalidName;
    const auto found = programs.find(commandLine);
    if (found == programs.end()) return kFileNotFound;
    process = Handle(static_cast<std::intptr_t>(started.size()));
    started.push_back({commandLine, title, ending, false, false, found->second});
    return kSuccess;
}

Processes::Waited MemoryProcesses::WaitForSingleObject(
    Handle process, std::optional<std::chrono::milliseconds> longest) {
    std::chrono::milliseconds& runs = started.at(indexOf(process)).program.runs;
    const bool ends = !longest || runs <= *longest;
    runs -= ends ? runs : *longest;
    return ends ? Waited::Ended : Waited::TimedOut;
}

ErrorCode MemoryProcesses::GetExitCodeProcess(Handle process, Long& code) {
    code = started.at(indexOf(process)).program.exitCode;
    return kSuccess;
}

ErrorCode MemoryProcesses::EndProcess(Handle process) {
    Started& one = started.at(indexOf(process));
    one.terminated = true;
    one.program = {};
    return kSuccess;
}

void MemoryProcesses::CloseHandle(Handle process) {
    started.at(indexOf(process)).closed = true;
}

ErrorCode MemoryProcesses::HandToDesktop(const String& target) {
    if (target.find(u'\0') != String::npos) return kInvalidName;
    opened.push_back(target);
    return openAnswer;
}

}  // namespace quorkit
