// A file system object on a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/native_file_system.hpp"
#include "support/error_number.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel::test {

class NativeFiles : public testing::Test {
  protected:
    [[nodiscard]] std::string Path(std::string_view name) const { return folder.Windows(name); }

    ScratchFolder folder;
    NativeFileSystem files;
};

}  // namespace quorrel::test
