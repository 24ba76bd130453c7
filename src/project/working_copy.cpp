#include "project/working_copy.hpp"

#include "app/main_form.hpp"
#include "editor/foreign_change.hpp"
#include "editor/object_mask.hpp"
#include "platform/file_system.hpp"

namespace quorrel {
namespace {

/// Saving turns the names of OBJECT tags to upper case, edited or not.
bool SaysTheSame(const MainForm& main, const std::string& copy, const std::string& topic) {
    if (copy == topic) return true;
    return !main.settings.is_javahelp_edition && copy == UnmaskObjects(MaskObjects(topic));
}

}  // namespace

bool SaysMoreThanTopic(MainForm& main, const std::string& topic) {
    const std::string copy = WorkingCopyOf(topic);
    if (!main.files.FileExists(copy) || !main.files.FileExists(topic)) return false;
    try {
        return !SaysTheSame(main, main.files.ReadFile(copy), main.files.ReadFile(topic));
    } catch (const RuntimeError&) {
        return false;  // nothing that could be offered
    }
}

std::string PutAside(FileSystem& files, const std::string& path) {
    std::string aside = path + ".bak";
    for (int number = 2; files.FileExists(aside); ++number) {
        aside = path + ".bak" + std::to_string(number);
    }
    files.MoveFile(path, aside);
    return aside;
}

bool HasUnsavedCopy(MainForm& main, const ListRow& row) {
    const std::string& topic = row.SubItems(topic_cell::kFullPath);
    const std::string copy = WorkingCopyOf(topic);
    if (row.SubItems(topic_cell::kModified) != "1" || !main.files.FileExists(copy)) return false;
    if (!main.files.FileExists(topic)) return true;
    try {
        const std::string bytes = main.files.ReadFile(copy);
        // Another program may have changed the topic since.
        return !IsAsLoaded(main, topic, bytes) &&
               !SaysTheSame(main, bytes, main.files.ReadFile(topic));
    } catch (const RuntimeError&) {
        return true;
    }
}

void ForgetWorkingCopy(MainForm& main, ListRow& row) {
    if (row.SubItems(topic_cell::kModified) != "1") return;
    const std::string copy = WorkingCopyOf(row.SubItems(topic_cell::kFullPath));
    if (main.files.FileExists(copy) && !main.files.DeleteFile(copy)) return;
    row.SetSubItem(topic_cell::kModified, "0");
}

}  // namespace quorrel
