#include "contract/table.h"

#include <gtest/gtest.h>
#include <quorkit/GQuorRegistry.h>
#include <quorkit/utf8.h>

#include <list>
#include <memory>
#include <optional>
#include <regex>

#include "json/base64.h"
#include "rpc/property_object.h"
#include "support/environment.h"
#include "support/late.h"
#include "support/x_server.h"

namespace quorkit::test {
namespace {

const std::filesystem::path kFolder = QUORKIT_SOURCE_DIR "/tests/contract";

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void replaceAll(std::string& text, const std::string& mark, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += by.size())
        text.replace(at, mark.size(), by);
}

/// Puts folder and key into all texts. With a folder in it a text has the system's separators.
void fill(Json& json, const std::string& folder, const std::string& key) {
    if (json.is_structured())
        for (Json& one : json) fill(one, folder, key);
    if (!json.is_string()) return;
    auto& text = json.get_ref<std::string&>();
    if (text.find("{folder}") != std::string::npos)
        replaceAll(text, "/", {static_cast<char>(std::filesystem::path::preferred_separator)});
    replaceAll(text, "{folder}", folder);
    replaceAll(text, "{key}", key);
}

bool isOnly(const Json& json, const char* name) {
    return json.is_object() && json.size() == 1 && json.contains(name);
}

/// The notation with what may be left out.
Json whole(const Json& json) {
    if (json.is_array()) return {{"array", json}, {"lower", 0}};
    Json full = json;
    if (json.contains("array") || json.contains("bytes")) full.emplace("lower", 0);
    if (json.contains("table")) full.emplace("lower", Json::array({0, 0}));
    return full;
}

bool same(const Json& wanted, const Json& found) {
    if (isOnly(wanted, "like"))
        return found.is_string() &&
               std::regex_match(found.get<std::string>(), std::regex(wanted["like"]));
    if (found.is_array() && wanted.is_array())
        return std::equal(found.begin(), found.end(), wanted.begin(), wanted.end(),
                          [](const Json& a, const Json& b) { return same(b, a); });
    const Json full = found.is_object() ? whole(wanted) : wanted;
    if (found.is_object() && full.is_object())
        return std::equal(found.items().begin(), found.items().end(), full.items().begin(),
                          full.items().end(), [](const auto& a, const auto& b) {
                              return a.key() == b.key() && same(b.value(), a.value());
                          });
    return found.is_number_float() == wanted.is_number_float() && found == wanted;
}

/// Says of arrays whose texts do not tell it that they are Variant arrays.
void tellApart(const Variant& value, Json& json) {
    const auto* array = value.getIf<Array<Variant>>();
    if (array == nullptr || array->elements().empty()) return;
    if (std::ranges::all_of(array->elements(), [](const Variant& one) { return one.is<String>(); }))
        json["of"] = "Variant";
    if (array->dimensions() > 1) return;
    for (std::size_t i = 0; i < array->elements().size(); ++i)
        tellApart(array->elements()[i], json["array"][i]);
}

std::string kindOf(const Variant& value) {
    static constexpr const char* kinds[] = {"Empty", "Null",   "Error",  "Boolean", "Integer",
                                            "Long",  "Double", "Date",   "String",  "Array",
                                            "Bytes", "Array",  "Nothing"};
    const auto* object = value.getIf<ObjectRef>();
    return object != nullptr && *object ? (*object)->className() : kinds[value.index()];
}

Json bytesOf(const Json& content) {
    if (!isOnly(content, "bytes")) return content;
    const auto bytes = json::fromBase64(content["bytes"].get<std::string>()).value();
    return std::string(bytes.begin(), bytes.end());
}

}  // namespace

RowBeingSaid::RowBeingSaid(const Json& row)
    : key_("HKCU\\Software\\" + place_.folder().filename().string()),
      steps_(row.contains("steps") ? row["steps"] : Json::array({row})) {
    fill(steps_, toUtf8(place_.folder().u16string()), key_);
}

RowBeingSaid::~RowBeingSaid() {
    GQuorRegistry().Reg_DeletePath(utf16(key_));
    objects_.letGoOfAll();
}

Json RowBeingSaid::shown(const Variant& value) {
    Json json = json::toJson(value, objects_);
    tellApart(value, json);
    return json;
}

Json RowBeingSaid::resolved(const Json& notation) {
    if (isOnly(notation, "named")) return shown(named_.at(notation["named"]).value);
    if (isOnly(notation, "properties")) {
        std::vector<rpc::PropertyObject::Property> properties;
        for (const auto& [name, one] : notation["properties"].items())
            properties.emplace_back(json::textOf(name), value(one));
        return shown(std::make_shared<rpc::PropertyObject>(std::move(properties)));
    }
    Json json = notation;
    if (json.is_structured())
        for (Json& one : json) one = resolved(one);
    return json;
}

Variant RowBeingSaid::value(const Json& notation) {
    if (isOnly(notation, "named")) return named_.at(notation["named"]).value;
    Json json = resolved(notation);
    if (json.is_object()) json.erase("of");
    return json::fromJson(json, objects_);
}

const MemberInfo* RowBeingSaid::memberOf(const Json& step) const {
    const Target target = targetOf(step);
    const auto owner = named_.find(target.owner);
    const ClassInfo* info =
        findClass(utf16(owner == named_.end() ? target.owner : owner->second.className));
    return info == nullptr ? nullptr : findMember(*info, target.member, target.kind);
}

void RowBeingSaid::name(const std::string& name, const std::string& className, Variant value) {
    named_[name] = {className, std::move(value)};
}

const Variant* RowBeingSaid::named(const std::string& name) const {
    const auto found = named_.find(name);
    return found == named_.end() ? nullptr : &found->second.value;
}

bool RowBeingSaid::doneWithout(const Json& step) {
    if (step.contains("properties")) {
        name(step["as"], "", value({{"properties", step["properties"]}}));
        return true;
    }
    if (!step.contains("file")) return false;
    const std::filesystem::path path = place_.folder() / utf16(step["file"].get<std::string>());
    if (step.contains("holds")) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytesOf(step["holds"]).get<std::string>();
    } else {
        const Json found = std::filesystem::exists(path) ? Json(contentOf(path)) : Json();
        EXPECT_TRUE(same(bytesOf(step["gives"]), found)) << json::writeJson({step, found});
    }
    return true;
}

void RowBeingSaid::expectSame(const Json& step, const Json& wanted, const Variant& found) {
    if (isOnly(wanted, "any")) {
        EXPECT_EQ(kindOf(found), wanted["any"]) << json::writeJson(step);
        return;
    }
    const Json json = shown(found);
    EXPECT_TRUE(same(resolved(wanted), json))
        << json::writeJson(step) << "\n    got " << json::writeJson(json);
}

void RowBeingSaid::expect(const Json& step, const Answer& answer) {
    EXPECT_EQ(answer.error, step.value("error", 0)) << json::writeJson(step);
    EXPECT_EQ(answer.argument, step.value("argument", "")) << json::writeJson(step);
    if (answer.error != 0) return;
    if (step.contains("gives") || !step.contains("as"))
        expectSame(step, step.value("gives", Json()), answer.result);
    const MemberInfo* member = memberOf(step);
    if (step.contains("as"))
        name(step["as"], member == nullptr ? "" : member->result.name(), answer.result);
    const Json changes = step.value("changes", Json::object());
    const Json named = step.value("named", Json::object());
    const Json positional = step.value("args", Json::array());
    for (std::size_t i = 0; member != nullptr && i < member->parameterCount; ++i) {
        const auto final = answer.finals.find(member->parameterRow[i].name);
        if (final == answer.finals.end()) continue;
        Json wanted = {{"missing", true}};
        if (i < positional.size()) wanted = positional[i];
        for (const auto& [name, given] : named.items())
            if (findParameter(*member, utf16(name)) == i) wanted = given;
        if (changes.contains(final->first))
            wanted = changes[final->first];
        else if (wanted.contains("missing"))
            continue;
        expectSame(step, wanted, final->second);
    }
    for (const auto& [name, wanted] : changes.items())
        EXPECT_TRUE(answer.finals.contains(name)) << json::writeJson(step);
}

Target targetOf(const Json& step) {
    constexpr std::pair<const char*, CallKind> kinds[] = {
        {"call", CallKind::Call}, {"get", CallKind::Get}, {"let", CallKind::Let}};
    const auto& [key, kind] =
        *std::ranges::find_if(kinds, [&](const auto& one) { return step.contains(one.first); });
    const std::string path = step[key];
    const std::size_t dot = path.find('.');
    return {kind, path.substr(0, dot), utf16(path.substr(dot + 1))};
}

String utf16(const std::string& text) {
    return json::textOf(text);
}

Json rowsOf(const std::string& file) {
    return json::readJson(contentOf(kFolder / file));
}

std::vector<std::string> tableFiles() {
    std::vector<std::string> files;
    for (const auto& one : std::filesystem::directory_iterator(kFolder))
        if (one.path().extension() == ".json") files.push_back(one.path().filename().string());
    return files;
}

void sayRows(const std::string& file,
             const std::function<void(std::size_t number, RowBeingSaid& row)>& say) {
    const Scratch home;
    std::list<Variable> environment;
    for (const char* name :
         {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "TMPDIR"})
        environment.emplace_back(name, home.folder().string());
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
        environment.emplace_back(name, std::nullopt);
    std::istringstream lines(contentOf(kFolder / "environment"));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t mark = line.find('=');
        environment.emplace_back(line.substr(0, mark).c_str(), line.substr(mark + 1));
    }
#ifdef _WIN32
    const std::string system = "windows";
#else
    const std::string system = "linux";
    std::optional<XServer> display;
#endif
    const Json rows = rowsOf(file);
    for (const bool needsDisplay : {false, true})
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const Json& row = rows[i];
            if (row.value("on", system) != system || row.contains("needs") != needsDisplay)
                continue;
#ifndef _WIN32
            if (needsDisplay && !display) display.emplace();
#endif
            SCOPED_TRACE(file + " row " + std::to_string(i + 1));
            RowBeingSaid said(row);
            say(i + 1, said);
        }
}

}  // namespace quorkit::test
