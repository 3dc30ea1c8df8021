#include "native/processes.h"

namespace quorkit {

ErrorCode NativeProcesses::CreateProcessA(const String&, const String&, Ending, Handle&) {
    return kGeneralFailure;
}

Processes::Waited NativeProcesses::WaitForSingleObject(Handle, std::chrono::milliseconds) {
    return Waited::Failed;
}

Processes::Waited NativeProcesses::WaitForSingleObject(Handle) {
    return Waited::Failed;
}

ErrorCode NativeProcesses::GetExitCodeProcess(Handle, Long&) {
    return kGeneralFailure;
}

ErrorCode NativeProcesses::TerminateProcess(Handle) {
    return kGeneralFailure;
}

void NativeProcesses::CloseHandle(Handle) {}

ErrorCode NativeProcesses::ShellExecuteA(const String&) {
    return kFileNotFound;
}

}  // namespace quorkit
