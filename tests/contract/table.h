// The contract table as the tests in C++ read it: README.md tells its form.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/variant.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "json/object_table.h"
#include "json/value_json.h"
#include "support/scratch.h"

namespace quorkit::test {

using json::Json;

/// What came of a call.
struct Answer {
    Variant result;
    /// The values of parameters by reference, by their published names, after the call.
    std::map<std::string, Variant> finals;
    Long error = 0;
    std::string argument;  ///< which one was to blame, "" when none was
};

/// One row while it is said: what is its own, and what it has named.
class RowBeingSaid {
   public:
    explicit RowBeingSaid(const Json& row);
    ~RowBeingSaid();
    RowBeingSaid(const RowBeingSaid&) = delete;
    RowBeingSaid& operator=(const RowBeingSaid&) = delete;

    const Json& steps() const { return steps_; }
    /// An argument, or what it must raise.
    Variant value(const Json& notation);
    /// The member of a call, a get or a let; null when there is none.
    const MemberInfo* memberOf(const Json& step) const;
    void name(const std::string& name, const std::string& className, Variant value);
    /// Null when nothing is named so.
    const Variant* named(const std::string& name) const;

    /// A step that is no call: a file, or an object of the client's own. False for any other.
    bool doneWithout(const Json& step);
    /// Fails the test when the answer is not what the step wants; otherwise keeps what is named.
    void expect(const Json& step, const Answer& answer);

   private:
    /// A value in the notation.
    Json shown(const Variant& value);
    /// The notation with what the row has named put in.
    Json resolved(const Json& notation);
    void expectSame(const Json& step, const Json& wanted, const Variant& found);

    Scratch place_;
    std::string key_;
    Json steps_;
    json::ObjectTable objects_;
    struct Named {
        std::string className;
        Variant value;
    };
    std::map<std::string, Named> named_;
};

/// What a step calls.
struct Target {
    CallKind kind;
    std::string owner;
    String member;
};
Target targetOf(const Json& step);
/// A text of the table.
String utf16(const std::string& text);

/// The rows of a file, and the files.
Json rowsOf(const std::string& file);
std::vector<std::string> tableFiles();

/// Says the rows of a file that are for this system, in the environment of the table, with a
/// display where they need one.
void sayRows(const std::string& file,
             const std::function<void(std::size_t number, RowBeingSaid& row)>& say);

}  // namespace quorkit::test
