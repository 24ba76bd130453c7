#include "ui/project_settings_dialog.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "project/project_state.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"
#include "ui/report_list.hpp"

namespace quorrel {

ProjectSettingsDialog::ProjectSettingsDialog(FormProjectSettings& form, QWidget* parent)
    : FormDialog(form, ToQt(FormProjectSettings::kCaption), parent),
      form_(form),
      tabs_(new QTabWidget) {
    tabs_->setObjectName("tbsOptions");
    const std::vector<QWidget*> pages = {MakeFilesPage(), MakeProjectPage(), MakeToolsPage(),
                                         MakeImagesPage()};
    for (int i = 1; i <= form_.tbsOptions.Count(); ++i) {
        QWidget* page = pages[static_cast<std::size_t>(i - 1)];
        tabs_->addTab(page, WithoutMnemonics(ToQt(form_.tbsOptions.TabCaption(i))));
    }
    tabs_->setTabVisible(options_page::kImages - 1, form_.HasImages());
    connect(tabs_, &QTabWidget::currentChanged, this,
            [this](int page) { form_.tbsOptions.SelectedIndex = page + 1; });
    auto* all = new QVBoxLayout(this);
    all->addWidget(tabs_, 1);
    all->addWidget(MakeButtons(
        "cmdOK", [this] { form_.cmdOK_Click(); }, "cmdCancel"));
    RestoreSize(objectName(), {560, 400});
    Listen(form_.tbsOptions.changed, this, [this] { FollowPage(); });
    FollowPage();
    for (QLineEdit* edit : tabs_->currentWidget()->findChildren<QLineEdit*>()) {
        if (edit->isReadOnly()) continue;
        edit->setFocus();
        break;
    }
}

void ProjectSettingsDialog::FollowPage() {
    tabs_->setCurrentIndex(form_.tbsOptions.SelectedIndex - 1);
}

PathForms ProjectSettingsDialog::Paths() const {
    return {[this](std::string_view text) { return form_.NativePath(text); },
            [this](std::string_view text) { return form_.WindowsPath(text); }};
}

QWidget* ProjectSettingsDialog::MakeFilesPage() {
    auto* page = new QWidget;
    auto* rows = new QFormLayout(page);
    const auto add = [&](QWidget* edit, const char* name, Control& label) {
        rows->addRow(MakeLabel(name, label, edit), edit);
    };
    const auto add_path = [&](const char* name, TextBox& control, const QString& label) {
        QLineEdit* edit = MakePathEdit(name, control, Paths());
        rows->addRow(MakeLabel(label, edit), edit);
    };
    add(MakePathEdit("EditProject", form_.EditProject, Paths()), "LabelProject",
        form_.LabelProject);
    add_path("EditHTMLDir", form_.EditHTMLDir, "&Topics Folder:");
    add_path("EditImageDir", form_.EditImageDir, "&Images Folder:");
    add(MakePathEdit("EditMapFile", form_.EditMapFile, Paths()), "LabelMapFile",
        form_.LabelMapFile);
    add_path("EditTOCFile", form_.EditTOCFile, "&Contents File:");
    add_path("EditIndexFile", form_.EditIndexFile, "Inde&x File:");
    return page;
}

QWidget* ProjectSettingsDialog::MakeProjectPage() {
    auto* page = new QWidget;
    auto* rows = new QFormLayout(page);
    QLineEdit* title = MakeEdit("EditTitle", form_.EditTitle);
    rows->addRow(MakeLabel("&Title:", title), title);
    QWidget* topic = nullptr;
    if (form_.HasImages()) {
        topic = MakeTextCombo("EditHomeID", form_.EditHomeID);
    } else {
        topic = MakePathEdit("EditHomeID", form_.EditHomeID, Paths());
    }
    rows->addRow(MakeLabel("LabelHomeID", form_.LabelHomeID, topic), topic);
    auto* search = new QCheckBox;
    search->setObjectName("CheckJavaFTS");
    FollowCheckBox(search, form_.CheckJavaFTS);
    search->setText("&" + search->text());
    rows->addRow(search);
    return page;
}

void ProjectSettingsDialog::AddTool(QVBoxLayout* page, QWidget* edit, Control& label,
                                    const char* label_name, QPushButton* choose) {
    choose->setAccessibleName("Choose the " + ToQt(label.Caption()));
    choose->setToolTip(choose->accessibleName());
    auto* row = new QHBoxLayout;
    row->addWidget(edit, 1);
    row->addWidget(choose);
    page->addWidget(MakeLabel(label_name, label, edit));
    page->addLayout(row);
}

QWidget* ProjectSettingsDialog::MakeToolsPage() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    QPushButton* viewer = MakeButton("Command1", "...", form_.Command1);
    QPushButton* indexer = MakeButton("Command2", "...", form_.Command2);
    QPushButton* archiver = MakeButton("Command3", "...", form_.Command3);
    OnClick(viewer, [this] { form_.Command1_Click(); });
    OnClick(indexer, [this] { form_.Command2_Click(); });
    OnClick(archiver, [this] { form_.Command3_Click(); });
    AddTool(column, MakePathEdit("EditViewerPath", form_.EditViewerPath, Paths()),
            form_.LabelViewer, "LabelViewer", viewer);
    AddTool(column, MakePathEdit("EditIndexerpath", form_.EditIndexerpath, Paths()),
            form_.LabelIndexer, "LabelIndexer", indexer);
    AddTool(column, MakePathEdit("EditJARPath", form_.EditJARPath, Paths()), form_.LabelJAR,
            "LabelJAR", archiver);
    column->addStretch();
    return page;
}

QWidget* ProjectSettingsDialog::MakeImagesPage() {
    auto* page = new QWidget;
    auto* list = new ReportList(form_.ListAliases, "ListAliases");
    list->setAccessibleName("Images and icons of the project");
    list->Rows().AdoptColumns();
    list->Rows().shown_text = [this](int column, const ListRow& row) {
        return column == alias_cell::kPath ? form_.NativePath(row.SubItems(column)) : row.Text();
    };
    list->ApplyColumnWidths();
    auto* buttons = new QHBoxLayout;
    QPushButton* add = MakeButton("Command5", "&Add...", form_.Command5);
    QPushButton* remove = MakeButton("Command6", "&Delete", form_.Command6);
    OnClick(add, [this] { form_.Command5_Click(); });
    OnClick(remove, [this] { form_.Command6_Click(); });
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch();
    auto* column = new QVBoxLayout(page);
    column->addWidget(list, 1);
    column->addLayout(buttons);
    return page;
}

}  // namespace quorrel
