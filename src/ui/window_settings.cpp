#include "ui/window_settings.hpp"

#include <QHeaderView>
#include <QWidget>

#include "platform/profile_store.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

WindowSettings::WindowSettings()
    : settings_(ToQt(NativeSettingsFolder()) + "/window.ini", QSettings::IniFormat) {}

void WindowSettings::SaveGeometry(const QString& name, const QWidget* window) {
    settings_.setValue(name + "/geometry", window->saveGeometry());
}

bool WindowSettings::RestoreGeometry(const QString& name, QWidget* window) const {
    return window->restoreGeometry(settings_.value(name + "/geometry").toByteArray());
}

void WindowSettings::SaveColumns(const QString& name, const QHeaderView* header) {
    QStringList widths;
    for (int i = 0; i < header->count(); ++i) widths << QString::number(header->sectionSize(i));
    settings_.setValue(name + "/columns", widths);
}

bool WindowSettings::RestoreColumns(const QString& name, QHeaderView* header) const {
    const QStringList widths = settings_.value(name + "/columns").toStringList();
    if (widths.isEmpty() || widths.size() != header->count()) return false;
    for (int i = 0; i < header->count(); ++i) {
        header->resizeSection(i, qMax(header->minimumSectionSize(), widths[i].toInt()));
    }
    return true;
}

int WindowSettings::Number(const QString& name, int otherwise) const {
    return settings_.value(name, otherwise).toInt();
}

QString WindowSettings::Text(const QString& name) const {
    return settings_.value(name).toString();
}

}  // namespace quorrel
