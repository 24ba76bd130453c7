#include "app/form_startup.hpp"

#include "app/main_form.hpp"
#include "app/recent_projects.hpp"
#include "project/form_create_project.hpp"
#include "project/open_project.hpp"
#include "project/side_files.hpp"

namespace quorrel {

FormStartup::FormStartup(MainForm& main) : main_(main) {
    ListProjects.columns = {{"Project Title", 2000}, {"Location", 20000}};
    for (const std::string& value : ReadRecentEntries(main)) {
        RecentEntry entry = SplitRecentEntry(value);
        ListProjects.Add(std::move(entry.title)).SetSubItem(kLocation, std::move(entry.path));
    }
    Command2.Caption = std::string("Ok");
    Command3.Caption = std::string("Cancel");
    Command4.Caption = std::string("More Projects...");
    // The first project is the one to go on with: Enter opens it.
    if (ListProjects.Count() > 0) ListProjects.Select(&ListProjects.At(1));
    ListProjects_Click();
}

void FormStartup::ListProjects_Click() {
    Command2.Enabled = ListProjects.SelectedItem() != nullptr;
}

void FormStartup::CloseIfOpened() {
    if (main_.project.proj_success) closed = true;
}

void FormStartup::Command1_Click() {
    FileNewProject_Click(main_);
    CloseIfOpened();
}

void FormStartup::Command2_Click() {
    const ListRow* row = ListProjects.SelectedItem();
    if (row == nullptr) return;
    {
        const Hourglass hourglass(main_.screen);
        OpenRecentProject(main_, row->SubItems(kLocation));
    }
    CloseIfOpened();
}

void FormStartup::Command4_Click() {
    main_.project.recent_proj.clear();
    main_.screen.SetPointer(Pointer::kHourglass);
    OpenProject_Click(main_);
    main_.screen.SetPointer(Pointer::kNormal);
    CloseIfOpened();
}

void FormStartup::Unload() {
    main_.project.lngMapCount = ReadImageMapCount(main_);
}

std::string FormStartup::NativePath(const ListRow& row) const {
    return main_.files.NativePath(row.SubItems(kLocation));
}

}  // namespace quorrel
