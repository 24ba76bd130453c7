#include "platform/plain_surface.hpp"

#include <gtest/gtest.h>

#include "platform/selection_marker.hpp"
#include "platform/text.hpp"
#include "support/error_number.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;

class PlainSurfaceTest : public testing::Test {
  protected:
    void Set(std::string_view body) { surface.SetDocumentHTML(Page(body)); }
    static std::string Page(std::string_view body) {
        return "<html><head><title>One</title></head><body>" + std::string(body) + "</body></html>";
    }
    /// What stands in the body.
    std::string Body() {
        const std::string html = surface.DocumentHTML();
        const std::size_t begin = html.find("<body>") + 6;
        return html.substr(begin, html.rfind("</body>") - begin);
    }
    /// Sets the caret behind the first `source` of the body.
    void CaretBehind(std::string_view source) {
        const std::string html = surface.DocumentHTML();
        const std::size_t at = html.find(source, html.find("<body>") + 6) + source.size();
        surface.SelectText(at, at);
    }
    std::unique_ptr<TextRange> Range() { return surface.DOM().selection().createRange(); }
    std::unique_ptr<TextRange> BodyRange() { return surface.DOM().body()->createTextRange(); }
    std::string Selected() { return Range()->HTMLText(); }
    void Run(int command, const CommandValue& value = {}) {
        surface.ExecCommand(command, CommandOption::kDontPromptUser, value);
    }

    NativeFileSystem files;
    PlainSurface surface{files};
};

TEST_F(PlainSurfaceTest, ARangeGivesItsSourceAndItsText) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"a<b class=X>B</b>", "a<B class=X>B</B>", "aB"},
        {"x &amp; y&nbsp;&eacute;&#8364;&#x41;&bogus; &", nullptr,
         "x & y\u00a0\u00e9\u20acA&bogus; &"},
        {"\n<p>one\n<p>two</p>\n", "\n<P>one\n<P>two</P>\n", "one \r\ntwo"},
        {"a<br>b<hr>", "a<BR>b<HR>", "a\r\nb\r\n"},
        {"a<!-- <b>no</b> --><script>no()</script>b", "a<!-- <b>no</b> --><SCRIPT>no()</SCRIPT>b",
         "ab"},
        {"a<!OBJECT id=x>b<!/OBJECT>", nullptr, "ab"},
        {"<table><tr><td>1<td>2</table>", "<TABLE><TR><TD>1<TD>2</TABLE>", "1\r\n2"},
        {"a<object id=o><param name=p>no</object><img src=i>b",
         "a<OBJECT id=o><PARAM name=p>no</OBJECT><IMG src=i>b", "ab"}};
    for (const auto& [body, html, text] : cases) {
        Set(body);
        EXPECT_EQ(BodyRange()->HTMLText(), html == nullptr ? body : html);
        EXPECT_EQ(BodyRange()->Text(), text) << body;
    }
}

TEST_F(PlainSurfaceTest, MovingCountsWhatOneReads) {
    const std::tuple<const char*, const char*, std::int64_t> cases[] = {
        {"a  \n b", "a  \n b", 3},
        {"<p>one</p>\n\n<p>two</p>", "tw", 6},
        {"a&amp;b", "a&amp;", 2},
        {"\u00e4\u65e5x", "\u00e4\u65e5", 2},
        {"a<br>b", "a<br>", 2},
        {"a<img src=x>b", "a<img src=x>", 2},
        {"<table><tr><td></td><td>x</td></tr></table>", "x", 2},
        {"a<!-- note --><b>b</b>", "<b>b", 2}};
    for (const auto& [body, behind, count] : cases) {
        Set(body);
        CaretBehind(behind);
        const auto range = Range();
        EXPECT_EQ(range->Move("character", -5000000), -count) << body;
        EXPECT_EQ(range->Move("character", count), count) << body;
        range->pasteHTML("|");
        CaretBehind("|");
        EXPECT_EQ(Range()->Move("character", -5000000), -count - 1) << body;
    }
    EXPECT_EQ(NumberOf([&] { (void)BodyRange()->Move("word", 1); }), 5);
}

TEST_F(PlainSurfaceTest, TextIsFoundByWordAndCaseAndDirection) {
    Set("<p>Cat concat</p><p>ca<b>t &amp;</b>&nbsp;dog \u00c4ra</p>");
    const struct {
        const char* text;
        std::int64_t count;
        int flags;
        const char* html;  // of the hit; null: none
        std::int64_t place;
    } cases[] = {{"cat", 9999999, 0, "Cat", 0},
                 {"cat", 9999999, 6, "ca<B>t", 11},
                 {"t & D", 9999999, 0, "t &amp;</B>&nbsp;d", 13},
                 {"cat", -9999999, 0, "ca<B>t", 11},
                 {"Cat", -9999999, 4, "Cat", 0},
                 {"cat", 9, 4, nullptr, 0},
                 {"cat", 10, 4, "cat", 7}};
    for (const auto& [text, count, flags, html, place] : cases) {
        const auto range = BodyRange();
        range->collapse(count > 0);
        ASSERT_EQ(range->findText(text, count, flags), html != nullptr) << text << flags;
        if (html == nullptr) continue;
        EXPECT_EQ(range->HTMLText(), html);
        range->collapse(true);
        EXPECT_EQ(range->Move("character", -5000000), -place) << text << flags;
    }
}

TEST_F(PlainSurfaceTest, TheElementAroundAPlaceIsTheInnermost) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"<p>a<b>c</b>d</p>", "c", "<B>c</B>"},
        {"<p>a<b>c</b>d</p>", "</b>", "<P>a<B>c</B>d</P>"},
        {"<p>one<p>two", "one", "<P>one"},
        {"<ul><li>a<ul><li>b</ul><li>c</ul>", "c", "<LI>c"},
        {"<table><tr><td>1<td>2<tr><td>3</table>", "2", "<TD>2"},
        {"<table><tr><td><b>1</td><td>2</b></td></tr></table>", "2", "<TD>2</B></TD>"},
        {"<p>a<br>b</p>", "<br>", "<P>a<BR>b</P>"},
        {"<A Name=x>a<a href=y>b</a>c", "c", "<BODY><A Name=x>a<A href=y>b</A>c</BODY>"}};
    for (const auto& [body, behind, outer] : cases) {
        Set(body);
        CaretBehind(behind);
        EXPECT_EQ(Range()->parentElement()->outerHTML(), outer) << body;
    }
}

TEST_F(PlainSurfaceTest, OneHistoryHoldsPastesCommandsAndElements) {
    Set("<p>one two</p>");
    surface.SelectFirst("one");
    std::vector<std::string> states{Body()};
    const auto keep = [&] { states.push_back(Body()); };
    Run(DECMD_BOLD), keep();
    EXPECT_EQ(Selected(), "one");
    Range()->parentElement()->SetOuterHTML("<i>1</i>"), keep();
    surface.SelectFirst("two");
    Range()->pasteHTML("2"), keep();
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        Run(DECMD_UNDO);
        EXPECT_EQ(Body(), states[i]);
    }
    EXPECT_EQ(Selected(), "one");
    EXPECT_EQ(NumberOf([&] { Run(DECMD_UNDO); }), 445);
    for (std::size_t i = 1; i < states.size(); ++i) {
        Run(DECMD_REDO);
        EXPECT_EQ(Body(), states[i]);
    }
}

TEST_F(PlainSurfaceTest, TheMarkerIsTakenBackWithoutATrace) {
    ScratchFolder folder;
    folder.Write("a.htm", Page("<p>one two</p>"));
    surface.LoadDocument(folder.Windows("a.htm"));
    surface.SelectFirst("one");
    Run(DECMD_BOLD);
    Run(DECMD_UNDO);
    surface.DocumentSaved(folder.Windows("a.htm"));
    const auto paragraph = Range()->parentElement();
    const auto paste = [&] {
        BodyRange()->pasteHTML(std::string(kSelectionMarker) + "<p>one two</p>");
    };
    paste();
    EXPECT_TRUE(surface.IsDirty());
    EXPECT_EQ(surface.QueryStatus(DECMD_REDO), command_status::kDisabled);
    Run(DECMD_UNDO);
    EXPECT_FALSE(surface.IsDirty());
    EXPECT_EQ(Selected(), "one");
    EXPECT_EQ(paragraph->innerHTML(), "one two");
    Run(DECMD_REDO);
    EXPECT_EQ(Body(), "<p><b>one</b> two</p>");
}

TEST_F(PlainSurfaceTest, CommandsEditTheSelection) {
    const struct {
        const char *body, *select;
        int command;
        CommandValue value;
        const char* result;
    } cases[] = {
        {"a b c", "b", DECMD_BOLD, {}, "a <b>b</b> c"},
        {"a <strong>x b</strong> c", "b", DECMD_BOLD, {}, "a x b c"},
        {"a b", "b", DECMD_ITALIC, {}, "a <i>b</i>"},
        {"a b", "b", DECMD_HYPERLINK, "x.htm#\"", "a <A href=\"x.htm#&quot;\">b</A>"},
        {"a <a class=c HREF='old' id=i>b</a>", "b", DECMD_HYPERLINK, "new",
         "a <a href=\"new\" class=c id=i>b</A>"},
        {"<a href=old><b>x</b></a>", "<a href=old><b>x</b></a>", DECMD_HYPERLINK, "n",
         "<a href=\"n\"><b>x</b></A>"},
        {"a <a href=x>b c</a> d", "c", DECMD_UNLINK, {}, "a b c d"},
        {"<p class=c>a</p>", "a", DECMD_SETBLOCKFMT, "Heading 2", "<H2 class=c>a</H2>"},
        {"x<br>one two<br>y", "two", DECMD_SETBLOCKFMT, "Heading 1", "x<br><H1>one two</H1><br>y"},
        {"ab", "b", DECMD_INSERTTABLE, InsertTableParam{1, 2, " BORDER=1", "NOWRAP"},
         "a<TABLE BORDER=1><TBODY><TR><TD NOWRAP>&nbsp;</TD><TD NOWRAP>&nbsp;</TD></TR></TBODY>"
         "</TABLE>"},
        {"a<hr>b", "<hr>", DECMD_DELETE, {}, "ab"}};
    for (const auto& [body, select, command, value, result] : cases) {
        Set(body);
        surface.SelectFirst(select);
        Run(command, value);
        EXPECT_EQ(Body(), result);
        Run(DECMD_UNDO);
        EXPECT_EQ(Body(), body);
    }
    Set("<b>a</b>");
    surface.SelectFirst("a");
    EXPECT_EQ(surface.QueryStatus(DECMD_BOLD), command_status::kLatched);
    EXPECT_EQ(surface.QueryStatus(DECMD_INSERTROW), command_status::kNotSupported);
    EXPECT_EQ(NumberOf([&] { Run(DECMD_INSERTROW); }), 445);
    EXPECT_EQ(NumberOf([&] {
                  Run(DECMD_INSERTTABLE, InsertTableParam{2000000000, 2, "", ""});
              }),
              5);
}

/// Whatever the source, every call returns, and the text is only changed by edits.
TEST_F(PlainSurfaceTest, HostileSourcesAreOnlyText) {
    const auto times = [](int count, std::string_view part) {
        std::string text;
        for (int i = 0; i < count; ++i) text += part;
        return text;
    };
    const std::string documents[] = {
        "<",
        "<body>a<!-",
        "<body>a<!-- <!-- --> b --> c <!--",
        "<body><a href=\"x>never closed</a>",
        "<body>\xff\xc3<p \xe6>&#99999999999;&#xD800;&;&#;",
        "<body>" + times(80000, "<b>") + "x",
        "<body>" + times(50000, "<i>") + times(50000, "</b>") + "x",
        "<body><p><table><td>" + times(50000, "<div>") + "x",
        "<body>" + times(80000, "<!--") + "x",
        "<body>" + times(50000, "<object>") + "x",
    };
    for (const std::string& html : documents) {
        surface.SetDocumentHTML(html);
        SCOPED_TRACE(html.substr(0, 60));
        const auto range = BodyRange();
        range->collapse(false);
        const std::int64_t moved = range->Move("character", -5000000);
        EXPECT_EQ(range->Move("character", 5000000), -moved);
        (void)range->findText("nowhere", -9999999, 2);
        surface.SelectText(html.size() / 2, html.size());
        (void)Range()->parentElement();
        Range()->pasteHTML("pasted");
        EXPECT_TRUE(Contains(surface.DocumentHTML(), "pasted"));
        Run(DECMD_UNDO);
        EXPECT_EQ(surface.DocumentHTML(), html);
    }
}

}  // namespace
}  // namespace quorrel::test
