#include "platform/encoding.hpp"

#include <gtest/gtest.h>

#include "platform/charset.hpp"
#include "platform/topic_encoding.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

using Form = TextEncoding::Form;

/// Decodes as a project file, and checks that writing gives the same bytes.
std::string Decoded(const std::string& bytes, int code_page, Form form = Form::kAnsi) {
    const DecodedText decoded = DecodeProjectText(bytes, code_page);
    EXPECT_EQ(static_cast<int>(decoded.encoding.form), static_cast<int>(form))
        << testing::PrintToString(bytes);
    EXPECT_TRUE(IsValidUtf8(decoded.text)) << testing::PrintToString(decoded.text);
    EXPECT_EQ(EncodeProjectText(decoded.text, decoded.encoding), bytes) << "page " << code_page;
    return decoded.text;
}

std::string Lone(unsigned char byte) {
    std::string text;
    AppendUtf8(text, kLoneByte + byte);
    return text;
}

TEST(CodePages, EveryByteComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    for (const int page : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 20866, 28597})
        Decoded(all, page);
    // In two-byte pages: at the end, and before something that makes no pair.
    for (const int page : {932, 936, 949, 950, 51932, 4711}) {
        for (int byte = 0x80; byte < 256; ++byte) {
            const std::string one(1, static_cast<char>(byte));
            Decoded(one + "\r\n" + one + "<" + one, page);
        }
    }
}

TEST(CodePages, EachReadsItsOwnLetters) {
    const std::tuple<int, const char*, const char*> cases[] = {
        {1250, "\xBE\xE8", "ľč"},
        {1251, "\xC6\xE6\xB8", "Жжё"},
        {1253, "\xD9\xF2\xDC", "Ωςά"},
        {1254, "\xDD\xFD\xF0", "İığ"},
        {1255, "\xF9\xEC\xE5\xED", "שלום"},
        {1256, "\xC7\xE1", "ال"},
        {1257, "\xE0\xE8", "ąč"},
        {1258, "\xC2\xD5\xF5\xFE\xE3", "ÂƠơ₫ă"},
        {874, "\x80\x85\x93\x94", "€…“”"},
        {932, "\x83\x65\x83\x58\x83\x67", "テスト"},
        {932, "\xB1\x95\x5C\x81\x60", "ｱ表～"},  // the second byte of one is a backslash
        {936, "\xB2\xE2\xCA\xD4\x81\x40", "测试丂"},
        {949, "\xC5\xD7\xBD\xBA\xC6\xAE", "테스트"},
        {950, "\xB4\xFA\xB8\xD5", "測試"},
        {20866, "\xD4\xC5\xD3\xD4", "тест"},
        {21866, "\xA4\xA7", "єї"},
        {51932, "\xA5\xC6\x8E\xB1", "テｱ"}};
    for (const auto& [page, bytes, text] : cases) EXPECT_EQ(Decoded(bytes, page), text) << page;
}

TEST(CodePages, ByteWithoutMeaningIsKept) {
    EXPECT_EQ(Decoded("\x81\x8D", 1252), "\xC2\x81\xC2\x8D");
    EXPECT_EQ(Decoded("a\x98", 1251), "a\xC2\x98");
    EXPECT_EQ(Decoded("a\xFF", 28597), "a" + Lone(0xFF));
    EXPECT_EQ(Decoded("\x83\"\x83\x65", 932), Lone(0x83) + "\"テ");
    EXPECT_EQ(Decoded("\xE4", 4711), Lone(0xE4));
}

TEST(ProjectText, FormIsFoundAndKept) {
    EXPECT_EQ(Decoded("plain & simple\r\n", 932), "plain & simple\r\n");
    EXPECT_EQ(Decoded("gr\xC3\xBC\xC3\x9F", 1252, Form::kUtf8), "grüß");
    EXPECT_EQ(Decoded("gr\xC3\xBC\xDF", 1252), "grÃ¼ß");
    EXPECT_EQ(Decoded("\xEF\xBB\xBFж", 1252, Form::kUtf8WithMark), "ж");
    EXPECT_EQ(Decoded("\xEF\xBB\xBFж\xE9", 1252, Form::kUtf8WithMark), "ж" + Lone(0xE9));
    // The code points that stand for lone bytes are no way to smuggle others in.
    EXPECT_EQ(Decoded("\xF4\x8F\xB9\x81", 1252, Form::kUtf8),
              Lone(0xF4) + Lone(0x8F) + Lone(0xB9) + Lone(0x81));
}

TEST(ProjectText, Utf16IsKeptToTheLastByte) {
    using namespace std::string_literals;
    const std::pair<std::string, std::string> cases[] = {
        {""s, ""},
        {"a\0\r\0\n\0"s, "a\r\n"},
        {"\x36\x04\xAC\x20"s, "ж€"},
        {"\x3D\xD8\x00\xDE"s, "😀"},
        {"a\0\x3D\xD8"s, "a" + Lone(0x3D) + Lone(0xD8)},
        {"\x3D\xD8z\0"s, Lone(0x3D) + Lone(0xD8) + "z"},
        {"\x00\xDE\x3D\xD8"s, Lone(0x00) + Lone(0xDE) + Lone(0x3D) + Lone(0xD8)},
        {"\x3D\xD8\x3D\xD8\x00\xDE"s, Lone(0x3D) + Lone(0xD8) + "😀"}};
    for (const auto& [behind_mark, text] : cases) {
        const std::string bytes = "\xFF\xFE" + behind_mark;
        EXPECT_EQ(Decoded(bytes, 1252, Form::kUtf16LittleEndian), text);
        EXPECT_EQ(Decoded(bytes + "x", 1252, Form::kUtf16LittleEndian), text + Lone('x'));
    }
    EXPECT_EQ(Decoded("\xFE\xFF\0a\x04\x36\xD8\x3D\xDE\0\xD8"s, 1252, Form::kUtf16BigEndian),
              "aж😀" + Lone(0xD8));
}

TEST(ProjectText, CharacterThatThePageLacksIsAReference) {
    const std::string text = "a ж テ 😀 é";
    const std::string bytes = EncodeProjectText(text, {Form::kAnsi, 1252});
    EXPECT_EQ(bytes, "a &#1078; &#12486; &#128512; \xE9");
    EXPECT_EQ(Decoded(bytes, 1252), text);
    EXPECT_EQ(EncodeProjectText("жé", {Form::kAnsi, 1251}), "\xE6&#233;");
}

TEST(ProjectText, OtherReferencesStayText) {
    const char* const cases[] = {"&#233;",     "&#8364;",  "&#65;",      "&#01078;",
                                 "&#x436;",    "&#55357;", "&#57343;",   "&#0;",
                                 "&#1078",     "&#1078 ;", "&#1114112;", "&#99999999999999999999;",
                                 "&#1113601;", "&#;",      "&#",         "&#-1078;",
                                 "&amp;#1078", "& #1078;", "&#1078&"};
    for (const char* text : cases) {
        EXPECT_EQ(Decoded(text, 1252), text);
        EXPECT_EQ(Decoded(std::string("\xE9") + text, 1252), std::string("é") + text);
    }
    EXPECT_EQ(Decoded("&#&#1078;&#1079;&#233;&#1080;", 1252), "&#жз&#233;и");
    EXPECT_EQ(Decoded("&#1078;", 65001), "&#1078;");
    EXPECT_EQ(DecodeText("\xE9 &#1078;", {Form::kAnsi, 1252}), "é &#1078;") << "of a topic";
}

TEST(XmlText, IsUtf8WhereItDoesNotFitTheDeclaration) {
    const std::string head = "<?xml version='1.0' encoding='ISO-8859-1'  ?>\r\n";
    const std::pair<std::string, bool> cases[] = {
        {"a \"é\" ÿ \u00A0 &#233; &#65; &amp;", true},
        {Lone(0x93) + "é", true},
        {"Save as…", false},
        {"\u0081", false},
        {"“é”", false},
        {"Привет, 日本語 😀", false},
        {"typed as &#8211;, and so to stay", false},
    };
    for (const auto& [text, fits] : cases) {
        const DecodedText xml = XmlToWrite(head + text);
        const std::string bytes = EncodeProjectText(xml.text, xml.encoding);
        EXPECT_EQ(bytes.find(fits ? "encoding='ISO-8859-1'  ?>" : "encoding='UTF-8'  ?>"), 20U)
            << text;
        if (!fits) {
            EXPECT_TRUE(bytes.ends_with("\r\n" + text)) << text;
        }
        if (text.starts_with(Lone(0x93))) continue;
        EXPECT_TRUE(DecodeXmlText(bytes, 1251).text.ends_with("\r\n" + text)) << text;
    }
    const DecodedText bare = XmlToWrite("<a>ж</a>");
    EXPECT_EQ(EncodeProjectText(bare.text, bare.encoding), "<a>ж</a>");
}

TEST(LanguageOption, NumberDecides) {
    for (const char* option : {"", "   ", "English", "0x", "0", "-1033", "99999999999"}) {
        EXPECT_EQ(CodePageOfLanguageOption(option), 0) << "'" << option << "'";
    }
    EXPECT_EQ(CodePageOfLanguageOption("0x409 English (United States)"), 1252);
    EXPECT_EQ(CodePageOfLanguageOption(" 0X411 Japanese"), 932);
    EXPECT_EQ(CodePageOfLanguageOption("1041"), 932);
    const std::pair<int, int> pages[] = {
        {0x407, 1252}, {0x411, 932},  {0x419, 1251}, {0x404, 950},  {0xC04, 950},  {0x804, 936},
        {0x412, 949},  {0x415, 1250}, {0x408, 1253}, {0x41F, 1254}, {0x40D, 1255}, {0x401, 1256},
        {0x427, 1257}, {0x42A, 1258}, {0x41E, 874},  {0x81A, 1250}, {0xC1A, 1251}};
    for (const auto& [language, page] : pages) {
        EXPECT_EQ(CodePageOfLanguageOption(std::to_string(language)), page) << language;
    }
}

TEST(TopicEncoding, MarkThenDeclarationThenUtf8ThenPage) {
    const std::tuple<std::string_view, Form, int> cases[] = {
        {"<html>", Form::kAnsi, 1250},
        {"<p>gr\xFC\xDF", Form::kAnsi, 1250},
        {"<p>grüß", Form::kUtf8, 1250},
        {"<META CharSet='UTF-8'>\xFC", Form::kUtf8, 1250},
        {"<meta charset=\"shift_jis\">grüß", Form::kAnsi, 932},
        {"<meta http-equiv=Content-Type content=\"text/html; charset=windows-1251\">", Form::kAnsi,
         1251},
        {"<meta content='text/html;charset=koi8-r' http-equiv='content-type'>", Form::kAnsi, 20866},
        {"<meta charset=klingon>grüß", Form::kUtf8, 1250},
        {"<meta charset=klingon>\xFC", Form::kAnsi, 1250},
        {"<meta charset=", Form::kAnsi, 1250},
        {"<body>charset=shift_jis", Form::kAnsi, 1250},
        {"<script charset=\"utf-8\" src=\"a.js\"></script><meta charset=\"windows-1251\">\xE6",
         Form::kAnsi, 1251},
        {"\xEF\xBB\xBF<meta charset=shift_jis>", Form::kUtf8WithMark, 1250},
        {"\xFF\xFE<", Form::kUtf16LittleEndian, 1250},
        {"\xFE\xFF", Form::kUtf16BigEndian, 1250}};
    for (const auto& [bytes, form, page] : cases) {
        const TextEncoding found = TopicEncoding(bytes, 1250);
        EXPECT_EQ(static_cast<int>(found.form), static_cast<int>(form)) << bytes;
        EXPECT_EQ(form == Form::kAnsi ? found.code_page : page, page) << bytes;
    }
}

TEST(TopicEncoding, UnknownCharsetNamesHaveNoPage) {
    EXPECT_EQ(CodePageOfCharset("Windows-1258"), 1258);
    EXPECT_EQ(CodePageOfCharset("ISO-8859-9"), 1254);
    for (const char* name : {"", "windows-125", "windows-125x", "windows-1259", "windows-12510"}) {
        EXPECT_EQ(CodePageOfCharset(name), 0) << name;
    }
}

}  // namespace
}  // namespace quorrel
