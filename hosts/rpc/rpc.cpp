#include "rpc/rpc.h"

#include <algorithm>
#include <initializer_list>

#include "describe/describe.h"
#include "describe/signature.h"
#include "rpc/property_object.h"

namespace quorkit::rpc {
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
    json::Json data = nullptr;
};

json::Json faultAnswer(const json::Json& id, const Fault& fault) {
    json::Json error = {{"code", fault.code}, {"message", fault.message}};
    if (!fault.data.is_null()) error["data"] = fault.data;
    return {{"jsonrpc", "2.0"}, {"id", id}, {"error", std::move(error)}};
}

Fault faultOf(const CallError& error) {
    return {MemberFailed, error.text, {{"number", error.number}, {"text", error.text}}};
}

/// Fails on an unknown parameter; a parameter that is left out becomes null.
void allowOnly(const json::Json& parameters, std::initializer_list<std::string_view> names) {
    for (const auto& [name, value] : parameters.items())
        if (std::ranges::find(names, name) == names.end())
            throw Fault{InvalidParams, "no such parameter: " + name};
}

String text(const json::Json& parameters, const char* name) {
    const auto found = parameters.find(name);
    if (found == parameters.end() || !found->is_string())
        throw Fault{InvalidParams, std::string("a string is needed: ") + name};
    return json::textOf(*found);
}

std::int64_t objectNumber(const json::Json& parameters) {
    const auto found = parameters.find("object");
    if (found == parameters.end() || !found->is_number_integer())
        throw Fault{InvalidParams, "a number is needed: object"};
    return found->get<std::int64_t>();
}

CallKind kindOf(const json::Json& parameters) {
    if (!parameters.contains("kind")) return CallKind::Call;
    const String kind = text(parameters, "kind");
    if (kind == u"call") return CallKind::Call;
    if (kind == u"get") return CallKind::Get;
    if (kind == u"let") return CallKind::Let;
    throw Fault{InvalidParams, "kind is call, get or let"};
}

}  // namespace

json::Json Session::create(const json::Json& parameters) {
    allowOnly(parameters, {"class", "properties"});
    if (!parameters.contains("properties"))
        return {{"object", objects_.numberOf(library_.object(text(parameters, "class")))}};
    if (parameters.contains("class") || !parameters["properties"].is_object())
        throw Fault{InvalidParams, "properties is an object, without a class"};
    std::vector<PropertyObject::Property> properties;
    for (const auto& [name, value] : parameters["properties"].items())
        properties.emplace_back(json::textOf(name), json::fromJson(value, objects_));
    const auto object = std::make_shared<PropertyObject>(std::move(properties));
    return {{"object", objects_.numberOf(object)}};
}

json::Json Session::release(const json::Json& parameters) {
    allowOnly(parameters, {"object"});
    objects_.release(objectNumber(parameters));
    return nullptr;
}

json::Json Session::invoke(const json::Json& parameters) {
    allowOnly(parameters, {"class", "object", "member", "kind", "args", "named"});
    if (parameters.contains("class") == parameters.contains("object"))
        throw Fault{InvalidParams, "either class or object is needed"};
    const CallKind kind = kindOf(parameters);
    const String name = text(parameters, "member");
    const ObjectRef target = parameters.contains("class")
                                 ? library_.object(text(parameters, "class"))
                                 : objects_.at(objectNumber(parameters));

    const json::Json args = parameters.value("args", json::Json::array());
    const json::Json namedArgs = parameters.value("named", json::Json::object());
    if (!args.is_array()) throw Fault{InvalidParams, "args is an array"};
    if (!namedArgs.is_object()) throw Fault{InvalidParams, "named is an object"};
    std::vector<Variant> positional;
    for (const json::Json& value : args) positional.push_back(json::fromJson(value, objects_));
    std::vector<NamedArgument> named;
    for (const auto& [key, value] : namedArgs.items())
        named.push_back({json::textOf(key), json::fromJson(value, objects_)});
    const CallResult result = call(*target, {.member = name,
                                             .kind = kind,
                                             .positional = std::move(positional),
                                             .named = std::move(named),
                                             .constantsByName = true});
    if (result.error) throw faultOf(*result.error);
    return json::toJson(result, objects_);
}

json::Json Session::run(const std::string& method, const json::Json& parameters) {
    if (method == "create") return create(parameters);
    if (method == "invoke") return invoke(parameters);
    if (method == "release") return release(parameters);
    if (method == "describe") {
        allowOnly(parameters, {"class"});
        return parameters.contains("class")
                   ? describe::asJson(describe::classNamed(text(parameters, "class")))
                   : describe::asJson();
    }
    throw Fault{MethodNotFound, "no such method: " + method};
}

/// Null for a notification.
json::Json Session::answerOne(const json::Json& request) {
    json::Json id = nullptr;
    bool wanted = true;
    try {
        if (!request.is_object()) throw Fault{InvalidRequest, "a request is an object"};
        const json::Json givenId = request.value("id", json::Json());
        if (!givenId.is_null() && !givenId.is_string() && !givenId.is_number())
            throw Fault{InvalidRequest, "id is a string, a number or null"};
        id = givenId;
        const json::Json method = request.value("method", json::Json());
        if (request.value("jsonrpc", json::Json()) != "2.0" || !method.is_string())
            throw Fault{InvalidRequest, "jsonrpc \"2.0\" and a method are needed"};
        wanted = request.contains("id");
        const json::Json parameters = request.value("params", json::Json::object());
        if (!parameters.is_object()) throw Fault{InvalidParams, "params is an object"};
        json::Json result = run(method, parameters);
        if (!wanted) return nullptr;
        return {{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}};
    } catch (const Fault& fault) {
        return wanted ? faultAnswer(id, fault) : nullptr;
    } catch (const AutomationError&) {  // an error of this host
        const Fault fault = faultOf(errorOf(std::current_exception()));
        return wanted ? faultAnswer(id, fault) : nullptr;
    } catch (const json::BadValue& bad) {
        return wanted ? faultAnswer(id, {InvalidParams, bad.what()}) : nullptr;
    } catch (const std::exception& failure) {
        return wanted ? faultAnswer(id, {InternalFault, failure.what()}) : nullptr;
    }
}

std::optional<std::string> Session::answer(std::string_view message) {
    json::Json request;
    try {
        request = json::readJson(message);
    } catch (const json::JsonError& error) {
        return json::writeJson(faultAnswer(nullptr, {ParseError, error.what()}));
    }
    json::Json answers = json::Json::array();
    if (!request.is_array()) {
        json::Json only = answerOne(request);
        if (only.is_null()) return {};
        return json::writeJson(only);
    }
    if (request.empty())
        return json::writeJson(faultAnswer(nullptr, {InvalidRequest, "a batch is not empty"}));
    for (const json::Json& one : request)
        if (json::Json each = answerOne(one); !each.is_null()) answers.push_back(std::move(each));
    if (answers.empty()) return {};
    return json::writeJson(answers);
}

void serve(std::istream& in, std::ostream& out, Ports& ports) {
    Session session(ports);
    for (std::string line; std::getline(in, line);) {
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        if (const auto answer = session.answer(line)) out << *answer << '\n' << std::flush;
    }
}

}  // namespace quorkit::rpc
