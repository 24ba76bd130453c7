// Failures of platform operations, the log file, and the trap that every routine with file work
// has: a failing statement is logged, and the routine goes on with the next one.
#pragma once

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorrel {

/// A run-time error with its classic number.
class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(int number, const std::string& text) : std::runtime_error(text), number_(number) {}
    /// With the usual text of the number.
    explicit RuntimeError(int number);
    [[nodiscard]] int Number() const { return number_; }

  private:
    int number_;
};

namespace run_time_error {
inline constexpr int kInvalidArgument = 5;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kInternal = 51;  // a fault of the program itself
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceError = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kIndexOutOfBounds = 35600;
inline constexpr int kElementNotFound = 35601;
}  // namespace run_time_error

/// The log file: one line, overwritten by each error, so that the last error stays.
class ErrorLog {
  public:
    /// `write` replaces the log file's content. It may fail silently.
    explicit ErrorLog(std::function<void(std::string_view line)> write);

    /// Called with each line beside the file, for a program that shows them. A line that
    /// repeats the one before is not reported again.
    std::function<void(std::string_view line)> listener;

    /// `label` is the routine's own, with its colon and blank.
    void Write(std::string_view label, int number, std::string_view text);
    /// The same for what the log has always told though nothing is wrong: it does not count.
    void Note(std::string_view label, int number, std::string_view text);
    /// The errors so far.
    [[nodiscard]] int Count() const { return count_; }
    [[nodiscard]] const std::string& LastLine() const { return last_line_; }

  private:
    std::function<void(std::string_view)> write_;
    std::string last_line_;
    int count_ = 0;
};

/// Runs statements of one routine under its label.
class Trap {
  public:
    Trap(ErrorLog& log, std::string_view label) : log_(log), label_(label) {}

    /// Runs `statement`. False if it failed; the failure is in the log then.
    template <typename Statement>
    bool operator()(Statement&& statement) const {
        try {
            statement();
            return true;
        } catch (const RuntimeError& error) {
            log_.Write(label_, error.Number(), error.what());
        } catch (const std::bad_alloc&) {
            log_.Write(label_, run_time_error::kOutOfMemory, "Out of memory");
        }
        return false;
    }

  private:
    ErrorLog& log_;
    std::string label_;
};

}  // namespace quorrel
