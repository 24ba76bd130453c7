// The real window on real files, with settings of its own.
#pragma once

#include <gtest/gtest.h>

#include <QTreeView>

#include <functional>
#include <memory>
#include <string>

#include "app/main_form.hpp"
#include "platform/native_file_system.hpp"
#include "platform/silent_services.hpp"
#include "support/scratch_folder.hpp"
#include "ui/main_window.hpp"
#include "ui/modal_script.hpp"
#include "ui/preview_pane.hpp"
#include "ui/qt_screen.hpp"
#include "ui/source_view.hpp"
#include "ui/web_surface.hpp"

namespace quorrel::test {

class WindowFixture : public testing::Test {
  protected:
    WindowFixture();
    ~WindowFixture() override;

    /// One run of the program: everything between start and end is made anew.
    struct Run {
        explicit Run(NativeFileSystem& files);
        QtScreen screen;
        WebSurface surface;
        SourceView source;
        PreviewPane preview;
        SilentShell shell;
        MainForm main;
        MainWindow window;
    };

    /// Writes a project of three topics with contents and index, and names it in the settings.
    void WriteProject();
    /// Starts the program and opens the first recent project in the start-up dialog.
    void OpenFirst();
    /// Both.
    void StartAndOpen();
    /// Starts the program, with `work` done in the start-up dialog.
    void Start(std::function<void(QWidget&)> work, std::string_view command_line = "html");

    template <typename Widget>
    Widget* Find(const char* name) {
        auto* found = run->window.template findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    MainForm& Main() { return run->main; }
    /// Waits until the topic on the right has this text in it.
    bool TopicShows(const QString& text);
    QString TopicText();

    ScratchFolder folder;
    NativeFileSystem files;
    ModalScript dialogs;
    std::unique_ptr<Run> run;
};

/// Clicks an item of a list or tree.
void ClickItem(QAbstractItemView* view, const QModelIndex& index);
void DoubleClickItem(QAbstractItemView* view, const QModelIndex& index);
/// The texts of a column, from the first row on.
QStringList Column(const QAbstractItemView* view, int column = 0);

}  // namespace quorrel::test
