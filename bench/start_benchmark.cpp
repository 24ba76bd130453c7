// How long a start takes, beside the start of a window that holds nothing but a web engine. One
// run is one start, which prints the milliseconds since the moment that START_NS names (the
// nanoseconds of the epoch); measure-start.sh makes the runs and compares them.
//   start-benchmark bare FILE.htm    an empty engine window that shows the file
//   start-benchmark program          the program with the settings of XDG_CONFIG_HOME: until the
//                                    start-up dialog, and until the first topic of the first
//                                    recent project can be edited
// The splash is closed at once, as by a key: it stands for a fixed time.
#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QUrl>
#include <QWebEngineView>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "platform/native_file_system.hpp"
#include "platform/silent_services.hpp"
#include "ui/appearance.hpp"
#include "ui/closed_network.hpp"
#include "ui/main_window.hpp"
#include "ui/preview_pane.hpp"
#include "ui/qt_screen.hpp"
#include "ui/source_view.hpp"
#include "ui/topic_scheme.hpp"
#include "ui/web_surface.hpp"

namespace {

using namespace quorrel;

void Print(const char* what) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const char* start = std::getenv("START_NS");
    const long long from = start == nullptr ? 0 : std::atoll(start);
    const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
    std::printf("%s %.1f\n", what, static_cast<double>(nanoseconds - from) / 1e6);
    std::fflush(stdout);
}

int Bare(const QString& file) {
    QWebEngineView view;
    view.resize(1100, 720);
    QObject::connect(&view, &QWebEngineView::loadFinished, [] {
        Print("bare");
        std::_Exit(0);
    });
    view.load(QUrl::fromLocalFile(file));
    view.show();
    return QApplication::exec();
}

void PressKey(QWidget* widget, Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
}

int Program() {
    LoadPictures();
    NativeFileSystem files;
    QtScreen screen(files);
    WebSurface surface(files);
    SourceView source;
    PreviewPane preview(files);
    SilentShell shell;
    MainForm main_form({files, screen, surface, source, preview, shell},
                       files.WindowsPath(NativeSettingsFolder()));
    preview.code_page = [&] { return main_form.texts.CodePageNumber(); };
    MainWindow window(main_form, surface, source.Widget(), preview);
    QTimer watch;
    bool was_startup = false;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        const QString name = dialog == nullptr ? QString() : dialog->objectName();
        if (name == "frmSplash") return PressKey(dialog, Qt::Key_Space);
        if (name == "FormStartup" && !was_startup) {
            was_startup = true;
            Print("window");
            return PressKey(dialog->findChild<QWidget*>("ListProjects"), Qt::Key_Return);
        }
        if (main_form.editor.main_path.empty() || surface.Busy()) return;
        Print("topic");
        std::_Exit(0);
    });
    watch.start(2);
    QTimer::singleShot(0, &window, [&] { Form_Load(main_form, "html"); });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    CloseNetwork();
    RegisterTopicScheme();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    if (argc == 3 && std::string_view(argv[1]) == "bare") return Bare(argv[2]);
    if (argc == 2 && std::string_view(argv[1]) == "program") return Program();
    std::fprintf(stderr, "start-benchmark bare FILE.htm | program\n");
    return 2;
}
