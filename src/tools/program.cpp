#include <quorkit/GQuorProgram.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/processes.h>

#include <algorithm>
#include <chrono>

namespace quorkit {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Ending = Processes::Ending;
using Waited = Processes::Waited;

constexpr Long kFailed = -1;
constexpr Long kTimedOut = -9999;
constexpr milliseconds kBetweenLooks(100);

/// Starts a program, and closes its handle on every way out.
class Started {
   public:
    Started(Processes& processes, const String& line, const String& title, Ending ending)
        : processes_(processes), status_(processes.CreateProcessA(line, title, ending, process_)) {}
    ~Started() {
        if (status_ == kSuccess) processes_.CloseHandle(process_);
    }
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;

    bool runs() const { return status_ == kSuccess; }
    Handle handle() const { return process_; }

   private:
    Processes& processes_;
    Handle process_ = Handle::Invalid;
    ErrorCode status_;
};

}  // namespace

void GQuorProgram::ExecuteAndWait(const String& cmdline) {
    const Started program(ports_.processes, cmdline, {}, Ending::WithItself);
    if (program.runs()) ports_.processes.WaitForSingleObject(program.handle());
}

Long GQuorProgram::ExecuteAndWaitEx(const String& cmdline, const Optional<String>& WindowTitle,
                                    const Optional<Boolean, true>& bAllowEvents,
                                    const Optional<Long, 0>& iTimeOut) {
    Processes& processes = ports_.processes;
    const bool limited = *iTimeOut > 0;
    const auto start = steady_clock::now();
    const Started program(processes, cmdline, WindowTitle,
                          limited ? Ending::WithItsGroup : Ending::WithItself);
    if (!program.runs()) return kFailed;
    const auto wait = [&] {
        return processes.WaitForSingleObject(program.handle(), kBetweenLooks);
    };
    // Handling events may take long, so the time comes from the clock, which includes all waiting.
    milliseconds waitedFor = kBetweenLooks;
    Waited waited = wait();
    while (waited == Waited::TimedOut) {
        if (*bAllowEvents) ports_.host.DoEvents();
        waited = wait();
        waitedFor += kBetweenLooks;
        const auto passed =
            std::max<steady_clock::duration>(waitedFor, steady_clock::now() - start);
        if (limited && waited == Waited::TimedOut && passed > std::chrono::seconds(*iTimeOut)) {
            processes.EndProcess(program.handle());
            return kTimedOut;
        }
    }
    Long code = kFailed;
    if (waited != Waited::Ended || processes.GetExitCodeProcess(program.handle(), code) != kSuccess)
        return kFailed;
    return code;
}

}  // namespace quorkit
