#include "platform/failure.hpp"

namespace quorrel {
namespace {

std::string TextOf(int number) {
    using namespace run_time_error;
    switch (number) {
        case kInvalidArgument:
            return "Invalid procedure call or argument";
        case kOutOfMemory:
            return "Out of memory";
        case kSubscriptOutOfRange:
            return "Subscript out of range";
        case kFileNotFound:
            return "File not found";
        case kDeviceError:
            return "Device I/O error";
        case kFileExists:
            return "File already exists";
        case kDiskFull:
            return "Disk full";
        case kInputPastEnd:
            return "Input past end of file";
        case kPermissionDenied:
            return "Permission denied";
        case kPathFileAccess:
            return "Path/File access error";
        case kPathNotFound:
            return "Path not found";
        case kObjectNotSet:
            return "Object variable or With block variable not set";
        case kIndexOutOfBounds:
            return "Index out of bounds";
        case kElementNotFound:
            return "Element not found";
        default:
            return "Application-defined or object-defined error";
    }
}

}  // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, TextOf(number)) {}

ErrorLog::ErrorLog(std::function<void(std::string_view)> write) : write_(std::move(write)) {}

void ErrorLog::Write(std::string_view label, int number, std::string_view text) {
    ++count_;
    Note(label, number, text);
}

void ErrorLog::Note(std::string_view label, int number, std::string_view text) {
    std::string line(label);
    line.append(std::to_string(number)).append(" ").append(text);
    // A file with a thousand equal faults costs one write, and the log is the same.
    if (line == last_line_) return;
    last_line_ = line;
    write_(line);
    if (listener) listener(line);
}

}  // namespace quorrel
