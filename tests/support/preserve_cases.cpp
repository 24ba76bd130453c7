#include "support/preserve_cases.hpp"

#include "platform/text.hpp"

namespace quorrel::test {
namespace {

using Case = PreserveCase;

Case InBody(std::string name, std::string original, const std::string& base,
            const std::string& edited, std::string expected) {
    return {std::move(name), std::move(original), Page(base), Page(edited), std::move(expected)};
}

/// With `to` for `from` in the engine's form, which has to do the same to the source.
Case Exchanged(std::string name, const std::string& original, const std::string& base,
               const std::string& from, const std::string& to) {
    return InBody(std::move(name), original, base, ReplaceAll(base, from, to),
                  ReplaceAll(original, from, to));
}

/// The page of these cases with `body` in the engine's form, and with `to` for `from` in the
/// source.
std::string EnginePageOf(const std::string& body) {
    return "<html><head>\n<title>A</title>\n</head>\n<body bgcolor=\"#FFFFFF\">\n" + body +
           "</body></html>";
}
std::string SourceOf(const std::string& from = {}, const std::string& to = {}) {
    const char* const source =
        "<HTML>\r\n<HEAD>\r\n<TITLE>A</TITLE>\r\n</HEAD>\r\n<BODY BGCOLOR=#FFFFFF>\r\n"
        "<P ALIGN=center>One two\r\n<P>Three\r\n</BODY>\r\n</HTML>\r\n";
    return from.empty() ? source : ReplaceAll(source, from, to);
}
/// `edited` is the body up to the end of the second paragraph.
Case OldStyle(std::string name, const std::string& edited, const std::string& from,
              const std::string& to) {
    return {std::move(name), SourceOf(),
            EnginePageOf("<p align=\"center\">One two\n</p><p>Three\n\n\n</p>"),
            EnginePageOf(edited + "Three\n\n\n</p>"), SourceOf(from, to)};
}

std::vector<Case> InOldStyle() {
    Case body = OldStyle("AttributeOfTheBody", "<p align=\"center\">One two\n</p><p>", "#FFFFFF",
                         "#000000 text=\"a b\"");
    body.edited = ReplaceAll(body.edited, "\"#FFFFFF\"", "\"#000000\" text=\"a b\"");
    return {
        body,
        OldStyle("Word", "<p align=\"center\">One more\n</p><p>", "two", "more"),
        OldStyle("NewParagraphFollowsTheSource",
                 "<p align=\"center\">One two\n</p><p>New &lt;1&gt;</p><p>", "<P>Three",
                 "<P>New &lt;1&gt;</P>\r\n<P>Three"),
        OldStyle("SplitParagraph", "<p align=\"center\">One</p><p align=\"center\">two\n</p><p>",
                 "One two", "One</P>\r\n<P align=\"center\">two"),
        OldStyle("JoinedParagraphs", "<p align=\"center\">One two", "two\r\n<P>Three", "twoThree"),
        OldStyle("DeletedParagraph", "<p>", "<P ALIGN=center>One two\r\n", ""),
        OldStyle("TextBehindAnUnclosedParagraph", "<p align=\"center\">One two\n</p>loose<p>",
                 "<P>Three", "</P>loose<P>Three"),
        OldStyle("ChangedAttribute", "<p align=\"right\">One two\n</p><p>", "ALIGN=center",
                 "ALIGN=right"),
        OldStyle("Bold", "<p align=\"center\">One <b>two</b>\n</p><p>", "two", "<B>two</B>")};
}

std::vector<Case> OfSpelling() {
    return {InBody("OtherAttributesKeepTheirForm",
                   "<TD stray><IMG  SRC='a.gif' Alt=x\n  width=5 WIDTH=6>w",
                   "<img src=\"a.gif\" alt=\"x\" width=\"5\">w",
                   "<img src=\"b.gif\" alt=\"x\" width=\"5\" border=\"0\">w",
                   "<TD stray><IMG  SRC='b.gif' Alt=x\n  width=5 WIDTH=6 border=\"0\">w"),
            Exchanged("AttributeTakenAway", "<p class=a id=\"b\" lang=c>w</p>",
                      "<p class=\"a\" id=\"b\" lang=\"c\">w</p>", " id=\"b\"", ""),
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
            Exchanged("NonAscii", "<p>Gr\u00FC\u00DFe \u65E5\u672C\u8A9E\n<p>x",
                      "<p>Gr\u00FC\u00DFe \u65E5\u672C\u8A9E\n</p><p>x</p>", "\u8A9E", ""),
            Exchanged("MixedLineEnds", "<p>a\r\nb\rc\nd</p>\r\n<p>e</p>",
                      "<p>a\nb\nc\nd</p>\n<p>e</p>", "c", "X")};
}

std::vector<Case> OfStructure() {
    return {
        Exchanged("TableWithoutBody", "<table>\n<tr><td>a<td>word\n<tr><td>c\n</table>",
                  "<table>\n<tbody><tr><td>a</td><td>word\n</td></tr><tr><td>c\n</td></tr></tbody>"
                  "</table>",
                  "word", "new"),
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
        Exchanged("TextThatTheEngineMovesOutOfATable", "<table><tr>lost<td>a</table>end",
                  "lost<table><tbody><tr><td>a</td></tr></tbody></table>end", "lost", "found"),
        Exchanged("StrayEndTagsStay", "<body></p>a</font> two</td>\n<br></br>c</form> d",
                  "<p></p>a two\n<br><br>c d", "two", "x"),
        InBody("ListInAParagraphIsReadAsTheEngineReadsIt", "<p>a</p>\n", "<p>a</p>\n",
               "<p><ul><li>a</li></ul></p>\n", "<p>\n<ul>\n<li>a</li>\n</ul>\n</p>\n"),
        InBody("BoldWithTheLineEndBeforeIt", "<td>x</td>\n<div>\n  word rest</div>",
               "x\n<div>\n  word rest</div>", "x\n<div><b>\n  word</b> rest</div>",
               "<td>x</td>\n<div>\n  <b>word</b> rest</div>"),
        InBody("AllGone", "<p>a\n<p>b\n", "<p>a\n</p><p>b\n</p>", "", "")};
}

/// A document with words before the end of its body and behind its end.
std::string SourceAround(const std::string& word, const std::string& late) {
    return "<!-- 1 -->\n<!DOCTYPE a PUBLIC \"b\">\n<html>\n<body>a " + word +
           "\n</body>\n</html>\n" + late + "\n<!-- 2 -->";
}
std::string EngineAround(const std::string& word, const std::string& late) {
    return "<!-- 1 --><!DOCTYPE a PUBLIC \"b\"><html><head></head><body>a " + word + "\n\n\n" +
           late + "\n<!-- 2 --></body></html>";
}

std::vector<Case> WithoutText() {
    return {
        Exchanged(
            "Declarations",
            "one<!- begin expanding section -><!OBJECT type=\"x\"><?php a ?> <% b > two %> </ d>"
            "<![CDATA[e]]><!ELEMENT f><!/OBJECT>",
            "one<!--- begin expanding section ---><!--OBJECT type=\"x\"--><!--?php a ?--> "
            "&lt;% b &gt; two %&gt; <!-- d--><!--[CDATA[e]]--><!--ELEMENT f--><!--/OBJECT-->",
            "two", "new"),
        InBody("NewDeclarations", "<p>a</p>", "<p>a</p>",
               "<p>a<!--OBJECT type=\"y\"--><!--/OBJECT--><!--- end expanding section "
               "---><!--OBJECTS-->"
               "</p>",
               "<p>a<!OBJECT type=\"y\"><!/OBJECT><!- end expanding section -><!--OBJECTS--></p>"),
        InBody("CopiedDeclaration", "b<?x y?><p>a</p>", "b<!--?x y?--><p>a</p>",
               "b<!--?x y?--><p>a<!--?x y?--></p>", "b<?x y?><p>a<?x y?></p>"),
        InBody("Pre", "<pre>\r\n  a  b\r\n\tc\r\n</pre>", "<pre>  a  b\n\tc\n</pre>",
               "<pre>  a\nb\n\tc\n</pre>", "<pre>\r\n  a\r\nb\r\n\tc\r\n</pre>"),
        Exchanged(
            "ScriptsAndStyles",
            "<p>one\r\n<script>if (a < b && c) x(\"</p>\");\r\n</script><style>p > b {}</style>"
            "<script><!--\r\n<script>y</script>\r\n//--></script>two",
            "<p>one\n<script>if (a < b && c) x(\"</p>\");\n</script><style>p > b {}</style>"
            "<script><!--\n<script>y</script>\n//--></script>two</p>",
            "two", "three"),
        Case{"AroundTheDocument", SourceAround("two", "late"), EngineAround("two", "late"),
             EngineAround("three", "later"), SourceAround("three", "later")},
        InBody("CommentThatDoesNotEnd", "<p>a\n<!-- b", "<p>a\n<!-- b--></p>",
               "<p>a\n<!-- b--></p><p>c</p>", "<p>a\n<!-- b--></p>\n<p>c</p>"),
        Case{"ByteOrderMark", "\xEF\xBB\xBF<p>a b", Page("<p>a b</p>"), Page("<p>a c</p>"),
             "\xEF\xBB\xBF<p>a c"}};
}

}  // namespace

std::string Page(const std::string& body) {
    return "<html><head></head><body>" + body + "</body></html>";
}

std::vector<PreserveCase> PreserveCases() {
    std::vector<PreserveCase> all;
    for (const auto& group : {InOldStyle(), OfSpelling(), OfStructure(), WithoutText()}) {
        all.insert(all.end(), group.begin(), group.end());
    }
    return all;
}

}  // namespace quorrel::test
