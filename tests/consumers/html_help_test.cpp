// A compiler of HTML Help on what the program writes.
#include <algorithm>

#include "platform/text.hpp"
#include "support/project_session.hpp"
#include "tools.hpp"

namespace quorrel {
namespace {

using test::HasTool;
using test::RunTool;
using test::ToolRun;

TEST(HtmlHelpTools, TheCompiledFileHoldsEveryTopic) {
    SKIP_WITHOUT("chmcmd", "fp-utils");
    SKIP_WITHOUT("extract_chmLib", "libchm-bin");
    const test::ScratchFolder folder;
    test::CopySample(folder, "htmlhelp");
    ASSERT_NO_FATAL_FAILURE(test::RunCommand(folder, {"resave", "--all"}, "p/sourdough.hhp"));
    // On a system with "/" paths this compiler takes file names with backslashes in all parts of a
    // project but the aliases, where it looks for them as they stand.
    folder.Write("p/sourdough.ali", ReplaceAll(folder.Read("p/sourdough.ali"), "\\", "/"));
    const ToolRun compiled = RunTool(folder.Native("p"), "chmcmd sourdough.hhp");
    ASSERT_EQ(compiled.status, 0) << compiled.output;
    const ToolRun unpacked = RunTool(folder.Native("p"), "extract_chmLib sourdough.chm ../out");
    ASSERT_EQ(unpacked.status, 0) << unpacked.output;
    const test::ProjectSession session(folder, "p/sourdough.hhp", "html");
    const ListView& topics = session.main.topics.ListTopics;
    ASSERT_GT(topics.Count(), 5);
    for (int i = 1; i <= topics.Count(); ++i) {
        const std::string file =
            ReplaceAll(topics.At(i).SubItems(topic_cell::kLocation), "\\", "/");
        EXPECT_EQ(folder.Read("out" + file), folder.Read("p" + file)) << file;
    }
    for (const std::string file : {"sourdough.hhc", "sourdough.hhk"}) {
        EXPECT_EQ(folder.Read("out/" + file), folder.Read("p/" + file)) << file;
    }
}

}  // namespace
}  // namespace quorrel
