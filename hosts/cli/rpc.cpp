#include "cli/rpc.h"

#include <algorithm>
#include <initializer_list>

#include "cli/describe.h"
#include "cli/invocation.h"
#include "cli/property_object.h"
#include "frame/pending_error.h"

namespace quorkit::cli {
namespace {

enum Code {
    ParseError = -32700,
    InvalidRequest = -32600,
    MethodNotFound = -32601,
    InvalidParams = -32602,
    InternalFault = -32603,
    MemberFailed = -32000,
};

struct Fault {
    Code code;
    std::string message;
    Json data = nullptr;
};

Json faultAnswer(const Json& id, const Fault& fault) {
    Json error = {{"code", fault.code}, {"message", fault.message}};
    if (!fault.data.is_null()) error["data"] = fault.data;
    return {{"jsonrpc", "2.0"}, {"id", id}, {"error", std::move(error)}};
}

Fault faultOf(const AutomationError& error) {
    return {MemberFailed, error.what(), {{"number", error.number()}, {"text", error.what()}}};
}

/// Every parameter must be known; null when one is left out.
void allowOnly(const Json& parameters, std::initializer_list<std::string_view> names) {
    for (const auto& [name, value] : parameters.items())
        if (std::ranges::find(names, name) == names.end())
            throw Fault{InvalidParams, "no such parameter: " + name};
}

String text(const Json& parameters, const char* name) {
    const auto found = parameters.find(name);
    if (found == parameters.end() || !found->is_string())
        throw Fault{InvalidParams, std::string("a string is needed: ") + name};
    return textOf(*found);
}

std::int64_t objectNumber(const Json& parameters) {
    const auto found = parameters.find("object");
    if (found == parameters.end() || !found->is_number_integer())
        throw Fault{InvalidParams, "a number is needed: object"};
    return found->get<std::int64_t>();
}

CallKind kindOf(const Json& parameters) {
    if (!parameters.contains("kind")) return CallKind::Call;
    const String kind = text(parameters, "kind");
    if (kind == u"call") return CallKind::Call;
    if (kind == u"get") return CallKind::Get;
    if (kind == u"let") return CallKind::Let;
    throw Fault{InvalidParams, "kind is call, get or let"};
}

}  // namespace

Json RpcSession::create(const Json& parameters) {
    allowOnly(parameters, {"class", "properties"});
    if (!parameters.contains("properties"))
        return {{"object", objects_.numberOf(objectOf(library_, text(parameters, "class")))}};
    if (parameters.contains("class") || !parameters["properties"].is_object())
        throw Fault{InvalidParams, "properties is an object, without a class"};
    std::vector<PropertyObject::Property> properties;
    for (const auto& [name, value] : parameters["properties"].items())
        properties.emplace_back(textOf(name), fromJson(value, objects_));
    const auto object = std::make_shared<PropertyObject>(std::move(properties));
    return {{"object", objects_.numberOf(object)}};
}

Json RpcSession::release(const Json& parameters) {
    allowOnly(parameters, {"object"});
    objects_.release(objectNumber(parameters));
    return nullptr;
}

Json RpcSession::invoke(const Json& parameters) {
    allowOnly(parameters, {"class", "object", "member", "kind", "args", "named"});
    if (parameters.contains("class") == parameters.contains("object"))
        throw Fault{InvalidParams, "either class or object is needed"};
    const CallKind kind = kindOf(parameters);
    const String name = text(parameters, "member");
    const ObjectRef target = parameters.contains("class")
                                 ? objectOf(library_, text(parameters, "class"))
                                 : objects_.at(objectNumber(parameters));

    const Json args = parameters.value("args", Json::array());
    const Json namedArgs = parameters.value("named", Json::object());
    if (!args.is_array()) throw Fault{InvalidParams, "args is an array"};
    if (!namedArgs.is_object()) throw Fault{InvalidParams, "named is an object"};
    std::vector<Variant> positional;
    for (const Json& value : args) positional.push_back(fromJson(value, objects_));
    std::vector<NamedArgument> named;
    for (const auto& [key, value] : namedArgs.items())
        named.push_back({textOf(key), fromJson(value, objects_)});
    return toJson(cli::invoke(*target, name, kind, std::move(positional), std::move(named)),
                  objects_);
}

Json RpcSession::run(const std::string& method, const Json& parameters) {
    if (method == "create") return create(parameters);
    if (method == "invoke") return invoke(parameters);
    if (method == "release") return release(parameters);
    if (method == "describe") {
        allowOnly(parameters, {"class"});
        return parameters.contains("class") ? describeJson(classNamed(text(parameters, "class")))
                                            : describeJson();
    }
    throw Fault{MethodNotFound, "no such method: " + method};
}

/// Null for a notification.
Json RpcSession::answerOne(const Json& request) {
    Json id = nullptr;
    bool wanted = true;
    try {
        if (!request.is_object()) throw Fault{InvalidRequest, "a request is an object"};
        const Json givenId = request.value("id", Json());
        if (!givenId.is_null() && !givenId.is_string() && !givenId.is_number())
            throw Fault{InvalidRequest, "id is a string, a number or null"};
        id = givenId;
        const Json method = request.value("method", Json());
        if (request.value("jsonrpc", Json()) != "2.0" || !method.is_string())
            throw Fault{InvalidRequest, "jsonrpc \"2.0\" and a method are needed"};
        wanted = request.contains("id");
        const Json parameters = request.value("params", Json::object());
        if (!parameters.is_object()) throw Fault{InvalidParams, "params is an object"};
        Json result = run(method, parameters);
        if (!wanted) return nullptr;
        return {{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}};
    } catch (const Fault& fault) {
        return wanted ? faultAnswer(id, fault) : nullptr;
    } catch (const AutomationError& error) {
        frame::setPendingError(error);  // also when it is this host's own
        return wanted ? faultAnswer(id, faultOf(error)) : nullptr;
    } catch (const BadValue& bad) {
        return wanted ? faultAnswer(id, {InvalidParams, bad.what()}) : nullptr;
    } catch (const std::exception& failure) {
        return wanted ? faultAnswer(id, {InternalFault, failure.what()}) : nullptr;
    }
}

std::optional<std::string> RpcSession::answer(std::string_view message) {
    Json request;
    try {
        request = readJson(message);
    } catch (const JsonError& error) {
        return writeJson(faultAnswer(nullptr, {ParseError, error.what()}));
    }
    Json answers = Json::array();
    if (!request.is_array()) {
        Json only = answerOne(request);
        if (only.is_null()) return {};
        return writeJson(only);
    }
    if (request.empty())
        return writeJson(faultAnswer(nullptr, {InvalidRequest, "a batch is not empty"}));
    for (const Json& one : request)
        if (Json each = answerOne(one); !each.is_null()) answers.push_back(std::move(each));
    if (answers.empty()) return {};
    return writeJson(answers);
}

void serve(std::istream& in, std::ostream& out, Ports& ports) {
    RpcSession session(ports);
    for (std::string line; std::getline(in, line);) {
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        if (const auto answer = session.answer(line)) out << *answer << '\n' << std::flush;
    }
}

}  // namespace quorkit::cli
