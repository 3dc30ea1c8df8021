// The facts that quorkit doctor examines on Windows.
#include <quorkit/GQuorFile.h>
#include <quorkit/catalogue.h>
#include <quorkit/utf8.h>

#include <cstdlib>

#include "automation/com.h"
#include "automation/guid.h"
#include "automation/registration.h"
#include "cli/system_text.h"
#include "cli/windows_findings.h"

namespace quorkit::cli {
namespace {

using automation::Bits;
using automation::OwnedVariant;
using automation::Ref;
using automation::Scope;

constexpr int kOwnBits = static_cast<int>(automation::kOwnBits);

bool runsBothBitnesses() {
    BOOL emulated = FALSE;
    return automation::kOwnBits == Bits::B64 ||
           (IsWow64Process(GetCurrentProcess(), &emulated) != FALSE && emulated != FALSE);
}

/// The bitness of the programs that can load a DLL; 0 for another file.
int bitsOf(const std::wstring& path) {
    // The lowest bit marks what is loaded as data.
    const HMODULE data = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (data == nullptr) return 0;
    const auto* const start = reinterpret_cast<const BYTE*>(data) - 1;
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(start);
    const auto* const nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(start + dos->e_lfanew);
    const WORD machine = nt->FileHeader.Machine;
    FreeLibrary(data);
    return machine == IMAGE_FILE_MACHINE_AMD64 ? 64 : machine == IMAGE_FILE_MACHINE_I386 ? 32 : 0;
}

RegistrationFacts registrationFacts(Ports& ports, Scope scope, Bits bits) {
    const automation::Registered found = automation::registered(scope, bits);
    const String path = textOf(found.dllPath);
    return {scope == Scope::User,
            static_cast<int>(bits),
            found.classes,
            toUtf8(path),
            GetFileAttributesW(found.dllPath.c_str()) != INVALID_FILE_ATTRIBUTES,
            bitsOf(found.dllPath),
            toUtf8(GQuorFile(ports).getFileVersion(path))};
}

Findings checkRegistration(Ports& ports) {
    std::vector<RegistrationFacts> all;
    for (const Scope scope : {Scope::Machine, Scope::User})
        for (const Bits bits : {Bits::B64, Bits::B32})
            if (bits == automation::kOwnBits || runsBothBitnesses())
                all.push_back(registrationFacts(ports, scope, bits));
    return registrationFindings(all, {kOwnBits, classes().size(), QUORKIT_VERSION});
}

/// Objects can be made while this lives.
class Apartment {
   public:
    Apartment() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~Apartment() {
        if (SUCCEEDED(result_)) CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

   private:
    HRESULT result_;
};

/// Pads "7" to "007". "" when that works.
std::string failureOfCall(IDispatch* object) {
    wchar_t name[] = L"LPad";
    LPOLESTR names[] = {name};
    DISPID identifier = 0;
    HRESULT result = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &identifier);
    if (FAILED(result)) return "LPad is not found: " + messageOf(result);
    OwnedVariant arguments[3];
    const char16_t* text = u"370";  // the last first
    for (OwnedVariant& one : arguments) {
        one.bstrVal = automation::newBstr({text++, 1});
        one.vt = VT_BSTR;
    }
    DISPPARAMS given = {arguments, nullptr, 3, 0};
    OwnedVariant answer;
    result = object->Invoke(identifier, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given,
                            &answer, nullptr, nullptr);
    if (FAILED(result)) return "LPad fails: " + messageOf(result);
    const bool right = answer.vt == VT_BSTR && automation::viewOf(answer.bstrVal) == u"007";
    return right ? "" : "LPad gives a wrong result";
}

std::string failureOfObject() {
    CLSID identity = {};
    HRESULT result = CLSIDFromProgID(L"quorkit.GQuorStrings", &identity);
    if (FAILED(result)) return "quorkit.GQuorStrings is not found: " + messageOf(result);
    void* made = nullptr;
    result = CoCreateInstance(identity, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made);
    if (FAILED(result)) return "quorkit.GQuorStrings cannot be created: " + messageOf(result);
    return failureOfCall(Ref<IDispatch>(static_cast<IDispatch*>(made)).get());
}

Findings checkObject(Ports&) {
    const Apartment apartment;
    return objectFindings(kOwnBits, failureOfObject());
}

Findings checkTypeLibrary(Ports&) {
    const Apartment apartment;
    TypeLibraryFacts facts;
    const GUID identity = automation::guidOf(kLibraryIdentity);
    BSTR path = nullptr;
    if (SUCCEEDED(QueryPathOfRegTypeLib(identity, 1, 0, LOCALE_NEUTRAL, &path)))
        // Some systems count the U+0000 behind it as a character.
        facts.path = toUtf8(textOf(std::wstring(path)));
    SysFreeString(path);
    Ref<ITypeLib> library;
    const HRESULT result = LoadRegTypeLib(identity, 1, 0, LOCALE_NEUTRAL, library.receive());
    if (FAILED(result)) facts.failure = messageOf(result);
    return typeLibraryFindings(facts);
}

Findings checkScreen(Ports&) {
    USEROBJECTFLAGS flags = {};
    DWORD size = 0;
    const BOOL known = GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags,
                                                 sizeof flags, &size);
    return screenFindings(known == FALSE || (flags.dwFlags & WSF_VISIBLE) != 0);
}

constexpr Check kChecks[] = {
    {"registered", checkRegistration},
    {"creating and calling an object", checkObject},
    {"type library", checkTypeLibrary},
    {"screen", checkScreen},
};

}  // namespace

void endAtOnce(int status) {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    std::abort();
}

std::span<const Check> checks() {
    return kChecks;
}

}  // namespace quorkit::cli
