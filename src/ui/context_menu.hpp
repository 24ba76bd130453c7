// Opening a menu on an item of a list or tree, by the mouse or by the menu key.
#pragma once

#include <QObject>

class QAbstractItemView;
class QMenu;

namespace quorrel {

/// Shows `menu` where the user asks the view for one: at the pointer, or for the key at the
/// current item. Both outlive it; the view owns it.
class ContextMenuOpener : public QObject {
    Q_OBJECT
  public:
    ContextMenuOpener(QAbstractItemView* view, QMenu* menu);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAbstractItemView* view_;
    QMenu* menu_;
};

}  // namespace quorrel
