// The dialog for the names and folders of the project and for the tools that build it.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/combo_box.hpp"
#include "platform/controls/control.hpp"
#include "platform/controls/list_view.hpp"
#include "platform/controls/strips.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

/// The pages of tbsOptions.
namespace options_page {
inline constexpr int kFiles = 1;
inline constexpr int kProject = 2;
inline constexpr int kTools = 3;
inline constexpr int kImages = 4;
}  // namespace options_page

class FormProjectSettings : public Form {
  public:
    static constexpr std::string_view kCaption = "Project Options";

    /// Opens with the page that ProjSettingsTab names.
    explicit FormProjectSettings(MainForm& main);
    [[nodiscard]] std::string_view Name() const override { return "FormProjectSettings"; }

    TabStrip tbsOptions;

    // Project Files. The names are relative to the project's folder.
    Control LabelProject, LabelMapFile;
    TextBox EditProject;  // the project file, only shown
    TextBox EditHTMLDir, EditImageDir;
    TextBox EditMapFile, EditTOCFile, EditIndexFile;

    // HelpSet or Help Project
    Control LabelHomeID;
    TextBox EditTitle;
    TextComboBox EditHomeID;  // of a JavaHelp project with the map ids of the topics to choose from
    CheckBox CheckJavaFTS;

    // The tools, as the paths that the settings have.
    Control LabelViewer;
    TextBox EditViewerPath;
    Control LabelIndexer, LabelJAR;
    TextBox EditIndexerpath, EditJARPath;
    Control Command1, Command2, Command3;  // choose the three files

    // Project Images/Icons
    ListView ListAliases{2};
    Control Command5, Command6;  // "Add...", "Delete"

    void Command1_Click() { ChooseTool(EditViewerPath); }
    void Command2_Click() { ChooseTool(EditIndexerpath); }
    void Command3_Click() { ChooseTool(EditJARPath); }
    void Command5_Click();  // "Add..."
    void Command6_Click();
    void ListAliases_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { closed = true; }

    /// Whether the project has map ids for pictures, and the page for them is shown.
    [[nodiscard]] bool HasImages() const;
    /// The path as the user of this system writes it, and back; a relative one stays relative.
    [[nodiscard]] std::string NativePath(std::string_view path) const;
    [[nodiscard]] std::string WindowsPath(std::string_view native) const;

  private:
    void LoadCaptions();
    void LoadFields();
    void OfferMapIds();
    void LimitFields();
    void LoadImages();
    /// Marks the project to be saved if its files have to be written anew.
    void NoteChange();
    void ChooseTool(TextBox& edit);
    /// False after a refusal.
    [[nodiscard]] bool CheckFolder(const TextBox& edit);
    void StoreFiles();
    void StoreTools();
    void StoreFolders();
    void StoreImages();
    [[nodiscard]] std::string ShownName(const std::string& path) const;
    /// The full path of the name in the field; `path` as it is where the name was left alone.
    [[nodiscard]] std::string NewPath(const TextBox& edit, const std::string& path) const;

    MainForm& main_;
    bool images_changed_ = false;
};

/// Shows the dialog, with its first page.
void projopt_Click(MainForm& main);
/// Shows it with the page that ProjSettingsTab names.
void ShowProjectSettings(MainForm& main);

}  // namespace quorrel
