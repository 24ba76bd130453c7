#include "ui/recover_dialog.hpp"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>

#include "ui/qt_text.hpp"

namespace quorrel {

RecoverDialog::RecoverDialog(FormRecover& form, QWidget* parent)
    : FormDialog(form, ToQt(FormRecover::kCaption), parent), form_(form), list_(new QTreeWidget) {
    MakeList();
    auto* text = new QLabel(ToQt(FormRecover::kText));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setBuddy(list_);
    auto* all = new QVBoxLayout(this);
    all->addWidget(text);
    all->addWidget(list_, 1);
    all->addWidget(MakeButtons(
        "OKButton", [this] { form_.OKButton_Click(); }, "CancelButton"));
    RestoreSize("FormRecover", QSize(640, 320));
    list_->setFocus();
}

void RecoverDialog::MakeList() {
    list_->setObjectName("ListWork");
    list_->setAccessibleName("Unsaved work");
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setHeaderLabels({"Unsaved", "Kept at", "Note"});
    for (const LeftWork& work : form_.works) {
        auto* item =
            new QTreeWidgetItem(list_, {ToQt(work.name), ToQt(work.when), ToQt(work.note)});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(0, work.is_wanted ? Qt::Checked : Qt::Unchecked);
    }
    if (list_->topLevelItemCount() > 0) list_->setCurrentItem(list_->topLevelItem(0));
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int column : {1, 2}) list_->resizeColumnToContents(column);
    connect(list_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int) {
        const auto row = static_cast<std::size_t>(list_->indexOfTopLevelItem(item));
        form_.works.at(row).is_wanted = item->checkState(0) == Qt::Checked;
    });
}

}  // namespace quorrel
