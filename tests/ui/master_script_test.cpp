// The script of the expanding sections, run by the engine on sections as the program writes them.
#include <gtest/gtest.h>

#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <filesystem>
#include <optional>

#include "support/scratch_folder.hpp"
#include "ui/engine_page.hpp"

namespace quorrel::test {
namespace {

class Page : public QWebEnginePage {
  public:
    QStringList errors;

  protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int,
                                  const QString&) override {
        errors.append(message);
    }
};

/// A contracted section with the number `id`. An image of "0" is none: a section needs no arrow.
std::string Section(const std::string& id, const std::string& image, const std::string& content) {
    const std::string arguments = "(c" + id + ", " + image + ")\"";
    std::string text = "\r\n<!- begin expanding section ->\r\n\r\n";
    text += "<A class=exsection href=#nowhere onclick=\"ExpandSection" + arguments + ">\r\n";
    if (image != "0") {
        text += "<IMG border=0 height=11 hspace=0 name=" + image + " src=rtex.gif width=11>";
    }
    text += "Click Here</A><BR>\r\n<TABLE align=center border=0 cellPadding=3 cellSpacing=0 ";
    text += "width=100% class=exsectiontext id=c" + id + " onclick=\"ContractSection" + arguments;
    text += "\r\n style=\"DISPLAY: none\"><TR><TD>\r\n" + content + "\r\n</TD></TR></TABLE>\r\n";
    return text + "<!- end expanding section ->";
}

class MasterScript : public testing::Test {
  protected:
    MasterScript() {
        std::filesystem::create_directories(folder_.Native("topics"));
        for (const char* name : {"master.js", "htmlhelp.css", "rtex.gif", "dwnex.gif",
                                 "topics/rtex.gif", "topics/dwnex.gif"}) {
            const std::filesystem::path target = folder_.Native(name);
            std::filesystem::copy_file(std::filesystem::path(QUORREL_TEMPLATES) / target.filename(),
                                       target);
        }
        view_.setPage(&page_);
        view_.resize(500, 400);
        view_.show();
    }
    ~MasterScript() override {
        EXPECT_EQ(page_.errors.join("; "), "");
        view_.setPage(nullptr);
    }

    void Load(const std::string& body) {
        folder_.Write("topics/a.htm",
                      "<HTML><HEAD><link rel=stylesheet href=\"../htmlhelp.css\">"
                      "<script language=\"javascript\" SRC=\"../master.js\"> </SCRIPT>\r\n"
                      "</HEAD><BODY>" +
                          body + "</BODY></HTML>");
        std::optional<bool> loaded;
        QObject::connect(&page_, &QWebEnginePage::loadFinished, &view_,
                         [&](bool good) { loaded = good; });
        page_.load(QUrl::fromLocalFile(QString::fromStdString(folder_.Native("topics/a.htm"))));
        ASSERT_TRUE(WaitFor([&] { return loaded.has_value(); }));
        page_.disconnect(&view_);
        ASSERT_TRUE(*loaded);
    }
    QVariant Eval(const QString& script) {
        return ValueOf(page_, script, QWebEngineScript::MainWorld);
    }
    bool Is(const QString& condition) { return Eval(condition).toBool(); }
    bool Becomes(const QString& condition) {
        return WaitFor([&] { return Is(condition); });
    }
    /// Clicks where the element has its text, or `x` pixels from its left side.
    void Click(const QString& element, int x = 40) {
        const QString middle = "(r => [r.left, r.top + r.height / 2])(%1.getBoundingClientRect())";
        const QVariantList place = Eval(middle.arg(element)).toList();
        QTest::mouseClick(view_.focusProxy(), Qt::LeftButton, {},
                          QPoint(place.value(0).toInt() + x, place.value(1).toInt()));
    }

    ScratchFolder folder_;
    Page page_;
    QWebEngineView view_;
};

TEST_F(MasterScript, ALinkShowsItsSectionAndAClickIntoItHidesIt) {
    Load(Section("417", "img417", "the material"));
    const char* const kShown = "c417.offsetHeight > 0 && img417.src.endsWith('/topics/dwnex.gif')";
    const char* const kHidden = "c417.offsetHeight == 0 && img417.src.endsWith('/topics/rtex.gif')";
    ASSERT_TRUE(Becomes(kHidden));
    Click("document.links[0]");
    EXPECT_TRUE(Becomes(kShown));
    EXPECT_TRUE(Becomes("img417.complete && img417.naturalWidth == 11"));
    EXPECT_TRUE(Is("location.hash == ''"));
    Click("c417");
    EXPECT_TRUE(Becomes(kHidden));

    view_.focusProxy()->setFocus();
    for (const char* state : {kShown, kHidden}) {
        Eval("document.links[0].focus()");
        QTest::keyClick(view_.focusProxy(), Qt::Key_Return);
        EXPECT_TRUE(Becomes(state)) << "by keyboard: " << state;
    }
    // The arrow keeps the folder that the author has given it.
    EXPECT_TRUE(
        Is("img417.src = '../RTEX.GIF'; ExpandSection(c417, img417);"
           "img417.src == new URL('../dwnex.gif', location).href"));
}

TEST_F(MasterScript, AClickIsForTheInnermost) {
    Load(Section("1", "img1", "outer " + Section("2", "0", "<a href=\"#x\">a link</a> inner")));
    Click("document.links[0]");
    ASSERT_TRUE(Becomes("c1.offsetHeight > 0"));
    Click("document.links[1]");
    EXPECT_TRUE(Becomes("c2.offsetHeight > 0"));
    Click("document.links[2]", 10);
    EXPECT_TRUE(Becomes("location.hash == '#x'"));
    EXPECT_TRUE(Is("c1.offsetHeight > 0 && c2.offsetHeight > 0"));
    Click("c2", 200);
    EXPECT_TRUE(Becomes("c2.offsetHeight == 0"));
    EXPECT_TRUE(Is("c1.offsetHeight > 0 && img1.src.endsWith('dwnex.gif')"));
    // The click that ends the marking of text is no click into the section.
    EXPECT_TRUE(Is("getSelection().selectAllChildren(c1); c1.click(); c1.offsetHeight > 0"));
    EXPECT_TRUE(Is("getSelection().removeAllRanges(); c1.click(); c1.offsetHeight == 0"));
}

TEST_F(MasterScript, TakesWhateverTheEngineHas) {
    Load(Section("1", "img1", "the material") + Section("1", "img1", "a copy of it") +
         Section("2", "img2", "more"));
    for (const char* arguments : {"'none', 'none'", "null, null", "undefined", "0, 0", "'', ''",
                                  "'c1', 'none'", "{}, []", "'length', 'item'", "window, 5"}) {
        const QString call = "ExpandSection(%1), ContractSection(%1), true";
        EXPECT_TRUE(Is(call.arg(arguments))) << arguments;
    }
    // Two elements of one name are a collection, and follow each other.
    EXPECT_TRUE(
        Is("ExpandSection(c1, img1);"
           "c1[0].offsetHeight > 0 && c1[1].offsetHeight > 0 &&"
           "img1[1].src.endsWith('dwnex.gif')"));
    // Old engines find elements in document.all only.
    EXPECT_TRUE(
        Is("const table = c2, image = img2;"
           "Object.defineProperty(document, 'getElementById', {value: undefined});"
           "Object.defineProperty(document, 'all', {value: {c2: table, img2: image}});"
           "ExpandSection('c2', 'img2');"
           "table.offsetHeight > 0 && image.src.endsWith('dwnex.gif')"));
}

}  // namespace
}  // namespace quorrel::test
