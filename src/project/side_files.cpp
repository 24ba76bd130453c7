#include "project/side_files.hpp"

#include "app/main_form.hpp"
#include "app/settings_file.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kLineMark = "||";
constexpr std::size_t kToolTipLimit = 200;

std::string SettingsFileOf(const ProjectState& project) {
    return std::string(BaseName(project.proj)) + ".prj";
}

/// The key of the open topic in the status file; names that file if it has no name yet.
std::string StatusKey(MainForm& main) {
    std::string& file = main.project.status_file;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + ".stn";
    return std::string(AfterLast(main.editor.main_path, '\\'));
}

/// What the fields say as the status file has it; nothing for a topic without a status or notes.
std::string ShownStatus(const WindowControls& window) {
    const std::string& notes = window.TextNotes.Text;
    const int status = window.ComboStatus.ListIndex;
    if (notes.empty() && status < 1) return {};
    return std::to_string(status) + "," + ReplaceAll(notes, kLineEnd, kLineMark);
}

void LogNotWritten(MainForm& main, std::string_view file) {
    main.log.Write("MainForm SetProj: ", run_time_error::kPathFileAccess,
                   main.files.NativePath(file) + " could not be written");
}

void TellNotKept(MainForm& main, const std::string& what, std::string_view file) {
    main.screen.ShowMessage({what + main.files.NativePath(file) + " could not be written.",
                             main.settings.APP_NAME, MessageButtons::kOk,
                             MessageIcon::kExclamation});
}

}  // namespace

StatusEntry ParseStatus(std::string_view value) {
    StatusEntry entry;
    const std::size_t comma = value.find(',');
    if (comma == npos) return entry;
    if (comma > 0) {
        entry.status = value.substr(0, comma);
        entry.notes = value.substr(1 + comma);
    } else if (CountCharacters(value) > 2) {
        // A comma with one character behind it has no notes.
        entry.notes = value.substr(1);
    }
    return entry;
}

std::string GetProj(const MainForm& main, std::string_view section, std::string_view key,
                    std::string_view otherwise) {
    return main.profiles.Get(SettingsFileOf(main.project), section, key, otherwise);
}

void SetProj(MainForm& main, std::string_view section, const ProfilePairs& pairs) {
    const std::string file = SettingsFileOf(main.project);
    if (main.profiles.Set(file, section, pairs)) return;
    LogNotWritten(main, file);
    TellNotKept(main, "Settings of this project cannot be kept: ", file);
}

std::string Gethhp(const MainForm& main, std::string_view section, std::string_view key,
                   std::string_view otherwise) {
    return main.profiles.Get(main.project.proj, section, key, otherwise);
}

void GetStatusNotes(MainForm& main) {
    const std::string key = StatusKey(main);
    const std::string value =
        main.profiles.Get(main.project.status_file, kStatusSection, key, "", kStatusLimit);
    WindowControls& window = main.window;
    if (value.empty()) {
        window.TextNotes.Text = std::string();
        window.ComboStatus.ListIndex = 0;
        window.CommandNote.ToolTipText = std::string();
        window.CommandNote.Visible = false;
        return;
    }
    const StatusEntry entry = ParseStatus(value);
    window.ComboStatus.ListIndex = static_cast<int>(LeadingNumber(entry.status));
    const std::string notes = ReplaceAll(entry.notes, kLineMark, kLineEnd);
    window.TextNotes.Text = notes;
    std::string tip = ReplaceAll(notes, kLineEnd, " ");
    if (CountCharacters(tip) > kToolTipLimit) {
        tip = std::string(FirstCharacters(tip, kToolTipLimit)) + "...";
    }
    window.CommandNote.ToolTipText = tip;
    window.CommandNote.Visible = true;
}

bool SetStatusNotes(MainForm& main) {
    const std::string key = StatusKey(main);
    const std::string& file = main.project.status_file;
    const std::string stored = main.profiles.Get(file, kStatusSection, key, "", npos);
    const std::string_view shown = FirstCharacters(stored, kStatusLimit);
    const std::string value = ShownStatus(main.window);
    if (value == shown) return true;
    // An entry from elsewhere may be longer than the fields show: the rest stays behind them.
    const std::string rest = stored.substr(shown.size());
    const std::string start = value.empty() && !rest.empty() ? "0," : value;
    if (main.profiles.Set(file, kStatusSection, {{key, start + rest}})) return true;
    LogNotWritten(main, file);
    return false;
}

void KeepStatusNotes(MainForm& main) {
    if (SetStatusNotes(main)) return;
    TellNotKept(
        main, "The status and the notes of this topic cannot be kept: ", main.project.status_file);
}

std::string GetProjFile(std::string_view proj) {
    const std::string turned = ReplaceAll(BaseName(proj), "\\", "/");
    return std::string(AfterLast(turned, '/')) + ".prj";
}

std::int64_t ReadImageMapCount(const MainForm& main) {
    const std::string value =
        main.machine_profiles.Get(GetProjFile(main.project.proj), "IMAGE MAP", "MapCount", "0");
    const bool is_number = !value.empty() && value[0] >= '0' && value[0] <= '9';
    return is_number ? LeadingNumber(value) : 0;
}

void WriteImageMapCount(MainForm& main, std::int64_t count) {
    const std::string file = GetProjFile(main.project.proj);
    if (main.machine_profiles.Set(file, "IMAGE MAP", {{"MapCount", std::to_string(count)}})) return;
    TellSettingsNotKept(main, file);
}

}  // namespace quorrel
