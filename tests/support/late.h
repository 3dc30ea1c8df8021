// Calls the library as a client does: by name, through dispatch. Every call is counted, so that
// the run can tell at its end which member no test has called.
#pragma once

#include <quorkit/dispatch.h>

#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace quorkit {
/// How a failed expectation shows a value: as the hosts do.
void PrintTo(const Variant& value, std::ostream* out);
}  // namespace quorkit

namespace quorkit::test {

/// "Class.Member" of every member called so far; a property's let as "Class.Member=".
std::set<std::string>& calledMembers();

/// One call: its result, and the final values of all parameters in order.
struct Outcome {
    Variant result;
    std::vector<Variant> arguments;
};

/// A client with one object of a class, global or created, over the given ports.
class Late {
   public:
    explicit Late(const char16_t* className, Ports& ports = ports::native());

    /// Calls a member with positional arguments.
    Outcome call(const char16_t* member, std::vector<Variant> arguments = {});
    /// The result alone.
    Variant operator()(const char16_t* member, std::vector<Variant> arguments = {});
    Variant get(const char16_t* property);
    void let(const char16_t* property, Variant value);
    /// The number of the error that the call raises; 0 when it raises none.
    Long errorOf(const char16_t* member, std::vector<Variant> arguments = {});

    CatalogueObject& object() { return *object_; }

   private:
    Outcome invoke(const char16_t* member, CallKind kind, std::vector<Variant> arguments);

    Library library_;
    std::shared_ptr<CatalogueObject> object_;
};

}  // namespace quorkit::test
