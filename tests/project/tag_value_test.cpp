#include "project/tag_value.hpp"

#include <gtest/gtest.h>

namespace quorrel {
namespace {

struct Case {
    const char* text;
    std::size_t start;
    const char* attribute;
    const char* value;
    TagMode mode;
    const char* result;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.text << " " << c.attribute;
}

class TagValueTest : public testing::TestWithParam<Case> {};

TEST_P(TagValueTest, GivesTheResult) {
    const Case& c = GetParam();
    EXPECT_EQ(TagValue(c.text, c.start, c.attribute, c.value, c.mode), c.result);
}

constexpr TagMode R = TagMode::kRead;
constexpr TagMode W = TagMode::kWriteValue;
constexpr TagMode F = TagMode::kWriteFlag;

INSTANTIATE_TEST_SUITE_P(
    Reading, TagValueTest,
    testing::Values(Case{"<IMG SRC=a.gif>", 1, "SRC", "", R, "a.gif"},
                    Case{"<img src=\"a b.gif\" alt=x>", 1, "SRC", "", R, "a b.gif"},
                    Case{"<img src = a.gif alt=x>", 1, "SRC", "", R, "a.gif"},
                    Case{"<img src=   \"a\">", 1, "SRC", "", R, "a"},
                    Case{"<TD NOWRAP>x", 1, "NOWRAP", "", R, "<ON>"},
                    Case{"<TD>x", 1, "NOWRAP", "", R, ""}, Case{"no tag", 1, "SRC", "", R, ""},
                    // The first place of the letters counts, also inside another name or value.
                    Case{"<IMG HALT=1 ALT=2>", 1, "ALT", "", R, "1"},
                    Case{"<a title=\"name=x\" name=y>", 1, "NAME", "", R, "x"},
                    // The tag ends at the first ">", also inside quotes.
                    Case{"<param name=\"Name\" value=\"a > b\">", 1, "VALUE", "", R, "a "},
                    Case{"<a href=\"open>text\"", 1, "HREF", "", R, "open"},
                    // A stray quote inside goes, and so do blanks of an unquoted value.
                    Case{"<a b=c\"d>", 1, "B", "", R, "cd"},
                    Case{"<a b=\"\" c=1>", 1, "B", "", R, ""}, Case{"<a b=>", 1, "B", "", R, ""},
                    // From `start` on, 1-based; the "=" is looked for behind the name.
                    Case{"<a x=1><b x=2>", 8, "X", "", R, "2"},
                    Case{"<a x=1><b y=2>", 8, "X", "", R, ""}, Case{"<a x=1>", 0, "X", "", R, ""},
                    Case{"<a x=1>", 8, "X", "", R, ""},
                    Case{"<a nowrap title=t>", 1, "NOWRAP", "", R, "t"},
                    // A name given in lower case is never found.
                    Case{"<a x=1>", 1, "x", "", R, ""},
                    Case{"<a \xC3\xA9=1 x=\xC3\xA9>", 1, "X", "", R, "\xC3\xA9"}));

INSTANTIATE_TEST_SUITE_P(
    Writing, TagValueTest,
    testing::Values(Case{"<IMG SRC=a.gif ALT=b>", 1, "ALT", "", W, "<IMG SRC=a.gif >"},
                    Case{"<IMG SRC=a.gif ALT=b>", 1, "SRC", "c.gif", W, "<IMG SRC=c.gif ALT=b>"},
                    Case{"<IMG SRC=\"a\" ALT=b>rest", 1, "SRC", "\"c\"", W,
                         "<IMG SRC=\"c\" ALT=b>rest"},
                    Case{"<IMG SRC=\"a\" ALT=b>", 1, "SRC", "c", W, "<IMG SRC=c ALT=b>"},
                    Case{"<TD>x", 1, "WIDTH", "\"50%\"", W, "<TD WIDTH=\"50%\">x"},
                    Case{"<TD>x", 1, "WIDTH", "", W, "<TD>x"},
                    Case{"<TD NOWRAP>x", 1, "NOWRAP", "y", W, "<ON>"},
                    Case{"<TD>x", 1, "NOWRAP", "1", F, "<TD NOWRAP>x"},
                    Case{"<TD>x", 1, "NOWRAP", "0", F, "<TD>x"},
                    Case{"<TD NOWRAP WRONG>x", 1, "NOWRAP", "1", F, "<TD NOWRAP>x"},
                    Case{"<TD NOWRAP>x", 1, "NOWRAP", "", F, "<TD >x"},
                    Case{"<a><b x=1><c>", 4, "X", "2", W, "<a><b x=2><c>"}));

TEST(TagValue, TakesTimeInStepWithATextOfManyTags) {
    // A scan from the beginning for each tag would not come to an end.
    std::string text;
    for (int i = 0; i < 200000; ++i) text += "<a href=\"t.htm\">x</a>\n";
    std::size_t found = 0;
    for (std::size_t at = text.find("<a"); at != std::string::npos; at = text.find("<a", at + 1)) {
        if (TagValue(text, at + 1, "HREF", "", TagMode::kRead) == "t.htm") ++found;
    }
    EXPECT_EQ(found, 200000U);
}

}  // namespace
}  // namespace quorrel
