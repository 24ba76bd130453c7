#include <unistd.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTimer>

#include <string>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "app/user_guide.hpp"
#include "platform/native_file_system.hpp"
#include "platform/native_shell.hpp"
#include "ui/appearance.hpp"
#include "ui/closed_network.hpp"
#include "ui/guarded_application.hpp"
#include "ui/main_window.hpp"
#include "ui/preview_pane.hpp"
#include "ui/qt_screen.hpp"
#include "ui/source_view.hpp"
#include "ui/topic_scheme.hpp"
#include "ui/web_surface.hpp"

namespace {

std::string CommandLine(int argc, char** argv) {
    std::string line;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) line += ' ';
        line += argv[i];
    }
    return line;
}

void PrepareWebEngine() {
    // The engine refuses to start its sandbox for the super-user.
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    // It tells of its graphics at each start, which is of no use to an author.
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES")) {
        QLoggingCategory::setFilterRules("qt.webenginecontext*=false");
    }
    quorrel::CloseNetwork();
    quorrel::RegisterTopicScheme();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

/// There is a window to tell a failure in, and to close the program by, however the start ends.
void Start(quorrel::MainForm& main, const std::string& command_line) {
    try {
        Form_Load(main, command_line);
    } catch (...) {
        main.window.window.Visible = true;
        throw;
    }
}

}  // namespace

int main(int argc, char** argv) {
    using namespace quorrel;
    const std::string command_line = CommandLine(argc, argv);
    PrepareWebEngine();
    GuardedApplication app(argc, argv);
    QApplication::setApplicationName("Quorrel");
    QApplication::setApplicationVersion(QUORREL_VERSION);
    // The splash is the last window when it closes.
    QApplication::setQuitOnLastWindowClosed(false);

    LoadPictures();

    NativeFileSystem files;
    QtScreen screen(files);
    WebSurface surface(files);
    SourceView source;
    PreviewPane preview(files);
    NativeShell shell(files);
    MainForm main_form({files, screen, surface, source, preview, shell},
                       files.WindowsPath(NativeSettingsFolder()));
    screen.help_wanted = [&](std::string_view form) { ShowHelp(main_form, HelpIdentifier(form)); };
    main_form.settings.program = QCoreApplication::applicationFilePath().toStdString();
    MainWindow window(main_form, surface, source.Widget(), preview);
    QObject::connect(&window, &MainWindow::Closed, &app, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QTimer::singleShot(0, &window, [&] { Start(main_form, command_line); });
    return QApplication::exec();
}
