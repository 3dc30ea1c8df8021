// The programs of this system; a build has one implementation.
#pragma once

#include <quorkit/ports/processes.h>

namespace quorkit::native {

class NativeProcesses final : public Processes {
   public:
    ErrorCode CreateProcessA(const String& commandLine, const String& title, Ending ending,
                             Handle& process) override;
    Waited WaitForSingleObject(Handle process,
                               std::optional<std::chrono::milliseconds> longest) override;
    ErrorCode GetExitCodeProcess(Handle process, Long& code) override;
    ErrorCode EndProcess(Handle process) override;
    void CloseHandle(Handle process) override;
    ErrorCode HandToDesktop(const String& target) override;
};

}  // namespace quorkit::native
