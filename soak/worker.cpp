#include "worker.h"

#include <quorkit/QuorInifile.h>
#include <quorkit/QuorLogFile.h>
#include <quorkit/ports/ports.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <memory>
#include <thread>

#include "base/unicode.h"
#include "log_entries.h"
#include "random.h"

namespace quorkit::soak {
namespace {

Perform storeWriter(const Job& job) {
    const std::shared_ptr<Store> store = storeOf(job.role, job.file);
    return [store, job](std::uint32_t step) { return store->perform(changeOf(job, step)); };
}

/// Writes a new key at each step, into one file or into a new one.
Perform newKeyWriter(const Job& job) {
    const auto ini = std::make_shared<QuorInifile>();
    ini->setIniFileName(base::fromUtf8(job.file));
    return [ini, job](std::uint32_t step) {
        if (job.role == Role::NewFiles) ini->setIniFileName(base::fromUtf8(newFileOf(job, step)));
        const Long result =
            ini->WriteKeyValue(u"Shared", base::fromUtf8(newKeyOf(job.worker, step)),
                               base::fromUtf8(newValueOf(step)));
        return result != 0 ? Answer::Yes : Answer::No;
    };
}

Perform writerOf(const Job& job) {
    switch (job.role) {
        case Role::Log:
            return logWriter(job);
        case Role::Spdlog:
            return spdlogWriter(job);
        case Role::GKeyFile:
            return keyFileWriter(job);
        case Role::IniKeys:
        case Role::NewFiles:
            return newKeyWriter(job);
        default:
            return storeWriter(job);
    }
}

Outcome outcomeOf(Answer answer, bool reason) {
    switch (answer) {
        case Answer::Yes:
            return Outcome::Done;
        case Answer::No:
            return reason ? Outcome::Refused : Outcome::RefusedSilently;
        default:
            return reason ? Outcome::DoneWithReason : Outcome::Done;
    }
}

void takeSteps(Board& board) {
    const Job& job = board.job();
    const Perform perform = writerOf(job);
    for (std::uint32_t step = job.first; step < job.steps && !board.shallEnd(); ++step) {
        board.begin(step);
        const Answer answer = perform(step);
        const std::string reason = ports::takeReason();
        board.end(step, outcomeOf(answer, !reason.empty()), reason);
    }
}

/// Makes children that only keep open what this process has open, until its group is killed.
void makeChildren(const std::atomic<bool>& finished, std::uint64_t seed) {
    constexpr int most = 100;
    Random random{seed};
    for (int made = 0; made < most && !finished; ++made) {
        if (fork() == 0)
            for (;;) pause();
        std::this_thread::sleep_for(std::chrono::microseconds(random.below(20'000)));
    }
}

}  // namespace

Perform logWriter(const Job& job) {
    const auto log = std::make_shared<QuorLogFile>();
    log->setLogFileName(base::fromUtf8(job.file));
    log->setAppend(job.append);
    log->setAutoOpenClose(job.autoOpenClose);
    log->setMaxFileSize(job.limit);
    log->setLogLevel(eLogEntryType_Information);
    if (job.prefixes)
        log->setLogFormat(static_cast<eLogFormat>(eLogFormat_DateTime | eLogFormat_MsgLevel));
    return [log, job](std::uint32_t step) {
        if (opensFirst(job) && step == job.first)
            return log->OpenLogfile() ? Answer::Yes : Answer::No;
        String entry = entryOf(job, step);
        log->writeLogfileEntry(entry, eLogEntryType_Information);
        return Answer::Unsaid;
    };
}

std::string newKeyOf(std::uint32_t worker, std::uint32_t step) {
    return "w" + std::to_string(worker) + ".k" + std::to_string(step) + "x";
}

std::string newValueOf(std::uint32_t step) {
    return "v" + std::to_string(step);
}

std::string newFileOf(const Job& job, std::uint32_t step) {
    return std::string(job.file) + "-" + std::to_string(job.worker) + "-" +
           std::to_string(job.incarnation) + "-" + std::to_string(step) + ".ini";
}

int work(int descriptor) {
    Board board(descriptor);
    std::atomic<bool> finished = false;
    std::thread writer([&] {
        takeSteps(board);
        finished = true;
    });
    if (board.job().forks) makeChildren(finished, board.job().seed);
    writer.join();
    return 0;
}

}  // namespace quorkit::soak
