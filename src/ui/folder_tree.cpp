#include "ui/folder_tree.hpp"

#include <QHeaderView>
#include <QIcon>
#include <algorithm>

#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

constexpr int kPath = Qt::UserRole;
constexpr int kFilled = Qt::UserRole + 1;

std::string PathOf(const QTreeWidgetItem* item) {
    return FromQt(item->data(0, kPath).toString());
}

/// Folders of that kind are not meant for people.
bool IsHidden(std::string_view name) {
    return name.starts_with('.');
}

}  // namespace

FolderTree::FolderTree(const QString& name, FolderBox& box, const std::string& top, Names names,
                       Native native)
    : box_(box), names_(std::move(names)), native_(std::move(native)) {
    setObjectName(name);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    header()->setStretchLastSection(true);
    FollowControl(this, box_);
    connect(this, &QTreeWidget::itemExpanded, this, &FolderTree::Fill);
    connect(this, &QTreeWidget::currentItemChanged, this, &FolderTree::Tell);
    if (!top.empty()) AddTop(top)->setExpanded(true);
    Follow();
    Listen(box_.changed, this, [this] { Follow(); });
}

QTreeWidgetItem* FolderTree::AddTop(const std::string& path) {
    QTreeWidgetItem* item = AddFolder(nullptr, path);
    addTopLevelItem(item);
    return item;
}

QTreeWidgetItem* FolderTree::AddFolder(QTreeWidgetItem* parent, const std::string& path) {
    auto* item = new QTreeWidgetItem(parent);
    const QString native = ToQt(native_(path));
    const std::string_view name = AfterLast(path, '\\');
    item->setText(0, name.empty() ? native : ToQt(name));
    item->setToolTip(0, PlainToolTip(native));
    item->setIcon(0, QIcon::fromTheme("folder"));
    item->setData(0, kPath, ToQt(path));
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

void FolderTree::Fill(QTreeWidgetItem* item) {
    if (item->data(0, kFilled).toBool()) return;
    item->setData(0, kFilled, true);
    const std::string path = PathOf(item);
    for (const std::string& name : names_(path)) {
        if (!IsHidden(name)) AddFolder(item, path + "\\" + name);
    }
    if (item->childCount() == 0) {
        item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
    }
}

QTreeWidgetItem* FolderTree::Child(QTreeWidgetItem* item, std::string_view name) {
    Fill(item);
    for (int i = 0; i < item->childCount(); ++i) {
        if (EqualsIgnoringCase(AfterLast(PathOf(item->child(i)), '\\'), name)) {
            return item->child(i);
        }
    }
    // It may have been made since the folder was read.
    for (const std::string& there : names_(PathOf(item))) {
        if (EqualsIgnoringCase(there, name)) return AddFolder(item, PathOf(item) + "\\" + there);
    }
    return nullptr;
}

QTreeWidgetItem* FolderTree::Find(QTreeWidgetItem* top, const std::string& path) {
    const std::string top_path = PathOf(top);
    if (EqualsIgnoringCase(top_path, path)) return top;
    const auto hit = FindIgnoringCase(path, top_path + "\\");
    if (!hit || hit->offset != 0) return nullptr;
    std::string_view rest = std::string_view(path).substr(hit->size);
    QTreeWidgetItem* item = top;
    while (item != nullptr && !rest.empty()) {
        const std::size_t end = std::min(rest.find('\\'), rest.size());
        item = Child(item, rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return item;
}

void FolderTree::Follow() {
    const std::string& path = box_.Path;
    const QTreeWidgetItem* shown = currentItem();
    if (path.empty() || following_ || (shown != nullptr && PathOf(shown) == path)) return;
    following_ = true;
    QTreeWidgetItem* item = nullptr;
    for (int i = 0; i < topLevelItemCount() && item == nullptr; ++i) {
        item = Find(topLevelItem(i), path);
    }
    if (item == nullptr) item = AddTop(path);
    setCurrentItem(item);
    scrollToItem(item);
    following_ = false;
}

void FolderTree::Tell(QTreeWidgetItem* item) {
    if (item != nullptr && !following_) box_.Path = PathOf(item);
}

}  // namespace quorrel
