#include "support/preserve_cases.hpp"

#include "platform/text.hpp"

namespace quorrel::test {
namespace {

using Case = PreserveCase;

/// The engine's form of a page without anything in its head.
std::string Page(const std::string& body) {
    return "<html><head></head><body>" + body + "</body></html>";
}
Case InBody(std::string name, std::string original, const std::string& base,
            const std::string& edited, std::string expected) {
    return {std::move(name), std::move(original), Page(base), Page(edited), std::move(expected)};
}

const char* const kUpperCase =
    "<HTML>\r\n<HEAD>\r\n<TITLE>A</TITLE>\r\n</HEAD>\r\n<BODY BGCOLOR=#FFFFFF>\r\n"
    "<P ALIGN=center>One two\r\n<P>Three\r\n</BODY>\r\n</HTML>\r\n";
const char* const kUpperCaseHead =
    "<html><head>\n<title>A</title>\n</head>\n<body bgcolor=\"#FFFFFF\">\n";

std::string UpperCase(const std::string& from, const std::string& to) {
    return ReplaceAll(kUpperCase, from, to);
}
std::string UpperCasePage(const std::string& body) {
    return kUpperCaseHead + body + "</body></html>";
}
const std::string kUpperCaseBase =
    UpperCasePage("<p align=\"center\">One two\n</p><p>Three\n\n\n</p>");

std::vector<Case> InOldStyle() {
    return {Case{"Word", kUpperCase, kUpperCaseBase,
                 UpperCasePage("<p align=\"center\">One more\n</p><p>Three\n\n\n</p>"),
                 UpperCase("two", "more")},
            Case{"NewParagraphFollowsTheSource", kUpperCase, kUpperCaseBase,
                 UpperCasePage(
                     "<p align=\"center\">One two\n</p><p>New &lt;1&gt;</p><p>Three\n\n\n</p>"),
                 UpperCase("<P>Three", "<P>New &lt;1&gt;</P>\r\n<P>Three")},
            Case{"SplitParagraph", kUpperCase, kUpperCaseBase,
                 UpperCasePage(
                     "<p align=\"center\">One</p><p align=\"center\">two\n</p><p>Three\n\n\n</p>"),
                 UpperCase("One two", "One</P>\r\n<P align=\"center\">two")},
            Case{"JoinedParagraphs", kUpperCase, kUpperCaseBase,
                 UpperCasePage("<p align=\"center\">One twoThree\n\n\n</p>"),
                 UpperCase("two\r\n<P>Three", "twoThree")},
            Case{"DeletedParagraph", kUpperCase, kUpperCaseBase,
                 UpperCasePage("<p>Three\n\n\n</p>"), UpperCase("<P ALIGN=center>One two\r\n", "")},
            Case{"TextBehindAnUnclosedParagraph", kUpperCase, kUpperCaseBase,
                 UpperCasePage("<p align=\"center\">One two\n</p>loose<p>Three\n\n\n</p>"),
                 UpperCase("<P>Three", "</P>loose<P>Three")},
            Case{"ChangedAttribute", kUpperCase, kUpperCaseBase,
                 UpperCasePage("<p align=\"right\">One two\n</p><p>Three\n\n\n</p>"),
                 UpperCase("ALIGN=center", "ALIGN=right")},
            Case{"AttributeOfTheBody", kUpperCase, kUpperCaseBase,
                 ReplaceAll(kUpperCaseBase, "<body bgcolor=\"#FFFFFF\"",
                            "<body bgcolor=\"#000000\" text=\"a b\""),
                 UpperCase("#FFFFFF", "#000000 text=\"a b\"")},
            Case{"Bold", kUpperCase, kUpperCaseBase,
                 UpperCasePage("<p align=\"center\">One <b>two</b>\n</p><p>Three\n\n\n</p>"),
                 UpperCase("two", "<B>two</B>")}};
}

std::vector<Case> OfSpelling() {
    return {
        InBody("OtherAttributesKeepTheirForm",
               "<TD stray><IMG  SRC='a.gif' Alt=x\n  width=5 WIDTH=6>w",
               "<img src=\"a.gif\" alt=\"x\" width=\"5\">w",
               "<img src=\"b.gif\" alt=\"x\" width=\"5\" border=\"0\">w",
               "<TD stray><IMG  SRC='b.gif' Alt=x\n  width=5 WIDTH=6 border=\"0\">w"),
        InBody("AttributeTakenAway", "<p class=a id=\"b\" lang=c>w</p>",
               "<p class=\"a\" id=\"b\" lang=\"c\">w</p>", "<p class=\"a\" lang=\"c\">w</p>",
               "<p class=a lang=c>w</p>"),
        InBody("ValueThatNeedsQuotes", "<a href=x.htm>w</a>", "<a href=\"x.htm\">w</a>",
               "<a href=\"y z.htm?a&amp;b\">w</a>", "<a href=\"y z.htm?a&amp;b\">w</a>"),
        InBody("ReferencesInAChangedWord", "<p>(&copy;1999&eacute;) AT&T &unknown;x</p>",
               "<p>(\u00A91999\u00E9) AT&amp;T &amp;unknown;x</p>",
               "<p>(\u00A92001\u00E9) AT&amp;S &amp;unknown;x</p>",
               "<p>(&copy;2001&eacute;) AT&amp;S &unknown;x</p>"),
        InBody("NewTextIsEscaped", "<p>a b</p>", "<p>a b</p>", "<p>a &lt;&amp;&nbsp; b</p>",
               "<p>a &lt;&amp;&nbsp; b</p>"),
        InBody("BareAmpersandBeforeTypedText", "<p>R&D x</p>", "<p>R&amp;D x</p>",
               "<p>R&amp;lt;D x</p>", "<p>R&amp;lt;D x</p>"),
        InBody("WhiteSpaceAsReferences", "<p>&#13;a&#32;b<pre>&#10;&#9;c</pre>",
               "<p>\ra b</p><pre>\tc</pre>", "<p>\ra x</p><pre>\tc</pre>",
               "<p>&#13;a&#32;x<pre>&#10;&#9;c</pre>"),
        InBody("NonAscii", "<p>Gr\u00FC\u00DFe \u65E5\u672C\u8A9E\n<p>x",
               "<p>Gr\u00FC\u00DFe \u65E5\u672C\u8A9E\n</p><p>x</p>",
               "<p>Gr\u00FC\u00DFe \u65E5\u672C\n</p><p>x</p>",
               "<p>Gr\u00FC\u00DFe \u65E5\u672C\n<p>x"),
        InBody("MixedLineEnds", "<p>a\r\nb\rc\nd</p>\r\n<p>e</p>", "<p>a\nb\nc\nd</p>\n<p>e</p>",
               "<p>a\nb\nX\nd</p>\n<p>e</p>", "<p>a\r\nb\rX\nd</p>\r\n<p>e</p>")};
}

std::vector<Case> OfStructure() {
    return {
        InBody(
            "TableWithoutBody", "<table>\n<tr><td>a<td>b\n<tr><td>c\n</table>",
            "<table>\n<tbody><tr><td>a</td><td>b\n</td></tr><tr><td>c\n</td></tr></tbody></table>",
            "<table>\n<tbody><tr><td>a</td><td>new\n</td></tr><tr><td>c\n</td></tr></tbody></"
            "table>",
            "<table>\n<tr><td>a<td>new\n<tr><td>c\n</table>"),
        InBody("NestedOpenItems", "<ul>\n<li>a\n<ul><li>b\n<li>c</ul>\n<li>d\n</ul>",
               "<ul>\n<li>a\n<ul><li>b\n</li><li>c</li></ul>\n</li><li>d\n</li></ul>",
               "<ul>\n<li>a\n<ul><li>b\n</li><li>new</li><li>c</li></ul>\n</li><li>d\n</li></ul>",
               "<ul>\n<li>a\n<ul><li>b\n<li>new</li>\n<li>c</ul>\n<li>d\n</ul>"),
        InBody("ListFromAParagraph", "<p>a</p>\n  <p>b</p>\n", "<p>a</p>\n  <p>b</p>\n",
               "<p>a</p>\n  <ul><li>b</li></ul>\n", "<p>a</p>\n  <ul><li>b</li></ul>\n"),
        InBody("IndentOfTheNeighbour", "<div>\r\n    <p>a</p>\r\n</div>\r\n",
               "<div>\n    <p>a</p>\n</div>\n", "<div>\n    <p>a</p><h2>b</h2><p>c</p>\n</div>\n",
               "<div>\r\n    <p>a</p>\r\n    <h2>b</h2>\r\n    <p>c</p>\r\n</div>\r\n"),
        InBody("DeletedAmongAlikeParagraphs", "<p>a</p>\n<p>b</p>\n<p>c</p>\n",
               "<p>a</p>\n<p>b</p>\n<p>c</p>\n", "<p>a</p>\n\n<p>c</p>\n", "<p>a</p>\n<p>c</p>\n"),
        InBody("MisplacedFormatting", "<b>one<p>two</b> three</p>\nend",
               "<b>one</b><p><b>two</b> three</p>\nend", "<b>one</b><p>two three</p>\nend",
               "<b>one</b><p>two three</p>\nend"),
        InBody("TextThatTheEngineMovesOutOfATable", "<table><tr>lost<td>a</table>end",
               "lost<table><tbody><tr><td>a</td></tr></tbody></table>end",
               "found<table><tbody><tr><td>a</td></tr></tbody></table>end",
               "<table><tr>found<td>a</table>end"),
        InBody("StrayEndTagsStay", "<body></p>a</font> b</td>\n<br></br>c</form> d",
               "<p></p>a b\n<br><br>c d", "<p></p>a x\n<br><br>c d",
               "<body></p>a</font> x</td>\n<br></br>c</form> d"),
        InBody("ListInAParagraphIsReadAsTheEngineReadsIt", "<p>a</p>\n", "<p>a</p>\n",
               "<p><ul><li>a</li></ul></p>\n", "<p>\n<ul>\n<li>a</li>\n</ul>\n</p>\n"),
        InBody("BoldWithTheLineEndBeforeIt", "<td>x</td>\n<div>\n  word rest</div>",
               "x\n<div>\n  word rest</div>", "x\n<div><b>\n  word</b> rest</div>",
               "<td>x</td>\n<div>\n  <b>word</b> rest</div>"),
        InBody("AllGone", "<p>a\n<p>b\n", "<p>a\n</p><p>b\n</p>", "", "")};
}

std::vector<Case> WithoutText() {
    return {
        InBody(
            "Declarations",
            "a\n<!- begin expanding section ->\n<!OBJECT type=\"x\">\n<?php a ?> <% b > c %> </ d>"
            "<![CDATA[e]]><!ELEMENT f>\n<!/OBJECT>",
            "a\n<!--- begin expanding section --->\n<!--OBJECT type=\"x\"-->\n<!--?php a ?--> "
            "&lt;% b "
            "&gt; c %&gt; <!-- d--><!--[CDATA[e]]--><!--ELEMENT f-->\n<!--/OBJECT-->",
            "new\n<!--- begin expanding section --->\n<!--OBJECT type=\"x\"-->\n<!--?php a ?--> "
            "&lt;% b &gt; d %&gt; <!-- d--><!--[CDATA[e]]--><!--ELEMENT f-->\n<!--/OBJECT-->",
            "new\n<!- begin expanding section ->\n<!OBJECT type=\"x\">\n<?php a ?> <% b > d %> </ "
            "d>"
            "<![CDATA[e]]><!ELEMENT f>\n<!/OBJECT>"),
        InBody("NewDeclarations", "<p>a</p>", "<p>a</p>",
               "<p>a<!--OBJECT type=\"y\"--><!--/OBJECT--><!--- end expanding section "
               "---><!--OBJECTS-->"
               "</p>",
               "<p>a<!OBJECT type=\"y\"><!/OBJECT><!- end expanding section -><!--OBJECTS--></p>"),
        InBody("CopiedDeclaration", "b<?x y?><p>a</p>", "b<!--?x y?--><p>a</p>",
               "b<!--?x y?--><p>a<!--?x y?--></p>", "b<?x y?><p>a<?x y?></p>"),
        InBody("Pre", "<pre>\r\n  a  b\r\n\tc\r\n</pre>", "<pre>  a  b\n\tc\n</pre>",
               "<pre>  a\nb\n\tc\n</pre>", "<pre>\r\n  a\r\nb\r\n\tc\r\n</pre>"),
        Case{
            "ScriptsAndStyles",
            "<head><script>if (a < b && c) x(\"</p>\");\r\n</script><style>p > b {}</style></head>"
            "<p>one\r\n<script><!--\r\n<script>y</script>\r\n//--></script>two",
            "<html><head><script>if (a < b && c) x(\"</p>\");\n</script><style>p > b "
            "{}</style></head>"
            "<body><p>one\n<script><!--\n<script>y</script>\n//--></script>two</p></body></html>",
            "<html><head><script>if (a < b && c) x(\"</p>\");\n</script><style>p > b "
            "{}</style></head>"
            "<body><p>one\n<script><!--\n<script>y</script>\n//--></script>three</p></body></html>",
            "<head><script>if (a < b && c) x(\"</p>\");\r\n</script><style>p > b {}</style></head>"
            "<p>one\r\n<script><!--\r\n<script>y</script>\r\n//--></script>three"},
        Case{"AroundTheDocument",
             "<!-- 1 -->\n<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0//EN\">\n<html>\n<body>a b\n"
             "</body>\n</html>\nlate\n<!-- 2 -->",
             "<!-- 1 --><!DOCTYPE html PUBLIC \"-//W3C//DTD HTML "
             "4.0//EN\"><html><head></head><body>a b\n"
             "\n\nlate\n<!-- 2 --></body></html>",
             "<!-- 1 --><!DOCTYPE html PUBLIC \"-//W3C//DTD HTML "
             "4.0//EN\"><html><head></head><body>a c\n"
             "\n\nlater\n<!-- 2 --></body></html>",
             "<!-- 1 -->\n<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0//EN\">\n<html>\n<body>a c\n"
             "</body>\n</html>\nlater\n<!-- 2 -->"},
        InBody("CommentThatDoesNotEnd", "<p>a\n<!-- b", "<p>a\n<!-- b--></p>",
               "<p>a\n<!-- b--></p><p>c</p>", "<p>a\n<!-- b--></p>\n<p>c</p>"),
        Case{"ByteOrderMark", "\xEF\xBB\xBF<p>a b", Page("<p>a b</p>"), Page("<p>a c</p>"),
             "\xEF\xBB\xBF<p>a c"}};
}

}  // namespace

std::vector<PreserveCase> PreserveCases() {
    std::vector<PreserveCase> all;
    for (const auto& group : {InOldStyle(), OfSpelling(), OfStructure(), WithoutText()}) {
        all.insert(all.end(), group.begin(), group.end());
    }
    return all;
}

}  // namespace quorrel::test
