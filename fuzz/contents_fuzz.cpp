// A contents file read, written and read again. Input: the edition, the text.
#include "formats/htmlhelp/hhc.hpp"
#include "fuzz_support.hpp"

using namespace quorrel;

static std::string ReadAndWrite(const std::string& text, bool is_javahelp_edition) {
    const fuzz::QuietTrap trap;
    TopicTables tables;
    fuzz::FillTopics(tables.ListTopics);
    const ContentsSource source{fuzz::kContentsFile, is_javahelp_edition, tables.ListTopics,
                                tables.ListAliases, trap};
    TreeView tree;
    std::string site_properties;
    ReadContents(text, source, tree, site_properties);
    return WriteContents(tree, site_properties, fuzz::kProject);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool is_javahelp_edition = input.Choice(2) == 1;
    const std::string written = ReadAndWrite(input.RestAsText(), is_javahelp_edition);
    (void)ReadAndWrite(written, is_javahelp_edition);
    return 0;
}
