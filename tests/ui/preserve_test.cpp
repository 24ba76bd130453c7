#include <gtest/gtest.h>

#include "editor/preserve_source.hpp"
#include "support/preserve_cases.hpp"
#include "tools/topic_check.hpp"

namespace quorrel::test {
namespace {

namespace fs = std::filesystem;

/// The edits in each topic of a folder, in the real engine.
void CheckTopics(const fs::path& folder, const std::vector<std::string>& edits) {
    EnginePage page;
    const std::vector<fs::path> topics = TopicsIn(folder);
    ASSERT_FALSE(topics.empty());
    std::size_t edited = 0;
    for (const fs::path& topic : topics) {
        for (const std::string& edit : edits) {
            const TopicOutcome outcome = CheckTopic(page, topic, edit);
            EXPECT_NE(outcome.result, TopicOutcome::Result::kFailed)
                << edit << " in " << topic << ": " << outcome.reason;
            if (outcome.result == TopicOutcome::Result::kOk) ++edited;
        }
    }
    EXPECT_GE(edited, topics.size() / 2);
}

TEST(PreserveInTheEngine, TheCasesAreWhatTheEngineMakes) {
    EnginePage page;
    for (const PreserveCase& it : PreserveCases()) {
        // The mark is the loader's.
        const bool has_mark = it.original.starts_with("\xEF\xBB\xBF");
        ASSERT_TRUE(page.Load(it.original.substr(has_mark ? 3 : 0), "Z:\\a.htm"));
        EXPECT_EQ(page.Serialised(), it.base) << it.name;
        ASSERT_TRUE(page.Load(it.edited, "Z:\\a.htm"));
        const std::string wanted = page.Contents();
        ASSERT_TRUE(page.Load(it.expected.substr(has_mark ? 3 : 0), "Z:\\a.htm"));
        EXPECT_EQ(page.Contents(), wanted) << it.name;
    }
}

TEST(PreserveInTheEngine, TopicsOfTheSampleKeepTheirSource) {
    CheckTopics(QUORREL_SAMPLES, EditNames());
}

TEST(PreserveInTheEngine, TopicsOfAChosenFolderKeepTheirSource) {
    const char* folder = std::getenv("QUORREL_TOPICS");
    if (folder == nullptr) GTEST_SKIP() << "QUORREL_TOPICS names no folder";
    CheckTopics(folder, {"word", "paragraph", "bold"});
}

}  // namespace
}  // namespace quorrel::test
