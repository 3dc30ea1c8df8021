#include "describe/describe.h"
#include "describe/signature.h"
#include "json/value_json.h"

namespace quorkit::describe {
namespace {

OrderedJson asJson(const ParameterInfo& parameter) {
    OrderedJson json = {{"name", parameter.name},
                        {"type", parameter.type.name()},
                        {"byReference", parameter.byReference},
                        {"changed", parameter.changed}};
    json::ObjectTable objects;
    if (parameter.optional()) json["default"] = json::toJson(parameter.defaultValue(), objects);
    return json;
}

}  // namespace

OrderedJson asJson(const MemberInfo& member) {
    OrderedJson parameters = OrderedJson::array();
    for (const ParameterInfo& parameter : member.parameters())
        parameters.push_back(asJson(parameter));
    return {{"name", member.name},
            {"kind", kindName(member.kind)},
            {"identifier", identifierText(member.identifier)},
            {"parameters", std::move(parameters)},
            {"result", member.result.name()},
            {"sentence", member.sentence}};
}

OrderedJson asJson(const ClassInfo& info) {
    OrderedJson members = OrderedJson::array();
    for (const MemberInfo& member : info.members()) members.push_back(asJson(member));
    return {{"name", info.name},
            {"kind", kindName(info.kind)},
            {"role", info.role},
            {"members", std::move(members)}};
}

OrderedJson asJson(const EnumerationInfo& enumeration) {
    OrderedJson constants = OrderedJson::object();
    for (const ConstantInfo& constant : enumeration.constants)
        constants[constant.name] = constant.value;
    return {{"name", enumeration.name},
            {"sentence", enumeration.sentence},
            {"constants", std::move(constants)}};
}

OrderedJson asJson(const RecordInfo& record) {
    OrderedJson fields = OrderedJson::array();
    for (const FieldInfo& field : record.fields)
        fields.push_back({{"name", field.name}, {"type", field.type.name()}});
    return {{"name", record.name}, {"sentence", record.sentence}, {"fields", std::move(fields)}};
}

OrderedJson asJson() {
    OrderedJson json = {{"classes", OrderedJson::array()},
                        {"enumerations", OrderedJson::array()},
                        {"records", OrderedJson::array()}};
    for (const ClassInfo& info : classes()) json["classes"].push_back(asJson(info));
    for (const EnumerationInfo& one : enumerations()) json["enumerations"].push_back(asJson(one));
    for (const RecordInfo& record : records()) json["records"].push_back(asJson(record));
    return json;
}

}  // namespace quorkit::describe
