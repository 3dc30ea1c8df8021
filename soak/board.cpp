#include "board.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>

namespace quorkit::soak {

std::uint64_t now() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(sinceStart).count());
}

Board::Board(const Job& job) : descriptor_(memfd_create("soak", MFD_CLOEXEC)) {
    if (descriptor_ == -1 || ftruncate(descriptor_, sizeof(Page)) != 0)
        throw std::system_error(errno, std::generic_category(), "memory to share");
    map(descriptor_);
    page_->job = job;
}

Board::~Board() {
    munmap(page_, sizeof(Page));
    closeDescriptor();
}

void Board::closeDescriptor() {
    if (descriptor_ != -1) close(descriptor_);
    descriptor_ = -1;
}

void Board::map(int descriptor) {
    void* memory = mmap(nullptr, sizeof(Page), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    if (memory == MAP_FAILED)
        throw std::system_error(errno, std::generic_category(), "memory to share");
    page_ = static_cast<Page*>(memory);
}

void Board::begin(std::uint32_t step) {
    page_->steps[step].begun = now();
    page_->steps[step].outcome = Outcome::UnderWay;
    page_->reached = step + 1;
}

void Board::end(std::uint32_t step, Outcome outcome, const std::string& reason) {
    if (!reason.empty())
        *std::copy_n(reason.data(), std::min(reason.size(), sizeof page_->reason - 1),
                     page_->reason) = '\0';
    page_->steps[step].outcome = outcome;
    page_->steps[step].ended = now();
}

}  // namespace quorkit::soak
