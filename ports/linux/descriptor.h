// A file descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace quorkit::native {

class Descriptor {
   public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() {
        if (number_ != -1) close(number_);
    }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    explicit operator bool() const { return number_ != -1; }

   private:
    int number_;
};

}  // namespace quorkit::native
