// What the window itself remembers between runs, beside the program's settings file.
#pragma once

#include <QSettings>

class QHeaderView;
class QWidget;

namespace quorrel {

class WindowSettings {
  public:
    /// In the program's settings folder.
    WindowSettings();

    void SaveGeometry(const QString& name, const QWidget* window);
    /// False where nothing is remembered.
    bool RestoreGeometry(const QString& name, QWidget* window) const;

    void SaveColumns(const QString& name, const QHeaderView* header);
    /// False where nothing is remembered or the columns are others.
    bool RestoreColumns(const QString& name, QHeaderView* header) const;

    void SetNumber(const QString& name, int number) { settings_.setValue(name, number); }
    [[nodiscard]] int Number(const QString& name, int otherwise) const;
    void SetText(const QString& name, const QString& text) { settings_.setValue(name, text); }
    [[nodiscard]] QString Text(const QString& name) const;

  private:
    QSettings settings_;
};

}  // namespace quorrel
