// The dialog that makes a topic, or a template for topics.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "contents/key_fields.hpp"
#include "platform/controls/combo_box.hpp"
#include "platform/controls/control.hpp"
#include "platform/controls/folder_box.hpp"
#include "platform/controls/list_box.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

/// `new_topic_template` says which of the two it makes.
class FormNewTopic : public Form {
  public:
    /// Takes a context number in the HTML Help edition, also if the dialog is cancelled then.
    /// While a new project is made the dialog makes its first topic at once and is closed.
    explicit FormNewTopic(MainForm& main);
    [[nodiscard]] std::string_view Name() const override { return "FormNewTopic"; }

    std::string Caption = "Create New Topic";
    int Height = 0;  // twips; 0 for the height of all that is there

    TextBox EditTitle;
    Control LabelAlias, LabelTip;
    TextComboBox ComboPrefix;
    TextBox EditAlias;
    Control LabelInteger;
    TextBox EditInteger;
    TextBox EditFile;  // below the project's folder, or the folder of the templates
    FolderBox Dir1;
    Control Command2;       // "New Folder..."
    ComboBox FileTemplate;  // the files of the template folder
    CheckBox CheckImport;
    TextBox EditKeyword, EditSubKey;
    Control Command1;  // adds what stands in the two
    ListBox ListKeys;
    Control CommandEdit, CommandDelete;
    Control LabelTemplateTip1, LabelTemplateTip2;
    Control OkCmd;

    void OkCmd_Click();
    void CancelCmd_Click();
    void Command1_Click();
    void Command2_Click();
    void CommandEdit_Click();
    void CommandDelete_Click();
    void ListKeys_DblClick() { CommandEdit_Click(); }

    /// Shows a folder; a backslash at the end of the path is left off.
    void SetFolder(std::string path);
    /// The path as the user of this system writes it, and back.
    [[nodiscard]] std::string NativePath(std::string_view path) const;
    [[nodiscard]] std::string WindowsPath(std::string_view native) const;
    /// The names of the folders in a folder.
    [[nodiscard]] std::vector<std::string> FoldersIn(std::string_view path) const;
    [[nodiscard]] const std::string& ProjectFolder() const;

  private:
    [[nodiscard]] bool IsTemplate() const;
    [[nodiscard]] KeyFields Keys();
    void Listen();
    void LoadPrefixes();
    void LoadFolder();
    void LoadTemplates();
    void LoadInteger();
    void BecomeTemplate();
    void EditTitle_Change();
    void Dir1_Change();
    [[nodiscard]] std::string FileWith(std::string_view name) const;
    [[nodiscard]] std::string FolderPart() const;

    /// The path of the new topic, or an empty one after a refusal.
    [[nodiscard]] std::string CheckTopic();
    /// False if a file is there and the user wants to keep it.
    [[nodiscard]] bool MayWrite(const std::string& path);
    [[nodiscard]] bool WriteFile(const std::string& path);
    [[nodiscard]] std::string Keywords() const;
    void AddToProject(const std::string& path);
    void RememberPrefix();
    void ShowTopic(const std::string& path);
    void ShowTemplate(const std::string& path);
    void Refuse(std::string_view text, const Control& control);

    MainForm& main_;
    std::string prefix_list_;
    bool keyword_editing_ = false;
};

/// Shows the dialog, unless it has done its work already.
void ShowNewTopic(MainForm& main);

}  // namespace quorrel
