// The peers and this library at the same work: four processes add keys to one file, or write one
// log. They run undisturbed, and then they are all killed at once, again and again.
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <vector>

#include "log_check.h"
#include "process.h"
#include "rounds.h"
#include "worker.h"

namespace quorkit::soak {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kWriters = 4;
constexpr std::uint32_t kKeysEach = 100;
constexpr std::uint32_t kEntries = 5000;
constexpr std::uint32_t kKills = 40;

std::set<std::string> linesOf(const std::string& file) {
    std::set<std::string> lines;
    std::ifstream in(file, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
        // Some writers put blanks around "=".
        if (const std::size_t blanks = line.find(" = "); blanks != std::string::npos)
            line.replace(blanks, 3, "=");
        lines.insert(line);
    }
    return lines;
}

/// The first content of the file of keys: lines that every peer can read.
constexpr std::array kComments = {"# a comment by hand", "# another one"};
constexpr std::uint32_t kForeignKeys = 200;

void makeKeyFile(const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    out << kComments[0] << "\n[Shared]\n" << kComments[1] << "\n";
    for (std::uint32_t key = 0; key < kForeignKeys; ++key) out << "foreign" << key << "=x\n";
}

std::uint32_t foreignKeysIn(const std::set<std::string>& lines) {
    std::uint32_t found = 0;
    for (std::uint32_t key = 0; key < kForeignKeys; ++key)
        found += lines.contains("foreign" + std::to_string(key) + "=x") ? 1 : 0;
    return found;
}

std::string numberOf(std::uint64_t number) {
    return std::to_string(number);
}

/// The results for the keys of one peer.
struct Keys {
    std::uint64_t written = 0, lost = 0, kills = 0, broken = 0;
    bool commentsKept = true;
    std::uint64_t filesLeft = 0;
};

class KeyRound {
   public:
    KeyRound(Round& round, Role role) : round_(round), role_(role) {
        makeKeyFile(round.file("keys.ini"));
        for (std::uint32_t worker = 0; worker < kWriters; ++worker) next_.push_back(0);
    }

    Keys run(std::uint32_t kills) {
        for (; keys_.kills < kills && !finished(); ++keys_.kills) {
            const auto writers = startAll();
            for (const auto& writer : writers) writer->awaitStart();
            round_.sleep(20'000);
            for (const auto& writer : writers) writer->kill();
            note(writers);
            keys_.broken += foreignKeysIn(linesOf(file())) != kForeignKeys ? 1 : 0;
        }
        const auto writers = startAll();
        for (const auto& writer : writers) writer->end(Process::kAll);
        note(writers);
        const std::set<std::string> lines = linesOf(file());
        for (const std::string& key : told_) keys_.lost += lines.contains(key) ? 0 : 1;
        keys_.written = told_.size();
        for (const char* comment : kComments) keys_.commentsKept &= lines.contains(comment);
        for (const auto& entry : fs::directory_iterator(round_.folder()))
            keys_.filesLeft += entry.path() != file() ? 1 : 0;
        return keys_;
    }

   private:
    std::string file() const { return round_.file("keys.ini"); }
    bool finished() const { return *std::min_element(next_.begin(), next_.end()) == kKeysEach; }

    std::vector<std::unique_ptr<Process>> startAll() {
        std::vector<std::unique_ptr<Process>> writers;
        for (std::uint32_t worker = 0; worker < kWriters; ++worker) {
            Job job = round_.job(role_, "keys.ini");
            job.worker = worker;
            job.first = next_[worker];
            job.steps = kKeysEach;
            writers.push_back(std::make_unique<Process>(job));
        }
        return writers;
    }

    /// Notes the keys reported as written, and the step at which each writer continues.
    void note(const std::vector<std::unique_ptr<Process>>& writers) {
        for (const auto& writer : writers)
            for (std::uint32_t& step = next_[writer->job().worker];
                 step < kKeysEach && writer->board().step(step).outcome == Outcome::Done; ++step)
                told_.insert(newKeyOf(writer->job().worker, step) + "=" + newValueOf(step));
    }

    Round& round_;
    Role role_;
    std::vector<std::uint32_t> next_;
    std::set<std::string> told_;
    Keys keys_;
};

LogFindings runLog(Round& round, Job job, std::uint32_t kills) {
    std::vector<std::unique_ptr<Process>> all;
    const auto startAll = [&] {
        for (job.worker = 0; job.worker < kWriters; ++job.worker)
            all.push_back(std::make_unique<Process>(job));
        ++job.incarnation;
    };
    for (std::uint32_t killed = 0; killed < kills; ++killed) {
        startAll();
        all.back()->awaitStart();
        round.sleep(20'000);
        for (const auto& one : all) one->kill();
    }
    if (kills == 0) startAll();
    std::vector<const Board*> boards;
    for (const auto& one : all) {
        one->end(Process::kAll);
        boards.push_back(&one->board());
    }
    return checkLog({contentOf(job.file)}, boards, {});
}

}  // namespace

void runPeers(Report& report, std::uint64_t seed) {
    Tally nobodys;  // what peers lose is no fault of ours
    struct Peer {
        const char* name;
        Role role;
        bool flag;
    };
    report.addPeers("Four processes add " + numberOf(kKeysEach) + " keys each to one file of " +
                        numberOf(kForeignKeys) +
                        " keys and two comments; then all are killed at once " + numberOf(kKills) +
                        " times.",
                    {"Writer", "Keys written", "Lost", "Comments", "Written, with kills", "Lost",
                     "File broken", "Files left"});
    for (const Peer& peer : {Peer{"quorkit, `WriteKeyValue`", Role::IniKeys, false},
                             Peer{"GLib, `g_key_file_save_to_file`", Role::GKeyFile, false},
                             Peer{"Python, `configparser`", Role::Configparser, false}}) {
        Round calm(nobodys, seed, 0);
        const Keys plain = KeyRound(calm, peer.role).run(0);
        Round wild(nobodys, seed, 0);
        const Keys killed = KeyRound(wild, peer.role).run(kKills);
        report.addPeer({peer.name, numberOf(plain.written), numberOf(plain.lost),
                        plain.commentsKept ? "kept" : "lost", numberOf(killed.written),
                        numberOf(killed.lost),
                        numberOf(killed.broken) + " of " + numberOf(killed.kills),
                        numberOf(killed.filesLeft)});
    }
    report.addPeers("Four processes write " + numberOf(kEntries) +
                        " entries each to one log; then all are killed at once " +
                        numberOf(kKills) + " times.",
                    {"Writer", "Entries written", "Lost", "Broken or in another's line",
                     "Written, with kills", "Lost", "Broken or in another's line"});
    for (const Peer& peer : {Peer{"quorkit, opened for each entry", Role::Log, true},
                             Peer{"quorkit, kept open", Role::Log, false},
                             Peer{"spdlog, `basic_file_sink`, `flush_on`", Role::Spdlog, true},
                             Peer{"spdlog, `basic_file_sink`", Role::Spdlog, false}}) {
        Round calm(nobodys, seed, 0);
        Job job = calm.job(peer.role, "peer.log");
        job.autoOpenClose = job.flush = peer.flag;
        job.steps = kEntries;
        const LogFindings plain = runLog(calm, job, 0);
        Round wild(nobodys, seed, 0);
        Job again = wild.job(peer.role, "peer.log");
        again.autoOpenClose = again.flush = peer.flag;
        const LogFindings killed = runLog(wild, again, kKills);
        report.addPeer({peer.name, numberOf(plain.acknowledged), numberOf(plain.lost),
                        numberOf(plain.broken + plain.continued + plain.wrong),
                        numberOf(killed.acknowledged), numberOf(killed.lost),
                        numberOf(killed.broken + killed.continued + killed.wrong)});
    }
}

}  // namespace quorkit::soak
