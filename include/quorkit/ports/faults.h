// Lets chosen operations fail, on top of any ports: how a program finds out that it loses nothing.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/ports/ports.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

namespace quorkit {

/// Which calls fail, and how. Copies share the order and the counter, and so do the decorators that
/// are given one. For one thread at a time.
///
/// A call that fails is not run. It answers the code, or where its result is none, false, 0, "" or
/// an empty list; its outputs stay as they are. Each decorator says what it does otherwise.
/// EndListing, RegCloseKey and CloseHandle of a process only give something back, GetLocalTime and
/// QueryPerformanceCounter always have an answer: these are handed on and not counted.
class Faults {
   public:
    /// Call number `call` from now on, counted from 1 over the operations whose names begin with
    /// `operation` (all when empty), is not run and answers `code`; call 0 stands for every one.
    /// kSuccess makes an operation do nothing and report that it is done: answer(0, kSuccess,
    /// "Flush") spares the disk. Replaces the last order; call -1 is no order. `operation` must
    /// live as long as the order.
    void answer(std::size_t call, ErrorCode code, std::string_view operation = {});
    /// How many calls have been counted since the last order.
    std::size_t calls() const { return order_->calls; }

   protected:
    /// Counts a call, and tells whether it fails.
    bool due(std::string_view operation);
    /// What a call that fails answers.
    ErrorCode code() const { return order_->code; }
    /// The same where the answer is whether it is done.
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

/// Hands every call on to the port beneath it, but for those that fail; see decorators.h.
template <class Port>
class Decorator : public Port, public Faults {
   public:
    /// `inner` must live as long.
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

/// A whole world under one order, which counts the calls of all its ports:
///
///     FaultyPorts faulty(world);
///     faulty.answer(3, kDiskFull);  // the third call of any port
///     QuorInifile ini(faulty);
class FaultyPorts : public Faults {
   public:
    /// What `inner` refers to must live as long.
    explicit FaultyPorts(const Ports& inner);
    ~FaultyPorts();
    FaultyPorts(const FaultyPorts&) = delete;
    FaultyPorts& operator=(const FaultyPorts&) = delete;

    operator Ports&();  // NOLINT(google-explicit-constructor): it is one

   private:
    struct World;
    std::unique_ptr<World> world_;
};

}  // namespace quorkit
