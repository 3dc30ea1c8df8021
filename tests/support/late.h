// Calls the library by name, as clients do.
#pragma once

#include <quorkit/dispatch.h>

#include <iosfwd>
#include <vector>

namespace quorkit {
/// Prints a value in a failed expectation as the hosts do.
void PrintTo(const Variant& value, std::ostream* out);
}  // namespace quorkit

namespace quorkit::test {

/// One call: its result, and the final values of all parameters in order.
struct Outcome {
    Variant result;
    std::vector<Variant> arguments;
};

/// An expected result: the call must raise this error.
using Error = ErrorValue;

/// The arguments of a call and the expected results. A collection of texts is written as the text
/// "key:item|key:item|", an item without a key as ":item|".
struct Row {
    /// All members give this one result.
    Row(std::vector<Variant> of, Variant result) : Row(std::move(of), std::vector{result}) {}
    /// Each member gives its own result. For a single member, the results may be followed by the
    /// final values of its last parameters.
    Row(std::vector<Variant> of, std::vector<Variant> results)
        : arguments(std::move(of)), expected(std::move(results)) {}

    std::vector<Variant> arguments;
    std::vector<Variant> expected;
};

/// A client with one object of a class, global or created, on the given ports.
class Late {
   public:
    explicit Late(const char16_t* className, Ports& ports = ports::native());

    /// Calls a member with positional arguments.
    Outcome call(const char16_t* member, std::vector<Variant> arguments = {});
    /// Returns only the result.
    Variant operator()(const char16_t* member, std::vector<Variant> arguments = {});
    Variant get(const char16_t* property);
    void let(const char16_t* property, Variant value);
    /// The number of the error that the call raises; 0 when it raises none.
    Long errorOf(const char16_t* member, std::vector<Variant> arguments = {});
    /// Calls the members with the arguments of each row, and checks the results.
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
