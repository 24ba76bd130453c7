#include "ui/outline_pane.hpp"

#include "app/main_form.hpp"
#include "ui/tree_view_model.hpp"

namespace quorrel {

OutlinePane::OutlinePane(MainForm& main, QWidget* parent) : QTreeView(parent) {
    setObjectName("TreeDoc");
    setAccessibleName("Outline of the printed document");
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* model = new TreeViewModel(main.outline.TreeDoc, this);
    setModel(model);
    connect(this, &QTreeView::expanded, model,
            [model](const QModelIndex& index) { model->SetExpanded(index, true); });
    connect(this, &QTreeView::collapsed, model,
            [model](const QModelIndex& index) { model->SetExpanded(index, false); });
}

OutlinePanel::OutlinePanel() : QLabel("Building the printed document is not available yet.") {
    setObjectName("PictureDocEdit");
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
}

}  // namespace quorrel
