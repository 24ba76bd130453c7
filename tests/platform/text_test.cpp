#include "platform/text.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "platform/text_lines.hpp"
#include "platform/unicode.hpp"
#include "support/error_number.hpp"

namespace quorrel {
namespace {

TEST(FindIgnoringAsciiCase, FindsTheFirstPlaceFromTheOffsetOn) {
    struct Case {
        std::string_view text, upper;
        std::size_t from, found;
    };
    const Case cases[] = {
        {"", "", 0, 0},
        {"abc", "", 3, 3},
        {"abc", "", 4, npos},
        {"aaB", "AB", 0, 1},
        {"abc", "C", 3, npos},
        {"abc", "A", npos, npos},
        {"<bo<BoDy>", "<BODY", 0, 3},
        {"{a}", "[A]", 0, npos},  // these differ by the same bit as letters do
        {"\xC3\xA4", "\xC3\x84", 0, npos},
        {std::string_view("a\0b", 3), "B", 0, 2},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FindIgnoringAsciiCase(c.text, c.upper, c.from), c.found)
            << "'" << c.text << "' for '" << c.upper << "' from " << c.from;
    }
}

TEST(Text, CharactersAreCodePoints) {
    constexpr std::string_view text = "aж語😀z";
    EXPECT_EQ(CountCharacters(text), 5U);
    const std::string_view firsts[] = {"", "a", "aж", "aж語", "aж語😀", "aж語😀z"};
    for (std::size_t n = 0; n < std::size(firsts); ++n) {
        EXPECT_EQ(FirstCharacters(text, n), firsts[n]) << n;
        EXPECT_EQ(OffsetOfCharacter(text, n), firsts[n].size()) << n;
    }
    EXPECT_EQ(FirstCharacters(text, npos), text);
}

TEST(Text, IdentifierHasOneUnderscoreForACharacter) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", ""},         {"Az09", "Az09"}, {"a b-c.htm", "a_b_c_htm"},
        {"тест", "____"}, {"語x😀", "_x_"},  {"@[`{/:", "______"},
        {"a_b", "a_b"}};
    for (const auto& [name, identifier] : cases) EXPECT_EQ(ToIdentifier(name), identifier) << name;
}

TEST(Text, LeadingNumberStopsAtItsLimit) {
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max();
    const std::pair<std::string_view, std::int64_t> cases[] = {
        {"", 0},
        {"  12 px", 12},
        {"+7", 7},
        {"--7", 0},
        {"0x10", 0},
        {"9223372036854775807", limit},
        {"9223372036854775808", limit},
        {"99999999999999999999999999", limit},
        {"-9223372036854775807", -limit}};
    for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(text), number) << text;
    EXPECT_LE(LeadingNumber("-99999999999999999999999999"), -limit);
}

TEST(Unicode, OnlyWellFormedUtf8IsValid) {
    for (const std::string_view text :
         {"", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsValidUtf8(text)) << testing::PrintToString(text);
    }
    const char* const overlong_beyond_or_damaged[] = {
        "\xC0\xAF",     "\xC1\xBF",     "\xE0\x9F\xBF",     "\xF0\x8F\xBF\xBF",
        "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\x80",
        "\xFF",         "\xC3",         "\xE2\x82",         "\xF0\x9F\x98",
        "\xC3("};
    for (const std::string_view text : overlong_beyond_or_damaged) {
        EXPECT_FALSE(IsValidUtf8(text)) << testing::PrintToString(text);
        std::size_t offset = 0;
        EXPECT_EQ(NextCodePoint(text, offset), U'\xFFFD') << testing::PrintToString(text);
        EXPECT_EQ(offset, 1U);
    }
}

TEST(Unicode, AsciiIsSeenAtEveryOffset) {
    const std::string text(19, 'a');
    EXPECT_TRUE(IsAscii(text));
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string other = text;
        other[i] = '\x80';
        EXPECT_FALSE(IsAscii(other)) << i;
    }
}

TEST(Unicode, EqualWhateverTheCase) {
    const std::pair<std::string_view, std::string_view> same[] = {{"Readme.HTM", "rEADME.htm"},
                                                                  {"ёлка", "ЁЛКА"},
                                                                  {"ΣΊΣΥΦΟΣ", "σίσυφος"},
                                                                  {"ÿ", "Ÿ"},
                                                                  {"ı", "i"},
                                                                  {"𐐀", "𐐨"}};
    for (const auto& [a, b] : same) {
        EXPECT_EQ(CompareIgnoringCase(a, b), 0) << a << " " << b;
        EXPECT_EQ(HashIgnoringCase(a), HashIgnoringCase(b)) << a << " " << b;
    }
    EXPECT_FALSE(EqualsIgnoringCase("e", "é"));
    EXPECT_FALSE(EqualsIgnoringCase("ß", "ss"));
}

TEST(Unicode, OrderIsThatOfUpperCasedCodePoints) {
    // Each stands before the next; "_" and "[" lie between the two cases of ASCII letters.
    const std::string_view order[] = {"",  " ", "9", "a", "AA", "ab", "B",   "Z", "[", "_",
                                      "{", "é", "Ω", "ж", "Я",  "語", "語a", "｡", "😀"};
    for (std::size_t i = 0; i < std::size(order); ++i) {
        for (std::size_t j = 0; j < std::size(order); ++j) {
            const int sign = CompareIgnoringCase(order[i], order[j]);
            EXPECT_EQ((sign > 0) - (sign < 0), (i > j) - (i < j)) << order[i] << " " << order[j];
        }
    }
}

TEST(Unicode, FoundPlaceIsInBytesOfTheText) {
    struct Case {
        std::string_view text, part;
        std::size_t offset, size;  // npos: not found
    };
    const Case cases[] = {{"abc", "", 0, 0},    {"", "", 0, 0},       {"ж", "", 0, 0},
                          {"", "ж", npos, 0},   {"xABC", "bc", 2, 2}, {"Содержание", "РЖА", 8, 6},
                          {"жxЖx", "xЖ", 2, 3}, {"ааб", "АБ", 2, 4},  {"aıb", "AIB", 0, 4},
                          {"xIy", "ı", 1, 1},   {"жIJ", "ıj", 2, 2},  {"ж", "жж", npos, 0},
                          {"\xFFж", "Ж", 1, 2}, {"жaб", "б", 3, 2}};
    for (const Case& c : cases) {
        const auto found = FindIgnoringCase(c.text, c.part);
        ASSERT_EQ(found.has_value(), c.offset != npos) << c.text << " for " << c.part;
        if (!found) continue;
        EXPECT_EQ(found->offset, c.offset) << c.text << " for " << c.part;
        EXPECT_EQ(found->size, c.size) << c.text << " for " << c.part;
    }
}

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> result;
    TextLines lines(text);
    while (!lines.AtEnd()) result.emplace_back(lines.ReadLine());
    EXPECT_EQ(test::NumberOf([&] { (void)lines.ReadLine(); }), 62);
    return result;
}

TEST(TextLines, EveryLineEndIsOne) {
    using Lines = std::vector<std::string>;
    const std::pair<std::string_view, Lines> cases[] = {
        {"", {}},
        {"a\rb\r", {"a", "b"}},
        {"\r\n", {""}},
        {"\r\r\n\n", {"", "", ""}},
        {"a\rb\nc\r\nd\r\re", {"a", "b", "c", "d", "", "e"}},
        {std::string_view("a\0b\nc", 5), {std::string("a\0b", 3), "c"}}};
    for (const auto& [text, lines] : cases) {
        EXPECT_EQ(LinesOf(text), lines) << testing::PrintToString(text);
    }
}

TEST(TextLines, PositionIsTheStartOfTheNextLine) {
    TextLines lines("ab\r\n\rc\nd");
    for (const std::size_t position : {0U, 4U, 5U, 7U}) {
        EXPECT_EQ(lines.Position(), position);
        (void)lines.ReadLine();
    }
}

TEST(TextLines, LongTextOfOneKindOfLineEndIsRead) {
    // Several hundred thousand lines: work that grows with the square would not come to an end.
    constexpr std::size_t count = 400'000;
    for (const std::string_view end : {"\r", "\n", "\r\n"}) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text.append("0123456").append(end);
        if (end == "\r") text += "last\nline";
        std::size_t lines_read = 0;
        for (TextLines lines(text); !lines.AtEnd(); ++lines_read) (void)lines.ReadLine();
        EXPECT_EQ(lines_read, count + (end == "\r" ? 2 : 0)) << testing::PrintToString(end);
    }
}

TEST(Unicode, EqualTextsHaveEqualHashesAtEveryLength) {
    // Letters that become ASCII, or another number of bytes, at every place of a block of eight.
    for (const char* letter :
         {"\xC4\xB1", "\xC5\xBF", "\xC3\xA9", "\xC9\x90", "z", "@", "[", "`", "{"}) {
        for (std::size_t before = 0; before < 10; ++before) {
            const std::string text = std::string(before, 'a') + letter + "bcdefghijk";
            EXPECT_EQ(HashIgnoringCase(text), HashIgnoringCase(UpperUnicode(text))) << text;
            EXPECT_TRUE(EqualsIgnoringCase(text, UpperUnicode(text))) << text;
        }
    }
    EXPECT_NE(HashIgnoringCase("@"), HashIgnoringCase("`"));
    EXPECT_NE(HashIgnoringCase("["), HashIgnoringCase("{"));
}

}  // namespace
}  // namespace quorrel
