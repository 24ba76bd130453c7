// A file system object on a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

#include "platform/failure.hpp"
#include "platform/native_file_system.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel::test {

/// The number that `work` raises, or 0.
inline int NumberOf(const std::function<void()>& work) {
    try {
        work();
        return 0;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

class NativeFiles : public testing::Test {
  protected:
    [[nodiscard]] std::string Path(std::string_view name) const { return folder.Windows(name); }

    ScratchFolder folder;
    NativeFileSystem files;
};

}  // namespace quorrel::test
