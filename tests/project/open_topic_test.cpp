#include "project/open_topic.hpp"

#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

class OpenTopicTest : public ProjectFixture {
  protected:
    void SetUp() override {
        folder.Write("a.htm", "a");
        folder.Write("b.htm", "b");
        main.project.proj_path = folder.Windows();
        for (const char* name : {"a.htm", "b.htm"}) {
            ListRow& row = main.topics.ListTopics.Add(name);
            row.SetSubItem(topic_cell::kFullPath, folder.Windows(name));
            row.SetSubItem(topic_cell::kLocation, name[0] == 'a' ? "z" : "y");
        }
    }
};

TEST_F(OpenTopicTest, TakesAFullPathOrOneBelowTheProject) {
    OpenTopic(main, folder.Windows("a.htm") + "#mark");
    EXPECT_EQ(surface.DocumentHTML(), "a");
    OpenTopic(main, "b.htm#mark");
    EXPECT_EQ(surface.DocumentHTML(), "b");
    OpenTopic(main, "#only a mark");
    EXPECT_EQ(surface.DocumentHTML(), "b");
}

TEST_F(OpenTopicTest, SortingKeepsTheOpenTopic) {
    OpenTopicRow(main, main.topics.ListTopics.At(1));
    SortTopics(main, topic_cell::kLocation);
    EXPECT_EQ(main.topics.current_topic_index, 2);
    EXPECT_EQ(main.topics.ListTopics.At(2).Text(), "a.htm");
}

}  // namespace
}  // namespace quorrel::test
