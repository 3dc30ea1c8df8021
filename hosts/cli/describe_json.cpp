#include "cli/describe.h"
#include "cli/signature.h"
#include "cli/value_json.h"

namespace quorkit::cli {
namespace {

OrderedJson describeJson(const ParameterInfo& parameter) {
    OrderedJson json = {{"name", parameter.name},
                        {"type", parameter.type.name},
                        {"byReference", parameter.byReference},
                        {"changed", parameter.changed}};
    ObjectTable objects;
    if (parameter.optional()) json["default"] = toJson(parameter.defaultValue(), objects);
    return json;
}

OrderedJson describeJson(const EnumerationInfo& enumeration) {
    OrderedJson constants = OrderedJson::object();
    for (const ConstantInfo& constant : enumeration.constants)
        constants[constant.name] = constant.value;
    return {{"name", enumeration.name},
            {"sentence", enumeration.sentence},
            {"constants", std::move(constants)}};
}

OrderedJson describeJson(const RecordInfo& record) {
    OrderedJson fields = OrderedJson::array();
    for (const char* field : record.fields) fields.push_back({{"name", field}, {"type", "Long"}});
    return {{"name", record.name}, {"sentence", record.sentence}, {"fields", std::move(fields)}};
}

}  // namespace

OrderedJson describeJson(const MemberInfo& member) {
    OrderedJson parameters = OrderedJson::array();
    for (const ParameterInfo& parameter : member.parameters())
        parameters.push_back(describeJson(parameter));
    return {{"name", member.name},
            {"kind", kindName(member.kind)},
            {"identifier", identifierText(member.identifier)},
            {"parameters", std::move(parameters)},
            {"result", member.result.name},
            {"sentence", member.sentence}};
}

OrderedJson describeJson(const ClassInfo& info) {
    OrderedJson members = OrderedJson::array();
    for (const MemberInfo& member : info.members()) members.push_back(describeJson(member));
    return {{"name", info.name},
            {"kind", kindName(info.kind)},
            {"role", info.role},
            {"members", std::move(members)}};
}

OrderedJson describeJson() {
    OrderedJson json = {{"classes", OrderedJson::array()},
                        {"enumerations", OrderedJson::array()},
                        {"records", OrderedJson::array({describeJson(kRectangle)})}};
    for (const ClassInfo& info : classes()) json["classes"].push_back(describeJson(info));
    for (const EnumerationInfo& one : enumerations())
        json["enumerations"].push_back(describeJson(one));
    return json;
}

}  // namespace quorkit::cli
