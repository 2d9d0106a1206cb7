#include "base/run_time_error.h"

namespace quillet {

const char* RunTimeError::what() const noexcept {
    switch (number_) {
    case ErrorNumber::InvalidProcedureCall:
        return "Invalid procedure call or argument";
    case ErrorNumber::Overflow:
        return "Overflow";
    case ErrorNumber::OutOfMemory:
        return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange:
        return "Subscript out of range";
    case ErrorNumber::DivisionByZero:
        return "Division by zero";
    case ErrorNumber::TypeMismatch:
        return "Type mismatch";
    case ErrorNumber::FileNotFound:
        return "File not found";
    case ErrorNumber::PermissionDenied:
        return "Permission denied";
    case ErrorNumber::PathFileAccess:
        return "Path/File access error";
    case ErrorNumber::PathNotFound:
        return "Path not found";
    case ErrorNumber::InvalidPropertyValue:
        return "Invalid property value";
    case ErrorNumber::ComponentFailed:
        return "Automation error";
    case ErrorNumber::NecessaryValueMissing:
        break;
    case ErrorNumber::PrinterError:
        return "Printer error";
    case ErrorNumber::DialogCancelled:
        return "Cancel was selected.";
    }
    return "Application-defined or object-defined error";
}

} // namespace quillet
