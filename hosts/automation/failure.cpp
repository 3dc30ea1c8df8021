#include "automation/failure.h"

#include <string>

#include "automation/com.h"

namespace quorkit::automation {
namespace {

struct Pair {
    HRESULT result;
    ErrorNumber number;
};

// Both ways; the first of several pairs counts.
constexpr Pair kPairs[] = {
    {DISP_E_TYPEMISMATCH, ErrorNumber::TypeMismatch},
    {DISP_E_BADVARTYPE, ErrorNumber::TypeMismatch},
    {E_NOINTERFACE, ErrorNumber::TypeMismatch},
    {DISP_E_OVERFLOW, ErrorNumber::Overflow},
    {DISP_E_MEMBERNOTFOUND, ErrorNumber::NoSuchMember},
    {DISP_E_UNKNOWNNAME, ErrorNumber::NoSuchMember},
    {DISP_E_PARAMNOTFOUND, ErrorNumber::NamedArgumentNotFound},
    {DISP_E_PARAMNOTOPTIONAL, ErrorNumber::ArgumentNotOptional},
    {DISP_E_BADPARAMCOUNT, ErrorNumber::WrongNumberOfArguments},
    {DISP_E_BADINDEX, ErrorNumber::SubscriptOutOfRange},
    {E_OUTOFMEMORY, ErrorNumber::OutOfMemory},
};

constexpr ErrorNumber kAutomationError{440};

String wideOf(const std::string& ascii) {
    return String(ascii.begin(), ascii.end());
}

/// For GetErrorInfo on this thread.
void leaveBehind(const String& source, const String& text) {
    const auto wide = [](const String& from) {
        return const_cast<LPOLESTR>(reinterpret_cast<const OLECHAR*>(from.c_str()));
    };
    Ref<ICreateErrorInfo> made;
    if (FAILED(CreateErrorInfo(made.receive()))) return;
    made->SetSource(wide(source));
    made->SetDescription(wide(text));
    SetErrorInfo(0, Ref<IErrorInfo>::from(made.get()).get());
}

}  // namespace

ErrorNumber numberOf(HRESULT result) {
    for (const Pair& pair : kPairs)
        if (pair.result == result) return pair.number;
    if (HRESULT_FACILITY(result) == FACILITY_CONTROL) return ErrorNumber{HRESULT_CODE(result)};
    return kAutomationError;
}

void check(HRESULT result) {
    if (FAILED(result)) raise(numberOf(result));
}

ErrorNumber take(EXCEPINFO& report) {
    if (report.pfnDeferredFillIn != nullptr) report.pfnDeferredFillIn(&report);
    SysFreeString(report.bstrSource);
    SysFreeString(report.bstrDescription);
    SysFreeString(report.bstrHelpFile);
    return report.wCode != 0 ? ErrorNumber{report.wCode} : numberOf(report.scode);
}

HRESULT codeOf(Long number) {
    if (number == static_cast<Long>(ErrorNumber::OutOfMemory)) return E_OUTOFMEMORY;
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

HRESULT tell(const CallError& error, EXCEPINFO* report) {
    const auto number = static_cast<ErrorNumber>(error.number);
    const bool ofTheCall = error.argument || number == ErrorNumber::NoSuchMember ||
                           number == ErrorNumber::NamedArgumentNotFound ||
                           number == ErrorNumber::ArgumentNotOptional ||
                           number == ErrorNumber::WrongNumberOfArguments;
    SetErrorInfo(0, nullptr);  // that of an earlier call must not pass for this one's
    if (ofTheCall)
        for (const Pair& pair : kPairs)
            if (pair.number == number) return pair.result;
    const String source = wideOf(error.source);
    const String text = wideOf(error.text);
    if (report == nullptr) {
        leaveBehind(source, text);
        return DISP_E_EXCEPTION;
    }
    *report = {};
    report->scode = codeOf(error.number);
    report->bstrSource = newBstr(source);
    report->bstrDescription = newBstr(text);
    return DISP_E_EXCEPTION;
}

}  // namespace quorkit::automation
