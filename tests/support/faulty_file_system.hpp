// A file system on which one chosen operation goes wrong.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/failure.hpp"
#include "platform/native_file_system.hpp"

namespace quorrel::test {

/// Thrown in place of the end of the process; nothing in the program catches it.
struct Killed {};

enum class Fault {
    kNone,
    kNoPermission,  // nothing is done
    kDiskFull,      // half of a file is written
    kKilledBefore,
    kKilledHalfway,  // half of a file is written; other operations are done
};

class FaultyFileSystem : public NativeFileSystem {
  public:
    FaultyFileSystem() { flush_to_disk = false; }

    /// The operation with this number, counted from 1 over all that change the disk, fails. For
    /// a disk that is full, so do all writes after it until Heal.
    void FailAt(int number, Fault fault) {
        number_ = number;
        fault_ = fault;
        count_ = 0;
    }
    void Heal() { fault_ = Fault::kNone; }
    [[nodiscard]] int Operations() const { return count_; }

    void WriteFile(std::string_view path, std::string_view bytes) override {
        if (!IsDue()) return NativeFileSystem::WriteFile(path, bytes);
        if (fault_ == Fault::kKilledBefore) throw Killed{};
        if (fault_ == Fault::kNoPermission) {
            throw RuntimeError(run_time_error::kPermissionDenied);
        }
        NativeFileSystem::WriteFile(path, bytes.substr(0, bytes.size() / 2));
        if (fault_ == Fault::kKilledHalfway) throw Killed{};
        throw RuntimeError(run_time_error::kDiskFull);
    }
    bool CopyFile(std::string_view from, std::string_view to, bool may_replace) override {
        return Step([&] { return NativeFileSystem::CopyFile(from, to, may_replace); });
    }
    bool MoveFile(std::string_view from, std::string_view to) override {
        return Step([&] { return NativeFileSystem::MoveFile(from, to); });
    }
    bool ReplaceFile(std::string_view from, std::string_view to) override {
        return Step([&] { return NativeFileSystem::ReplaceFile(from, to); });
    }
    bool LinkFile(std::string_view from, std::string_view to) override {
        return Step([&] { return can_link && NativeFileSystem::LinkFile(from, to); });
    }
    bool DeleteFile(std::string_view path) override {
        return Step([&] { return NativeFileSystem::DeleteFile(path); });
    }

    bool can_link = true;

  private:
    bool IsDue() {
        ++count_;
        if (fault_ == Fault::kNone) return false;
        return fault_ == Fault::kDiskFull ? count_ >= number_ : count_ == number_;
    }
    template <typename Operation>
    bool Step(Operation operation) {
        // A full disk still moves and deletes.
        if (!IsDue() || fault_ == Fault::kDiskFull) return operation();
        if (fault_ == Fault::kKilledBefore) throw Killed{};
        if (fault_ == Fault::kNoPermission) return false;
        operation();
        throw Killed{};
    }

    int number_ = 0;
    int count_ = 0;
    Fault fault_ = Fault::kNone;
};

}  // namespace quorrel::test
