#include "ui/keys_list.hpp"

#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QSignalBlocker>

#include "app/main_form.hpp"
#include "contents/contents_drag.hpp"
#include "contents/topic_keywords.hpp"
#include "ui/enter_key.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

KeysList::KeysList(MainForm& main, QWidget* parent) : QListWidget(parent), main_(main) {
    setObjectName("ListKeys");
    setAcceptDrops(true);
    setUniformItemSizes(true);
    ListBox& keys = main_.window.ListKeys;
    FollowControl(this, keys);
    FollowKeys();
    Listen(keys.changed, this, [this] { FollowKeys(); });
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        WindowControls& window = main_.window;
        window.ListKeys.ListIndex = row;
        // A line may have come from the index, which leaves the buttons as they were.
        window.CommandEdit.Enabled = row >= 0;
        window.CommandDelete.Enabled = row >= 0;
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { ListKeys_DblClick(main_); });
    new EnterKey(this, [this] { ListKeys_DblClick(main_); });
}

void KeysList::FollowKeys() {
    const QSignalBlocker quiet(this);
    const ListBox& keys = main_.window.ListKeys;
    QStringList lines;
    for (const std::string& line : keys.List()) lines << ToQt(line);
    QStringList shown;
    for (int i = 0; i < count(); ++i) shown << item(i)->text();
    if (lines != shown) {
        clear();
        addItems(lines);
    }
    setCurrentRow(keys.ListIndex);
}

void KeysList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) return CommandDelete_Click(main_);
    QListWidget::keyPressEvent(event);
}

void KeysList::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
}

void KeysList::dragMoveEvent(QDragMoveEvent* event) {
    const bool is_taken = ListKeys_OLEDragOver(main_) == drop_effect::kCopy;
    event->setDropAction(is_taken ? Qt::CopyAction : Qt::IgnoreAction);
    event->setAccepted(is_taken);
}

void KeysList::dropEvent(QDropEvent* event) {
    if (ListKeys_OLEDragOver(main_) != drop_effect::kCopy) return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    ListKeys_OLEDragDrop(main_);
}

}  // namespace quorrel
