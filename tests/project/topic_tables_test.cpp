// Look-ups and repairs in the topic table, each against the plain scan that it stands for.
#include <gtest/gtest.h>

#include <random>

#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/keyword_cell.hpp"
#include "project/project_state.hpp"
#include "project/topic_path_finder.hpp"
#include "project/verify_map_ids.hpp"

namespace quorrel {
namespace {

ListRow& AddTopic(ListView& topics, std::string title, std::string path, std::string id = {}) {
    ListRow& row = topics.Add(std::move(title));
    row.SetSubItem(topic_cell::kFullPath, std::move(path));
    row.SetSubItem(topic_cell::kMapId, std::move(id));
    return row;
}

/// The identifiers after the repair of topics with these paths and identifiers.
std::string Repaired(const std::vector<std::pair<const char*, const char*>>& rows,
                     std::string_view prefix) {
    TopicTables tables;
    for (const auto& [path, id] : rows) {
        // The titles keep the rows in this order.
        AddTopic(tables.ListTopics, std::to_string(tables.ListTopics.Count()), path, id);
    }
    verify_map_ids(tables, prefix);
    std::string ids;
    for (int i = 1; i <= tables.ListTopics.Count(); ++i) {
        ids += tables.ListTopics.At(i).SubItems(topic_cell::kMapId) + " ";
    }
    return ids;
}

TEST(VerifyMapIds, FillsGapsFromFileNames) {
    // The number behind a taken name is the row that has it; the prefix loses its blanks.
    EXPECT_EQ(Repaired({{"C:\\p\\a-b.htm", ""},
                        {"C:\\p\\q\\a_b.htm", ""},
                        {"C:\\p\\A.B.htm", ""},
                        {"C:\\p\\\xC3\xA9t\xC3\xA9!.htm", ""},
                        {"C:\\p\\x.htm", "a_b"},
                        {"", ""}},
                       "P_ "),
              "P_a_b P_a_b1 P_A_B12 P__t__ a_b P_ ");
    EXPECT_EQ(Repaired({{"C:\\a.htm", ""}, {"C:\\x.htm", "A"}, {"C:\\y.htm", "a2"}}, ""),
              "a23 A a2 ");
    // A topic without a name gets its own number.
    EXPECT_EQ(Repaired({{"C:\\.a", ""}, {"C:\\.b", ""}, {"C:\\c.htm", "4"}, {"C:\\.d", ""}}, ""),
              "1 2 4 43 ");
}

TEST(VerifyMapIds, MissesNoRowOfATableSortedByIdentifier) {
    TopicTables tables;
    for (const char* file : {"C:\\d.htm", "C:\\c.htm", "C:\\b.htm", "C:\\q\\b.htm", "C:\\a.htm"}) {
        AddTopic(tables.ListTopics, "t", file);
    }
    tables.ListTopics.SortBy(topic_cell::kMapId);
    tables.ListAliases.Add("A");
    verify_map_ids(tables, "");
    std::string ids;
    for (int i = 1; i <= 5; ++i) ids += tables.ListTopics.At(i).SubItems(topic_cell::kMapId) + " ";
    EXPECT_EQ(ids, "a1 b b3 c d ");
}

TEST(VerifyMapIds, ManyTopicsOfOneNameCostNoMoreThanTheirIdentifiers) {
    TopicTables tables;
    for (int i = 0; i < 3000; ++i)
        AddTopic(tables.ListTopics, "t", "C:\\p\\" + std::to_string(i) + "\\index.htm");
    verify_map_ids(tables, "");
    EXPECT_EQ(tables.ListTopics.At(12).SubItems(1), "index1234567891011");
    EXPECT_TRUE(tables.ListTopics.At(3000).SubItems(1).ends_with("29982999"));
}

/// The scan that TopicPathFinder stands for.
const ListRow* Scan(const ListView& topics, const std::string& path) {
    const std::string wanted = UpperUnicode(path);
    for (int i = 1; i <= topics.Count(); ++i) {
        const std::string full = UpperUnicode(topics.At(i).SubItems(topic_cell::kFullPath));
        const std::size_t at = full.find(wanted);
        if (at == 0 || (at != npos && full[at - 1] == '\\')) return &topics.At(i);
    }
    return nullptr;
}

TEST(TopicPathFinder, AgreesWithTheScan) {
    std::mt19937 random(7);
    const auto text = [&](std::string_view alphabet, std::size_t longest) {
        std::string result;
        for (std::size_t n = random() % (longest + 1); n > 0; --n) {
            result += alphabet[random() % alphabet.size()];
        }
        return result;
    };
    std::size_t hits = 0;
    for (int round = 0; round < 300; ++round) {
        TopicTables tables;
        // Few letters, so that paths are parts of one another; colons here and there.
        const std::string_view letters = round % 2 == 0 ? "ab\\" : "aB:\\";
        for (int i = 0; i < 8; ++i) AddTopic(tables.ListTopics, text("xyz", 2), text(letters, 7));
        TopicPathFinder finder(tables.ListTopics);
        for (int i = 0; i < 40; ++i) {
            const std::string path = text(letters, 4);
            const ListRow* expected = Scan(tables.ListTopics, path);
            ASSERT_EQ(finder.Find(path), expected) << path << " in round " << round;
            if (expected != nullptr) ++hits;
        }
    }
    EXPECT_GT(hits, 1000U);
}

TEST(KeywordCells, AgreeWithAPlainSearch) {
    std::mt19937 random(11);
    TopicTables tables;
    ListRow& row = AddTopic(tables.ListTopics, "t", "C:\\a.htm");
    ErrorLog log([](std::string_view) {});
    const Trap trap(log, "test: ");
    TextBudget budget(trap);
    KeywordCells cells(budget);
    std::string expected;
    for (int i = 0; i < 4000; ++i) {
        std::string key = "key ";
        for (std::size_t n = random() % (i % 3 == 0 ? 40 : 12); n > 0; --n)
            key += static_cast<char>('a' + random() % 3);
        if (i % 7 == 0) key.erase(0, random() % key.size());
        if (!Contains(expected, key)) expected += key + ";";
        cells.Append(row, key);
    }
    EXPECT_GT(expected.size(), 8192U) << "the long form is not reached";
    EXPECT_EQ(row.SubItems(topic_cell::kKeywords), expected);
}

}  // namespace
}  // namespace quorrel
