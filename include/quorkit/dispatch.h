// Calling the library's classes by name: what a host does for its client.
#pragma once

#include <quorkit/catalogue_object.h>
#include <quorkit/ports/ports.h>
#include <quorkit/variant.h>

#include <cstddef>
#include <exception>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorkit {

/// One client's view of the library. It owns the client's global objects; created objects live
/// as long as their last reference. Use it from one thread at a time.
///
///     Library library;
///     CallResult text = call(*library.object(u"GQuorStrings"),
///                            {.member = u"LPad", .positional = {u"0", u"7", Long{3}}});
class Library {
   public:
    explicit Library(Ports& ports = ports::native()) : ports_(ports) {}

    /// A new instance of a class. Error 429 when there is no such class.
    ObjectRef create(StringView className);

    /// The client's one instance of a global class, made on first use.
    /// Error 429 when there is no such global class.
    ObjectRef global(StringView className);

    /// The one instance of a global class, or a new one of another class.
    ObjectRef object(StringView className);

   private:
    ObjectRef instance(const ClassInfo* info);

    Ports& ports_;
    std::map<const ClassInfo*, ObjectRef> globals_;
};

/// One late-bound call, as a host has it from its client.
struct Call {
    /// The member: by its identifier, otherwise by its name.
    String member = {};
    std::optional<Long> identifier = {};
    CallKind kind = CallKind::Call;
    /// In the order of the parameters; for Let the new value is the last.
    std::vector<Variant> positional = {};
    std::vector<NamedArgument> named = {};
    /// What the member may change can be left out although its parameter is required, and is then
    /// the initial value of its type: for clients that have no variables to hand in.
    bool variablesMayBeOmitted = false;
    /// The name of a constant stands for it where its enumeration is expected: for clients that
    /// people type for.
    bool constantsByName = false;
};

struct CallError {
    Long number = 0;
    std::string text;    ///< the runtime's, plain ASCII
    std::string source;  ///< "quorkit" and the class, such as "quorkit.GQuorStrings"
    /// Which of the parameters did not get what it needs; nothing when it was not an argument.
    std::optional<std::size_t> argument = {};
};

struct CallResult {
    /// Empty when the call failed.
    Variant result;
    /// The final values of all parameters in order, after a failure too; of a client's own object,
    /// and when the call did not come to its member, the positional arguments.
    std::vector<Variant> arguments;
    /// Why the call failed.
    std::optional<CallError> error;
    /// Why the system refused something, in words for a person; "" when it did not. The call may
    /// have succeeded, with the result that its member documents for a refusal.
    std::string reason;
};

/// Calls a member. Never throws but for want of memory: what fails is in the result. Error 438 for
/// no such member, 448 for no parameter of a name, 449 for an argument left out, 450 for too many
/// or one given twice, 13, 6 and 94 for one that does not convert, and whatever the member raises.
CallResult call(Object& target, Call request);

/// The error that a client sees when a host's own work for it ended with `failure`: exhausted
/// memory is error 7, what is not the library's error 51.
CallError errorOf(const std::exception_ptr& failure, const char* className = nullptr);

}  // namespace quorkit
