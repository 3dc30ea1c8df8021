// Calls of the automation server at random, as a client in C++ makes them. QUORKIT_CALLS says how
// many, QUORKIT_SEED which ones; with QUORKIT_TRACE each is told before it is made.
#include <algorithm>
#include <deque>
#include <iostream>

#include "automation/client.h"
#include "automation/heap.h"
#include "random_values.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

/// What writes elsewhere than in a folder of its own, reads whole drives, shows windows, waits (to
/// sort what cannot be sorted does so for ever) or starts programs.
constexpr const char* kNotCalled[] = {"IniFileName",
                                      "LogFileName",
                                      "limitFileSize",
                                      "SaveByteArrayToFile",
                                      "mkDirEx",
                                      "CreateTempFileName",
                                      "GetSpecialFolder",
                                      "MakeShortCut",
                                      "BrowseForFolder",
                                      "ShowOpenDialog",
                                      "ShowSaveDialog",
                                      "delay",
                                      "QuickSortVariantArray",
                                      "DisplayError",
                                      "ExecuteAndWait",
                                      "ExecuteAndWaitEx",
                                      "OpenURL",
                                      "OpenMail",
                                      "SetTopMostWindow",
                                      "WinTerminateProgram",
                                      "WinShowWaitForm",
                                      "ShowAboutDialog",
                                      "SaveVBAUserFormPosition",
                                      "ScrollLock",
                                      "SetKeyState",
                                      "Reg_WriteStringValue",
                                      "Reg_WriteDWordValue",
                                      "Reg_WriteBoolValue",
                                      "Reg_WriteKeyValuesEx",
                                      "Reg_DeleteKey",
                                      "Reg_DeletePath",
                                      "GetFilesFromDirectory3",
                                      "GetAllSubDirectories",
                                      "LoadPictureToClipboard",
                                      "SavePictureFromClipboard",
                                      "SetPictureToClipboard",
                                      "SetTextToClipboard",
                                      "SetRTFTextToClipboard"};

VARTYPE typeOf(Type type) {
    switch (type) {
        case Type::Boolean:
            return VT_BOOL;
        case Type::Integer:
            return VT_I2;
        case Type::Long:
            return VT_I4;
        case Type::Double:
            return VT_R8;
        case Type::Date:
            return VT_DATE;
        case Type::String:
            return VT_BSTR;
        case Type::StringArray:
            return VT_ARRAY | VT_BSTR;
        case Type::ByteArray:
            return VT_ARRAY | VT_UI1;
        case Type::VariantArray:
            return VT_ARRAY | VT_VARIANT;
        case Type::Object:
            return VT_DISPATCH;
        default:
            return VT_VARIANT;
    }
}

class RandomCalls : public Server {
   protected:
    struct Target {
        const ClassInfo* info;
        std::vector<const MemberInfo*> members;
        Ref<IDispatch> object;
    };

    RandomCalls() {
        std::filesystem::create_directory(scratch_.path("own"));
        std::filesystem::current_path(scratch_.path("own"));
        scratch_.write("own/a", "bytes");
        form_.members = {{L"Text", u"42"}, {L"Left", 10},    {L"Top", 10},
                         {L"Width", 100},  {L"Height", 100}, {L"Name", u"f"}};
        IDispatch* list = nullptr;
        callOf(make("GQuorConvert").get(), L"StringTokenToStringCollection",
               {u"x;y", u";", 0, Value::at(VT_DISPATCH, &list)});
        list_ = Ref<IDispatch>(list);
        objects_ = {&form_, list, keyed_.get()};
        callOf(make("GQuorClipboard").get(), L"SetTextToClipboard", {u"a"});
        for (const auto all : {classes(), runtimeClasses()})
            for (const ClassInfo& info : all) targets_.push_back({&info, membersOf(info), {}});
    }
    ~RandomCalls() override { std::filesystem::current_path(before_); }

    static std::vector<const MemberInfo*> membersOf(const ClassInfo& info) {
        std::vector<const MemberInfo*> made;
        for (const MemberInfo& member : info.members())
            if (std::ranges::none_of(kNotCalled, [&](const char* name) {
                    return std::strcmp(name, member.name) == 0;
                }))
                made.push_back(&member);
        return made;
    }

    void renew(Target& target) {
        target.object = {};
        if (target.info->kind != ClassKind::Runtime) target.object = make(target.info->name);
        const std::string name = target.info->name;
        if (name != "QuorInifile" && name != "QuorLogFile") return;
        const wchar_t* const property = name == "QuorInifile" ? L"IniFileName" : L"LogFileName";
        const String file = scratch_.name(name);
        callOf(target.object.get(), property, {file.c_str()}, DISPATCH_PROPERTYPUT);
    }

    static std::wstring wideOf(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

    /// An object that a call gave takes the place of one of its class.
    void keep(VARIANT& result) {
        if (result.vt != VT_DISPATCH || result.pdispVal == nullptr || result.pdispVal == &form_)
            return;
        for (Target& target : targets_)
            if (target.info->kind == ClassKind::Runtime && !target.members.empty() &&
                identifierOf(result.pdispVal, wideOf(target.members[0]->name).c_str()) ==
                    target.members[0]->identifier)
                target.object = Ref<IDispatch>::to(result.pdispVal);
    }

    WORD flagsFor(const MemberInfo& member) {
        if (random_.oneIn(24)) return static_cast<WORD>(random_.below(0x10000));
        switch (member.kind) {
            case MemberKind::Method:
                return random_.oneIn(2) ? DISPATCH_METHOD : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
            case MemberKind::PropertyGet:
                return DISPATCH_PROPERTYGET;
            default:
                return DISPATCH_PROPERTYPUT;
        }
    }

    std::vector<DISPID> namesFor(std::size_t count, bool put) {
        std::vector<DISPID> names;
        if (put && !random_.oneIn(8)) names = {DISPID_PROPERTYPUT};
        if (!random_.oneIn(4)) return names;
        constexpr DISPID odd[] = {DISPID_PROPERTYPUT, DISPID_UNKNOWN, INT_MAX, INT_MIN, 0};
        for (unsigned left = random_.below(count + 2); left > 0; --left)
            names.push_back(random_.oneIn(8) ? random_.of(odd) : static_cast<DISPID>(left - 1));
        return names;
    }

    /// What went wrong; "" when nothing did.
    std::string call(IDispatch* object, const MemberInfo& member) {
        static constexpr DISPID odd[] = {DISPID_VALUE, DISPID_UNKNOWN, DISPID_NEWENUM, INT_MAX,
                                         INT_MIN};
        std::deque<RandomArgument> given;
        std::vector<VARIANT> passed;
        const std::size_t count = random_.oneIn(12) ? random_.below(10) : member.parameterCount;
        for (std::size_t i = count; i-- > 0;) {
            const Type type =
                i < member.parameterCount ? member.parameterRow[i].type.type : Type::Variant;
            passed.push_back(given.emplace_back(random_, values_, typeOf(type)).passed());
        }
        const std::vector<VARIANT> before = passed;
        const WORD flags = flagsFor(member);
        std::vector<DISPID> names = namesFor(count, (flags & DISPATCH_PROPERTYPUT) != 0);
        DISPPARAMS arguments = {random_.oneIn(99) ? nullptr : passed.data(),
                                random_.oneIn(99) ? nullptr : names.data(),
                                static_cast<UINT>(count), static_cast<UINT>(names.size())};
        VARIANT result;
        std::memset(static_cast<void*>(&result), 0x5A, sizeof result);
        const VARIANT untouched = result;
        EXCEPINFO report = {};
        UINT argument = 99;
        const bool wantsResult = !random_.oneIn(8);
        const bool wantsReport = !random_.oneIn(8);
        const HRESULT code =
            object->Invoke(random_.oneIn(32) ? random_.of(odd) : member.identifier, IID_NULL, 0,
                           flags, &arguments, wantsResult ? &result : nullptr,
                           wantsReport ? &report : nullptr, random_.oneIn(8) ? nullptr : &argument);
        const auto same = [](const VARIANT& one, const VARIANT& other) {
            return std::memcmp(&one, &other, sizeof one) == 0;
        };
        const bool reported = code == DISP_E_EXCEPTION && wantsReport;
        std::string wrong;
        if (FAILED(code) && code != E_INVALIDARG && code != E_OUTOFMEMORY &&
            (code < DISP_E_UNKNOWNINTERFACE || code > DISP_E_PARAMNOTOPTIONAL))
            wrong += " code " + std::to_string(code);
        if (argument != 99 && (SUCCEEDED(code) || argument >= count)) wrong += " argument";
        if (reported != (report.scode != 0 && report.bstrSource != nullptr)) wrong += " report";
        if (report.scode == static_cast<HRESULT>(0x800A0033)) wrong += " internal error";
        SysFreeString(report.bstrSource);
        SysFreeString(report.bstrDescription);
        if (code == S_OK && wantsResult) {
            keep(result);
            if ((result.vt & VT_BYREF) != 0 || FAILED(VariantClear(&result))) wrong += " result";
        } else if (!same(result, untouched)) {
            wrong += " a result that is none";
        }
        if (!std::ranges::equal(passed, before, same)) wrong += " arguments";
        for (RandomArgument& one : given) wrong += one.takeBack();
        return wrong;
    }

    const std::filesystem::path before_ = std::filesystem::current_path();
    Scratch scratch_;
    Random random_{fromEnvironment("QUORKIT_SEED", 1)};
    Own form_;
    Ref<IDispatch> keyed_ = make("QuorCollection");
    Ref<IDispatch> list_;
    Objects objects_;
    RandomValue values_{random_, objects_};
    std::vector<Target> targets_;
};

TEST_F(RandomCalls, DoNoHarm) {
    const unsigned count = fromEnvironment("QUORKIT_CALLS", 20'000);
    const bool traced = std::getenv("QUORKIT_TRACE") != nullptr;
    std::int64_t before = 0;
    for (unsigned i = 0; i < count; ++i) {
        if (i == count / 2) before = bytesInUse();
        Target& target = targets_[random_.below(targets_.size())];
        if (target.members.empty()) continue;
        if (target.object.get() == nullptr || random_.oneIn(64)) renew(target);
        if (target.object.get() == nullptr) continue;
        const MemberInfo& member = *target.members[random_.below(target.members.size())];
        const std::string place = std::to_string(i) + " " + target.info->name + "." + member.name;
        if (traced) std::cout << place << std::endl;
        ASSERT_EQ(call(target.object.get(), member), "") << place;
        ASSERT_TRUE(i % 4096 != 0 || heapsAreValid()) << i;
    }
    targets_.clear();
    list_ = keyed_ = {};
    EXPECT_EQ(form_.count, 1u);
    EXPECT_TRUE(heapsAreValid());
    EXPECT_LT(bytesInUse() - before, 4 * kSlack);
}

}  // namespace
}  // namespace quorkit::test
