// The folders below one folder as a tree.
#pragma once

#include <QTreeWidget>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/folder_box.hpp"

namespace quorrel {

/// Shows and changes the selected folder of a FolderBox. A folder is read when it is opened.
class FolderTree : public QTreeWidget {
    Q_OBJECT
  public:
    using Names = std::function<std::vector<std::string>(std::string_view folder)>;
    using Native = std::function<std::string(std::string_view path)>;

    /// `top` is the folder at the top of the tree. A selected one elsewhere gets a tree of its own.
    FolderTree(const QString& name, FolderBox& box, const std::string& top, Names names,
               Native native);

  private:
    QTreeWidgetItem* AddTop(const std::string& path);
    QTreeWidgetItem* AddFolder(QTreeWidgetItem* parent, const std::string& path);
    void Fill(QTreeWidgetItem* item);
    /// The item of the path in the tree below `top`; null where there is no such folder.
    QTreeWidgetItem* Find(QTreeWidgetItem* top, const std::string& path);
    QTreeWidgetItem* Child(QTreeWidgetItem* item, std::string_view name);
    void Follow();
    void Tell(QTreeWidgetItem* item);

    FolderBox& box_;
    Names names_;
    Native native_;
    bool following_ = false;
};

}  // namespace quorrel
