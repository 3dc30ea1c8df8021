#include "native/native_processes.h"
#include "win32/win32_calls.h"
// The system's headers need <windows.h>, which the header above includes.
#include <shellapi.h>

#include <algorithm>
#include <memory>

#include "win32/com_objects.h"
#include "win32/owned_handle.h"
#include "win32/standard_streams.h"

namespace quorkit::native {
namespace {

/// The object behind a Handle.
struct Running {
    OwnedHandle process;
    OwnedHandle job;  // holds its group; null for a process without one
};

Running& runningOf(Handle handle) {
    return *reinterpret_cast<Running*>(handle);
}

ErrorCode startError() {
    switch (const ErrorCode code = lastError(); static_cast<DWORD>(code)) {
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_DIRECTORY:
        case ERROR_INVALID_PARAMETER:  // an empty line
            return kFileNotFound;
        case ERROR_BAD_EXE_FORMAT:
        case ERROR_EXE_MACHINE_TYPE_MISMATCH:
            return kAccessDenied;
        default:
            return code;
    }
}

Processes::Waited wait(Handle process, DWORD longest) {
    switch (::WaitForSingleObject(runningOf(process).process.get(), longest)) {
        case WAIT_OBJECT_0:
            return Processes::Waited::Ended;
        case WAIT_TIMEOUT:
            return Processes::Waited::TimedOut;
        default:
            return Processes::Waited::Failed;
    }
}

/// Waits, because programs end only some time after they are told to.
void waitForAll(HANDLE job) {
    constexpr int looks = 100;
    constexpr DWORD betweenLooks = 1;
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION about = {};
    for (int i = 0; i < looks; ++i) {
        if (!::QueryInformationJobObject(job, JobObjectBasicAccountingInformation, &about,
                                         sizeof about, nullptr) ||
            about.ActiveProcesses == 0)
            return;
        ::Sleep(betweenLooks);
    }
}

}  // namespace

ErrorCode NativeProcesses::CreateProcessA(const String& commandLine, const String& title,
                                          Ending ending, Handle& process) {
    if (commandLine.find(u'\0') != String::npos) return kInvalidName;
    String line = commandLine;  // the call changes it
    String windowTitle = title;
    const StandardStreams streams;
    STARTUPINFOEXW record = {};
    record.StartupInfo.cb = sizeof record;
    if (!title.empty()) record.StartupInfo.lpTitle = wide(windowTitle);
    streams.enter(record);
    auto running = std::make_unique<Running>();
    if (ending == Ending::WithItsGroup) running->job.reset(::CreateJobObjectW(nullptr, nullptr));
    PROCESS_INFORMATION made = {};
    // It starts suspended, so that it is in its group before it can start anything.
    if (!::CreateProcessW(nullptr, wide(line), nullptr, nullptr, streams.any() ? TRUE : FALSE,
                          NORMAL_PRIORITY_CLASS | EXTENDED_STARTUPINFO_PRESENT | CREATE_SUSPENDED,
                          nullptr, nullptr, &record.StartupInfo, &made))
        return startError();
    running->process.reset(made.hProcess);
    const OwnedHandle thread(made.hThread);
    // On a system where groups cannot be nested, the process has no group.
    if (running->job != nullptr && !::AssignProcessToJobObject(running->job.get(), made.hProcess))
        running->job.reset();
    ::ResumeThread(made.hThread);
    process = Handle(reinterpret_cast<std::intptr_t>(running.release()));
    return kSuccess;
}

Processes::Waited NativeProcesses::WaitForSingleObject(
    Handle process, std::optional<std::chrono::milliseconds> longest) {
    constexpr std::int64_t mostToWait = INFINITE - 1;
    return wait(process, longest ? static_cast<DWORD>(
                                       std::clamp<std::int64_t>(longest->count(), 0, mostToWait))
                                 : INFINITE);
}

ErrorCode NativeProcesses::GetExitCodeProcess(Handle process, Long& code) {
    DWORD found = 0;
    if (!::GetExitCodeProcess(runningOf(process).process.get(), &found)) return lastError();
    code = static_cast<Long>(found);
    return kSuccess;
}

ErrorCode NativeProcesses::EndProcess(Handle process) {
    const Running& running = runningOf(process);
    const HANDLE own = running.process.get();
    if (running.job != nullptr) {
        if (!::TerminateJobObject(running.job.get(), 0)) return lastError();
        waitForAll(running.job.get());
    } else if (!::TerminateProcess(own, 0)) {
        const ErrorCode code = lastError();
        return wait(process, 0) == Waited::Ended ? kSuccess : code;
    }
    ::WaitForSingleObject(own, INFINITE);
    return kSuccess;
}

void NativeProcesses::CloseHandle(Handle process) {
    const std::unique_ptr<Running> closed(&runningOf(process));
}

ErrorCode NativeProcesses::HandToDesktop(const String& target) {
    if (target.find(u'\0') != String::npos) return kInvalidName;
    const Objects objects;
    SHELLEXECUTEINFOW order = {};
    order.cbSize = sizeof order;
    // The handler may use this thread, so it must finish here: the thread may end, and handles no
    // events.
    order.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    order.lpVerb = L"open";
    order.lpFile = wide(target);
    order.nShow = SW_SHOWNORMAL;
    if (::ShellExecuteExW(&order)) return kSuccess;
    switch (const auto answer = reinterpret_cast<INT_PTR>(order.hInstApp); answer) {
        case SE_ERR_NOASSOC:
        case SE_ERR_ASSOCINCOMPLETE:
            return kFileNotFound;
        case 0:
            return kGeneralFailure;  // out of memory
        default:
            return static_cast<ErrorCode>(answer);
    }
}

}  // namespace quorkit::native
