#include "platform/installation.hpp"

namespace quorrel {

std::string InstallationOf(FileSystem& files, std::string_view program_folder) {
    if (program_folder.empty()) return {};
    for (const std::string_view below : {"\\share\\", "\\..\\share\\quorrel\\"}) {
        std::string folder = std::string(program_folder).append(below);
        if (files.FolderExists(folder + "Topic Templates")) return folder;
    }
    return {};
}

}  // namespace quorrel
