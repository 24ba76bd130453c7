#include "editor/preserve_source.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/preserve_cases.hpp"

namespace quorrel::test {
namespace {

TEST(PreserveSource, OnlyTheEditedPlaceIsReplaced) {
    for (const PreserveCase& it : PreserveCases()) {
        EXPECT_EQ(PreserveSource(it.original, it.base, it.edited), it.expected) << it.name;
        EXPECT_EQ(PreserveSource(it.original, it.base, it.base), it.original) << it.name;
    }
}

TEST(PreserveSource, AnUntouchedSourceComesBackWhateverItIs) {
    for (const std::string original : {"", "<", "<p", "</", "<!--", "&#x;", "\xFF\xFE\0<a b='"}) {
        EXPECT_EQ(PreserveSource(original, "<x>", "<x>"), original);
    }
}

TEST(PreserveSource, ANewPreKeepsItsFirstLine) {
    // A browser passes over the first line feed in it, and its serialisation does not say so.
    EXPECT_EQ(PreserveSource("<p>a</p>", Page("<p>a</p>"), Page("<p>a</p><pre>\nb</pre>")),
              "<p>a</p><pre>\n\nb</pre>");
}

TEST(PreserveSource, AnEditIsNeverLostWhereTheTextsDoNotFit) {
    const std::string edited = Page("<p>something else</p>");
    for (const std::string original :
         {"", "<frameset><frame></frameset>", "<p>one<!--", "<p>one<a b='", "<title>one", "<table>",
          "</html>", "<plaintext>x", "<select><td>", "<svg><p>"}) {
        const std::string result = PreserveSource(original, Page("<h1>not this</h1>"), edited);
        EXPECT_NE(result.find("<p>something else</p>"), std::string::npos) << original;
    }
}

std::string Repeated(const std::string& text, int times) {
    std::string result;
    for (int time = 0; time < times; ++time) result += text;
    return result;
}

/// Each would take for ever if the work went up with the square of the size.
TEST(PreserveSource, HostileTextsAreDoneWith) {
    constexpr int kMany = 20'000;
    const std::vector<std::string> originals = {
        Repeated("<b>", kMany),          Repeated("<div>", kMany),
        Repeated("a</x>", kMany),        Repeated("<p><font size=1>", kMany),
        Repeated("<a><p>", kMany),       Repeated("<table><tr>x", kMany),
        Repeated("a ", kMany),           Repeated("</p>", kMany),
        "<p " + Repeated("a=1 ", kMany), Repeated("<!--", kMany),
        Repeated("<script>", kMany),     Repeated("&amp", kMany)};
    for (const std::string& original : originals) {
        const std::string body = Repeated("<p>a a</p>", kMany / 20);
        const std::string edited = Page(body + "<p>new</p>" + body);
        const std::string result = PreserveSource(original, Page(body + body), edited);
        EXPECT_NE(result.find("new"), std::string::npos) << original.substr(0, 20);
    }
}

}  // namespace
}  // namespace quorrel::test
