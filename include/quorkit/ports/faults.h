// Makes chosen operations of any ports fail, so that a program can test that it loses nothing.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/ports/ports.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

namespace quorkit {

/// The order that says which calls fail, and how. Copies share the order and its counter, and so do
/// decorators that are given the same one. For one thread at a time.
///
/// A call that fails is not run. It returns the code; an operation that returns no code returns
/// false, 0, "" or an empty list. Its outputs stay as they are. Each decorator names its
/// exceptions. Operations that only give something back (EndListing, RegCloseKey, CloseHandle of a
/// process) or cannot fail (GetLocalTime, QueryPerformanceCounter) are passed on and not counted.
class Faults {
   public:
    /// Lets a future call fail with `code`: the call number `call`, counted from 1 over the
    /// operations whose names begin with `operation` (over all when it is empty). Call 0 means
    /// every call, call -1 none. With kSuccess an operation does nothing but reports success:
    /// answer(0, kSuccess, "Flush") spares the disk. Replaces the last order. `operation` must
    /// outlive the order.
    void answer(std::size_t call, ErrorCode code, std::string_view operation = {});
    /// The number of calls counted since the last order.
    std::size_t calls() const { return order_->calls; }

   protected:
    /// Counts a call and returns whether it fails.
    bool due(std::string_view operation);
    /// The code with which a call fails.
    ErrorCode code() const { return order_->code; }
    /// For operations that answer with a bool: whether the failing call reports success.
    bool done() const { return code() == kSuccess; }

   private:
    struct Order {
        std::size_t call = static_cast<std::size_t>(-1);
        ErrorCode code = kGeneralFailure;
        std::string_view operation;
        std::size_t calls = 0;
    };
    std::shared_ptr<Order> order_ = std::make_shared<Order>();
};

/// A port that passes every call on to the port beneath it, except for those that fail; see
/// decorators.h.
template <class Port>
class Decorator : public Port, public Faults {
   public:
    /// `inner` must outlive this.
    explicit Decorator(Port& inner, const Faults& faults = {}) : Faults(faults), inner_(inner) {}

   protected:
    template <class Result, class... Needed, class... Given>
    Result pass(std::string_view operation, Result (Port::*run)(Needed...), Given&&... given) {
        if (!due(operation)) return (inner_.*run)(std::forward<Given>(given)...);
        if constexpr (std::is_same_v<Result, ErrorCode>)
            return code();
        else if constexpr (std::is_same_v<Result, bool>)
            return done();
        else
            return Result();
    }

    Port& inner_;
};

/// A complete set of ports under one order, which counts the calls of all of them:
///
///     FaultyPorts faulty(ports);
///     faulty.answer(3, kDiskFull);  // the third call of any port
///     QuorInifile ini(faulty);
class FaultyPorts : public Faults {
   public:
    /// The ports of `inner` must outlive this.
    explicit FaultyPorts(const Ports& inner);
    ~FaultyPorts();
    FaultyPorts(const FaultyPorts&) = delete;
    FaultyPorts& operator=(const FaultyPorts&) = delete;

    operator Ports&();  // NOLINT(google-explicit-constructor): as the ports

   private:
    struct Decorators;
    std::unique_ptr<Decorators> decorators_;
};

}  // namespace quorkit
