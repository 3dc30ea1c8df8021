#include "store_crew.h"

namespace quorkit::soak {

StoreCrew::StoreCrew(Round& round, Job job, Trouble trouble, std::uint32_t workers)
    : round_(round), trouble_(trouble), store_(storeOf(job.role, job.file)), members_(workers) {
    for (Member& member : members_) {
        member.job = job;
        member.job.worker = job.worker++;
        member.job.forks = trouble == Trouble::Forks && member.job.worker == 0;
        if (trouble == Trouble::Users && member.job.worker % 2 == 0)
            member.job.user = kOrdinaryUser;
        start(member);
    }
}

void StoreCrew::start(Member& member) {
    member.process = std::make_unique<Process>(member.job);
    ++member.job.incarnation;
}

void StoreCrew::killAndCheck(std::uint32_t worker) {
    Member& member = members_[worker];
    member.process->awaitStart();
    round_.sleep(10'000);
    if (member.process->kill()) ++round_.tally().kills;
    check(member);
    start(member);
}

void StoreCrew::settle(const Process* stopped) {
    for (Member& member : members_) {
        Process& process = *member.process;
        if (&process == stopped || process.moves()) continue;
        round_.fault(nameOf(process) + " waits without end, at: " +
                     describe(changeOf(process.job(), process.board().reached() - 1)));
    }
}

void StoreCrew::end() {
    settle();
    for (Member& member : members_) {
        if (!member.process->end() && !round_.faulty())
            round_.fault(nameOf(*member.process) + " waits without end");
        if (member.process->kill()) ++round_.tally().kills;
    }
    for (Member& member : members_) check(member);
}

void StoreCrew::check(Member& member) {
    if (member.process->failed()) round_.fault(nameOf(*member.process) + " has crashed");
    compare(member, replay(member));
}

bool StoreCrew::expected(const Step& refused) const {
    if (refused.begun >= calm_) return false;
    return trouble_ == Trouble::FullDisk ||
           (trouble_ == Trouble::Stops && refused.outcome == Outcome::Refused);
}

std::string StoreCrew::nameOf(const Process& process) const {
    return "worker " + std::to_string(process.job().worker);
}

std::optional<Change> StoreCrew::replay(Member& member) {
    const Job& job = member.process->job();
    const Board& board = member.process->board();
    for (std::uint32_t number = job.first; number < board.reached(); ++number) {
        const Outcome outcome = board.step(number).outcome;
        Change change = changeOf(job, number);
        if (outcome == Outcome::NotBegun) break;
        if (outcome == Outcome::UnderWay) return change;
        ++round_.tally().calls;
        if (outcome == Outcome::Done) {
            apply(change, member.state);
            continue;
        }
        ++round_.tally().refused;
        if (!inOneStep(job.role, change)) loosen(change, member.state);
        if (!expected(board.step(number)))
            round_.fault(nameOf(*member.process) + " was refused, " +
                         (outcome == Outcome::RefusedSilently ? "no reason given"
                                                              : "reason: " + board.reason()) +
                         ", at: " + describe(change));
    }
    return std::nullopt;
}

void StoreCrew::compare(Member& member, const std::optional<Change>& underWay) {
    const Job& job = member.process->job();
    std::map<Name, String> actual;
    for (const Name& name : namesOf(job.role, job.worker))
        if (auto value = store_->read(name)) actual.emplace(name, std::move(*value));
    if (underWay && !inOneStep(job.role, *underWay)) loosen(*underWay, member.state);
    std::string wrong = difference(member.state, actual);
    if (!wrong.empty() && underWay && inOneStep(job.role, *underWay)) {
        State after = member.state;
        apply(*underWay, after);
        if (difference(after, actual).empty()) wrong.clear();
    }
    if (!wrong.empty())
        round_.fault(nameOf(*member.process) + " finds after " +
                     std::to_string(member.process->board().reached()) + " steps (" +
                     (underWay ? "killed at: " + describe(*underWay) : std::string("ended")) +
                     ")\n" + wrong);
    member.state.values = std::move(actual);
    member.state.loose.clear();
}

}  // namespace quorkit::soak
