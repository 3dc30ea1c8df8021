// The type libraries of both bitnesses, read with the system's means from the DLLs they are in, say
// what `describe --json` says.
#include <gtest/gtest.h>
#include <quorkit/catalogue.h>

#include <map>

#include "automation/com.h"
#include "automation/guid.h"
#include "describe/describe.h"
#include "describe/interface_name.h"
#include "describe/signature.h"
#include "json/value_json.h"

namespace quorkit::test {
namespace {

using automation::Ref;
using describe::OrderedJson;

std::string narrow(std::wstring_view text) {
    return {text.begin(), text.end()};
}
std::string identity(const GUID& guid) {
    return narrow(automation::textOf(guid));
}
std::string identity(const char* text) {
    return identity(automation::guidOf(text));
}

/// What else a library tells, and not what it has no room for.
OrderedJson expected() {
    OrderedJson all = describe::asJson();
    for (const auto kind : {runtimeClasses(), classes()})
        for (const ClassInfo& info : kind)
            all["interfaces"].push_back({{"name", describe::interfaceName(info)},
                                         {"sentence", info.role},
                                         {"identity", identity(info.interfaceIdentity)},
                                         {"base", "IDispatch"},
                                         {"fixed", info.kind != ClassKind::Runtime}});
    for (OrderedJson& one : all["enumerations"]) one["size"] = 4;
    for (OrderedJson& one : all["records"]) {
        int offset = 0;
        for (OrderedJson& field : one["fields"])
            field["offset"] = std::exchange(offset, offset + 4);
        one["size"] = offset;
    }
    for (std::size_t i = 0; i < classes().size(); ++i) {
        OrderedJson& info = all["classes"][i];
        info["identity"] = identity(classes()[i].identity);
        std::map<std::string, OrderedJson> sentences;  // the first of each identifier
        for (OrderedJson& member : info["members"]) {
            OrderedJson& parameters = member["parameters"];
            for (OrderedJson& parameter : parameters) parameter.erase("changed");
            if (member["kind"] == "let") parameters.back()["name"] = "";
            member["sentence"] =
                sentences.emplace(member["identifier"], member["sentence"]).first->second;
        }
    }
    return all;
}

class Reader {
   public:
    explicit Reader(ITypeLib& library) {
        for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
            Ref<ITypeInfo> type;
            if (SUCCEEDED(library.GetTypeInfo(i, type.receive()))) add(*type.get());
        }
    }
    const OrderedJson& all() const { return all_; }

    template <class Source>
    static OrderedJson documentation(Source& source, MEMBERID member) {
        BSTR name = nullptr;
        BSTR sentence = nullptr;
        source.GetDocumentation(member, &name, &sentence, nullptr, nullptr);
        return {{"name", text(name)}, {"sentence", text(sentence)}};
    }

   private:
    static std::string text(BSTR owned) {
        const std::string made = narrow({owned, SysStringLen(owned)});
        SysFreeString(owned);
        return made;
    }
    static std::string nameOf(ITypeInfo& from, HREFTYPE reference) {
        Ref<ITypeInfo> found;
        from.GetRefTypeInfo(reference, found.receive());
        return found ? std::string(documentation(*found.get(), MEMBERID_NIL)["name"]) : "lost";
    }
    static std::string base(ITypeInfo& type) {
        HREFTYPE reference = 0;
        return SUCCEEDED(type.GetRefTypeOfImplType(0, &reference)) ? nameOf(type, reference) : "";
    }
    static std::string typeName(ITypeInfo& from, const TYPEDESC& type) {
        static const std::map<int, const char*> names = {
            {VT_VOID, ""},           {VT_BOOL, "Boolean"},   {VT_I2, "Integer"},  {VT_I4, "Long"},
            {VT_R8, "Double"},       {VT_DATE, "Date"},      {VT_BSTR, "String"}, {VT_UI1, "Byte"},
            {VT_DISPATCH, "Object"}, {VT_VARIANT, "Variant"}};
        if (type.vt == VT_SAFEARRAY) return typeName(from, *type.lptdesc) + "()";
        if (type.vt == VT_USERDEFINED) return nameOf(from, type.hreftype);
        if (type.vt == VT_PTR && type.lptdesc->vt == VT_USERDEFINED)
            for (const auto all : {runtimeClasses(), classes()})
                for (const ClassInfo& info : all)
                    if (nameOf(from, type.lptdesc->hreftype) == describe::interfaceName(info))
                        return info.name;
        const auto found = names.find(type.vt);
        return found != names.end() ? found->second : "type " + std::to_string(type.vt);
    }
    static OrderedJson value(const VARIANT& value) {
        switch (value.vt) {
            case VT_BOOL:
                if (value.boolVal == VARIANT_TRUE || value.boolVal == VARIANT_FALSE)
                    return value.boolVal == VARIANT_TRUE;
                break;
            case VT_I2:
                return {{"integer", value.iVal}};
            case VT_I4:
                return value.lVal;
            case VT_BSTR:
                return narrow({value.bstrVal, SysStringLen(value.bstrVal)});
            default:
                break;
        }
        return "type " + std::to_string(value.vt) + ": " + std::to_string(value.lVal);
    }

    void add(ITypeInfo& type) {
        TYPEATTR* row = nullptr;
        if (FAILED(type.GetTypeAttr(&row))) return;
        OrderedJson made = documentation(type, MEMBERID_NIL);
        const bool named = row->typekind == TKIND_ENUM;
        if (named || row->typekind == TKIND_RECORD) {
            OrderedJson& parts = made[named ? "constants" : "fields"];
            for (UINT i = 0; i < row->cVars; ++i) addVariable(type, i, parts);
            made["size"] = row->cbSizeInstance;
            all_[named ? "enumerations" : "records"].push_back(made);
        } else if (row->typekind == TKIND_DISPATCH) {
            OrderedJson& members = members_[made["name"]] = OrderedJson::array();
            for (UINT i = 0; i < row->cFuncs; ++i) addFunction(type, i, members);
            made["identity"] = identity(row->guid);
            made["base"] = base(type);
            made["fixed"] = (row->wTypeFlags & TYPEFLAG_FNONEXTENSIBLE) != 0;
            all_["interfaces"].push_back(made);
        } else {
            const bool global = row->wTypeFlags == (TYPEFLAG_FAPPOBJECT | TYPEFLAG_FCANCREATE);
            const bool creatable = row->wTypeFlags == TYPEFLAG_FCANCREATE;
            all_["classes"].push_back({{"name", made["name"]},
                                       {"kind", global      ? "global"
                                                : creatable ? "creatable"
                                                            : "unknown"},
                                       {"role", made["sentence"]},
                                       {"members", members_[base(type)]},
                                       {"identity", identity(row->guid)}});
        }
        type.ReleaseTypeAttr(row);
    }
    static void addVariable(ITypeInfo& type, UINT index, OrderedJson& to) {
        VARDESC* row = nullptr;
        if (FAILED(type.GetVarDesc(index, &row))) return;
        const std::string name = documentation(type, row->memid)["name"];
        if (row->varkind == VAR_CONST)
            to[name] = value(*row->lpvarValue);
        else
            to.push_back({{"name", name},
                          {"type", typeName(type, row->elemdescVar.tdesc)},
                          {"offset", row->oInst}});
        type.ReleaseVarDesc(row);
    }
    static void addFunction(ITypeInfo& type, UINT index, OrderedJson& to) {
        FUNCDESC* row = nullptr;
        if (FAILED(type.GetFuncDesc(index, &row))) return;
        BSTR names[MemberInfo::kMaxParameters + 1] = {};
        UINT count = 0;
        type.GetNames(row->memid, names, std::size(names), &count);
        OrderedJson parameters = OrderedJson::array();
        for (SHORT i = 0; i < row->cParams; ++i)
            parameters.push_back(parameter(type, row->lprgelemdescParam[i], text(names[i + 1])));
        const char* kind = row->invkind == INVOKE_FUNC          ? "method"
                           : row->invkind == INVOKE_PROPERTYGET ? "get"
                           : row->invkind == INVOKE_PROPERTYPUT ? "let"
                                                                : "unknown";
        if ((row->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0)  // IDispatch's own are
            to.push_back({{"name", text(names[0])},
                          {"kind", kind},
                          {"identifier", describe::identifierText(row->memid)},
                          {"parameters", parameters},
                          {"result", typeName(type, row->elemdescFunc.tdesc)},
                          {"sentence", documentation(type, row->memid)["sentence"]}});
        type.ReleaseFuncDesc(row);
    }
    static OrderedJson parameter(ITypeInfo& type, const ELEMDESC& row, const std::string& name) {
        const int flags = row.paramdesc.wParamFlags;
        const bool byReference = (flags & PARAMFLAG_FOUT) != 0 && row.tdesc.vt == VT_PTR;
        OrderedJson made = {{"name", name},
                            {"type", typeName(type, byReference ? *row.tdesc.lptdesc : row.tdesc)},
                            {"byReference", byReference}};
        if ((flags & PARAMFLAG_FHASDEFAULT) != 0)
            made["default"] = value(row.paramdesc.pparamdescex->varDefaultValue);
        else if ((flags & PARAMFLAG_FOPT) != 0)
            made["default"] = {{"missing", true}};
        return made;
    }

    OrderedJson all_ = {{"classes", OrderedJson::array()}};
    std::map<std::string, OrderedJson> members_;  // of each interface
};

TEST(TypeLibrary, SaysWhatTheCatalogueSays) {
    const OrderedJson wanted = expected();
    for (const auto& [file, system] : {std::pair(L"32", SYS_WIN32), std::pair(L"64", SYS_WIN64)}) {
        Ref<ITypeLib> library;
        const std::wstring path = QUORKIT_TYPE_LIBRARIES + std::wstring(file) + L".dll";
        ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.receive()), S_OK);
        TLIBATTR* row = nullptr;
        ASSERT_EQ(library->GetLibAttr(&row), S_OK);
        EXPECT_EQ(row->syskind, system);
        EXPECT_EQ(identity(row->guid), identity(kLibraryIdentity));
        EXPECT_EQ(row->wMajorVerNum * 1000 + row->wMinorVerNum, 1000);
        library->ReleaseTLibAttr(row);
        EXPECT_EQ(Reader::documentation(*library.get(), -1)["name"], "quorkit");
        const Reader found(*library.get());
        for (const auto& [key, value] : wanted.items())
            EXPECT_EQ(found.all().at(key).dump(1), value.dump(1));
    }
}

}  // namespace
}  // namespace quorkit::test
