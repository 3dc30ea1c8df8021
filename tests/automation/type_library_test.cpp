// The type libraries of both bitnesses, read with the system's means from the DLLs they are in.
#ifdef _WIN32
#include <gtest/gtest.h>
#include <quorkit/catalogue.h>

#include <algorithm>
#include <sstream>

#include "automation/com.h"
#include "automation/guid.h"
#include "describe/interface_name.h"
#include "json/plain_text.h"

namespace quorkit::test {
namespace {

using automation::guidOf;
using automation::Ref;
using describe::interfaceName;

std::string narrow(std::wstring_view text) {
    std::string made;
    for (const wchar_t one : text) made += one < 128 ? static_cast<char>(one) : '?';
    return made;
}
std::string narrow(BSTR text) {
    std::string made = narrow(std::wstring_view(text, SysStringLen(text)));
    SysFreeString(text);
    return made;
}
std::string textOf(const GUID& guid) {
    return narrow(automation::textOf(guid));
}

/// What the catalogue says, a line for each thing that a library can tell.
class Expected {
   public:
    std::string all(int bits) {
        text_ << "quorkit 1.0 " << textOf(guidOf(kLibraryIdentity)) << " bits " << bits
              << ": quorkit utility classes\n";
        for (const EnumerationInfo& one : enumerations()) {
            text_ << "enumeration " << one.name << " size 4: " << one.sentence << '\n';
            for (const ConstantInfo& constant : one.constants)
                text_ << "  " << constant.name << " = Long " << constant.value << '\n';
        }
        for (const RecordInfo& one : records()) {
            text_ << "record " << one.name << " size 16: " << one.sentence << '\n';
            int offset = 0;
            for (const FieldInfo& field : one.fields) {
                text_ << "  " << field.name << ' ' << field.type.name() << " at " << offset << '\n';
                offset += 4;
            }
        }
        for (const auto kind : {runtimeClasses(), classes()})
            for (const ClassInfo& one : kind) add(one);
        for (const ClassInfo& one : classes())
            text_ << "class " << one.name << ' ' << textOf(guidOf(one.identity)) << " flags "
                  << (one.kind == ClassKind::Global ? 3 : 2) << " default " << interfaceName(one)
                  << ": " << one.role << '\n';
        return text_.str();
    }

   private:
    static std::string name(const TypeInfo& type) {
        if (type.classOf != nullptr) return interfaceName(type.classOf()) + '*';
        return type.type == Type::None ? "nothing" : type.name();
    }
    void add(const ClassInfo& info) {
        const bool ours = info.kind != ClassKind::Runtime;
        text_ << "interface " << interfaceName(info) << ' '
              << textOf(guidOf(info.interfaceIdentity)) << " flags " << (ours ? 0x1080 : 0x1000)
              << " base IDispatch: " << info.role << '\n';
        if (ours)
            for (const MemberInfo& one : info.members()) add(info, one);
    }
    void add(const ClassInfo& info, const MemberInfo& member) {
        const char* kinds[] = {"method ", "get ", "put "};
        text_ << "  " << kinds[static_cast<int>(member.kind)] << member.identifier << ' '
              << name(member.result) << ' ' << member.name << '(';
        int plainlyOptional = 0;
        for (const ParameterInfo& one : member.parameters()) {
            const Variant value = one.optional() ? one.defaultValue() : Variant();
            text_ << (one.byReference ? "inout " : "in ");
            if (one.optional()) text_ << "optional ";
            text_ << name(one.type) << (one.byReference ? "* " : " ");
            // Type libraries have no name for the value that a property takes.
            if (member.kind != MemberKind::PropertyLet) text_ << one.name;
            const char* types[] = {"", "", "", "Boolean ", "Integer ", "Long ", "", "", "String "};
            if (one.optional() && !value.isMissing())
                text_ << " = " << types[value.index()] << json::plainText(value);
            if (value.isMissing()) ++plainlyOptional;
            text_ << ", ";
        }
        // Nor do they tell more than one sentence of a property.
        const auto same = [&](const MemberInfo& one) {
            return one.identifier == member.identifier;
        };
        text_ << ") missing " << plainlyOptional << ": "
              << std::ranges::find_if(info.members(), same)->sentence << '\n';
    }

    std::ostringstream text_;
};

/// The same of a library.
class Found {
   public:
    std::string all(ITypeLib& library) {
        TLIBATTR* attributes = nullptr;
        if (FAILED(library.GetLibAttr(&attributes))) return "no attributes";
        const auto [name, sentence] = documentation(library, -1);
        text_ << name << ' ' << attributes->wMajorVerNum << '.' << attributes->wMinorVerNum << ' '
              << textOf(attributes->guid) << " bits "
              << (attributes->syskind == SYS_WIN64 ? 64 : 32) << ": " << sentence << '\n';
        library.ReleaseTLibAttr(attributes);
        for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
            Ref<ITypeInfo> type;
            if (FAILED(library.GetTypeInfo(i, type.receive()))) return text_.str() + "no type";
            add(*type.get());
        }
        return text_.str();
    }

   private:
    template <class Source>
    static std::pair<std::string, std::string> documentation(Source& source, MEMBERID member) {
        BSTR name = nullptr;
        BSTR sentence = nullptr;
        source.GetDocumentation(member, &name, &sentence, nullptr, nullptr);
        return {narrow(name), narrow(sentence)};
    }
    static std::string nameOf(ITypeInfo& from, HREFTYPE reference) {
        Ref<ITypeInfo> found;
        from.GetRefTypeInfo(reference, found.receive());
        return found ? documentation(*found.get(), MEMBERID_NIL).first : "a lost type";
    }
    static std::string base(ITypeInfo& type) {
        HREFTYPE reference = 0;
        return FAILED(type.GetRefTypeOfImplType(0, &reference)) ? "none" : nameOf(type, reference);
    }
    static std::string name(ITypeInfo& from, const TYPEDESC& type) {
        switch (type.vt) {
            case VT_PTR:
                return name(from, *type.lptdesc) + '*';
            case VT_SAFEARRAY:
                return name(from, *type.lptdesc) + "()";
            case VT_USERDEFINED:
                return nameOf(from, type.hreftype);
            default:
                break;
        }
        const std::pair<int, const char*> names[] = {{VT_VOID, "nothing"}, {VT_BOOL, "Boolean"},
                                                     {VT_I2, "Integer"},   {VT_I4, "Long"},
                                                     {VT_R8, "Double"},    {VT_DATE, "Date"},
                                                     {VT_BSTR, "String"},  {VT_VARIANT, "Variant"},
                                                     {VT_UI1, "Byte"},     {VT_DISPATCH, "Object"}};
        for (const auto& [kind, text] : names)
            if (type.vt == kind) return text;
        return "type " + std::to_string(type.vt);
    }
    static std::string text(const VARIANT& value) {
        switch (value.vt) {
            case VT_BOOL:
                return value.boolVal == VARIANT_TRUE ? "Boolean True"
                       : value.boolVal == VARIANT_FALSE
                           ? "Boolean False"
                           : "Boolean " + std::to_string(value.boolVal);
            case VT_I2:
                return "Integer " + std::to_string(value.iVal);
            case VT_I4:
                return "Long " + std::to_string(value.lVal);
            case VT_BSTR:
                return "String " +
                       narrow(std::wstring_view(value.bstrVal, SysStringLen(value.bstrVal)));
            default:
                return "kind " + std::to_string(value.vt);
        }
    }
    void add(ITypeInfo& type) {
        TYPEATTR* attributes = nullptr;
        const auto [name, sentence] = documentation(type, MEMBERID_NIL);
        if (FAILED(type.GetTypeAttr(&attributes))) return;
        const auto kind = attributes->typekind;
        if (kind == TKIND_ENUM || kind == TKIND_RECORD) {
            text_ << (kind == TKIND_ENUM ? "enumeration " : "record ") << name << " size "
                  << attributes->cbSizeInstance;
        } else {
            text_ << (kind == TKIND_COCLASS ? "class " : "interface ") << name << ' '
                  << textOf(attributes->guid) << " flags " << attributes->wTypeFlags
                  << (kind == TKIND_COCLASS ? " default " : " base ") << base(type);
        }
        text_ << ": " << sentence << '\n';
        for (UINT i = 0; i < attributes->cVars; ++i) addVariable(type, i);
        for (UINT i = 0; i < attributes->cFuncs; ++i) addFunction(type, i);
        type.ReleaseTypeAttr(attributes);
    }
    void addVariable(ITypeInfo& type, UINT index) {
        VARDESC* row = nullptr;
        if (FAILED(type.GetVarDesc(index, &row))) return;
        text_ << "  " << documentation(type, row->memid).first;
        if (row->varkind == VAR_CONST)
            text_ << " = " << text(*row->lpvarValue) << '\n';
        else
            text_ << ' ' << name(type, row->elemdescVar.tdesc) << " at " << row->oInst << '\n';
        type.ReleaseVarDesc(row);
    }
    void addFunction(ITypeInfo& type, UINT index) {
        FUNCDESC* row = nullptr;
        if (FAILED(type.GetFuncDesc(index, &row))) return;
        // IDispatch's own are restricted.
        if ((row->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) return type.ReleaseFuncDesc(row);
        BSTR names[MemberInfo::kMaxParameters + 1] = {};
        UINT count = 0;
        type.GetNames(row->memid, names, MemberInfo::kMaxParameters + 1, &count);
        text_ << "  "
              << (row->invkind == INVOKE_FUNC          ? "method "
                  : row->invkind == INVOKE_PROPERTYGET ? "get "
                                                       : "put ")
              << row->memid << ' ' << name(type, row->elemdescFunc.tdesc) << ' ' << narrow(names[0])
              << '(';
        for (SHORT i = 0; i < row->cParams; ++i) {
            const ELEMDESC& one = row->lprgelemdescParam[i];
            const int flags = one.paramdesc.wParamFlags;
            text_ << ((flags & PARAMFLAG_FOUT) != 0 ? "inout " : "in ")
                  << ((flags & PARAMFLAG_FOPT) != 0 ? "optional " : "") << name(type, one.tdesc)
                  << ' ' << narrow(names[i + 1]);
            if ((flags & PARAMFLAG_FHASDEFAULT) != 0)
                text_ << " = " << text(one.paramdesc.pparamdescex->varDefaultValue);
            text_ << ", ";
        }
        text_ << ") missing " << row->cParamsOpt << ": " << documentation(type, row->memid).second
              << '\n';
        type.ReleaseFuncDesc(row);
    }

    std::ostringstream text_;
};

TEST(TypeLibrary, SaysWhatTheCatalogueSays) {
    for (const auto& [file, bits] : {std::pair(L"32", 32), std::pair(L"64", 64)}) {
        Ref<ITypeLib> library;
        const std::wstring path = QUORKIT_TYPE_LIBRARIES + std::wstring(file) + L".dll";
        ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.receive()), S_OK);
        EXPECT_EQ(Found().all(*library.get()), Expected().all(bits));
    }
}

}  // namespace
}  // namespace quorkit::test
#endif
