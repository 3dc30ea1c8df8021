// How a member treats a run-time failure: three usual ways, and a fourth that one member needs.
#pragma once

#include <quorkit/errors.h>

#include <new>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>

#include "frame/pending_error.h"

namespace quorkit::frame {

/// The failure ends the member and reaches its caller as an automation error. A failure of the C++
/// library becomes one too: exhausted memory error 7, anything unexpected error 51.
template <class Body>
decltype(auto) untrapped(Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const AutomationError&) {
        throw;
    } catch (const std::bad_alloc&) {
        raise(ErrorNumber::OutOfMemory);
    } catch (const std::length_error&) {
        raise(ErrorNumber::OutOfMemory);
    } catch (const std::exception&) {
        raise(ErrorNumber::InternalError);
    }
}

/// Skips a failing statement; the member continues behind it. True when it did not fail.
template <class Statement>
bool resumeNext(Statement&& statement) {
    const PendingError before = pendingError();
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const std::exception&) {
        setPendingError(before);
        return false;
    }
}

/// Ends the body at the first failure, and returns `failure`.
template <class Result, class Body>
Result onErrorReturn(const Result& failure, Body&& body) {
    const PendingError before = pendingError();
    try {
        return std::forward<Body>(body)();
    } catch (const std::exception&) {
        setPendingError(before);
        return failure;
    }
}

/// Repeats the step until it does not fail; never returns if it always fails.
template <class Step>
void retryUntilItSucceeds(Step&& step) {
    while (!resumeNext(step)) std::this_thread::yield();
}

}  // namespace quorkit::frame
