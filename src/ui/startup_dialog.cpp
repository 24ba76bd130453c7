#include "ui/startup_dialog.hpp"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "ui/listen.hpp"
#include "ui/qt_text.hpp"
#include "ui/report_list.hpp"
#include "ui/scrolled_dialog.hpp"

namespace quorrel {
namespace {

QPushButton* MakeButton(Control& control, const QString& name) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    FollowButton(button, control);
    return button;
}

}  // namespace

StartupDialog::StartupDialog(FormStartup& form, QWidget* parent)
    : QDialog(parent), form_(form), list_(new ReportList(form.ListProjects, "ListProjects")) {
    setObjectName("FormStartup");
    setWindowTitle(ToQt(FormStartup::kCaption));
    MakeList();
    auto* label = new QLabel(form_.ListProjects.Count() > 0
                                 ? "&Recent projects:"
                                 : "There are no &recent projects yet. Make one with \"New "
                                   "Project\", or open one with \"More Projects...\".");
    label->setBuddy(list_);
    auto* recent = new QVBoxLayout;
    recent->addWidget(label);
    recent->addWidget(list_);
    auto* upper = new QHBoxLayout;
    upper->addLayout(MakeNewProject());
    upper->addLayout(recent, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(upper, 1);
    all->addLayout(MakeButtons());
    if (!settings_.RestoreGeometry("FormStartup", this)) resize(FittingSize(*this, {640, 380}));
    settings_.RestoreColumns("FormStartup", list_->header());
    if (form_.ListProjects.Count() > 0) {
        list_->setFocus();
    } else {
        findChild<QWidget*>("Command1")->setFocus();
    }
}

void StartupDialog::MakeList() {
    list_->setAccessibleName("Recent projects");
    list_->Rows().shown_text = [this](int column, const ListRow& row) {
        return column == FormStartup::kLocation ? form_.NativePath(row) : row.Text();
    };
    list_->ApplyColumnWidths();
    list_->row_selected = [this] { form_.ListProjects_Click(); };
    list_->row_opened = [this](ListRow&) { Run([this] { form_.ListProjects_DblClick(); }); };
}

QLayout* StartupDialog::MakeNewProject() {
    auto* button = new QToolButton;
    button->setObjectName("Command1");
    button->setIcon(QIcon(":/quorrel/icons/new_project.svg"));
    button->setIconSize(QSize(48, 48));
    button->setText("&New Project");
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAccessibleName("New project");
    connect(button, &QToolButton::clicked, this,
            [this] { Run([this] { form_.Command1_Click(); }); });
    FollowControl(button, form_.Command1);
    auto* column = new QVBoxLayout;
    column->addWidget(button);
    column->addStretch();
    return column;
}

QLayout* StartupDialog::MakeButtons() {
    QPushButton* ok = MakeButton(form_.Command2, "Command2");
    QPushButton* more = MakeButton(form_.Command4, "Command4");
    QPushButton* cancel = MakeButton(form_.Command3, "Command3");
    ok->setDefault(true);
    more->setAutoDefault(false);
    cancel->setAutoDefault(false);
    connect(ok, &QPushButton::clicked, this, [this] { Run([this] { form_.Command2_Click(); }); });
    connect(more, &QPushButton::clicked, this, [this] { Run([this] { form_.Command4_Click(); }); });
    connect(cancel, &QPushButton::clicked, this, &StartupDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : {ok, more, cancel}) row->addWidget(button);
    return row;
}

void StartupDialog::Run(const std::function<void()>& routine) {
    routine();
    if (form_.closed) accept();
}

void StartupDialog::reject() {
    form_.Command3_Click();
    QDialog::reject();
}

void StartupDialog::done(int result) {
    settings_.SaveGeometry("FormStartup", this);
    settings_.SaveColumns("FormStartup", list_->header());
    QDialog::done(result);
}

}  // namespace quorrel
