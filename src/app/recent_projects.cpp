#include "app/recent_projects.hpp"

#include <algorithm>

#include "app/main_form.hpp"
#include "app/settings_file.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

constexpr std::size_t kLongPath = 30;

std::string MenuCaption(const MainForm& main, std::string_view path, std::size_t index) {
    std::string shown(path);
    const std::size_t length = CountCharacters(path);
    if (length > kLongPath) {
        // The search begins at the character with the 1-based number length - 30.
        const std::size_t from = OffsetOfCharacter(path, length - kLongPath - 1);
        const std::size_t backslash = path.find('\\', from);
        if (backslash != npos) shown = std::string("...").append(path.substr(backslash));
    }
    return "&" + std::to_string(index) + "  " + main.files.NativePath(shown);
}

}  // namespace

std::string_view RecentSection(bool is_javahelp_edition) {
    return is_javahelp_edition ? "Recent Projects" : "Recent HTML Projects";
}

RecentEntry SplitRecentEntry(std::string_view entry) {
    const std::size_t bar = entry.find('|');
    const std::string_view title = bar == npos ? std::string_view{} : entry.substr(bar + 1);
    return {std::string(entry.substr(0, bar)), std::string(title.empty() ? "Untitled" : title)};
}

std::vector<std::string> ReadRecentEntries(MainForm& main) {
    std::vector<std::string> entries;
    const std::string_view section = RecentSection(main.settings.is_javahelp_edition);
    for (int i = 0; i < RecentProjects::kLimit; ++i) {
        std::string entry = GetIni(main, section, std::to_string(i), "");
        if (entry.empty()) break;
        if (main.files.FileExists(SplitRecentEntry(entry).path))
            entries.push_back(std::move(entry));
    }
    return entries;
}

void LoadRecentList(MainForm& main) {
    std::vector<std::string> entries = ReadRecentEntries(main);
    main.recent.num_recent = static_cast<int>(entries.size());
    std::move(entries.begin(), entries.end(), main.recent.recent_list.begin());
}

void BuildRecentMenu(MainForm& main) {
    const auto& list = main.recent.recent_list;
    auto& menu = main.window.recent;
    for (std::size_t i = 0; i < menu.size(); ++i) {
        const bool is_used = static_cast<int>(i) < main.recent.num_recent;
        if (is_used) menu[i].Caption = MenuCaption(main, SplitRecentEntry(list[i]).path, i);
        menu[i].Visible = is_used;
    }
    main.window.fileexitsep.Visible = true;
}

void UpdateRecentList(MainForm& main) {
    auto& list = main.recent.recent_list;
    int& count = main.recent.num_recent;
    const std::string mark = main.project.proj + "|";
    const auto end = list.begin() + count;
    const auto found = std::find_if(
        list.begin(), end, [&](const std::string& entry) { return Contains(entry, mark); });
    if (found == list.begin() && found != end) return;
    if (found != end) {
        std::move_backward(list.begin(), found, found + 1);
        list[0] = mark + main.project.project_title;
    } else if (count < RecentProjects::kLimit) {
        std::move_backward(list.begin(), end, end + 1);
        list[0] = mark + main.project.project_title;
        ++count;
    }
    BuildRecentMenu(main);
}

void PutFirstInRecentList(MainForm& main, bool of_javahelp_edition, const std::string& proj) {
    const std::string_view section = RecentSection(of_javahelp_edition);
    ProfilePairs pairs = {{"0", proj + "|"}};
    for (int i = 0; i < RecentProjects::kLimit && pairs.size() < RecentProjects::kLimit; ++i) {
        std::string entry = GetIni(main, section, std::to_string(i), "");
        if (entry.empty()) break;
        if (EqualsIgnoringCase(SplitRecentEntry(entry).path, proj)) {
            pairs[0].second = std::move(entry);
        } else {
            pairs.emplace_back(std::to_string(pairs.size()), std::move(entry));
        }
    }
    SetIni(main, section, pairs);
}

void WriteRecentList(MainForm& main) {
    const std::string_view section = RecentSection(main.settings.is_javahelp_edition);
    const int count = main.recent.num_recent;
    ProfilePairs pairs;
    for (int i = 0; i < count + 2; ++i) {
        const auto& entry = main.recent.recent_list[static_cast<std::size_t>(i)];
        pairs.emplace_back(std::to_string(i), i < count ? entry : std::string());
    }
    SetIni(main, section, pairs);
}

}  // namespace quorrel
