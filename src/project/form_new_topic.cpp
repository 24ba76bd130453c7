#include "project/form_new_topic.hpp"

#include "app/command_tables.hpp"
#include "app/main_form.hpp"
#include "app/tool_bar.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "platform/controls/follow.hpp"
#include "platform/text.hpp"
#include "project/find_topic.hpp"
#include "project/form_new_folder.hpp"
#include "project/new_topic_file.hpp"
#include "project/paths.hpp"
#include "project/side_files.hpp"
#include "project/topic_rows.hpp"
#include "project/verify_map_ids.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kLabel = "FormNewTopic OkCmd_Click: ";
constexpr std::string_view kHtmlHelpPrefix = "IDH_";
constexpr std::string_view kTemplateEnding = ".htm";
constexpr std::string_view kSettings = "Settings";
constexpr std::string_view kPrefixList = "prefix list";
constexpr std::string_view kImport = "importhtml";
constexpr int kTemplateHeight = 4600;  // twips

/// The prefix of a new identifier, without the blanks before it.
std::string PrefixOf(const TextComboBox& prefix) {
    return std::string(TrimLeft(prefix.Text()));
}

/// The full key of a line of ListKeys.
std::string FullKey(const std::string& line) {
    const std::size_t colon = line.find(':');
    if (colon == npos) return line;
    return std::string(TrimRight(std::string_view(line).substr(0, colon)))
        .append(kSubKeyMark)
        .append(TrimRight(std::string_view(line).substr(colon + 1)));
}

void MoveCaretToEnd(MainForm& main) {
    constexpr std::int64_t kBeyondTheEnd = 1'000'000;
    const auto range = main.DHTMLEdit1.DOM().selection().createRange();
    if (range == nullptr) return;
    range->Move("character", kBeyondTheEnd);
    range->Select();
}

}  // namespace

FormNewTopic::FormNewTopic(MainForm& main) : main_(main) {
    Listen();
    const bool javahelp = main.settings.is_javahelp_edition;
    if (!javahelp) ComboPrefix.Text = std::string(kHtmlHelpPrefix);
    CheckImport.Visible = IsAvailable(kImport);
    CheckImport.Value = main.project.import_after;
    LoadPrefixes();
    LoadFolder();
    LoadTemplates();
    LoadInteger();
    const TreeNode* node = main.contents.Tree1.SelectedItem();
    if (main.contents.create_from_toc_selected && node != nullptr) EditTitle.Text = node->Text;
    LabelTemplateTip1.Visible = LabelTemplateTip2.Visible = IsTemplate();
    if (IsTemplate()) BecomeTemplate();
    if (main.project.common_flag != 1) return;
    EditTitle.Text = std::string("FirstTopic");
    main.screen.DoEvents();
    OkCmd_Click();
}

void FormNewTopic::Listen() {
    OkCmd.Caption = std::string("Ok");
    OkCmd.Enabled = false;
    Command1.Enabled = false;
    CommandEdit.Enabled = false;
    CommandDelete.Enabled = false;
    FollowProperty(EditTitle, EditTitle.Text, [this] { EditTitle_Change(); });
    FollowProperty(Dir1, Dir1.Path, [this] { Dir1_Change(); });
    FollowProperty(EditKeyword, EditKeyword.Text,
                   [this] { Command1.Enabled = !EditKeyword.Text().empty(); });
    FollowProperty(CheckImport, CheckImport.Value,
                   [this] { OkCmd.Caption = std::string(CheckImport.Value() ? "Next >" : "Ok"); });
}

void FormNewTopic::LoadPrefixes() {
    prefix_list_ = GetProj(main_, kSettings, kPrefixList, "");
    std::string_view rest = prefix_list_;
    for (std::size_t end = rest.find(','); end != npos; end = rest.find(',')) {
        ComboPrefix.AddItem(std::string(rest.substr(0, end)));
        rest.remove_prefix(end + 1);
    }
    ComboPrefix.Text = main_.project.last_new_prefix;
    if (!main_.settings.is_javahelp_edition && ComboPrefix.Text().empty()) {
        ComboPrefix.Text = std::string(kHtmlHelpPrefix);
    }
}

void FormNewTopic::LoadFolder() {
    const Trap trap(main_.log, kLabel);
    const std::string& last = main_.project.last_file_path;
    if (!last.empty()) trap([&] { MakeFolder(main_.files, last); });
    Dir1.Enabled = !IsTemplate();
    if (!IsTemplate()) SetFolder(last.empty() ? main_.project.proj_path : last);
}

void FormNewTopic::LoadTemplates() {
    const Trap trap(main_.log, kLabel);
    const std::string& folder = main_.settings.Template_Dir;
    trap([&] { MakeFolder(main_.files, folder); });
    for (std::string& name : main_.files.FileNames(folder)) {
        if (UpperAscii(name).ends_with(UpperAscii(kTemplateEnding))) {
            FileTemplate.AddItem(std::move(name));
        }
    }
    if (FileTemplate.ListCount() > 0) FileTemplate.ListIndex = 0;
}

void FormNewTopic::LoadInteger() {
    const bool javahelp = main_.settings.is_javahelp_edition;
    LabelInteger.Visible = EditInteger.Visible = !javahelp;
    LabelAlias.Caption = std::string(javahelp ? "MapID" : "Alias");
    LabelTip.Caption = "TIP: You can use the optional " + LabelAlias.Caption() +
                       " Prefix to organize your topics into groups.";
    if (javahelp) return;
    constexpr std::int64_t kFirst = 1000;
    std::int64_t& number = main_.project.next_integer;
    number = number == 0 ? kFirst : number + 1;
    EditInteger.Text = std::to_string(number);
}

void FormNewTopic::BecomeTemplate() {
    Caption = "Create New Topic Template";
    LabelTemplateTip1.Caption =
        std::string("TIP: [TITLE] stands where the title of each new topic will go.");
    LabelTemplateTip2.Caption =
        std::string("TIP: The template can be chosen for each topic that you make from now on.");
    SetFolder(main_.settings.Template_Dir);
    EditTitle.Text = std::string(kTitleMark);
    EditTitle.Enabled = false;
    for (Control* control :
         std::initializer_list<Control*>{&LabelAlias, &LabelTip, &ComboPrefix, &EditAlias,
                                         &LabelInteger, &EditInteger, &Command2}) {
        control->Visible = false;
    }
    Height = kTemplateHeight;
    EditFile.Text = std::string("NewTemplate.htm");
}

bool FormNewTopic::IsTemplate() const {
    return IsTemplateOpen(main_);
}

KeyFields FormNewTopic::Keys() {
    return {ListKeys, EditKeyword, EditSubKey, CommandEdit, CommandDelete, keyword_editing_};
}

/// What the folder has beyond the project's one.
std::string FormNewTopic::FolderPart() const {
    return LocationOf(Dir1.Path(), main_.project.proj_path);
}

std::string FormNewTopic::FileWith(std::string_view name) const {
    const std::string folder = FolderPart();
    return folder.empty() ? std::string(name) : std::string(folder).append("\\").append(name);
}

void FormNewTopic::EditTitle_Change() {
    const std::string& title = EditTitle.Text;
    if (title.empty()) {
        EditFile.Text = std::string();
        EditAlias.Text = std::string();
        OkCmd.Enabled = false;
        return;
    }
    const std::string name = ToIdentifier(title);
    const std::string file = name + std::string(kTemplateEnding);
    EditFile.Text = IsTemplate() ? file : FileWith(file);
    EditAlias.Text = main_.project.Alias_Prefix + name;
    EditKeyword.Text = title;
    OkCmd.Enabled = true;
}

void FormNewTopic::Dir1_Change() {
    const std::string& file = EditFile.Text;
    if (!IsTemplate() && !file.empty()) EditFile.Text = FileWith(AfterLast(file, '\\'));
}

void FormNewTopic::SetFolder(std::string path) {
    while (path.ends_with('\\') && !path.ends_with(":\\")) path.pop_back();
    Dir1.Path = std::move(path);
}

void FormNewTopic::Command1_Click() {
    AddKey(main_, Keys());
}

void FormNewTopic::Command2_Click() {
    FormNewFolder form(main_, *this);
    main_.screen.ShowModal(form);
}

void FormNewTopic::CommandEdit_Click() {
    EditKey(Keys());
}

void FormNewTopic::CommandDelete_Click() {
    DeleteKey(Keys());
}

void FormNewTopic::CancelCmd_Click() {
    main_.editor.new_topic_template = "False";
    closed = true;
}

void FormNewTopic::Refuse(std::string_view text, const Control& control) {
    main_.screen.ShowMessage({std::string(text), main_.settings.APP_NAME, MessageButtons::kOk,
                              MessageIcon::kExclamation});
    control.SetFocus();
}

std::string FormNewTopic::CheckTopic() {
    ProjectState& project = main_.project;
    if (FolderPart() == Dir1.Path()) {
        Refuse("HTML Topic files must be created in a directory within the project hierarchy.",
               Dir1);
        SetFolder(project.proj_path);
        return {};
    }
    std::string path = ReplaceAll(project.proj_path + "\\" + EditFile.Text(), "\\\\", "\\");
    if (FindTopic(main_.topics.ListTopics, path) > 0) {
        Refuse(
            "A topic with this file name already exists in the project. Please choose another "
            "file name",
            EditFile);
        return {};
    }
    project.last_file_path = Dir1.Path();
    SetProj(main_, kSettings, {{"last_path", project.last_file_path}});
    // Without the prefix, with which the identifier will go into the table.
    if (FindAlias(main_.topics.ListTopics, EditAlias.Text()) > 0) {
        Refuse("A topic with this MapID already exists in the project. Please choose another MapID",
               EditAlias);
        return {};
    }
    return path;
}

bool FormNewTopic::MayWrite(const std::string& path) {
    if (!main_.files.FileExists(path)) return true;
    const MessageAnswer answer =
        main_.screen.ShowMessage({"The file " + main_.files.NativePath(path) +
                                      " exists already.\r\n\r\nDo you want to replace it?",
                                  main_.settings.APP_NAME, MessageButtons::kYesNo,
                                  MessageIcon::kExclamation, MessageAnswer::kNo});
    if (answer == MessageAnswer::kYes) return true;
    EditFile.SetFocus();
    return false;
}

bool FormNewTopic::WriteFile(const std::string& path) {
    const Trap trap(main_.log, kLabel);
    const bool written = trap([&] {
        WriteNewTopic(main_, path, EditTitle.Text(),
                      main_.settings.Template_Dir + "\\" + FileTemplate.Text());
    });
    if (written) return true;
    Refuse("The file " + main_.files.NativePath(path) + " could not be written.\r\n\r\n" +
               main_.log.LastLine(),
           EditFile);
    return false;
}

std::string FormNewTopic::Keywords() const {
    std::string keywords;
    for (const std::string& line : ListKeys.List()) keywords += FullKey(line) + ";";
    return keywords;
}

void FormNewTopic::AddToProject(const std::string& path) {
    // What the test without the prefix has let through is made unique as by opening the project.
    const std::string typed = PrefixOf(ComboPrefix) + EditAlias.Text();
    const std::string id = typed.empty() ? MapIdFor(main_.topics, path, main_.project.Alias_Prefix)
                                         : FreeMapId(main_.topics, typed);
    const ListRow& row =
        AddTopic(main_, EditTitle.Text(), path, Keywords(), id, EditInteger.Text());
    if (main_.project.common_flag == 0) return;
    main_.project.project_def_topic =
        main_.project.help_mode == 1 ? row.SubItems(topic_cell::kMapId) : path;
    UpdateToolbars(main_);
}

void FormNewTopic::RememberPrefix() {
    const std::string prefix = PrefixOf(ComboPrefix);
    if (!prefix.empty() && !Contains(prefix_list_, prefix)) {
        prefix_list_ += prefix + ",";
        // The oldest ones give way to what can be read again.
        while (CountCharacters(prefix_list_) > kProfileValueLimit) {
            prefix_list_.erase(0, prefix_list_.find(',') + 1);
        }
        SetProj(main_, kSettings, {{std::string(kPrefixList), prefix_list_}});
    }
    main_.project.last_new_prefix = ComboPrefix.Text();
}

void FormNewTopic::ShowTopic(const std::string& path) {
    const Trap trap(main_.log, kLabel);
    main_.editor.new_main_path = path;
    trap([&] { LoadFile(main_); });
    WaitForSurface(main_);
    trap([&] { MoveCaretToEnd(main_); });
    main_.project.project_dirty = true;
}

void FormNewTopic::ShowTemplate(const std::string& path) {
    main_.editor.new_main_path = path;
    LoadFile(main_);
    const bool is_shown = EqualsIgnoringCase(main_.DHTMLEdit1.CurrentDocumentPath(), path);
    main_.editor.new_topic_template = is_shown ? "True" : "False";
}

void FormNewTopic::OkCmd_Click() {
    if (EditFile.Text().empty()) {
        return Refuse("You must specify a name for your topic file.", EditFile);
    }
    if (!Contains(EditFile.Text(), ".")) {
        EditFile.Text = EditFile.Text() + std::string(kTemplateEnding);
    }
    const bool is_template = IsTemplate();
    const std::string path =
        is_template ? main_.settings.Template_Dir + "\\" + EditFile.Text() : CheckTopic();
    if (path.empty() || !MayWrite(path) || !WriteFile(path)) return;
    CopyTopicSupport(main_, path);
    if (is_template) {
        ShowTemplate(path);
        closed = true;
        return;
    }
    AddToProject(path);
    RememberPrefix();
    ShowTopic(path);
    main_.project.import_after = CheckImport.Value;
    closed = true;
    const Command* import = FindCommand(kImport);
    if (CheckImport.Value() && import != nullptr && import->run != nullptr) import->run(main_);
}

std::string FormNewTopic::NativePath(std::string_view path) const {
    return main_.files.NativePath(path);
}

std::string FormNewTopic::WindowsPath(std::string_view native) const {
    return main_.files.WindowsPath(native);
}

std::vector<std::string> FormNewTopic::FoldersIn(std::string_view path) const {
    return main_.files.FolderNames(path);
}

const std::string& FormNewTopic::ProjectFolder() const {
    return main_.project.proj_path;
}

void ShowNewTopic(MainForm& main) {
    FormNewTopic form(main);
    if (!form.closed) main.screen.ShowModal(form);
}

}  // namespace quorrel
