// Look-ups and repairs in the topic table, each against the plain scan that it stands for.
#include <gtest/gtest.h>

#include <random>

#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/find_topic.hpp"
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

TEST(FindTopic, IgnoresCaseAndGivesTheFirstRow) {
    TopicTables tables;
    AddTopic(tables.ListTopics, "b", "C:\\p\\\xC3\x84.htm", "one");
    AddTopic(tables.ListTopics, "a", "c:\\P\\\xC3\xA4.HTM", "ONE");
    EXPECT_EQ(FindTopic(tables.ListTopics, "C:\\P\\\xC3\xA4.htm"), 1);
    EXPECT_EQ(FindAlias(tables.ListTopics, "One"), 1);
    EXPECT_EQ(tables.ListTopics.At(1).Text(), "a");
    EXPECT_EQ(FindTopic(tables.ListTopics, "C:\\p"), -1);
}

TEST(VerifyMapIds, FillsGapsFromFileNames) {
    TopicTables tables;
    ListView& topics = tables.ListTopics;
    AddTopic(topics, "1", "C:\\p\\a-b.htm");
    AddTopic(topics, "2", "C:\\p\\q\\a_b.htm");
    AddTopic(topics, "3", "C:\\p\\A.B.htm");
    AddTopic(topics, "4", "C:\\p\\\xC3\xA9t\xC3\xA9!.htm");
    AddTopic(topics, "5", "C:\\p\\x.htm", "a_b");
    AddTopic(topics, "6", "");
    verify_map_ids(topics, "P_ ");
    std::vector<std::string> ids;
    for (int i = 1; i <= topics.Count(); ++i) ids.push_back(topics.At(i).SubItems(1));
    // The number behind a taken name is the row that has it; the prefix loses its blanks.
    EXPECT_EQ(ids, (std::vector<std::string>{"P_a_b", "P_a_b1", "P_A_B12", "P__t__", "a_b", "P_"}));
}

TEST(VerifyMapIds, AvoidsIdentifiersThatOtherRowsHave) {
    TopicTables tables;
    AddTopic(tables.ListTopics, "1", "C:\\p\\a.htm");
    AddTopic(tables.ListTopics, "2", "C:\\p\\x.htm", "A");
    AddTopic(tables.ListTopics, "3", "C:\\p\\y.htm", "a2");
    verify_map_ids(tables.ListTopics, "");
    EXPECT_EQ(tables.ListTopics.At(1).SubItems(1), "a23");
}

TEST(VerifyMapIds, ATopicWithoutANameGetsItsOwnNumber) {
    TopicTables tables;
    AddTopic(tables.ListTopics, "1", "C:\\p\\.a");
    AddTopic(tables.ListTopics, "2", "C:\\p\\.b");
    AddTopic(tables.ListTopics, "3", "C:\\p\\c.htm", "4");
    AddTopic(tables.ListTopics, "4", "C:\\p\\.d");
    verify_map_ids(tables.ListTopics, "");
    EXPECT_EQ(tables.ListTopics.At(1).SubItems(1), "1");
    EXPECT_EQ(tables.ListTopics.At(2).SubItems(1), "2");
    EXPECT_EQ(tables.ListTopics.At(4).SubItems(1), "43");
}

TEST(VerifyMapIds, ManyTopicsOfOneNameCostNoMoreThanTheirIdentifiers) {
    TopicTables tables;
    for (int i = 0; i < 3000; ++i)
        AddTopic(tables.ListTopics, "t", "C:\\p\\" + std::to_string(i) + "\\index.htm");
    verify_map_ids(tables.ListTopics, "");
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

TEST(TopicPathFinder, TakesAPathWithinALongerOneOnlyBehindABackslash) {
    TopicTables tables;
    AddTopic(tables.ListTopics, "1", "C:\\x\\ba.htm");
    ListRow& wanted = AddTopic(tables.ListTopics, "2", "C:\\x\\a.htm");
    TopicPathFinder finder(tables.ListTopics);
    EXPECT_EQ(finder.Find("a.htm"), &wanted);
    EXPECT_EQ(finder.Find("C:\\X\\A"), &wanted);
    EXPECT_EQ(finder.Find("C:\\y"), nullptr);
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
        for (std::size_t n = random() % 12; n > 0; --n)
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
