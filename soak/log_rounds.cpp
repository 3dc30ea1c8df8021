#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>
#include <vector>

#include "base/unicode.h"
#include "limits.h"
#include "log_check.h"
#include "process.h"
#include "rounds.h"

namespace quorkit::soak {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kLimit = 50'000;
constexpr std::uint32_t kSmallDisk = 65'536;
constexpr std::uint32_t kDisk = 8 << 20;
/// In one round; far less than the disk has.
constexpr std::uintmax_t kMostWritten = 64 << 20;
constexpr std::uintmax_t kMostWrittenToDisk = 2 << 20;

/// The writers of a log, including those that have ended.
class LogCrew {
   public:
    LogCrew(Round& round, Trouble trouble)
        : round_(round),
          trouble_(trouble),
          limited_(trouble == Trouble::Limits || trouble == Trouble::SmallDisk ||
                   (trouble == Trouble::Stops && round.random().oneIn(2))),
          marked_(mayBeMarked() && round.random().oneIn(2)) {
        std::ofstream out(file(), std::ios::binary);
        if (marked_) out << base::kUtf8Mark;
    }

    void startAll() {
        workers_.resize(2 + round_.random().below(3));
        for (std::uint32_t worker = 0; worker < size(); ++worker) start(worker);
    }
    void run();
    void finish();

   private:
    /// Emptying the file removes its mark, which the other writers need not notice.
    bool mayBeMarked() const {
        return trouble_ == Trouble::None || trouble_ == Trouble::Kills || limited_;
    }
    std::uint32_t size() const { return static_cast<std::uint32_t>(workers_.size()); }
    std::string file() const { return round_.file("soak.log"); }

    Process& start(std::uint32_t worker, bool append = true);
    void killOne();
    void restartEnded();
    void stopOne();
    /// As StoreCrew::settle.
    void settle(const Process* stopped = nullptr);
    void replace();
    void rotate();
    void empty();

    Round& round_;
    Trouble trouble_;
    bool limited_;
    bool marked_;
    std::vector<Process*> workers_;              ///< the present ones
    std::vector<std::unique_ptr<Process>> all_;  ///< these and the past ones
    std::vector<std::string> rotated_;
    LogRules rules_;
};

Process& LogCrew::start(std::uint32_t worker, bool append) {
    constexpr std::uint32_t steps = 2000;
    Random& random = round_.random();
    Job job = round_.job(Role::Log, "soak.log");
    job.steps = steps;
    job.worker = worker;
    job.incarnation = static_cast<std::uint32_t>(all_.size());
    job.append = append;
    job.autoOpenClose = random.oneIn(2);
    job.marked = marked_;
    job.prefixes = random.oneIn(3);
    if (limited_ ? trouble_ == Trouble::SmallDisk || !random.oneIn(4) : random.oneIn(3))
        job.limit = limited_ ? kLimit : INT32_MAX;
    if (!limited_ && trouble_ != Trouble::FullDisk) job.longOneIn = random.oneIn(2) ? 10 : 300;
    job.forks = trouble_ == Trouble::Forks && worker == 0;
    if (trouble_ == Trouble::Users && worker % 2 == 0) job.user = kOrdinaryUser;
    all_.push_back(std::make_unique<Process>(job));
    return *(workers_[worker] = all_.back().get());
}

void LogCrew::killOne() {
    // The worker that forks is the first one.
    const std::uint32_t spared = trouble_ == Trouble::Forks ? 1 : 0;
    const std::uint32_t worker = spared + round_.random().below(size() - spared);
    workers_[worker]->awaitStart();
    round_.sleep(10'000);
    if (workers_[worker]->kill()) ++round_.tally().kills;
    start(worker);
}

void LogCrew::restartEnded() {
    for (std::uint32_t worker = 0; worker < size(); ++worker)
        if (!workers_[worker]->runs()) start(worker);
}

void LogCrew::settle(const Process* stopped) {
    for (Process* process : workers_) {
        if (process != stopped && !process->moves())
            round_.fault("worker " + std::to_string(process->job().worker) +
                         " waits without end to write an entry");
    }
}

void LogCrew::stopOne() {
    Process& stopped = *workers_[round_.random().below(size())];
    stopped.awaitStart();
    round_.sleep(5'000);
    stopped.stop();
    std::this_thread::sleep_for(std::chrono::nanoseconds(2 * kNoticeable));
    settle(&stopped);
    stopped.resume();
}

/// Replaces the log by another file, here an empty one, as an editor does when it saves.
void LogCrew::replace() {
    const std::string beside = round_.file("beside");
    std::ofstream(beside, std::ios::binary).close();
    fs::rename(beside, file());
    rules_.cleared = now();
}

void LogCrew::rotate() {
    rotated_.push_back(round_.file("soak.log." + std::to_string(rotated_.size())));
    std::error_code error;
    fs::rename(file(), rotated_.back(), error);
    if (error) rotated_.pop_back();  // nobody has made it again yet
}

/// Starts a worker with Append False, which empties the file in its first step.
void LogCrew::empty() {
    const std::uint32_t worker = round_.random().below(size());
    if (workers_[worker]->kill()) ++round_.tally().kills;
    Process& process = start(worker, false);
    const Step& first = process.board().step(0);
    process.awaitStart();
    while (first.ended == 0 && process.runs() && process.moves())
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    rules_.cleared = first.ended != 0 ? first.ended.load() : now();
}

void LogCrew::run() {
    if (trouble_ == Trouble::Emptying || trouble_ == Trouble::Replacing) {
        // Only once: older entries may be gone afterwards, so only the newer ones are checked.
        round_.sleep(50'000);
        for (Process* process : workers_) process->awaitStart();
        trouble_ == Trouble::Emptying ? empty() : replace();
        round_.sleep(100'000);
        return;
    }
    const auto most = trouble_ == Trouble::FullDisk ? kMostWrittenToDisk : kMostWritten;
    std::error_code error;
    while (!round_.over() && !round_.faulty() && fs::file_size(file(), error) + 1 < most) {
        round_.sleep(20'000);
        switch (trouble_) {
            case Trouble::Kills:
            case Trouble::Limits:
            case Trouble::Users:
                killOne();
                break;
            case Trouble::Stops:
                stopOne();
                break;
            case Trouble::FullDisk:
                round_.fillDisk(true);
                round_.sleep(20'000);
                round_.fillDisk(false);
                break;
            case Trouble::Rotating:
                rotate();
                break;
            default:
                break;
        }
        restartEnded();
    }
    // From now on there is space on the disk, and no process is stopped.
    if (trouble_ == Trouble::FullDisk || trouble_ == Trouble::Stops) rules_.calm = now();
    if (trouble_ == Trouble::SmallDisk) rules_.calm = UINT64_MAX;
    round_.sleep(50'000);
}

void LogCrew::finish() {
    settle();
    for (Process* process : workers_) {
        if (!process->end() && !round_.faulty())
            round_.fault("worker " + std::to_string(process->job().worker) +
                         " waits without end to write an entry");
        if (process->kill()) ++round_.tally().kills;
    }
    std::vector<const Board*> boards;
    for (const auto& process : all_) {
        if (process->failed()) round_.fault("a worker has crashed");
        boards.push_back(&process->board());
    }
    rules_.limited = limited_;
    std::vector<std::string> files;
    for (const std::string& name : rotated_) files.push_back(contentOf(name));
    files.push_back(contentOf(file()));
    if (marked_ && !files.back().starts_with(base::kUtf8Mark))
        round_.fault("the byte-order mark is gone");
    const LogFindings findings = checkLog(files, boards, rules_);
    round_.tally().calls += findings.acknowledged;
    round_.tally().refused += findings.dropped;
    round_.tally().torn += findings.torn;
    if (trouble_ == Trouble::SmallDisk && findings.dropped > findings.acknowledged / 10)
        round_.fault(std::to_string(findings.dropped) + " of " +
                     std::to_string(findings.acknowledged) + " entries were refused");
    for (const std::string& one : findings.told) round_.fault(one);
    if (findings.faults() > findings.told.size())
        round_.fault(std::to_string(findings.faults()) + " in all: " +
                     std::to_string(findings.lost) + " lost, " + std::to_string(findings.broken) +
                     " broken, " + std::to_string(findings.continued) + " continued, " +
                     std::to_string(findings.wrong) + " twice, disordered or nobody's");
}

}  // namespace

void runLogRound(Round& round, Trouble trouble) {
    const bool small = trouble == Trouble::SmallDisk;
    if ((small || trouble == Trouble::FullDisk) && !round.mountDisk(small ? kSmallDisk : kDisk)) {
        round.tally().skipped = "no right to mount a memory file system";
        return;
    }
    if (trouble == Trouble::Users && geteuid() != 0) {
        round.tally().skipped = "not the superuser";
        return;
    }
    do {
        LogCrew crew(round, trouble);
        if (trouble == Trouble::Users) round.giveTo(kOrdinaryUser);
        crew.startAll();
        crew.run();
        crew.finish();
    } while (!round.over() && !round.faulty());
}

}  // namespace quorkit::soak
