// Failures as COM tells them.
#pragma once

#include <oaidl.h>
#include <quorkit/dispatch.h>
#include <quorkit/errors.h>

namespace quorkit::automation {

/// What an HRESULT of the system, or of a client's object, is to the library.
ErrorNumber numberOf(HRESULT result);
/// Raises that error when the result is a failure.
void check(HRESULT result);

/// The number of an error that a client's object reported with DISP_E_EXCEPTION. Its texts are
/// released.
ErrorNumber take(EXCEPINFO& report);

/// The HRESULT that stands for the number of a runtime error, as scripts and programs read it.
HRESULT codeOf(Long number);

/// Reports an error of a call: as the HRESULT that automation has for it when the call did not fit
/// the member, with `argument` as its position among the client's arguments; otherwise as
/// DISP_E_EXCEPTION with number, text and source in `report`. A client that hands in no report
/// finds text and source with GetErrorInfo, which has nothing after any other error.
HRESULT tell(const CallError& error, EXCEPINFO* report);

/// Runs the body of a COM method: no exception leaves it.
template <class Body>
HRESULT guarded(Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return codeOf(errorOf(std::current_exception()).number);
    }
}

}  // namespace quorkit::automation
