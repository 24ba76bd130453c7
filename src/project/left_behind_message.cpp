#include "project/left_behind_message.hpp"

#include <cstddef>

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "project/foreign_files.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kWhatHappens =
    "Parts of this project are written in a way that cannot be taken over in full, and a save "
    "leaves them out. The first save that replaces one of these files keeps the old one with "
    "\".orig\" behind its name.\r\n";
constexpr std::string_view kWhatHappensOnConverting =
    "Parts of this project are written in a way that cannot be taken over in full. Its own files "
    "stay as they are.\r\n";

constexpr std::size_t kMostLines = 12;  // of a box that fits a small screen

}  // namespace

std::string LeftBehindMessage(const std::vector<FileLeftBehind>& files, bool converts,
                              const std::function<std::string(std::string_view path)>& name_of) {
    if (files.empty()) return {};
    std::string text(converts ? kWhatHappensOnConverting : kWhatHappens);
    const bool is_too_long = files.size() > kMostLines;
    const std::size_t shown = is_too_long ? kMostLines - 1 : files.size();
    for (std::size_t i = 0; i < shown; ++i) {
        text.append(kLineEnd).append(name_of(files[i].path));
        text.append(": ").append(Listed(files[i].kinds));
    }
    if (is_too_long) {
        text.append(kLineEnd).append("and ").append(std::to_string(files.size() - shown));
        text.append(" more files");
    }
    return text;
}

void TellWhatWasLeftBehind(MainForm& main, bool converts) {
    const std::string folder = main.project.proj_path + "\\";
    const auto name_of = [&](std::string_view path) {
        const bool is_below = path.starts_with(folder);
        return main.files.NativePath(is_below ? path.substr(folder.size()) : path);
    };
    std::string text = NotReadMessage(main);
    const std::string left_behind =
        LeftBehindMessage(main.texts.FilesLeftBehind(), converts, name_of);
    if (!text.empty() && !left_behind.empty()) text += "\r\n\r\n";
    text += left_behind;
    if (text.empty()) return;
    main.screen.ShowMessage(
        {std::move(text), main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
}

}  // namespace quorrel
