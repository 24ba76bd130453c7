#include <gtest/gtest.h>

#include <array>

#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;
using Ranges = SurfaceFixture;

constexpr std::int64_t kFar = 5000000;

/// A page with what makes counting hard.
const char* const kMixed =
    "\n<h1>Title</h1>\n<p>one  two\n three<br>four </p>\n<!-- note --><p></p>\n<p><br></p>"
    "<table><tr><td>a<td><td><b>b</b>c</table><ul>\n<li>x<li>y <ul><li>z</ul></ul>"
    "<pre>p\n q</pre><p>i<img src=x>j<hr>k \xF0\x9F\x98\x80 l&nbsp;<script>var s;</script>m"
    "<p style=\"display:none\">hidden</p> tail ";

TEST_F(Ranges, EachPlaceIsFoundAgainByItsCount) {
    OpenBody(kMixed);
    const auto range = surface.DOM().body()->createTextRange();
    range->collapse(true);
    std::int64_t count = 0;
    for (; count < 1000 && range->Move("character", 1) == 1;) {
        ++count;
        range->Select();
        const std::string here = BodyWithSelection();
        const auto back = Range();
        ASSERT_EQ(-back->Move("character", -kFar), count) << here;
        ASSERT_EQ(back->Move("Character", count), count);
        back->Select();
        ASSERT_EQ(BodyWithSelection(), here) << count;
    }
    const auto all = surface.DOM().body()->createTextRange();
    EXPECT_EQ(all->Text(),
              "Title\none two three\nfour\n\n\n\na\n\nbc\nx\ny\nz\np\n q\ni j\n \nk "
              "\xF0\x9F\x98\x80 l\u00a0m\nhidden\ntail");
    EXPECT_EQ(count, QString::fromStdString(all->Text()).toUcs4().size());
    EXPECT_EQ(range->Move("character", 1), 0);
    EXPECT_EQ(range->Move("character", -kFar), -count);
    EXPECT_EQ(NumberRaisedBy([&] { range->Move("word", 1); }), 5);
}

TEST_F(Ranges, PlacesAndEdgesMove) {
    OpenBody("<p>one</p><p>two</p>");
    CaretAfter("one");
    Key(Qt::Key_Return);
    ASSERT_TRUE(BodyBecomes("<p>one</p><p><br></p><p>two</p>"));
    EXPECT_EQ(Range()->Move("character", -kFar), -4);
    Type("x");
    ASSERT_TRUE(BodyBecomes("<p>one</p><p>x</p><p>two</p>"));
    EXPECT_EQ(Range()->Move("character", -kFar), -5);

    OpenBody("<p>one two</p>");
    const auto range = surface.DOM().body()->createTextRange();
    EXPECT_EQ(range->moveStart("character", 4), 4);
    EXPECT_EQ(range->moveEnd("character", -1), -1);
    EXPECT_EQ(range->Text(), "tw");
    EXPECT_EQ(range->moveEnd("character", -5), -5);
    EXPECT_EQ(range->Text(), "");
    EXPECT_EQ(range->Move("character", 2), 2);
    EXPECT_EQ(range->moveEnd("character", 99), 4);
    EXPECT_EQ(range->Text(), " two");
    range->Select();
    EXPECT_EQ(BodyWithSelection(), "<p>one[ two]</p>");
    EXPECT_EQ(surface.DOM().selection().Type(), SelectionType::kText);
}

TEST_F(Ranges, FindTexts) {
    OpenBody("<p>Cat concat <b>ca</b>t. a.c abc</p><p>tail CAT</p>");
    const auto hits = [&](const char* text, std::int64_t count, int flags) {
        const auto range = surface.DOM().body()->createTextRange();
        range->collapse(count > 0);
        std::string found;
        while (found.size() < 99 && range->findText(text, count, flags)) {
            found += range->Text() + " ";
            range->collapse(count < 0);
        }
        return found;
    };
    EXPECT_EQ(hits("cat", kFar, 0), "Cat cat cat CAT ");
    EXPECT_EQ(hits("cat", -kFar, 0), "CAT cat cat Cat ");
    EXPECT_EQ(hits("cat", kFar, 4), "cat cat ");
    EXPECT_EQ(hits("cat", kFar, 2), "Cat cat CAT ");
    EXPECT_EQ(hits("cat", kFar, 6), "cat ");
    EXPECT_EQ(hits("a.c", kFar, 0), "a.c ");
    EXPECT_EQ(hits("cat", 12, 0), "Cat cat cat ");
    EXPECT_EQ(hits("", kFar, 0), "");
}

TEST_F(Ranges, TakeAndGiveHtml) {
    OpenBody("<p class=q>one <b>two</b> <img src=\"a&amp;b.gif\" alt='\"'></p><!OBJECT id=x>");
    const auto body = surface.DOM().body();
    EXPECT_EQ(body->innerHTML(),
              "<P class=\"q\">one <B>two</B> <IMG src=\"a&amp;b.gif\" alt=\"&quot;\"></P>"
              "<!OBJECT id=x>");
    Select("ne two");
    EXPECT_EQ(Range()->HTMLText(), "ne <B>two</B>");
    EXPECT_EQ(Range()->parentElement()->parentElement()->outerHTML(), body->outerHTML());
    const auto root = body->parentElement();
    EXPECT_EQ(root->parentElement(), nullptr);
    Range()->pasteHTML("X<i>Y</i>");
    EXPECT_TRUE(Body().starts_with("<p class=q>oX<i>Y</i> <img"));

    // A link keeps its selection when it is replaced.
    OpenBody("<p>go <a href=\"a.htm\">there</a> now</p>");
    CaretAfter("the");
    Range()->parentElement()->SetOuterHTML("<A href=\"b.htm\" target=_top>there</A>");
    Do(DECMD_HYPERLINK, "c.htm");
    EXPECT_EQ(Body(), "<p>go <a href=\"c.htm\" target=\"_top\">there</a> now</p>");
}

TEST_F(Ranges, PastesGoWhereTheyFit) {
    for (const auto& [body, selected, html, after] : std::vector<std::array<const char*, 4>>{
             {"<p>one two</p>", "one", "1", "<p>1 two</p>"},
             {"<p>one two</p>", "e", "<table><tr><td>t</table>",
              "<p>on</p><table><tbody><tr><td>t</td></tr></tbody></table><p> two</p>"},
             {"<p>one</p><p>two</p>", "e\nt", "X", "<p>onXwo</p>"},
             {"<p>one</p><p>two</p>", "one", "<h2>H</h2>", "<h2>H</h2><p>two</p>"},
             {"<p>a</p><p>b</p><p>c</p>", "a\nb\nc", "", "<p><br></p>"},
             {"<ul><li>a</li><li>b</li></ul>", "a\nb", "x", "<ul><li>x</li></ul>"},
             {"<p>one</p>", "one", "<A Name=x>", "<p><a name=\"x\"></a></p>"},
         }) {
        OpenBody(body);
        Select(selected);
        Range()->pasteHTML(html);
        EXPECT_EQ(Body(), after) << body << " " << html;
        Do(DECMD_UNDO);
        EXPECT_EQ(Body(), body);
        EXPECT_FALSE(surface.IsDirty());
    }
}

}  // namespace
}  // namespace quorrel::test
