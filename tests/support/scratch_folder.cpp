#include "support/scratch_folder.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace quorrel::test {

namespace fs = std::filesystem;

namespace {

/// Plain text is in the system's code page to the library.
fs::path PathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

}  // namespace

ScratchFolder::ScratchFolder() {
    std::random_device random;
    do {
        path_ = fs::temp_directory_path() / ("quorrel-" + std::to_string(random()));
    } while (!fs::create_directory(path_));
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void ScratchFolder::Write(std::string_view name, std::string_view bytes) const {
    const fs::path file = path_ / PathOf(name);
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(out.good()) << file;
}

std::string ScratchFolder::Read(std::string_view name) const {
    std::ifstream in(path_ / PathOf(name), std::ios::binary);
    EXPECT_TRUE(in.good()) << "missing: " << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

bool ScratchFolder::Exists(std::string_view name) const {
    // Not for the system to say, which may find a name in any case.
    const fs::path file = path_ / PathOf(name);
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(file.parent_path(), none)) {
        if (entry.path().filename() == file.filename()) return true;
    }
    return false;
}

std::string ScratchFolder::Native(std::string_view name) const {
    fs::path file = name.empty() ? path_ : path_ / PathOf(name);
    const std::u8string native = file.make_preferred().u8string();
    return {native.begin(), native.end()};
}

std::string ScratchFolder::Windows(std::string_view name) const {
    return NativeFileSystem().WindowsPath(Native(name));
}

}  // namespace quorrel::test
