#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>

#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;

class Clipboard : public SurfaceFixture {
  protected:
    static void Put(const std::string& html, const std::string& text = {}) {
        auto* data = new QMimeData;
        if (!html.empty()) data->setHtml(QString::fromStdString(html));
        if (!text.empty()) data->setText(QString::fromStdString(text));
        QApplication::clipboard()->setMimeData(data);
    }
    void Drop(const QMimeData& data, const QPoint& place) {
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(surface.View(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(surface.View(), &drop);
    }
    std::string FileUrl(const std::string& name) {
        return QUrl::fromLocalFile(QString::fromStdString(folder.Native(name)))
            .toString(QUrl::FullyEncoded)
            .toStdString();
    }
};

TEST_F(Clipboard, WhatCouldActDoesNotComeIn) {
    OpenBody("<p>ab</p>");
    CaretAfter("a");
    for (const auto& [html, after] : std::vector<std::pair<std::string, std::string>>{
             {"<p>one</p>", "one"},
             {"x<script>y</script><style>z</style><b onclick=\"f()\">b</b>", "x<b>b</b>"},
             {"<img src=x onerror=f()><a href=\"javascript:f()\">l</a>", "<img src=\"x\"><a>l</a>"},
             {"<a href=\" java\tscript:f()\">l</a><a href=\"http://h/\">m</a>",
              "<a>l</a><a href=\"http://h/\">m</a>"},
             {"<iframe src=x></iframe><object data=x><p>in</p></object><svg onload=f()>s</svg>v",
              "v"},
             {"<form action=x><input name=n onfocus=f()></form><!-- c -->", "<input name=\"n\">"},
             {"<meta http-equiv=refresh content=0><link rel=stylesheet href=x><base href=y>t", "t"},
             {"<p class=\"MsoNormal\" style=\"mso-x: y\"><o:p>w</o:p></p>", "w"},
             {"<td style=\"background: url(http://x/)\" background=\"vbscript:f\">c", "c"},
             {"<img src=\"data:text/html,x\"><img src=\"data:image/png;base64,AA\">",
              "<img><img src=\"data:image/png;base64,AA\">"},
         }) {
        Put(html);
        Do(DECMD_PASTE);
        EXPECT_EQ(Body(), "<p>a" + after + "b</p>") << html;
        Do(DECMD_UNDO);
        EXPECT_EQ(Body(), "<p>ab</p>");
    }

    // What is dropped is cleaned too, and falls where the pointer is.
    QMimeData data;
    data.setHtml("<i onclick=f()>x</i>");
    Drop(data, PlaceOf("p").topLeft() + QPoint(1, 8));
    EXPECT_EQ(Body(), "<p><i>x</i>ab</p>");
    surface.drop_taken = [](const QMimeData&) { return true; };
    Drop(data, {590, 8});
    EXPECT_EQ(BodyWithSelection(), "<p><i>x</i>ab^</p>");
}

TEST_F(Clipboard, AddressesBecomeRelativeToTheTopic) {
    folder.Write("sub/x y.gif", "");
    OpenBody("<p>ab</p>");
    CaretAfter("a");
    Put("<img src=\"" + FileUrl("sub/x y.gif") + "\"><a href=\"" + FileUrl("topic.htm") +
        "#m\">m</a><a href=\"" + FileUrl("../other.htm") + "#n\">n</a>");
    Do(DECMD_PASTE);
    EXPECT_EQ(Body(),
              "<p>a<img src=\"sub/x y.gif\"><a href=\"#m\">m</a><a href=\"../other.htm#n\">n</a>"
              "b</p>");
    auto* urls = new QMimeData;
    urls->setUrls({QUrl(QString::fromStdString(FileUrl("sub/x y.gif")))});
    QApplication::clipboard()->setMimeData(urls);
    CaretAfter("b");
    Do(DECMD_PASTE);
    EXPECT_TRUE(Body().ends_with("b<img src=\"sub/x y.gif\"></p>")) << Body();
}

TEST_F(Clipboard, WhatIsCopiedComesBackAsItWasWritten) {
    const std::string link = "<a href=\"x.htm\" onclick=\"f()\">two</a><!OBJECT id=p><!/OBJECT>";
    OpenBody("<p>one " + link + " three</p>");
    Select("one two three");
    Do(DECMD_COPY);
    const QString html = QApplication::clipboard()->mimeData()->html();
    EXPECT_TRUE(html.contains(QString::fromStdString(FileUrl("x.htm")))) << html.toStdString();
    EXPECT_EQ(QApplication::clipboard()->text(), "one two three");
    CaretAfter("three");
    Do(DECMD_PASTE);
    EXPECT_EQ(Body(), "<p>one " + link + " threeone " + link + " three</p>");

    folder.Write("sub/topic.htm", "<html><body><p>z</p></body></html>");
    surface.LoadDocument(folder.Windows("sub/topic.htm"));
    WaitUntilThere();
    CaretAfter("z");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(
        BodyBecomes("<p>zone <a href=\"../x.htm\" onclick=\"f()\">two</a>"
                    "<!OBJECT id=p><!/OBJECT> three</p>"));
}

TEST_F(Clipboard, KeysCutCopyAndPaste) {
    OpenBody("<p>one <b>two</b> three</p>");
    Select("two");
    Key(Qt::Key_X, Qt::ControlModifier);
    ASSERT_TRUE(BodyBecomes("<p>one <b></b> three</p>"));
    CaretAfter("three");
    Put("<b>x</b>", "a  b\nc");
    Key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(BodyBecomes("<p>one <b></b> threea&nbsp; b<br>c</p>"));
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(WaitFor([] { return QApplication::clipboard()->text().startsWith("one"); }));
}

}  // namespace
}  // namespace quorrel::test
