// A keyword index read, written and read again. Input: the text.
#include "formats/htmlhelp/hhk.hpp"
#include "fuzz_support.hpp"

using namespace quorrel;

static std::string ReadAndWrite(const std::string& text) {
    const fuzz::QuietTrap trap;
    TopicTables tables;
    fuzz::FillTopics(tables.ListTopics);
    KeywordState keywords;
    ReadKeywords(text, fuzz::kProjectFolder, keywords, tables.ListTopics, trap);
    return WriteKeywords(keywords, fuzz::kProject);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::Input(data, size).RestAsText();
    if (fuzz::EndsItsSiteProperties(text)) fuzz::CheckSettles(text, ReadAndWrite);
    return 0;
}
