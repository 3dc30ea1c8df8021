#include <fcntl.h>
#include <quorkit/GQuorRegistry.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/registry.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "base/unicode.h"
#include "foreign.h"
#include "limits.h"
#include "store_crew.h"
#include "worker.h"

namespace quorkit::soak {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kDiskSize = 1 << 20;

/// The content of the store before anybody writes; all of it must stay.
class Surroundings {
   public:
    virtual ~Surroundings() = default;
    virtual void check() = 0;
};

class IniSurroundings final : public Surroundings {
   public:
    IniSurroundings(Round& round, const std::string& file)
        : round_(round), file_(file), before_(foreignIni(round.random())) {
        std::ofstream(file, std::ios::binary) << before_;
    }

    void check() override {
        // The next change removes what a killed process has left beside the file.
        QuorInifile ini;
        ini.setIniFileName(base::fromUtf8(file_));
        if (ini.WriteKeyValue(u"Shared", u"w9.last", u"1") == 0)
            round_.fault("the file cannot be written at the end: " + ports::takeReason());
        const std::string damage = iniDamage(before_, contentOf(file_));
        if (!damage.empty()) round_.fault("what others have written is damaged:\n" + damage);
        for (const auto& entry : fs::directory_iterator(round_.folder()))
            if (entry.path() != file_) round_.fault("left behind: " + entry.path().string());
    }

   private:
    Round& round_;
    std::string file_;
    std::string before_;
};

class RegistrySurroundings final : public Surroundings {
   public:
    explicit RegistrySurroundings(Round& round)
        : round_(round), root_(round.file("quorkit/registry")) {
        setenv("XDG_DATA_HOME", round.folder().c_str(), 1);
        GQuorRegistry().Reg_WriteStringValue(shared(), u"OfOthers", u"value");
        std::ofstream(values(), std::ios::binary | std::ios::app) << foreignValues();
        before_ = contentOf(values());
    }

    void check() override {
        touch(u"HKCU\\Software");
        const std::string damage = valuesDamage(before_, contentOf(values()));
        if (!damage.empty()) round_.fault("what others have written is damaged:\n" + damage);
        for (const RegistryDamage& one : ports::native().registry.FindDamage())
            if (const std::string place = base::toUtf8(one.place); place.starts_with(root_))
                round_.fault(place + ": " + base::toUtf8(one.what));
        for (const auto& entry : fs::recursive_directory_iterator(root_)) {
            const std::string name = entry.path().filename();
            if (name == "@values.new" || name == "@new" || name == "@old")
                round_.fault("left behind: " + entry.path().string());
        }
    }

   private:
    static String shared() { return u"HKCU\\Software\\Soak\\Shared"; }
    std::string values() const { return root_ + "/software/soak/shared/@values"; }

    /// Changes something in every key, which removes what killed processes have left there.
    void touch(const String& path) {
        GQuorRegistry registry;
        if (!registry.Reg_WriteStringValue(path + u"\\z", u"w9.last", u"1"))
            round_.fault("a key cannot be written at the end: " + ports::takeReason());
        registry.Reg_DeletePath(path + u"\\z");
        registry.Reg_WriteStringValue(path, u"w9.last", u"1");
        registry.Reg_DeleteKey(path, u"w9.last");
        Array<String> keys;
        if (registry.Reg_EnumSubPaths(path, keys) > 0)
            for (const String& key : keys.elements()) touch(path + u"\\" + key);
    }

    Round& round_;
    std::string root_;
    std::string before_;
};

/// Whether the file system can make files without names; then a killed process leaves none.
bool makesFilesWithoutNames(const std::string& folder) {
    const int descriptor = open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (descriptor != -1) close(descriptor);
    return descriptor != -1;
}

/// Stops a worker in the middle of a step. Workers that wait for it must finally be told so.
void stopOne(Round& round, StoreCrew& crew) {
    const std::uint32_t stopped = round.random().below(crew.size());
    crew.process(stopped).awaitStart();
    round.sleep(10'000);
    crew.process(stopped).stop();
    std::this_thread::sleep_for(std::chrono::nanoseconds(2 * kNoticeable));
    crew.settle(&crew.process(stopped));
    crew.process(stopped).resume();
}

}  // namespace

void runStoreRound(Round& round, Role role, Trouble trouble) {
    if (trouble == Trouble::FullDisk && !round.mountDisk(kDiskSize)) {
        round.tally().skipped = "no right to mount a memory file system";
        return;
    }
    if (trouble == Trouble::Users && geteuid() != 0) {
        round.tally().skipped = "not the superuser";
        return;
    }
    std::unique_ptr<Surroundings> surroundings;
    if (role == Role::Registry)
        surroundings = std::make_unique<RegistrySurroundings>(round);
    else
        surroundings = std::make_unique<IniSurroundings>(round, round.file("soak.ini"));
    if (trouble == Trouble::Users) round.giveTo(kOrdinaryUser);
    StoreCrew crew(round, round.job(role, "soak.ini"), trouble, 2 + round.random().below(3));
    while (!round.over() && !round.faulty()) {
        switch (trouble) {
            case Trouble::Stops:
                stopOne(round, crew);
                break;
            case Trouble::FullDisk:
                round.fillDisk(true);
                round.sleep(20'000);
                round.fillDisk(false);
                round.sleep(20'000);
                break;
            default:
                break;
        }
        // The worker that forks is the first one.
        const std::uint32_t spared = trouble == Trouble::Forks ? 1 : 0;
        crew.killAndCheck(spared + round.random().below(crew.size() - spared));
    }
    crew.calmDown();
    round.sleep(50'000);
    crew.end();
    surroundings->check();
}

void runNewFilesRound(Round& round) {
    Job job = round.job(Role::NewFiles, "new");
    for (; !round.over() && !round.faulty(); ++job.incarnation) {
        Process process(job);
        process.awaitStart();
        round.sleep(10'000);
        if (process.kill()) ++round.tally().kills;
        for (std::uint32_t step = 0; step < process.board().reached(); ++step) {
            const std::string name = newFileOf(job, step);
            const std::string expected = newKeyOf(job.worker, step) + "=" + newValueOf(step);
            const bool done = process.board().step(step).outcome == Outcome::Done;
            if (done) ++round.tally().calls;
            const bool there = fs::exists(name);
            const std::string content = contentOf(name);
            if (there ? content.find(expected) == std::string::npos : done)
                round.fault((done ? "written, but " : "killed while it was made, and ") + name +
                            (there ? " has " + std::to_string(content.size()) + " bytes of it"
                                   : " is not there"));
        }
    }
    for (const auto& entry : fs::directory_iterator(round.folder()))
        if (makesFilesWithoutNames(round.folder()) && entry.path().extension() != ".ini")
            round.fault("left behind: " + entry.path().string());
}

}  // namespace quorkit::soak
