#include "editor/source_colors.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quorrel::test {
namespace {

using Token = SourceToken;

char Sign(Token token) {
    if (token == Token::kLineComment) return 'c';
    if (token == Token::kBlockComment) return 'C';
    return ".TaveDjsP"[static_cast<std::size_t>(token) - 1];
}

/// One sign for each character of the text, line by line.
std::string Signs(std::u16string_view text) {
    std::string signs;
    SourceState state;
    while (true) {
        const std::u16string_view line = text.substr(0, text.find(u'\n'));
        std::vector<SourceTokenSpan> tokens;
        state = SourceState::Unpacked(TokenizeSourceLine(line, state, tokens).Packed());
        std::string of_line(line.size(), '.');
        for (const auto& token : tokens) {
            of_line.replace(token.offset, token.size, token.size, Sign(token.token));
        }
        signs += of_line;
        if (line.size() == text.size()) return signs;
        signs += '\n';
        text.remove_prefix(line.size() + 1);
    }
}

TEST(SourceColors, EveryPartOfThePageHasItsClass) {
    const struct {
        const char16_t* text;
        const char* signs;
    } cases[] = {
        {u"a <b>c</b> < d", "..TTT.TTTT...."},
        {u"<p id=x class='y z'/>", "TT.aaTv.aaaaaTvvvvvTT"},
        {u"&amp; &#65; & &x", "eeeee.eeeee....."},
        {u"<!-- c --> t <!-->t<!--->t", "cccccccccc...ccccc.cccccc."},
        {u"<!-- a\nb\nc --!>d", "CCCCCC\nC\nCCCCCC."},
        {u"<!DOCTYPE html>t<!OBJECT\nclassid=x>t", "DDDDDDDDDDDDDDD.DDDDDDDD\nDDDDDDDDDD."},
        {u"<?xml version='1'?>t", "DDDDDDDDDDDDDDDDDDD."},
        {u"<a href=\"1\n>2\" b>c", "TT.aaaaTvv\nvvv.aT."},
        {u"<a\nb\n=\nc>d", "TT\na\nT\nvT."},
        {u"<script>if (a<b)\n'</b>'</SCRIPT >t", "TTTTTTTTjjjjjjjj\njjjjjjTTTTTTTT.T."},
        {u"<style\n>p{}<!--</style>t", "TTTTTT\nTsssssssTTTTTTTT."},
        {u"<% a\n'>' %>t<?php 1 ?>t", "PPPP\nPPPPPP.PPPPPPPPPP."},
        {u"<a b=<%=1%> c='<% \"' %>'>d", "TT.aTPPPPPP.aTvPPPPPPPPvT."},
        {u"<script><%1\n%>j</script>", "TTTTTTTTPPP\nPPjTTTTTTTTT"},
        {u"</>1<1></a b>", ".......TTT.aT"},
    };
    for (const auto& row : cases) {
        const std::u16string text = row.text;
        EXPECT_EQ(Signs(text), row.signs) << std::string(text.begin(), text.end());
    }
}

TEST(SourceColors, CommentsAreGreenTextIsBlackAndTheRestBlue) {
    const std::pair<int, int> colors[] = {{8193, 0x008000}, {24577, 0x008000}, {1, 0},
                                          {0, 0x0000FF},    {9, 0x0000FF},     {-1, 0x0000FF}};
    for (const auto& [code, rgb] : colors) {
        const TokenColor color = SourceTokenColor(code);
        EXPECT_EQ(color.red << 16 | color.green << 8 | color.blue, rgb) << code;
        EXPECT_EQ(color.style, 2);
    }
}

TEST(SourceColors, TokensOfAnyTextLieInOrderWithinTheLine) {
    const std::u16string_view pieces[] = {
        u"<",       u">",       u"!",  u"--", u"<!--",  u"-->", u"<script", u"</script>",
        u"<style>", u"</style", u"%>", u"<%", u"<?php", u"?>",  u"\"",      u"'",
        u"=",       u"a",       u" ",  u"&",  u";",     u"/",   u"\u2028"};
    std::mt19937 random(1);
    SourceState state;
    for (int round = 0; round < 20000; ++round) {
        std::u16string line;
        for (unsigned count = random() % 12; count > 0; --count) {
            line += pieces[random() % std::size(pieces)];
        }
        std::vector<SourceTokenSpan> tokens;
        const SourceState next = TokenizeSourceLine(line, state, tokens);
        std::size_t end = 0;
        for (const auto& token : tokens) {
            ASSERT_GE(token.offset, end);
            ASSERT_GT(token.size, 0U);
            end = token.offset + token.size;
        }
        ASSERT_LE(end, line.size());
        ASSERT_EQ(SourceState::Unpacked(next.Packed()), next);
        state = next;
    }
}

TEST(SourceColors, AHugeLineTakesOneWalk) {
    // Each of these would take minutes if every token looked through the rest of the line.
    for (const std::u16string_view piece :
         {u"<!--x-->", u"<% %>", u"<a b='", u"&a", u"<script><%%>", u"<!D <%%>", u"<a b='<%%>",
          u"<x", u"--"}) {
        std::u16string line;
        while (line.size() < 1'000'000) line += piece;
        std::vector<SourceTokenSpan> tokens;
        TokenizeSourceLine(line, {}, tokens);
        EXPECT_LE(tokens.size(), line.size());
    }
}

}  // namespace
}  // namespace quorrel::test
