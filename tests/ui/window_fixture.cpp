#include "ui/window_fixture.hpp"

#include <QTest>
#include <QWebEngineView>

#include "app/startup.hpp"
#include "ui/engine_page.hpp"

namespace quorrel::test {
namespace {

std::string Entry(const std::string& name, const std::string& params) {
    return "<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"" + name +
           "\">\r\n" + params + "</OBJECT>\r\n";
}

std::string Local(const std::string& path) {
    return "<param name=\"Local\" value=\"" + path + "\">\r\n";
}

std::string Target(const std::string& title, const std::string& path) {
    return "<param name=\"Name\" value=\"" + title + "\">\r\n" + Local(path);
}

std::string Topic(const std::string& title, const std::string& body) {
    return "<html><head><title>" + title + "</title></head>\r\n<body>" + body +
           "</body></html>\r\n";
}

}  // namespace

WindowFixture::Run::Run(NativeFileSystem& files)
    : screen(files),
      surface(files),
      preview(files),
      main({files, screen, surface, source, preview, shell},
           files.WindowsPath(NativeSettingsFolder()), MachineCodePage{}),
      window(main, surface, source.Widget(), preview) {}

WindowFixture::WindowFixture() {
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.Native("config")));
}

WindowFixture::~WindowFixture() {
    // The page before its profile and the window before what it shows.
    run.reset();
}

void WindowFixture::WriteProject() {
    folder.Write("demo & more/demo.hhp",
                 "[OPTIONS]\r\nContents file=toc.hhc\r\nIndex file=index.hhk\r\n"
                 "Title=Demo\r\n\r\n[FILES]\r\nhtml\\first.htm\r\nhtml\\second.htm\r\n"
                 "html\\third.htm\r\n\r\n[INFOTYPES]\r\n");
    folder.Write("demo & more/html/first.htm",
                 Topic("Zebra", "first body <a id='link' href='second.htm'>on</a>"));
    folder.Write("demo & more/html/second.htm", Topic("Apple", "second body"));
    folder.Write("demo & more/html/Third.HTM", Topic("Mango", "third body"));
    folder.Write("demo & more/toc.hhc",
                 "<UL>\r\n" + Entry("Start", Local("html\\first.htm")) + "<UL>\r\n" +
                     Entry("Inside", Local("html\\second.htm")) + "</UL>\r\n" +
                     Entry("End", Local("html\\third.htm")) + "</UL>\r\n");
    folder.Write("demo & more/index.hhk",
                 "<UL>\r\n" +
                     Entry("both", Target("Apple", "html\\second.htm") +
                                       Target("Mango", "html\\third.htm")) +
                     Entry("one", Target("Mango", "html\\third.htm")) +
                     Entry("other", "<param name=\"See Also\" value=\"one\">\r\n") + "</UL>\r\n");
    folder.Write(
        "config/quorrel/qrrl_hj.ini",
        "[Recent HTML Projects]\r\n0=" + folder.Windows("demo & more/demo.hhp") + "|Demo\r\n");
}

void WindowFixture::Start(std::function<void(QWidget&)> work, std::string_view command_line) {
    run = std::make_unique<Run>(files);
    dialogs.Expect("frmSplash", [](QWidget& splash) { QTest::keyClick(&splash, Qt::Key_Space); });
    dialogs.Expect("FormStartup", std::move(work));
    Form_Load(run->main, command_line);
}

void WindowFixture::OpenFirst() {
    Start([](QWidget& startup) {
        QTest::keyClick(startup.findChild<QTreeView*>("ListProjects"), Qt::Key_Return);
    });
}

void WindowFixture::StartAndOpen() {
    WriteProject();
    OpenFirst();
}

QString WindowFixture::TopicText() {
    QWebEngineView* view = run->surface.View();
    if (view == nullptr) return {};
    return ValueOf(*view->page(), "document.body ? document.body.innerText : ''").toString();
}

bool WindowFixture::TopicShows(const QString& text) {
    return QTest::qWaitFor([&] { return TopicText().contains(text); }, 20000);
}

void ClickItem(QAbstractItemView* view, const QModelIndex& index) {
    view->scrollTo(index);
    const QPoint place = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
}

void DoubleClickItem(QAbstractItemView* view, const QModelIndex& index) {
    ClickItem(view, index);
    const QPoint place = view->visualRect(index).center();
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
}

QStringList Column(const QAbstractItemView* view, int column) {
    QStringList texts;
    const QAbstractItemModel* model = view->model();
    for (int i = 0; i < model->rowCount(); ++i) texts << model->index(i, column).data().toString();
    return texts;
}

}  // namespace quorrel::test
