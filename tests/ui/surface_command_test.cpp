#include <gtest/gtest.h>

#include "platform/failure.hpp"
#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;
using namespace command_status;
using Commands = SurfaceFixture;

struct CommandCase {
    const char* body;
    const char* selected;  // a text; with "|" behind it only the caret goes there
    int command;
    CommandValue value;
    const char* after;
};

class Applied : public SurfaceFixture {
  protected:
    void SelectFor(const std::string& wanted) {
        if (wanted.ends_with('|')) {
            CaretAfter(wanted.substr(0, wanted.size() - 1));
        } else {
            Select(wanted);
        }
    }
    void Check(const std::vector<CommandCase>& cases) {
        for (const CommandCase& each : cases) {
            SCOPED_TRACE(std::string(each.body) + " / " + std::to_string(each.command));
            OpenBody(each.body);
            SelectFor(each.selected);
            try {
                Do(each.command, each.value);
            } catch (const RuntimeError& error) {
                ADD_FAILURE() << error.Number() << " " << error.what();
            }
            EXPECT_EQ(Body(), each.after);
            if (Body() == each.body) continue;
            EXPECT_TRUE(surface.IsDirty());
            Do(DECMD_UNDO);
            EXPECT_EQ(Body(), each.body);
            EXPECT_FALSE(Can(DECMD_UNDO));
            Do(DECMD_REDO);
            EXPECT_EQ(Body(), each.after);
        }
    }
};

TEST_F(Applied, ToCharacters) {
    Check({
        {"<p>a bc d</p>", "bc", DECMD_BOLD, {}, "<p>a <b>bc</b> d</p>"},
        {"<p>a <b>bc</b> d</p>", "bc", DECMD_BOLD, {}, "<p>a bc d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_ITALIC, {}, "<p>a <i>bc</i> d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_UNDERLINE, {}, "<p>a <u>bc</u> d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_SETFONTNAME, "Arial",
         "<p>a <font face=\"Arial\">bc</font> d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_SETFONTSIZE, std::int64_t{5},
         "<p>a <font size=\"5\">bc</font> d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_SETFONTSIZE, "2", "<p>a <font size=\"2\">bc</font> d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_SETFORECOLOR, "#FF0080",
         "<p>a <font color=\"#ff0080\">bc</font> d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_SETBACKCOLOR, "#FF0080",
         "<p>a <span style=\"background-color: rgb(255, 0, 128);\">bc</span> d</p>"},
        {"<p>a <b><i>bc</i></b> d</p>", "bc", DECMD_REMOVEFORMAT, {}, "<p>a bc d</p>"},
        {"<p>a bc d</p>", "bc", DECMD_DELETE, {}, "<p>a d</p>"},
    });
}

TEST_F(Applied, ToParagraphs) {
    Check({
        {"<p>ab</p>", "a|", DECMD_JUSTIFYCENTER, {}, "<p align=\"center\">ab</p>"},
        {"<p align=\"center\">ab</p>", "a|", DECMD_JUSTIFYLEFT, {}, "<p>ab</p>"},
        {"<p>ab</p><h1>cd</h1><p>e</p>",
         "b\nc",
         DECMD_JUSTIFYRIGHT,
         {},
         "<p align=\"right\">ab</p><h1 align=\"right\">cd</h1><p>e</p>"},
        {"<p>ab</p>", "a|", DECMD_INDENT, {}, "<blockquote><p>ab</p></blockquote>"},
        {"<blockquote><p>ab</p></blockquote>", "a|", DECMD_OUTDENT, {}, "<p>ab</p>"},
        {"<p>ab</p>", "a|", DECMD_ORDERLIST, {}, "<ol><li>ab</li></ol>"},
        {"<ol><li>ab</li></ol>", "a|", DECMD_ORDERLIST, {}, "ab"},
        {"<p>ab</p><p>cd</p>", "b\nc", DECMD_UNORDERLIST, {}, "<ul><li>ab</li><li>cd</li></ul>"},
        {"<p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Heading 2", "<h2>ab</h2>"},
        {"<h2>ab</h2>", "a|", DECMD_SETBLOCKFMT, "Normal", "<p>ab</p>"},
        {"<p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Formatted", "<pre>ab</pre>"},
        {"<p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Address", "<address>ab</address>"},
        {"<p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Numbered List", "<ol><li>ab</li></ol>"},
        {"<p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Menu List", "<menu><li>ab</li></menu>"},
        {"<p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Directory List", "<dir><li>ab</li></dir>"},
        {"<ul><li>ab</li></ul>", "a|", DECMD_SETBLOCKFMT, "Normal", "<p>ab</p>"},
        {"<p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Definition Term", "<dl><dt>ab</dt></dl>"},
        {"<dl><dt>x</dt></dl><p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Definition",
         "<dl><dt>x</dt><dd>ab</dd></dl>"},
        {"<dl><dt>x</dt><dd>ab</dd></dl>", "a|", DECMD_SETBLOCKFMT, "Heading 1",
         "<dl><dt>x</dt></dl><h1>ab</h1>"},
    });
}

TEST_F(Applied, ToLinksAndGraphics) {
    Check({
        {"<p>a bc d</p>", "bc", DECMD_HYPERLINK, "x.htm#y",
         "<p>a <a href=\"x.htm#y\">bc</a> d</p>"},
        {"<p>a <a href=\"x.htm\" target=\"_top\">bc</a> d</p>", "b|", DECMD_HYPERLINK, "y.htm",
         "<p>a <a href=\"y.htm\" target=\"_top\">bc</a> d</p>"},
        {"<p>ab</p>", "a|", DECMD_HYPERLINK, "x.htm", "<p>a<a href=\"x.htm\">x.htm</a>b</p>"},
        {"<p>a <a href=\"x.htm\">bc</a> d</p>", "b|", DECMD_UNLINK, {}, "<p>a bc d</p>"},
        {"<p>a <a href=\"x.htm\" name=\"n\">bc</a> d</p>",
         "b|",
         DECMD_UNLINK,
         {},
         "<p>a <a name=\"n\">bc</a> d</p>"},
        {"<p>ab</p>", "a|", DECMD_IMAGE, "x.gif", "<p>a<img src=\"x.gif\">b</p>"},
    });
}

const char* const kTwoByTwo =
    "<table><tbody><tr><td>a</td><td>b</td></tr><tr><td>c</td><td>d</td></tr></tbody></table>";
const char* const kSpans =
    "<table><tbody><tr><td rowspan=\"2\">a</td><td>b</td></tr><tr><td>d</td></tr>"
    "<tr><td colspan=\"2\">e</td></tr></tbody></table>";

TEST_F(Applied, ToTables) {
    InsertTableParam table;
    table.num_rows = 2;
    table.num_cols = 1;
    table.table_attrs = " WIDTH=50% BORDER=1><script>";
    table.cell_attrs = "ALIGN=left";
    Check({
        {"<p>xy</p>", "x|", DECMD_INSERTTABLE, table,
         "<p>x</p><table width=\"50%\" border=\"1\"><tbody><tr><td align=\"left\"><br></td></tr>"
         "<tr><td align=\"left\"><br></td></tr></tbody></table><p>y</p>"},
        {kTwoByTwo,
         "a|",
         DECMD_INSERTROW,
         {},
         "<table><tbody><tr><td>a</td><td>b</td></tr><tr><td><br></td><td><br></td></tr>"
         "<tr><td>c</td><td>d</td></tr></tbody></table>"},
        {kTwoByTwo,
         "a|",
         DECMD_INSERTCOL,
         {},
         "<table><tbody><tr><td>a</td><td><br></td><td>b</td></tr><tr><td>c</td><td><br></td>"
         "<td>d</td></tr></tbody></table>"},
        {kTwoByTwo,
         "a|",
         DECMD_INSERTCELL,
         {},
         "<table><tbody><tr><td>a</td><td><br></td><td>b</td></tr><tr><td>c</td><td>d</td></tr>"
         "</tbody></table>"},
        {kTwoByTwo,
         "d|",
         DECMD_DELETEROWS,
         {},
         "<table><tbody><tr><td>a</td><td>b</td></tr></tbody></table>"},
        {kTwoByTwo, "b\nc", DECMD_DELETEROWS, {}, ""},
        {kTwoByTwo,
         "d|",
         DECMD_DELETECOLS,
         {},
         "<table><tbody><tr><td>a</td></tr><tr><td>c</td></tr></tbody></table>"},
        {kTwoByTwo,
         "b|",
         DECMD_DELETECELLS,
         {},
         "<table><tbody><tr><td>a</td></tr><tr><td>c</td><td>d</td></tr></tbody></table>"},
        {kTwoByTwo,
         "a\nb",
         DECMD_MERGECELLS,
         {},
         "<table><tbody><tr><td colspan=\"2\">a<br>b</td></tr><tr><td>c</td><td>d</td></tr>"
         "</tbody></table>"},
        {kTwoByTwo,
         "a|",
         DECMD_SPLITCELL,
         {},
         "<table><tbody><tr><td>a</td><td><br></td><td>b</td></tr>"
         "<tr><td colspan=\"2\">c</td><td>d</td></tr></tbody></table>"},
        {kSpans,
         "b|",
         DECMD_INSERTROW,
         {},
         "<table><tbody><tr><td rowspan=\"3\">a</td><td>b</td></tr><tr><td><br></td></tr>"
         "<tr><td>d</td></tr><tr><td colspan=\"2\">e</td></tr></tbody></table>"},
        {kSpans,
         "a|",
         DECMD_INSERTCOL,
         {},
         "<table><tbody><tr><td rowspan=\"2\">a</td><td><br></td><td>b</td></tr>"
         "<tr><td><br></td><td>d</td></tr><tr><td colspan=\"3\">e</td></tr></tbody></table>"},
        {kSpans,
         "b|",
         DECMD_DELETEROWS,
         {},
         "<table><tbody><tr><td>a</td><td>d</td></tr>"
         "<tr><td colspan=\"2\">e</td></tr></tbody></table>"},
        {kSpans,
         "d|",
         DECMD_DELETECOLS,
         {},
         "<table><tbody><tr><td rowspan=\"2\">a</td></tr><tr></tr><tr><td>e</td></tr></tbody>"
         "</table>"},
        {kSpans,
         "a|",
         DECMD_SPLITCELL,
         {},
         "<table><tbody><tr><td>a</td><td>b</td></tr><tr><td><br></td><td>d</td></tr>"
         "<tr><td colspan=\"2\">e</td></tr></tbody></table>"},
    });
}

TEST_F(Commands, TellTheirStatus) {
    OpenBody("<p>plain <b>bold</b></p><p><a href=x.htm>link</a></p><ol><li>item</li></ol>" +
             std::string(kTwoByTwo));
    struct StatusCase {
        const char* selected;
        int command;
        int status;
    };
    for (const StatusCase& each : std::vector<StatusCase>{
             {"plain", DECMD_BOLD, kEnabled},
             {"bold", DECMD_BOLD, kLatched},
             {"plain", DECMD_UNLINK, kDisabled},
             {"link", DECMD_UNLINK, kEnabled},
             {"plain", DECMD_JUSTIFYLEFT, kLatched},
             {"plain", DECMD_JUSTIFYCENTER, kEnabled},
             {"item", DECMD_ORDERLIST, kLatched},
             {"item", DECMD_UNORDERLIST, kEnabled},
             {"plain", DECMD_INSERTROW, kDisabled},
             {"d", DECMD_COPY, kEnabled},
             {"plain", DECMD_MAKE_ABSOLUTE, kDisabled},
             {"plain", DECMD_SEND_TO_BACK, kDisabled},
             {"plain", DECMD_UNDO, kDisabled},
             {"plain", DECMD_FINDTEXT, kEnabled},
             {"plain", 5001, kNotSupported},
             {"plain", 6000, kNotSupported},
         }) {
        Select(each.selected);
        EXPECT_EQ(surface.QueryStatus(each.command), each.status)
            << each.selected << " " << each.command;
    }
    CaretAfter("a\n");
    EXPECT_EQ(surface.QueryStatus(DECMD_INSERTROW), kEnabled);
    EXPECT_EQ(surface.QueryStatus(DECMD_MERGECELLS), kDisabled);
    EXPECT_EQ(surface.QueryStatus(DECMD_COPY), kDisabled);
    surface.SetBrowseMode(true);
    EXPECT_EQ(surface.QueryStatus(DECMD_BOLD), kDisabled);
    EXPECT_EQ(surface.QueryStatus(DECMD_PASTE), kDisabled);
    EXPECT_EQ(surface.QueryStatus(DECMD_SELECTALL), kEnabled);
}

TEST_F(Commands, GiveWhatIsAtTheCaret) {
    OpenBody(
        "<h3>head</h3><p><font face=Arial size=5 color=#010203>x</font>plain</p>"
        "<div style='background-color:#00ff00'>g</div><dl><dd>def</dd></dl><pre>p</pre>");
    const auto text = [&](const char* at, int command) {
        Select(at);
        return std::get<std::string>(
            surface.ExecCommand(command, CommandOption::kDontPromptUser, {}));
    };
    EXPECT_EQ(text("head", DECMD_GETBLOCKFMT), "Heading 3");
    EXPECT_EQ(text("plain", DECMD_GETBLOCKFMT), "Normal");
    EXPECT_EQ(text("def", DECMD_GETBLOCKFMT), "Definition");
    EXPECT_EQ(text("x", DECMD_GETFONTNAME), "Arial");
    EXPECT_EQ(text("x", DECMD_GETFORECOLOR), "#010203");
    EXPECT_EQ(text("plain", DECMD_GETFORECOLOR), "#000000");
    EXPECT_EQ(text("g", DECMD_GETBACKCOLOR), "#00FF00");
    EXPECT_EQ(text("head", DECMD_GETBACKCOLOR), "#FFFFFF");
    Select("x");
    EXPECT_EQ(std::get<std::int64_t>(surface.ExecCommand(DECMD_GETFONTSIZE)), 5);
    const auto names =
        std::get<std::vector<std::string>>(surface.ExecCommand(DECMD_GETBLOCKFMTNAMES));
    EXPECT_EQ(names.size(), 16U);
    for (const std::string& name : names) {
        Select("plain");
        Do(DECMD_SETBLOCKFMT, name);
        const std::string format = text("plain", DECMD_GETBLOCKFMT);
        EXPECT_EQ(format, name == "Paragraph" ? "Normal" : name);
        if (Can(DECMD_UNDO)) Do(DECMD_UNDO);
    }
}

TEST_F(Commands, RefuseWhatTheyCannotTake) {
    OpenBody("<p>one</p>");
    Select("one");
    const std::pair<int, CommandValue> cases[] = {
        {DECMD_SETFORECOLOR, "red"},
        {DECMD_SETFONTSIZE, std::int64_t{9}},
        {DECMD_SETBLOCKFMT, "Heading 9"},
        {DECMD_INSERTTABLE, InsertTableParam{}},
        {DECMD_SETFONTNAME, {}},
        {DECMD_HYPERLINK, {}},
        {DECMD_FONT, {}},
    };
    for (const auto& [command, value] : cases) {
        try {
            Do(command, value);
            ADD_FAILURE() << command;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), 5) << command;
        }
    }
    EXPECT_EQ(Body(), "<p>one</p>");
    EXPECT_FALSE(surface.IsDirty());
}

}  // namespace
}  // namespace quorrel::test
