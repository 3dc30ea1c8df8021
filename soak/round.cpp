#include "round.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <vector>

namespace quorkit::soak {
namespace {

namespace fs = std::filesystem;

std::string newFolder() {
    std::string pattern = fs::temp_directory_path() / "quorkit-soak-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), pattern);
    return pattern;
}

}  // namespace

Round::Round(Tally& tally, std::uint64_t seed, std::uint64_t length)
    : tally_(tally), seed_(seed), random_{seed}, end_(now() + length), folder_(newFolder()) {
    fs::permissions(folder_, fs::perms(0755));
    ++tally_.rounds;
}

Round::~Round() {
    std::error_code error;
    const std::string kept = folder_ + "-kept";
    if (faulty()) {
        fs::copy(folder_, kept, fs::copy_options::recursive, error);
        std::printf("  the files are left in %s\n", kept.c_str());
    }
    if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
    fs::remove_all(folder_, error);
}

Job Round::job(Role role, const std::string& name) const {
    Job job;
    job.role = role;
    job.seed = seed_;
    job.steps = Board::kMostSteps;
    const std::string path = file(name);
    if (path.size() >= sizeof job.file) throw std::length_error(path);
    *std::copy_n(path.data(), path.size(), job.file) = '\0';
    return job;
}

bool Round::over() const {
    return now() > end_;
}

void Round::sleep(std::uint32_t mostMicroseconds) {
    std::this_thread::sleep_for(std::chrono::microseconds(random_.below(mostMicroseconds)));
}

bool Round::mountDisk(std::uint32_t size) {
    const std::string options = "size=" + std::to_string(size) + ",mode=0755";
    mounted_ = mount("soak", folder_.c_str(), "tmpfs", 0, options.c_str()) == 0;
    return mounted_;
}

void Round::fillDisk(bool full) {
    const std::string ballast = file("ballast");
    if (!full) {
        unlink(ballast.c_str());
        return;
    }
    const int descriptor = open(ballast.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    const std::vector<char> page(65536, 'x');
    while (write(descriptor, page.data(), page.size()) > 0) {
    }
    close(descriptor);
}

void Round::giveTo(uid_t user) {
    const auto give = [user](const std::string& path) {
        if (chown(path.c_str(), user, user) != 0)
            throw std::system_error(errno, std::generic_category(), path);
    };
    give(folder_);
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) give(entry.path());
}

void Round::fault(const std::string& what) {
    constexpr int mostTold = 3;
    if (faults_ == 0)
        std::printf("\n%s: round with --seed %llu\n", tally_.what.c_str(),
                    static_cast<unsigned long long>(seed_));
    if (++faults_ <= mostTold) std::printf("  %s\n", what.c_str());
    if (faults_ == mostTold + 1) std::puts("  and more");
    std::fflush(stdout);
    ++tally_.faults;
}

std::string contentOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace quorkit::soak
