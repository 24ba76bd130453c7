#include "project/tag_value.hpp"

#include <gtest/gtest.h>

namespace quorrel {
namespace {

std::string Read(std::string_view text, std::string_view attribute, std::size_t start = 1) {
    return TagValue(text, start, attribute, "", TagMode::kRead);
}

TEST(TagValue, IsReadAtTheFirstPlaceOfTheName) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"<IMG SRC=a.gif>", "SRC", "a.gif"},
        {"<img src=\"a b.gif\" alt=x>", "SRC", "a b.gif"},
        {"<img src = a.gif alt=x>", "SRC", "a.gif"},
        {"<img src=   \"a\">", "SRC", "a"},
        {"<TD NOWRAP>x", "NOWRAP", "<ON>"},
        {"<TD>x", "NOWRAP", ""},
        {"no tag", "SRC", ""},
        // The letters count, also inside another name or value.
        {"<IMG HALT=1 ALT=2>", "ALT", "1"},
        {"<a title=\"name=x\" name=y>", "NAME", "x"},
        // The tag ends at the first ">", also inside quotes.
        {"<param name=\"Name\" value=\"a > b\">", "VALUE", "a "},
        {"<a href=\"open>text\"", "HREF", "open"},
        // A stray quote inside goes, and so do blanks of an unquoted value.
        {"<a b=c\"d>", "B", "cd"},
        {"<a b=\"\" c=1>", "B", ""},
        {"<a b=>", "B", ""},
        // The "=" is looked for behind the name.
        {"<a nowrap title=t>", "NOWRAP", "t"},
        // A name given in lower case is never found.
        {"<a x=1>", "x", ""},
        {"<a \xC3\xA9=1 x=\xC3\xA9>", "X", "\xC3\xA9"},
    };
    for (const auto& [text, attribute, value] : cases) {
        EXPECT_EQ(Read(text, attribute), value) << text << " " << attribute;
    }
    // From the start on, 1-based.
    EXPECT_EQ(Read("<a x=1><b x=2>", "X", 8), "2");
    EXPECT_EQ(Read("<a x=1><b y=2>", "X", 8), "");
    EXPECT_EQ(Read("<a x=1>", "X", 0), "");
    EXPECT_EQ(Read("<a x=1>", "X", 8), "");
}

TEST(TagValue, IsWrittenIntoTheTag) {
    constexpr TagMode W = TagMode::kWriteValue;
    constexpr TagMode F = TagMode::kWriteFlag;
    const struct {
        const char *text, *attribute, *value;
        TagMode mode;
        const char* result;
    } cases[] = {{"<IMG SRC=a.gif ALT=b>", "ALT", "", W, "<IMG SRC=a.gif >"},
                 {"<IMG SRC=a.gif ALT=b>", "SRC", "c.gif", W, "<IMG SRC=c.gif ALT=b>"},
                 {"<IMG SRC=\"a\" ALT=b>rest", "SRC", "\"c\"", W, "<IMG SRC=\"c\" ALT=b>rest"},
                 {"<IMG SRC=\"a\" ALT=b>", "SRC", "c", W, "<IMG SRC=c ALT=b>"},
                 {"<TD>x", "WIDTH", "\"50%\"", W, "<TD WIDTH=\"50%\">x"},
                 {"<TD>x", "WIDTH", "", W, "<TD>x"},
                 {"<TD NOWRAP>x", "NOWRAP", "y", W, "<ON>"},
                 {"<TD>x", "NOWRAP", "1", F, "<TD NOWRAP>x"},
                 {"<TD>x", "NOWRAP", "0", F, "<TD>x"},
                 {"<TD NOWRAP WRONG>x", "NOWRAP", "1", F, "<TD NOWRAP>x"},
                 {"<TD NOWRAP>x", "NOWRAP", "", F, "<TD >x"}};
    for (const auto& [text, attribute, value, mode, result] : cases) {
        EXPECT_EQ(TagValue(text, 1, attribute, value, mode), result) << text << " " << value;
    }
    EXPECT_EQ(TagValue("<a><b x=1><c>", 4, "X", "2", W), "<a><b x=2><c>");
}

TEST(TagValue, TakesTimeInStepWithATextOfManyTags) {
    // A scan from the beginning for each tag would not come to an end.
    std::string text;
    for (int i = 0; i < 200000; ++i) text += "<a href=\"t.htm\">x</a>\n";
    std::size_t found = 0;
    for (std::size_t at = text.find("<a"); at != std::string::npos; at = text.find("<a", at + 1)) {
        if (Read(text, "HREF", at + 1) == "t.htm") ++found;
    }
    EXPECT_EQ(found, 200000U);
}

}  // namespace
}  // namespace quorrel
