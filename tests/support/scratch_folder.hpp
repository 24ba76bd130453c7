// A folder of real files that goes with the test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/native_file_system.hpp"

namespace quorrel::test {

class ScratchFolder {
  public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    /// Names are relative to the folder, with "/" between them; folders on the way are made.
    void Write(std::string_view name, std::string_view bytes) const;
    /// The bytes of the file; a missing one fails the test and gives an empty text.
    [[nodiscard]] std::string Read(std::string_view name) const;
    /// In this spelling.
    [[nodiscard]] bool Exists(std::string_view name) const;

    [[nodiscard]] std::string Native(std::string_view name = {}) const;
    /// The path as the program has it inside.
    [[nodiscard]] std::string Windows(std::string_view name = {}) const;

  private:
    std::filesystem::path path_;
};

}  // namespace quorrel::test
