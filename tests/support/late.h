// Calls the library as a client does: by name, through dispatch.
#pragma once

#include <quorkit/dispatch.h>

#include <iosfwd>
#include <vector>

namespace quorkit {
/// How a failed expectation shows a value: as the hosts do.
void PrintTo(const Variant& value, std::ostream* out);
}  // namespace quorkit

namespace quorkit::test {

/// One call: its result, and the final values of all parameters in order.
struct Outcome {
    Variant result;
    std::vector<Variant> arguments;
};

/// As the expected result of a row: the call must raise this error.
using Error = ErrorValue;

/// The arguments of a call, and what must come of it. A collection of texts is expected as the text
/// "key:item|key:item|", an item without a key as ":item|".
struct Row {
    /// One result, from all members.
    Row(std::vector<Variant> of, Variant result) : Row(std::move(of), std::vector{result}) {}
    /// A result from each of the members. Those of a single member may be followed by the final
    /// values of its last parameters.
    Row(std::vector<Variant> of, std::vector<Variant> results)
        : arguments(std::move(of)), expected(std::move(results)) {}

    std::vector<Variant> arguments;
    std::vector<Variant> expected;
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
    /// Calls the members with each row's arguments.
    void expect(const std::vector<const char16_t*>& members, const std::vector<Row>& rows);
    void expect(const char16_t* member, const std::vector<Row>& rows) {
        expect(std::vector{member}, rows);
    }

    CatalogueObject& object() { return *object_; }

   private:
    Outcome invoke(const char16_t* member, CallKind kind, std::vector<Variant> arguments);

    Library library_;
    std::shared_ptr<CatalogueObject> object_;
};

}  // namespace quorkit::test
