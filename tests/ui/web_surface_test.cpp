#include "ui/web_surface.hpp"

#include <QTcpServer>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineView>

#include "platform/text.hpp"
#include "ui/engine_page.hpp"
#include "ui/topic_page.hpp"
#include "ui/topic_scheme.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

using Surface = WindowFixture;

/// A link over the upper left corner of the page, and a click on it.
std::string CornerLink(const std::string& target) {
    return "<a style=\"position:fixed;left:0;top:0;width:90px;height:90px\" href=\"" + target +
           "\">away</a>";
}
void ClickCorner(QWebEngineView* view, Qt::KeyboardModifiers held = {}) {
    QTest::mouseClick(view->focusProxy(), Qt::LeftButton, held, QPoint(30, 30));
}

TEST(TopicUrl, KeepsEveryName) {
    for (const char* path : {"Z:\\a b\\c%20d.htm", "Z:\\x#y?z;.htm", "Z:\\\xC3\xBC&=+'\".htm"}) {
        EXPECT_EQ(PathOfUrl(UrlOfTopic(path, 1)), path);
    }
    EXPECT_EQ(PathOfUrl(QUrl("file:///etc/passwd")), "");
    EXPECT_EQ(UrlOfTopic("Z:\\a\\b.htm", 1).resolved(QUrl("../p.png")).path(), "/Z:/p.png");
}

TEST_F(Surface, ALinkToATopicOpensItInTheProgram) {
    WriteProject();
    folder.Write("demo & more/html/first.htm",
                 "<html><body>first body" + CornerLink("second.htm") + "</body></html>");
    OpenFirst();
    ASSERT_TRUE(TopicShows("first body"));
    ClickCorner(run->surface.View(), Qt::ControlModifier);
    EXPECT_TRUE(TopicShows("second body"));
    EXPECT_TRUE(Main().editor.main_path.ends_with("second.htm"));
    EXPECT_EQ(Main().topics.ListTopics.SelectedItem()->Text(), "Apple");
}

const std::string kHostileHead = R"(<html><head><title>Bad</title>
<meta http-equiv="refresh" content="0;url=second.htm">
<link rel="preconnect" href="REMOTE"><link rel="prefetch" href="REMOTE">
<link rel="stylesheet" href="REMOTEa.css">
<style>@import "REMOTEb.css"; body { background: url(REMOTEc.png) }</style>
</head><body onload="document.body.textContent='ran'"><p id="p">still here</p>
)";
const std::string kHostile = R"(<script>document.getElementById('p').textContent = 'ran'</script>
<img src="REMOTEd.png" onerror="document.title='ran'"><img src=x onerror="document.title='ran'">
<svg onload="document.title='ran'"><script>document.title='ran'</script></svg>
<iframe src="REMOTEe.htm"></iframe><iframe src="javascript:top.document.title='ran'"></iframe>
<iframe src="file:///etc/passwd"></iframe><iframe srcdoc="<script>top.document.title=1</script>">
</iframe><object data="REMOTEf"></object><embed src="REMOTEg"><video src="REMOTEh" autoplay></video>
<input autofocus onfocus="document.title='ran'"><details open ontoggle="document.title='ran'">
</details><meta http-equiv="refresh" content="0;url=second.htm">
)";

TEST_F(Surface, AHostileTopicRunsNothingAndReachesNothing) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const std::string remote = "http://127.0.0.1:" + std::to_string(server.serverPort()) + "/";
    WriteProject();
    const std::string page = ReplaceAll(
        kHostileHead + kHostile + CornerLink("REMOTEi") + "</body></html>", "REMOTE", remote);
    folder.Write("demo & more/html/first.htm", page);
    OpenFirst();
    ASSERT_TRUE(TopicShows("still here"));
    QWebEngineView* view = run->surface.View();
    const auto ends_as_it_was = [&] {
        EXPECT_TRUE(TopicShows("still here"));
        EXPECT_EQ(view->title(), "Bad");
        EXPECT_TRUE(Main().editor.main_path.ends_with("first.htm"));
        EXPECT_FALSE(server.hasPendingConnections());
    };
    for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::ControlModifier}) {
        ClickCorner(view, held);
        QTest::qWait(300);
        ends_as_it_was();
    }
    const auto body = Main().DHTMLEdit1.DOM().body();
    body->insertAdjacentHTML("BeforeEnd", ReplaceAll(kHostile, "REMOTE", remote));
    const auto end = body->createTextRange();
    end->collapse(false);
    end->pasteHTML(ReplaceAll(kHostile, "REMOTE", remote));
    QTest::qWait(300);
    ends_as_it_was();

    Main().DHTMLEdit1.SetBrowseMode(true);
    QSet<QString> refused;
    QObject::connect(static_cast<TopicPage*>(view->page()), &TopicPage::Refused, view,
                     [&](const QUrl& url) { refused.insert(url.fileName()); });
    ClickCorner(view);
    EXPECT_TRUE(WaitFor([&] { return refused.contains("i"); }));
    ends_as_it_was();
}

}  // namespace
}  // namespace quorrel::test
