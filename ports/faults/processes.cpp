#include <quorkit/ports/faults.h>

namespace quorkit {

ErrorCode FaultyProcesses::CreateProcessA(const String& commandLine, const String& title,
                                          Ending ending, Handle& process) {
    return due("CreateProcessA") ? code()
                                 : inner_.CreateProcessA(commandLine, title, ending, process);
}
Processes::Waited FaultyProcesses::WaitForSingleObject(Handle process,
                                                       std::chrono::milliseconds longest) {
    return due("WaitForSingleObject") ? answered() : inner_.WaitForSingleObject(process, longest);
}
Processes::Waited FaultyProcesses::WaitForSingleObject(Handle process) {
    return due("WaitForSingleObject") ? answered() : inner_.WaitForSingleObject(process);
}
ErrorCode FaultyProcesses::GetExitCodeProcess(Handle process, Long& exitCode) {
    return due("GetExitCodeProcess") ? code() : inner_.GetExitCodeProcess(process, exitCode);
}
ErrorCode FaultyProcesses::TerminateProcess(Handle process) {
    return due("TerminateProcess") ? code() : inner_.TerminateProcess(process);
}
void FaultyProcesses::CloseHandle(Handle process) {
    inner_.CloseHandle(process);
}
ErrorCode FaultyProcesses::ShellExecuteA(const String& target) {
    return due("ShellExecuteA") ? code() : inner_.ShellExecuteA(target);
}

}  // namespace quorkit
