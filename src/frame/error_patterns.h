// The ways in which a member meets a run-time failure: the usual three, and a fourth of one member.
#pragma once

#include <quorkit/errors.h>

#include <new>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>

#include "frame/pending_error.h"

namespace quorkit::frame {

/// The failure ends the member and reaches its caller as an automation error, also when it was the
/// C++ library that failed: exhausted memory is error 7, anything unexpected error 51.
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

/// The failing statement is skipped and the member goes on behind it. True when it did not fail.
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

/// The first failure ends the body, and `failure` is the result.
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

/// The step is tried again until it does not fail. One that always fails never returns.
template <class Step>
void retryUntilItSucceeds(Step&& step) {
    while (!resumeNext(step)) std::this_thread::yield();
}

}  // namespace quorkit::frame
