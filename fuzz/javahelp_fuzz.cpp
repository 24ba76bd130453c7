// The four JavaHelp readers. Input: which one, the text.
#include "formats/javahelp/helpset.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/jhm.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "fuzz_support.hpp"
#include "project/project_state.hpp"

using namespace quorrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const fuzz::QuietTrap quiet{};
    const Trap& trap = quiet;
    TopicTables tables;
    ListRow& topic = tables.ListTopics.Add("a");
    topic.SetSubItem(topic_cell::kMapId, "a");
    topic.SetSubItem(topic_cell::kFullPath, "C:\\p\\a.htm");
    tables.ListAliases.Add("b").SetSubItem(alias_cell::kPath, "C:\\p\\a.htm#b");
    const unsigned reader = input.Choice(4);
    const std::string text = input.RestAsText();
    if (reader == 0) {
        ProjectState project;
        project.proj_path = "C:\\p";
        ReadHelpSet(text, project);
    } else if (reader == 1) {
        ReadMap(text, "C:\\p", tables.ListTopics, tables.ListAliases,
                [](const std::string& path) { return std::optional<std::string>(path); });
    } else if (reader == 2) {
        TreeView tree;
        ReadTocXml(text, tables, tree, trap);
    } else {
        KeywordState keywords;
        ReadIndexXml(text, keywords, tables, trap);
    }
    return 0;
}
