// A map of JavaHelp read, written and read again: each entry comes back as a topic or an alias.
#include "formats/javahelp/jhm.hpp"
#include "fuzz_support.hpp"
#include "javahelp_tables.hpp"
#include "project/paths.hpp"

using namespace quorrel;

static void Read(const std::string& text, TopicTables& tables) {
    ReadMap(
        text, fuzz::kHelpSetFolder, tables.ListTopics, tables.ListAliases,
        [](const std::string& address) { return MakeFullPath(address, fuzz::kHelpSetFolder); },
        [](const std::string& path) { return std::optional<std::string>(path); });
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TopicTables tables;
    Read(fuzz::Input(data, size).RestAsText(), tables);
    TopicTables again;
    Read(WriteMap(tables, fuzz::kHelpSet), again);
    const auto entries = [](const TopicTables& of) {
        int count = of.ListTopics.Count();
        for (int i = 1; i <= of.ListAliases.Count(); ++i) {
            const ListRow& alias = of.ListAliases.At(i);
            if (!alias.Text().empty() || !alias.SubItems(alias_cell::kPath).empty()) ++count;
        }
        return count;
    };
    fuzz::Check(entries(again) == entries(tables), "an entry for each entry");
    return 0;
}
