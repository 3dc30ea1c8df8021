// quorkit rpc: JSON-RPC 2.0, one message a line, so that any language can drive the library and
// keep objects. The methods and their values are told in docs/rpc.md.
#pragma once

#include <quorkit/dispatch.h>

#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/object_table.h"
#include "cli/value_json.h"

namespace quorkit::cli {

/// One client: its global objects and the objects it keeps.
class RpcSession {
   public:
    explicit RpcSession(Ports& ports) : library_(ports) {}
    ~RpcSession() { objects_.letGoOfAll(); }
    RpcSession(const RpcSession&) = delete;
    RpcSession& operator=(const RpcSession&) = delete;

    /// The answer to a message or batch; nothing when it asks for none. Never fails: what is wrong
    /// with the message, or went wrong in a member, is in the answer.
    std::optional<std::string> answer(std::string_view message);

   private:
    Json answerOne(const Json& request);
    Json run(const std::string& method, const Json& parameters);
    Json create(const Json& parameters);
    Json invoke(const Json& parameters);
    Json release(const Json& parameters);

    Library library_;
    ObjectTable objects_;
};

/// Answers line by line until the input ends. Blank lines are passed over.
void serve(std::istream& in, std::ostream& out, Ports& ports);

}  // namespace quorkit::cli
