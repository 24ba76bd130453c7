#include "support/scratch_folder.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace quorrel::test {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
    std::string pattern = (fs::temp_directory_path() / "quorrel-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no scratch folder");
    path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void ScratchFolder::Write(std::string_view name, std::string_view bytes) const {
    const fs::path file = path_ / name;
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(out.good()) << file;
}

std::string ScratchFolder::Read(std::string_view name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    EXPECT_TRUE(in.good()) << "missing: " << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

bool ScratchFolder::Exists(std::string_view name) const {
    return fs::exists(path_ / name);
}

std::string ScratchFolder::Native(std::string_view name) const {
    return name.empty() ? path_.string() : (path_ / name).string();
}

std::string ScratchFolder::Windows(std::string_view name) const {
    return NativeFileSystem().WindowsPath(Native(name));
}

}  // namespace quorrel::test
