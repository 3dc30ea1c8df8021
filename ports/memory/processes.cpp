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

Processes::Waited MemoryProcesses::WaitForSingleObject(Handle process,
                                                       std::chrono::milliseconds longest) {
    std::chrono::milliseconds& runs = started.at(indexOf(process)).program.runs;
    const bool ends = runs <= longest;
    runs -= std::min(runs, longest);
    return ends ? Waited::Ended : Waited::TimedOut;
}

Processes::Waited MemoryProcesses::WaitForSingleObject(Handle process) {
    return WaitForSingleObject(process, std::chrono::milliseconds::max());
}

ErrorCode MemoryProcesses::GetExitCodeProcess(Handle process, Long& code) {
    code = started.at(indexOf(process)).program.exitCode;
    return kSuccess;
}

ErrorCode MemoryProcesses::TerminateProcess(Handle process) {
    Started& one = started.at(indexOf(process));
    one.terminated = true;
    one.program = {};
    return kSuccess;
}

void MemoryProcesses::CloseHandle(Handle process) {
    started.at(indexOf(process)).closed = true;
}

ErrorCode MemoryProcesses::ShellExecuteA(const String& target) {
    if (target.find(u'\0') != String::npos) return kInvalidName;
    opened.push_back(target);
    return openAnswer;
}

}  // namespace quorkit
