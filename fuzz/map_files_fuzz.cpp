// The aliases and the context numbers. Input: the length of the first text in lines (a digit),
// that text, the other text.
#include "formats/htmlhelp/map_files.hpp"
#include "fuzz_support.hpp"
#include "project/verify_map_ids.hpp"

using namespace quorrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    std::string aliases;
    for (unsigned lines = input.Choice(16); lines > 0; --lines) {
        aliases.append(input.Line()).append("\n");
    }
    const std::string text = input.RestAsText();
    aliases = DecodeProjectText(std::move(aliases), kWesternCodePage).text;
    (void)FindMapFiles(text);
    (void)FindMapFiles(aliases);

    TopicTables tables;
    fuzz::FillTopics(tables.ListTopics);
    std::int64_t next_integer = 0;
    ReadAliases(aliases, fuzz::kProject, tables.ListTopics);
    ReadMapHeader(text, tables.ListTopics, next_integer);
    fuzz::Check(next_integer >= 0, "the highest number does not fall");
    verify_map_ids(tables, "IDH_");

    // Only the numbers of known aliases are written, so the highest may be lower then.
    const std::string written = WriteMapHeader(tables.ListTopics);
    std::int64_t written_integer = 0;
    ReadMapHeader(written, tables.ListTopics, written_integer);
    fuzz::Check(written_integer <= next_integer, "no number is made up");
    (void)WriteAliases(tables.ListTopics, fuzz::kProject);
    return 0;
}
