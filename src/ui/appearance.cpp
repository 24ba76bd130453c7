#include "ui/appearance.hpp"

#include <QIcon>
#include <QStandardPaths>

// The macro does not work inside a namespace.
static void LoadResourceFile() {
    Q_INIT_RESOURCE(quorrel);
}

namespace quorrel {
namespace {
constexpr const char* kLightTheme = "breeze";
constexpr const char* kDarkTheme = "breeze-dark";
}  // namespace

void LoadPictures() {
    LoadResourceFile();
    // Not every platform knows where the themes of the desktop are.
    QStringList folders = QIcon::themeSearchPaths();
    for (const QString& folder : QStandardPaths::locateAll(
             QStandardPaths::GenericDataLocation, "icons", QStandardPaths::LocateDirectory)) {
        if (!folders.contains(folder)) folders << folder;
    }
    QIcon::setThemeSearchPaths(folders);
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

void ChooseIconTheme(const QPalette& palette) {
    const QString theme = QIcon::themeName();
    const bool is_ours = theme == kLightTheme || theme == kDarkTheme;
    const bool is_missing =
        theme.isEmpty() || theme == "hicolor" || !QIcon::hasThemeIcon("document-open");
    if (is_ours || is_missing) QIcon::setThemeName(IsDark(palette) ? kDarkTheme : kLightTheme);
}

}  // namespace quorrel
