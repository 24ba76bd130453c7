#include "project/left_behind_message.hpp"

#include <gtest/gtest.h>

#include "platform/text.hpp"

namespace quorrel {
namespace {

std::string Message(const std::vector<FileLeftBehind>& files, bool converts = false) {
    return LeftBehindMessage(files, converts,
                             [](std::string_view path) { return LowerAscii(path); });
}

TEST(LeftBehindMessage, HasALineForEachFileAndAnEnd) {
    EXPECT_EQ(Message({}), "");
    const std::string text = Message({{"A.HHP", {{"aliases", 3, 0}, {"pages", 1, 2}}}});
    EXPECT_TRUE(text.ends_with("\r\n\r\na.hhp: aliases (3), pages (1 of 2)")) << text;
    EXPECT_NE(text.find(".orig"), npos);
    EXPECT_EQ(Message({{"A", {{"x", 1}}}}, true).find(".orig"), npos);

    const FileLeftBehind file{"B", {{"lines", 1}}};
    const std::string most = Message(std::vector<FileLeftBehind>(12, file));
    EXPECT_TRUE(most.ends_with("\r\nb: lines (1)")) << most;
    const std::string many = Message(std::vector<FileLeftBehind>(40, file));
    EXPECT_TRUE(many.ends_with("\r\nand 29 more files")) << many;
    EXPECT_EQ(ReplaceAll(many, kLineEnd, "\n").size() - ReplaceAll(many, kLineEnd, "").size(),
              ReplaceAll(most, kLineEnd, "\n").size() - ReplaceAll(most, kLineEnd, "").size());
}

}  // namespace
}  // namespace quorrel
