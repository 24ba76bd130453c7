// How long it takes to put an edited topic back into its source.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "editor/preserve_source.hpp"
#include "platform/text.hpp"
#include "word_source.hpp"

namespace quorrel::bench {
namespace {

/// A topic of a given size in three texts.
struct Texts {
    std::string source;
    std::string base;
    std::string edited;
};

/// Paragraphs, lists and tables as people write them, with what the engine makes of them. Every
/// `edited_every`th paragraph is edited; 0 stands for the one in the middle only.
Texts MakeTexts(std::size_t size, std::size_t edited_every) {
    WordSource words(1);
    Texts texts;
    texts.source =
        "<!DOCTYPE html>\r\n<HTML>\r\n<HEAD>\r\n<TITLE>Sample</TITLE>\r\n</HEAD>\r\n<BODY>\r\n";
    texts.base = "<!DOCTYPE html><html><head>\n<title>Sample</title>\n</head>\n<body>\n";
    texts.edited = texts.base;
    bool is_middle_edited = false;
    for (std::size_t number = 1; texts.source.size() < size; ++number) {
        std::string text;
        for (int line = 0; line < 6; ++line) text += words.Sentence() + "\n";
        const bool is_middle = !is_middle_edited && texts.source.size() > size / 2;
        const bool is_edited = edited_every == 0 ? is_middle : number % edited_every == 0;
        is_middle_edited = is_middle_edited || is_middle;
        texts.source += "<P CLASS=body>" + ReplaceAll(text, "\n", "\r\n") +
                        "<TABLE><TR><TD>one<TD>two &copy;</TABLE>\r\n<UL>\r\n<LI>x<LI>y</UL>\r\n";
        const std::string rest =
            "</p><table><tbody><tr><td>one</td><td>two \xC2\xA9</td></tr></tbody></table>\n<ul>\n"
            "<li>x</li><li>y</li></ul>\n";
        texts.base += "<p class=\"body\">" + text + rest;
        texts.edited +=
            std::string("<p class=\"body\">") + (is_edited ? "Edited " : "") + text + rest;
    }
    texts.source += "</BODY>\r\n</HTML>\r\n";
    texts.base += "\n\n</body></html>";
    texts.edited += "\n\n</body></html>";
    return texts;
}

void Preserve(benchmark::State& state, const Texts& texts) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(PreserveSource(texts.source, texts.base, texts.edited));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(texts.source.size()));
}

void OneWord(benchmark::State& state) {
    Preserve(state, MakeTexts(static_cast<std::size_t>(state.range(0)) * 1024, 0));
}
void EveryTenthParagraph(benchmark::State& state) {
    Preserve(state, MakeTexts(static_cast<std::size_t>(state.range(0)) * 1024, 10));
}
/// Nothing is left of the document.
void AllReplaced(benchmark::State& state) {
    Texts texts = MakeTexts(static_cast<std::size_t>(state.range(0)) * 1024, 0);
    texts.edited = ReplaceAll(ReplaceAll(texts.edited, "e", "ee"), "a", "o");
    Preserve(state, texts);
}
/// The same words again and again, with changes among them.
void RepeatedWords(benchmark::State& state) {
    Texts texts;
    for (std::int64_t at = 0; at < state.range(0) * 64; ++at) {
        texts.source += "<p>a a a a a a\r\n";
        texts.base += "<p>a a a a a a\n</p>";
        texts.edited += at % 3 == 0 ? "<p>a a b a a a\n</p>" : "<p>a a a a a a\n</p>";
    }
    const std::string head = "<html><head></head><body>";
    texts.base = head + texts.base + "</body></html>";
    texts.edited = head + texts.edited + "</body></html>";
    Preserve(state, texts);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(20)->Arg(100)->Arg(1024)->Arg(5 * 1024)->Unit(benchmark::kMillisecond);
}

BENCHMARK(OneWord)->Apply(Sizes);
BENCHMARK(EveryTenthParagraph)->Apply(Sizes);
BENCHMARK(AllReplaced)->Apply(Sizes);
BENCHMARK(RepeatedWords)->Apply(Sizes);

}  // namespace
}  // namespace quorrel::bench
