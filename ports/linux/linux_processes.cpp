#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <span>
#include <vector>

#include "base/command_line.h"
#include "linux/child_process.h"
#include "linux/linux_names.h"
#include "linux/name_text.h"
#include "linux/start_program.h"
#include "native/native_processes.h"

namespace quorkit::native {
namespace {

/// Programs that run on without a handle. Each is removed from the kernel's table at the first
/// check after its end.
class Released {
   public:
    void add(std::unique_ptr<Process> process) {
        const std::scoped_lock lock(mutex_);
        processes_.push_back(std::move(process));
    }
    void look() {
        const std::scoped_lock lock(mutex_);
        std::erase_if(processes_, [](const auto& process) { return process->forget(); });
    }

   private:
    std::mutex mutex_;
    std::vector<std::unique_ptr<Process>> processes_;
};

Released& released() {
    static auto& all = *new Released;  // never destroyed: other threads may outlive static objects
    return all;
}

/// The first word for Start: a path, or a name to be found on PATH.
ErrorCode wordOfProgram(StringView name, std::string& word) {
    const bool hasDrive = name.size() > 1 && name[1] == u':';
    if (!hasDrive && name.find_first_of(u"\\/") == StringView::npos)
        return appendBytes(name, word) ? kSuccess : kInvalidName;
    if (const ErrorCode code = pathOf(String(name), word)) return code;
    if (word.find('/') == std::string::npos) word.insert(0, "./");
    return kSuccess;
}

/// `words` has a free place for the program, followed by the words behind it.
ErrorCode start(const Start& how, StringView program, std::span<std::string> words,
                pid_t& process) {
    words[0].clear();
    const ErrorCode code = wordOfProgram(program, words[0]);
    if (code == kPathNotFound) return kFileNotFound;
    return code == kSuccess ? how.run(words, process) : code;
}

}  // namespace

ErrorCode NativeProcesses::CreateProcessA(const String& commandLine, const String&, Ending ending,
                                          Handle& process) {
    released().look();
    if (commandLine.find(u'\0') != String::npos) return kInvalidName;
    const bool grouped = ending == Ending::WithItsGroup;
    Streams streams;
    if (grouped && isatty(STDIN_FILENO) == 1) streams.input = Streams::Nothing;
    const Start how(streams, grouped ? Session::Own : Session::Ours);
    ErrorCode answer = kFileNotFound;
    base::ProgramName program(commandLine);
    std::vector<std::string> words(1);
    for (const String& argument : base::splitArguments(program.behind()))
        if (!appendBytes(argument, words.emplace_back())) return kInvalidName;
    std::span<std::string> line = words;
    for (; !program.name().empty(); program.lengthen(), line = line.subspan(1)) {
        pid_t number = 0;
        const ErrorCode code = start(how, program.name(), line, number);
        if (code == kSuccess) {
            process = toHandle(std::make_unique<Process>(number, ending));
            return kSuccess;
        }
        if (code != kFileNotFound) answer = code;
        if (code != kFileNotFound && code != kAccessDenied) break;
    }
    return answer;
}

Processes::Waited NativeProcesses::WaitForSingleObject(
    Handle process, std::optional<std::chrono::milliseconds> longest) {
    if (!longest) {
        processOf(process).waitForItsEnd();
        return Waited::Ended;
    }
    constexpr std::chrono::milliseconds aYear = std::chrono::years(1);
    const auto deadline = std::chrono::steady_clock::now() + std::min(*longest, aYear);
    return processOf(process).hasEndedBy(deadline) ? Waited::Ended : Waited::TimedOut;
}

ErrorCode NativeProcesses::GetExitCodeProcess(Handle process, Long& code) {
    const auto known = processOf(process).exitCode();
    if (!known) return kGeneralFailure;
    code = *known;
    return kSuccess;
}

ErrorCode NativeProcesses::EndProcess(Handle process) {
    return processOf(process).end();
}

void NativeProcesses::CloseHandle(Handle process) {
    std::unique_ptr<Process> closed(&processOf(process));
    if (!closed->forget()) released().add(std::move(closed));
    released().look();
}

}  // namespace quorkit::native
