// The one error type: a number and a text of the automation runtime.
#pragma once

#include <quorkit/values.h>

#include <exception>
#include <string>

namespace quorkit {

/// The runtime's errors that the library raises. It defines no errors of its own.
enum class ErrorNumber : Long {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    OutOfStackSpace = 28,
    InternalError = 51,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
    ObjectRequired = 424,
    CannotCreateObject = 429,
    NoSuchMember = 438,
    NamedArgumentNotFound = 448,
    ArgumentNotOptional = 449,
    WrongNumberOfArguments = 450,
    KeyAlreadyPresent = 457,
    InvalidPicture = 481,
};

/// What a client sees when a member fails: the runtime's number and its text.
class AutomationError : public std::exception {
   public:
    /// An error with the runtime's own text for `number`.
    explicit AutomationError(ErrorNumber number);

    Long number() const noexcept { return number_; }
    /// The text, plain ASCII.
    const char* what() const noexcept override { return text_; }

   private:
    Long number_;
    const char* text_;
};

[[noreturn]] void raise(ErrorNumber number);

}  // namespace quorkit
