// A contents file read, written and read again. Input: the edition, the text.
#include "formats/htmlhelp/hhc.hpp"
#include "fuzz_support.hpp"

using namespace quorrel;

static std::string ReadAndWrite(const std::string& text, bool is_javahelp_edition) {
    const fuzz::QuietTrap trap;
    TopicTables tables;
    fuzz::FillTopics(tables.ListTopics);
    // Locations are read relative to the contents file and written relative to the project, so
    // only where both lie in one folder do they stay.
    const ContentsSource source{fuzz::kProject, is_javahelp_edition, tables.ListTopics,
                                tables.ListAliases, trap};
    TreeView tree;
    std::string site_properties;
    ReadContents(text, source, tree, site_properties);
    return WriteContents(tree, site_properties, fuzz::kProject);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool is_javahelp_edition = input.Choice(2) == 1;
    const auto read_and_write = [&](const std::string& text) {
        return ReadAndWrite(text, is_javahelp_edition);
    };
    const std::string text = input.RestAsText();
    if (!fuzz::EndsItsSiteProperties(text)) return 0;
    fuzz::CheckSettles(text, read_and_write);
    return 0;
}
