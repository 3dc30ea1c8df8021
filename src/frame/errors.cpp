#include <quorkit/errors.h>

namespace quorkit {
namespace {

const char* textOf(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::OutOfMemory:
            return "Out of memory";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::OutOfStackSpace:
            return "Out of stack space";
        case ErrorNumber::InternalError:
            return "Internal error";
        case ErrorNumber::BadFileName:
            return "Bad file name or number";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DeviceError:
            return "Device I/O error";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::TooManyFiles:
            return "Too many files";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccessError:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::ObjectNotSet:
            return "Object variable or With block variable not set";
        case ErrorNumber::InvalidUseOfNull:
            return "Invalid use of Null";
        case ErrorNumber::ObjectRequired:
            return "Object required";
        case ErrorNumber::CannotCreateObject:
            return "Cannot create object";
        case ErrorNumber::NoSuchMember:
            return "Object doesn't support this property or method";
        case ErrorNumber::NamedArgumentNotFound:
            return "Named argument not found";
        case ErrorNumber::ArgumentNotOptional:
            return "Argument not optional";
        case ErrorNumber::WrongNumberOfArguments:
            return "Wrong number of arguments or invalid property assignment";
        case ErrorNumber::KeyAlreadyPresent:
            return "This key is already associated with an element of this collection";
        case ErrorNumber::InvalidPicture:
            return "Invalid picture";
    }
    return "Application-defined or object-defined error";
}

}  // namespace

AutomationError::AutomationError(ErrorNumber number)
    : number_(static_cast<Long>(number)), text_(textOf(number)) {}

void raise(ErrorNumber number) {
    throw AutomationError(number);
}

}  // namespace quorkit
