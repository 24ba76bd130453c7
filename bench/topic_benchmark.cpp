// How long a topic takes until it can be edited, beside what the bare web engine takes for the same
// file. Topics are loaded one after the other into one view, as an author goes through them.
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "editor/load_file.hpp"
#include "platform/native_file_system.hpp"
#include "platform/silent_services.hpp"
#include "ui/qt_screen.hpp"
#include "ui/source_view.hpp"
#include "ui/topic_scheme.hpp"
#include "ui/web_surface.hpp"

namespace {

using namespace quorrel;

constexpr int kTopics = 40;

std::string Topic(std::size_t size) {
    std::string text = "<html><head><title>Topic</title></head>\r\n<body>\r\n";
    for (int i = 0; text.size() < size; ++i) {
        text += "<p>Paragraph " + std::to_string(i) +
                " tells of <b>one thing</b> and <a href=\"other.htm\">another</a>, at length and "
                "without an end.</p>\r\n";
    }
    return text + "</body></html>\r\n";
}

/// The middle of the milliseconds that `work` takes.
double Median(const std::function<void(int)>& work) {
    std::vector<double> times;
    for (int i = 0; i < kTopics; ++i) {
        QElapsedTimer timer;
        timer.start();
        work(i);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double Bare(const QString& path) {
    QWebEngineProfile profile;
    auto* page = new QWebEnginePage(&profile);
    QWebEngineView view;
    view.setPage(page);
    view.resize(800, 600);
    view.show();
    const double time = Median([&](int i) {
        QEventLoop loop;
        const auto end =
            QObject::connect(page, &QWebEnginePage::loadFinished, &loop, &QEventLoop::quit);
        QUrl url = QUrl::fromLocalFile(path);
        url.setQuery(QString::number(i));
        page->load(url);
        loop.exec();
        QObject::disconnect(end);
    });
    delete page;
    return time;
}

double Surface(const QString& path) {
    NativeFileSystem files;
    WebSurface surface(files);
    surface.Widget()->resize(800, 600);
    surface.Widget()->show();
    const std::string windows_path = files.WindowsPath(path.toStdString());
    return Median([&](int) {
        surface.LoadDocument(windows_path);
        while (surface.Busy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    });
}

/// The same in the program, from the click on: the topic before is put away, the new one found in
/// a table of topics, loaded and shown.
double Program(const QTemporaryDir& folder, const QString& path) {
    NativeFileSystem files;
    WebSurface surface(files);
    surface.Widget()->resize(800, 600);
    surface.Widget()->show();
    QtScreen screen(files);
    SourceView source;
    SilentBrowser browser;
    SilentShell shell;
    MainForm main({files, screen, surface, source, browser, shell},
                  files.WindowsPath(folder.filePath("settings").toStdString()));
    LoadSettings(main, "html");
    main.project.proj = files.WindowsPath(folder.filePath("bench.hhp").toStdString());
    std::vector<std::string> topics;
    for (int i = 0; i < 2; ++i) {
        const QString copy = path + QString::number(i) + ".htm";
        QFile::copy(path, copy);
        topics.push_back(files.WindowsPath(copy.toStdString()));
        main.topics.ListTopics.Add("Topic").SetSubItem(topic_cell::kFullPath, topics.back());
    }
    return Median([&](int i) {
        main.editor.new_main_path = topics[static_cast<std::size_t>(i % 2)];
        LoadFile(main);
    });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    RegisterTopicScheme();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QTemporaryDir folder;
    for (const std::size_t size : {std::size_t{200}, std::size_t{20'000}, std::size_t{200'000}}) {
        const QString path = folder.filePath(QString::number(size) + ".htm");
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) return 1;
        file.write(QByteArray::fromStdString(Topic(size)));
        file.close();
        const double bare = Bare(path);
        const double surface = Surface(path);
        const double program = Program(folder, path);
        std::printf("%zu KB: bare engine %.1f ms, surface %.1f ms (%.2f), program %.1f ms (%.2f)\n",
                    size / 1000, bare, surface, surface / bare, program, program / bare);
    }
    return 0;
}
