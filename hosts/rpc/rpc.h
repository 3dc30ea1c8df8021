// quorkit rpc: JSON-RPC 2.0, one message a line, so that any language can use the library and keep
// objects. docs/rpc.md describes the methods and their values.
#pragma once

#include <quorkit/dispatch.h>

#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "json/object_table.h"
#include "json/value_json.h"

namespace quorkit::rpc {

/// One client, with its global objects and the objects it keeps.
class Session {
   public:
    explicit Session(Ports& ports) : library_(ports) {}
    ~Session() { objects_.letGoOfAll(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The answer to a message or a batch; nothing when none is expected. Never fails: an invalid
    /// message and an error of a member are reported in the answer.
    std::optional<std::string> answer(std::string_view message);

   private:
    json::Json answerOne(const json::Json& request);
    json::Json run(const std::string& method, const json::Json& parameters);
    json::Json create(const json::Json& parameters);
    json::Json invoke(const json::Json& parameters);
    json::Json release(const json::Json& parameters);

    Library library_;
    json::ObjectTable objects_;
};

/// Answers each line until the input ends. Blank lines are skipped.
void serve(std::istream& in, std::ostream& out, Ports& ports);

}  // namespace quorkit::rpc
