#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "platform/text.hpp"
#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;
using namespace command_status;

const CommandValue kNone;

struct CommandCase {
    std::string body;
    const char* selected;  // a text; with "|" behind it only the caret goes there
    int command;
    CommandValue value;
    std::string after;
};

class Commands : public SurfaceFixture {
  protected:
    void Check(const std::vector<CommandCase>& cases) {
        for (const CommandCase& each : cases) {
            SCOPED_TRACE(each.body + " / " + std::to_string(each.command));
            OpenBody(each.body);
            const std::string selected = each.selected;
            if (selected.ends_with('|')) {
                CaretAfter(selected.substr(0, selected.size() - 1));
            } else {
                Select(selected);
            }
            EXPECT_EQ(NumberRaisedBy([&] { Do(each.command, each.value); }), 0);
            EXPECT_EQ(Body(), each.after);
            EXPECT_TRUE(surface.IsDirty());
            Do(DECMD_UNDO);
            EXPECT_EQ(Body(), each.body);
            EXPECT_FALSE(Can(DECMD_UNDO));
            Do(DECMD_REDO);
            EXPECT_EQ(Body(), each.after);
        }
    }
};

TEST_F(Commands, AreAppliedToTexts) {
    const char* const text = "<p>a bc d</p>";
    Check({
        {text, "bc", DECMD_BOLD, kNone, "<p>a <b>bc</b> d</p>"},
        {"<p>a <b>bc</b> d</p>", "bc", DECMD_BOLD, kNone, text},
        {text, "bc", DECMD_ITALIC, kNone, "<p>a <i>bc</i> d</p>"},
        {text, "bc", DECMD_UNDERLINE, kNone, "<p>a <u>bc</u> d</p>"},
        {text, "bc", DECMD_SETFONTNAME, "Arial", "<p>a <font face=\"Arial\">bc</font> d</p>"},
        {text, "bc", DECMD_SETFONTSIZE, std::int64_t{5}, "<p>a <font size=\"5\">bc</font> d</p>"},
        {text, "bc", DECMD_SETFONTSIZE, "2", "<p>a <font size=\"2\">bc</font> d</p>"},
        {text, "bc", DECMD_SETFORECOLOR, "#FF0080", "<p>a <font color=\"#ff0080\">bc</font> d</p>"},
        {text, "bc", DECMD_SETBACKCOLOR, "#FF0080",
         "<p>a <span style=\"background-color: rgb(255, 0, 128);\">bc</span> d</p>"},
        {"<p>a <b><i>bc</i></b> d</p>", "bc", DECMD_REMOVEFORMAT, kNone, text},
        {text, "bc", DECMD_DELETE, kNone, "<p>a d</p>"},
        {text, "bc", DECMD_HYPERLINK, "x.htm#y", "<p>a <a href=\"x.htm#y\">bc</a> d</p>"},
        {"<p><a href=\"x.htm\" target=\"_top\">bc</a></p>", "b|", DECMD_HYPERLINK, "y.htm",
         "<p><a href=\"y.htm\" target=\"_top\">bc</a></p>"},
        {"<p>ab</p>", "a|", DECMD_HYPERLINK, "x.htm", "<p>a<a href=\"x.htm\">x.htm</a>b</p>"},
        {"<p>a <a href=\"x.htm\">bc</a> d</p>", "b|", DECMD_UNLINK, kNone, text},
        {"<p><a href=\"x.htm\" name=\"n\">bc</a></p>", "b|", DECMD_UNLINK, kNone,
         "<p><a name=\"n\">bc</a></p>"},
        {"<p>ab</p>", "a|", DECMD_IMAGE, "x.gif", "<p>a<img src=\"x.gif\">b</p>"},
    });
}

TEST_F(Commands, AreAppliedToParagraphs) {
    const char* const text = "<p>ab</p>";
    Check({
        {text, "a|", DECMD_JUSTIFYCENTER, kNone, "<p align=\"center\">ab</p>"},
        {"<p align=\"center\">ab</p>", "a|", DECMD_JUSTIFYLEFT, kNone, text},
        {"<p>ab</p><h1>cd</h1><p>e</p>", "b\nc", DECMD_JUSTIFYRIGHT, kNone,
         "<p align=\"right\">ab</p><h1 align=\"right\">cd</h1><p>e</p>"},
        {text, "a|", DECMD_INDENT, kNone, "<blockquote><p>ab</p></blockquote>"},
        {"<blockquote><p>ab</p></blockquote>", "a|", DECMD_OUTDENT, kNone, text},
        {text, "a|", DECMD_ORDERLIST, kNone, "<ol><li>ab</li></ol>"},
        {"<ol><li>ab</li></ol>", "a|", DECMD_ORDERLIST, kNone, "ab"},
        {"<p>ab</p><p>cd</p>", "b\nc", DECMD_UNORDERLIST, kNone, "<ul><li>ab</li><li>cd</li></ul>"},
        {"<h2>ab</h2>", "a|", DECMD_SETBLOCKFMT, "Normal", text},
        {text, "a|", DECMD_SETBLOCKFMT, "Formatted", "<pre>ab</pre>"},
        {text, "a|", DECMD_SETBLOCKFMT, "Menu List", "<menu><li>ab</li></menu>"},
        {"<ul><li>ab</li></ul>", "a|", DECMD_SETBLOCKFMT, "Normal", text},
        {text, "a|", DECMD_SETBLOCKFMT, "Definition Term", "<dl><dt>ab</dt></dl>"},
        {"<dl><dt>x</dt></dl><p>ab</p>", "a|", DECMD_SETBLOCKFMT, "Definition",
         "<dl><dt>x</dt><dd>ab</dd></dl>"},
        {"<dl><dt>x</dt><dd>ab</dd></dl>", "a|", DECMD_SETBLOCKFMT, "Heading 1",
         "<dl><dt>x</dt></dl><h1>ab</h1>"},
    });
}

/// A table from its rows, with "/" between them: cells with a blank between them, "_" for one with
/// a line break in it; "v" and "h" behind a cell say that it reaches over two rows or columns.
std::string Table(const std::string& rows) {
    std::string html = "<table><tbody>";
    std::istringstream lines(rows);
    for (std::string line; std::getline(lines, line, '/');) {
        std::istringstream cells(line);
        html += "<tr>";
        for (std::string cell; cells >> cell;) {
            const char* span = cell.ends_with('v')   ? " rowspan=\"2\""
                               : cell.ends_with('h') ? " colspan=\"2\""
                                                     : "";
            if (*span != '\0') cell.pop_back();
            html += std::string("<td") + span + ">" + (cell == "_" ? "<br>" : cell) + "</td>";
        }
        html += "</tr>";
    }
    return html + "</tbody></table>";
}

TEST_F(Commands, AreAppliedToTables) {
    InsertTableParam table;
    table.num_rows = 2;
    table.num_cols = 1;
    table.table_attrs = " WIDTH=50% BORDER=1><script>";
    table.cell_attrs = "ALIGN=left";
    const std::string square = Table("a b/c d");
    const std::string spans = Table("av b/d/eh");
    const std::string third = ReplaceAll(Table("av b/_/d/eh"), "rowspan=\"2\"", "rowspan=\"3\"");
    const std::string wide = ReplaceAll(Table("av _ b/_ d/eh"), "colspan=\"2\"", "colspan=\"3\"");
    Check({
        {"<p>xy</p>", "x|", DECMD_INSERTTABLE, table,
         "<p>x</p><table width=\"50%\" border=\"1\"><tbody><tr><td align=\"left\"><br></td></tr>"
         "<tr><td align=\"left\"><br></td></tr></tbody></table><p>y</p>"},
        {square, "a|", DECMD_INSERTROW, kNone, Table("a b/_ _/c d")},
        {square, "a|", DECMD_INSERTCOL, kNone, Table("a _ b/c _ d")},
        {square, "a|", DECMD_INSERTCELL, kNone, Table("a _ b/c d")},
        {square, "d|", DECMD_DELETEROWS, kNone, Table("a b")},
        {square, "b\nc", DECMD_DELETEROWS, kNone, ""},
        {square, "d|", DECMD_DELETECOLS, kNone, Table("a/c")},
        {square, "b|", DECMD_DELETECELLS, kNone, Table("a/c d")},
        {square, "a\nb", DECMD_MERGECELLS, kNone, Table("a<br>bh/c d")},
        {square, "a|", DECMD_SPLITCELL, kNone, Table("a _ b/ch d")},
        {spans, "b|", DECMD_INSERTROW, kNone, third},
        {spans, "a|", DECMD_INSERTCOL, kNone, wide},
        {spans, "b|", DECMD_DELETEROWS, kNone, Table("a d/eh")},
        {spans, "d|", DECMD_DELETECOLS, kNone, Table("av//e")},
        {spans, "a|", DECMD_SPLITCELL, kNone, Table("a b/_ d/eh")},
    });
}

TEST_F(Commands, TellTheirStatus) {
    OpenBody("<p>plain <b>bold</b></p><p><a href=x.htm>link</a></p><ol><li>item</li></ol>" +
             Table("a b/c d"));
    for (const auto& [selected, command, status] : std::vector<std::tuple<const char*, int, int>>{
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
             {"plain", 5001, kNotSupported},
             {"plain", 6000, kNotSupported},
         }) {
        Select(selected);
        EXPECT_EQ(surface.QueryStatus(command), status) << selected << " " << command;
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
        "<div style='background-color:#00ff00'>g</div>");
    const auto text = [&](const char* at, int command) {
        Select(at);
        return std::get<std::string>(surface.ExecCommand(command));
    };
    EXPECT_EQ(text("head", DECMD_GETBLOCKFMT), "Heading 3");
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
        EXPECT_EQ(text("plain", DECMD_GETBLOCKFMT), name == "Paragraph" ? "Normal" : name);
        if (Can(DECMD_UNDO)) Do(DECMD_UNDO);
    }
    const std::string before = Body();
    const std::pair<int, CommandValue> refused[] = {{DECMD_SETFORECOLOR, "red"},
                                                    {DECMD_SETFONTSIZE, std::int64_t{9}},
                                                    {DECMD_SETBLOCKFMT, "Heading 9"},
                                                    {DECMD_INSERTTABLE, InsertTableParam{}},
                                                    {DECMD_SETFONTNAME, kNone},
                                                    {DECMD_HYPERLINK, kNone},
                                                    {DECMD_FONT, kNone}};
    for (const auto& [command, value] : refused) {
        EXPECT_EQ(NumberRaisedBy([&, &v = value, c = command] { Do(c, v); }), 5) << command;
    }
    EXPECT_EQ(Body(), before);
    EXPECT_FALSE(surface.IsDirty());
}

}  // namespace
}  // namespace quorrel::test
