// quorkit rpc: JSON-RPC 2.0, one message a line, so that any language can drive the library and
// keep objects. The methods and their values are told in docs/rpc.md.
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

/// One client: its global objects and the objects it keeps.
class Session {
   public:
    explicit Session(Ports& ports) : library_(ports) {}
    ~Session() { objects_.letGoOfAll(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The answer to a message or batch; nothing when it asks for none. Never fails: what is wrong
    /// with the message, or went wrong in a member, is in the answer.
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

/// Answers line by line until the input ends. Blank lines are passed over.
void serve(std::istream& in, std::ostream& out, Ports& ports);

}  // namespace quorkit::rpc
