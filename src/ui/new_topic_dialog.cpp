#include "ui/new_topic_dialog.hpp"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

#include "platform/text.hpp"
#include "ui/dialog_fields.hpp"
#include "ui/enter_key.hpp"
#include "ui/folder_tree.hpp"
#include "ui/listen.hpp"
#include "ui/metrics.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

/// A path below the project's folder; the backslash that it may begin with would pass for the
/// root of the disk.
std::string ShownFile(std::string_view file) {
    file.remove_prefix(std::min(file.find_first_not_of('\\'), file.size()));
    return ReplaceAll(file, "\\", "/");
}

std::string TypedFile(std::string_view shown) {
    return ReplaceAll(shown, "/", "\\");
}

std::string TemplateName(const std::string& file) {
    return std::string(BeforeLast(file, '.', file));
}

}  // namespace

NewTopicDialog::NewTopicDialog(FormNewTopic& form, QWidget* parent)
    : FormDialog(form, ToQt(form.Caption), parent), form_(form) {
    auto* lists = new QHBoxLayout;
    lists->addLayout(MakeFolders(), 1);
    lists->addLayout(MakeTemplates(), 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(MakeFields());
    all->addLayout(lists, 1);
    all->addWidget(MakeNote("LabelTemplateTip1", form_.LabelTemplateTip1));
    all->addWidget(MakeNote("LabelTemplateTip2", form_.LabelTemplateTip2));
    // The low dialog has no room for what belongs to topics alone.
    if (form_.Height == 0) all->addWidget(MakeKeywords(), 1);
    all->addWidget(MakeButtons(
        "OkCmd", [this] { form_.OkCmd_Click(); }, "CancelCmd"));
    FollowButton(OkButton(), form_.OkCmd);
    if (form_.Height == 0) {
        RestoreSize("FormNewTopic", {640, 620});
    } else {
        RestoreSize("FormNewTopic.template", {640, PixelsOfTwips(form_.Height)});
    }
    QWidget* first = findChild<QWidget*>(form_.EditTitle.Enabled() ? "EditTitle" : "EditFile");
    first->setFocus();
}

QLayout* NewTopicDialog::MakeFields() {
    QLineEdit* title = MakeEdit("EditTitle", form_.EditTitle);
    QLineEdit* file = MakePathEdit("EditFile", form_.EditFile, {ShownFile, TypedFile});
    QComboBox* prefix = MakeTextCombo("ComboPrefix", form_.ComboPrefix);
    prefix->setAccessibleName("Prefix");
    QLineEdit* alias = MakeEdit("EditAlias", form_.EditAlias);
    QLineEdit* integer = MakeEdit("EditInteger", form_.EditInteger);
    auto* grid = new QGridLayout;
    grid->setColumnStretch(2, 1);
    grid->addWidget(MakeLabel("&Title:", title), 0, 0);
    grid->addWidget(title, 0, 1, 1, 2);
    grid->addWidget(MakeLabel("&File:", file), 1, 0);
    grid->addWidget(file, 1, 1, 1, 2);
    grid->addWidget(MakeLabel("LabelAlias", form_.LabelAlias, alias), 2, 0);
    grid->addWidget(prefix, 2, 1);
    grid->addWidget(alias, 2, 2);
    grid->addWidget(MakeNote("LabelTip", form_.LabelTip), 3, 1, 1, 2);
    QLabel* label = MakeLabel("Context &Integer:", integer);
    label->setObjectName("LabelInteger");
    FollowControl(label, form_.LabelInteger);
    grid->addWidget(label, 4, 0);
    grid->addWidget(integer, 4, 1);
    if (form_.Height != 0) return grid;
    auto* import = new QCheckBox("Import HTML files as the ne&xt step");
    import->setObjectName("CheckImport");
    FollowCheckBox(import, form_.CheckImport);
    grid->addWidget(import, 5, 1, 1, 2);
    return grid;
}

QLayout* NewTopicDialog::MakeFolders() {
    const auto names = [this](std::string_view folder) { return form_.FoldersIn(folder); };
    const auto native = [this](std::string_view path) { return form_.NativePath(path); };
    const bool in_project = form_.Dir1.Enabled;
    auto* tree = new FolderTree(
        "Dir1", form_.Dir1, in_project ? form_.ProjectFolder() : form_.Dir1.Path(), names, native);
    QPushButton* add = MakeButton("Command2", "&New Folder...", form_.Command2);
    OnClick(add, [this] { form_.Command2_Click(); });
    auto* column = new QVBoxLayout;
    column->addWidget(MakeLabel("F&older:", tree));
    column->addWidget(tree, 1);
    column->addWidget(add, 0, Qt::AlignLeft);
    return column;
}

QLayout* NewTopicDialog::MakeTemplates() {
    QListWidget* list = MakeList("FileTemplate", form_.FileTemplate, TemplateName);
    auto* column = new QVBoxLayout;
    column->addWidget(MakeLabel("Tem&plate:", list));
    column->addWidget(list, 1);
    return column;
}

QLayout* NewTopicDialog::MakeKeywordFields() {
    QLineEdit* keyword = MakeEdit("EditKeyword", form_.EditKeyword);
    QLineEdit* sub_key = MakeEdit("EditSubKey", form_.EditSubKey);
    QPushButton* add = MakeButton("Command1", "A&dd", form_.Command1);
    OnClick(add, [this] { form_.Command1_Click(); });
    for (QLineEdit* edit : {keyword, sub_key}) {
        // The key that is being typed is not to be lost by it.
        new EnterKey(edit, [this, add] { (add->isEnabled() ? add : OkButton())->click(); });
    }
    auto* row = new QHBoxLayout;
    row->addWidget(MakeLabel("&Keyword:", keyword));
    row->addWidget(keyword, 1);
    row->addWidget(MakeLabel("&Sub-key:", sub_key));
    row->addWidget(sub_key, 1);
    row->addWidget(add);
    return row;
}

QWidget* NewTopicDialog::MakeKeywords() {
    QListWidget* list = MakeList("ListKeys", form_.ListKeys);
    list->setAccessibleName("Keywords of the topic");
    connect(list, &QListWidget::itemDoubleClicked, this, [this] { form_.ListKeys_DblClick(); });
    QPushButton* edit = MakeButton("CommandEdit", "&Edit", form_.CommandEdit);
    OnClick(edit, [this] { form_.CommandEdit_Click(); });
    QPushButton* remove = MakeButton("CommandDelete", "De&lete", form_.CommandDelete);
    OnClick(remove, [this] { form_.CommandDelete_Click(); });
    new KeyFilter(list, {Qt::Key_Delete}, [remove] { remove->click(); });
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(edit);
    buttons->addWidget(remove);
    buttons->addStretch();
    auto* lower = new QHBoxLayout;
    lower->addWidget(list, 1);
    lower->addLayout(buttons);
    auto* group = new QGroupBox("Index Keywords");
    auto* all = new QVBoxLayout(group);
    all->addLayout(MakeKeywordFields());
    all->addLayout(lower, 1);
    return group;
}

}  // namespace quorrel
