// The four JavaHelp readers, and the writers on what they read. Input: which one, the text.
#include "formats/javahelp/helpset.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/jhm.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "fuzz_support.hpp"
#include "project/project_state.hpp"

using namespace quorrel;

static void FillTables(TopicTables& tables) {
    ListRow& topic = tables.ListTopics.Add("a");
    topic.SetSubItem(topic_cell::kMapId, "a");
    topic.SetSubItem(topic_cell::kFullPath, "C:\\p\\a.htm");
    tables.ListAliases.Add("b").SetSubItem(alias_cell::kPath, "C:\\p\\a.htm#b");
}

static std::string ReadAndWrite(unsigned format, const std::string& text) {
    constexpr std::string_view kProj = "C:\\p\\g.hs";
    const fuzz::QuietTrap quiet{};
    const Trap& trap = quiet;
    TopicTables tables;
    if (format == 0) {
        ProjectState project;
        project.proj = kProj;
        project.proj_path = "C:\\p";
        ReadHelpSet(text, project);
        return WriteHelpSet(project, true, true);
    }
    if (format == 1) {
        ReadMap(text, "C:\\p", tables.ListTopics, tables.ListAliases,
                [](const std::string& path) { return std::optional<std::string>(path); });
        return WriteMap(tables, kProj);
    }
    FillTables(tables);
    if (format == 2) {
        TreeView tree;
        ReadTocXml(text, tables, tree, trap);
        return WriteTocXml(tree);
    }
    KeywordState keywords;
    ReadIndexXml(text, keywords, tables, trap);
    try {
        return WriteIndexXml(keywords.ListKeywords, tables);
    } catch (const RuntimeError&) {
        return {};  // too large
    }
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const unsigned format = input.Choice(4);
    const std::string written = ReadAndWrite(format, input.RestAsText());
    (void)ReadAndWrite(format, written);
    return 0;
}
