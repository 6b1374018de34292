#include "base/RuntimeError.h"

namespace tavrix {

std::string DescriptionOf(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::OutOfMemory:
            return "Out of memory";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::BadFileNameOrNumber:
            return "Bad file name or number";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::FileAlreadyExists:
            return "File already exists";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::InputPastEnd:
            return "Input past end of file";
        case ErrorNumber::DeviceUnavailable:
            return "Device unavailable";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::DiskNotReady:
            return "Disk not ready";
        case ErrorNumber::PathFileAccessError:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::InvalidPropertyValue:
            return "Invalid property value";
        case ErrorNumber::FormCannotBeMoved:
            return "A form can't be moved or sized while minimized or maximized";
        case ErrorNumber::InvalidPicture:
            return "Invalid picture";
        case ErrorNumber::CantOpenClipboard:
            return "Can't open Clipboard";
    }
    return "Application-defined or object-defined error";
}

}  // namespace tavrix
