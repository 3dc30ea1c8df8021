#include "automation/type_library/writer.h"

#include <stdexcept>

#include "automation/guid.h"
#include "automation/type_library/descriptions.h"
#include "automation/type_library/mend.h"
#include "describe/interface_name.h"

namespace quorkit::automation {
namespace {

/// Names and sentences are ASCII. The system's functions want texts that they could change.
class Text {
   public:
    explicit Text(const std::string& text) : text_(text.begin(), text.end()) {}
    operator LPOLESTR() { return text_.data(); }  // NOLINT(google-explicit-constructor)

   private:
    std::wstring text_;
};

INVOKEKIND invocation(MemberKind kind) {
    switch (kind) {
        case MemberKind::PropertyGet:
            return INVOKE_PROPERTYGET;
        case MemberKind::PropertyLet:
            return INVOKE_PROPERTYPUT;
        case MemberKind::Method:
            break;
    }
    return INVOKE_FUNC;
}

Ref<ITypeInfo> dispatchOfSystem() {
    Ref<ITypeLib> automation;
    expect(LoadTypeLib(L"stdole2.tlb", automation.receive()), "stdole2.tlb");
    Ref<ITypeInfo> dispatch;
    expect(automation->GetTypeInfoOfGuid(IID_IDispatch, dispatch.receive()), "IDispatch");
    return dispatch;
}

}  // namespace

TypeLibraryWriter::TypeLibraryWriter(SYSKIND system, const std::filesystem::path& path)
    : path_(path), dispatch_(dispatchOfSystem()) {
    expect(CreateTypeLib2(system, path.c_str(), library_.receive()), "create");
    expect(library_->SetGuid(guidOf(kLibraryIdentity)), "identity");
    expect(library_->SetVersion(1, 0), "version");
    expect(library_->SetLcid(LOCALE_NEUTRAL), "language");
    expect(library_->SetName(Text("quorkit")), "name");
    // The text by which a macro's author finds it among the libraries of the machine.
    expect(library_->SetDocString(Text("quorkit utility classes")), "text");
    for (const EnumerationInfo& enumeration : enumerations()) add(enumeration);
    for (const RecordInfo& record : records()) add(record);
    // A member may name any of the interfaces, so the runtime's are first.
    for (const auto all : {runtimeClasses(), classes()})
        for (const ClassInfo& info : all) addInterface(info);
    for (const ClassInfo& info : classes()) addClass(info);
}

void TypeLibraryWriter::save() {
    expect(library_->SaveAllChanges(), "save");
    mendTypeLibrary(path_);
}

Ref<ICreateTypeInfo> TypeLibraryWriter::add(const std::string& name, TYPEKIND kind,
                                            const char* sentence) {
    Ref<ICreateTypeInfo> made;
    expect(library_->CreateTypeInfo(Text(name), kind, made.receive()), name);
    expect(made->SetDocString(Text(sentence)), name);
    types_[name] = Ref<ITypeInfo>::from(made.get());
    return made;
}

HREFTYPE TypeLibraryWriter::reference(ICreateTypeInfo& from, const std::string& name) {
    HREFTYPE made = 0;
    expect(from.AddRefTypeInfo(types_[name].get(), &made), "reference to " + name);
    return made;
}

void TypeLibraryWriter::add(const EnumerationInfo& enumeration) {
    const Ref<ICreateTypeInfo> made = add(enumeration.name, TKIND_ENUM, enumeration.sentence);
    UINT index = 0;
    for (const ConstantInfo& constant : enumeration.constants) {
        VARIANT value = {};
        value.vt = VT_I4;
        value.lVal = constant.value;
        VARDESC row = {};
        row.memid = MEMBERID_NIL;
        row.varkind = VAR_CONST;
        row.lpvarValue = &value;
        row.elemdescVar.tdesc.vt = VT_I4;
        expect(made->AddVarDesc(index, &row), constant.name);
        expect(made->SetVarName(index++, Text(constant.name)), constant.name);
    }
    expect(made->LayOut(), enumeration.name);
}

void TypeLibraryWriter::add(const RecordInfo& record) {
    const Ref<ICreateTypeInfo> made = add(record.name, TKIND_RECORD, record.sentence);
    TypeDescriptions types([&](const std::string& name) { return reference(*made.get(), name); });
    UINT index = 0;
    for (const FieldInfo& field : record.fields) {
        // Who wants others has to add up their sizes, and the whole record's.
        if (field.type.type != Type::Long) throw std::runtime_error("a field that is no Long");
        VARDESC row = {};
        row.memid = MEMBERID_NIL;
        row.varkind = VAR_PERINSTANCE;
        row.oInst = index * sizeof(Long);
        row.elemdescVar.tdesc = types.of(field.type);
        expect(made->AddVarDesc(index, &row), field.name);
        expect(made->SetVarName(index++, Text(field.name)), field.name);
    }
    expect(made->LayOut(), record.name);
}

void TypeLibraryWriter::addInterface(const ClassInfo& info) {
    const std::string name = describe::interfaceName(info);
    const Ref<ICreateTypeInfo> made = add(name, TKIND_DISPATCH, info.role);
    expect(made->SetGuid(guidOf(info.interfaceIdentity)), name);
    HREFTYPE base = 0;
    expect(made->AddRefTypeInfo(dispatch_.get(), &base), name);
    expect(made->AddImplType(0, base), name);
    // The runtime's own are not ours to describe: their members are found when they are called.
    const bool ours = info.kind != ClassKind::Runtime;
    expect(made->SetTypeFlags(TYPEFLAG_FDISPATCHABLE | (ours ? TYPEFLAG_FNONEXTENSIBLE : 0)), name);
    UINT index = 0;
    if (ours)
        for (const MemberInfo& member : info.members()) addMember(*made.get(), index++, member);
    expect(made->LayOut(), name);
}

void TypeLibraryWriter::addMember(ICreateTypeInfo& to, UINT index, const MemberInfo& member) {
    TypeDescriptions types([&](const std::string& name) { return reference(to, name); });
    std::vector<ELEMDESC> parameters;
    std::vector<PARAMDESCEX> defaults(member.parameterCount);
    std::vector<Text> names = {Text(member.name)};
    FUNCDESC row = {};
    for (const ParameterInfo& parameter : member.parameters()) {
        ELEMDESC& made = parameters.emplace_back();
        made.tdesc = types.of(parameter);
        int flags = PARAMFLAG_FIN | (parameter.byReference ? PARAMFLAG_FOUT : 0);
        if (parameter.optional()) {
            flags |= PARAMFLAG_FOPT;
            PARAMDESCEX& value = defaults[parameters.size() - 1];
            value.cBytes = sizeof(PARAMDESCEX);
            describeDefault(parameter, value.varDefaultValue);
            if (value.varDefaultValue.vt == VT_EMPTY) {
                ++row.cParamsOpt;
            } else {
                flags |= PARAMFLAG_FHASDEFAULT;
                made.paramdesc.pparamdescex = &value;
            }
        }
        made.paramdesc.wParamFlags = static_cast<USHORT>(flags);
        names.emplace_back(parameter.name);
    }
    // The value that a property takes has no name in a type library.
    if (member.kind == MemberKind::PropertyLet) names.pop_back();

    row.memid = member.identifier;
    row.funckind = FUNC_DISPATCH;
    row.invkind = invocation(member.kind);
    row.callconv = CC_STDCALL;
    row.cParams = static_cast<SHORT>(parameters.size());
    row.lprgelemdescParam = parameters.data();
    row.elemdescFunc.tdesc = types.of(member.result);
    expect(to.AddFuncDesc(index, &row), member.name);
    for (PARAMDESCEX& value : defaults) VariantClear(&value.varDefaultValue);
    std::vector<LPOLESTR> texts(names.begin(), names.end());
    expect(to.SetFuncAndParamNames(index, texts.data(), static_cast<UINT>(texts.size())),
           member.name);
    expect(to.SetFuncDocString(index, Text(member.sentence)), member.name);
}

void TypeLibraryWriter::addClass(const ClassInfo& info) {
    const Ref<ICreateTypeInfo> made = add(info.name, TKIND_COCLASS, info.role);
    expect(made->SetGuid(guidOf(info.identity)), info.name);
    const bool global = info.kind == ClassKind::Global;
    expect(made->SetTypeFlags(TYPEFLAG_FCANCREATE | (global ? TYPEFLAG_FAPPOBJECT : 0)), info.name);
    expect(made->AddImplType(0, reference(*made.get(), describe::interfaceName(info))), info.name);
    expect(made->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT), info.name);
}

}  // namespace quorkit::automation
