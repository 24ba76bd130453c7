// What an installation puts beside the program, as it lies in the source tree.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "platform/text.hpp"

namespace quorrel::test {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = QUORREL_SOURCE;

struct Family {
    const char* name;
    /// What the program copies from the folder by name.
    std::vector<std::string> support_files;
    bool topics_are_below;  // the folder that the files are copied to
};

std::vector<Family> Families() {
    return {
        {"htmlhelp", {"rtex.gif", "dwnex.gif", "htmlhelp.css", "master.js", "report.css"}, false},
        {"javahelp", {"javahelp.css", "report.css"}, true}};
}

std::string Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> FirstGroups(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        found.push_back((*at)[1]);
    }
    return found;
}

/// The topic templates of a family by name, as the list of the New Topic dialog has them.
std::vector<fs::path> Templates(const Family& family) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::directory_iterator(kSource / "templates" / family.name)) {
        if (entry.path().extension() == ".htm") found.push_back(entry.path());
    }
    std::ranges::sort(found, {},
                      [](const fs::path& path) { return UpperAscii(path.filename().string()); });
    return found;
}

TEST(TopicTemplates, ThePlainOneIsPreselectedAndAllTakeTheTitle) {
    for (const Family& family : Families()) {
        const std::vector<fs::path> templates = Templates(family);
        ASSERT_FALSE(templates.empty()) << family.name;
        EXPECT_EQ(templates.front().filename(), "Blank.htm") << family.name;
        for (const fs::path& path : templates) {
            const std::string text = Bytes(path);
            EXPECT_TRUE(Contains(text, "<title>[TITLE]</title>")) << path;
            EXPECT_TRUE(Contains(text, "[TITLE]</h1>")) << path;
        }
    }
}

TEST(TopicTemplates, WhatTheyReferToIsThere) {
    for (const Family& family : Families()) {
        for (const fs::path& path : Templates(family)) {
            const std::string text = Bytes(path);
            for (const std::string& target : FirstGroups(text, "(?:href|src)=\"([^\"]*)\"")) {
                if (target.starts_with("#")) {
                    EXPECT_TRUE(Contains(text, "name=\"" + target.substr(1) + "\""))
                        << path << target;
                    continue;
                }
                // Only these follow a topic: into its folder, or into that of the project, which
                // is the one above in a new JavaHelp project.
                const std::string place = family.topics_are_below ? "../" : "";
                ASSERT_TRUE(target.starts_with(place)) << path << target;
                EXPECT_EQ(std::ranges::count(family.support_files, target.substr(place.size())), 1)
                    << path << target;
            }
        }
    }
}

TEST(TopicTemplates, TextsSuitEveryCodePageAndOldEditors) {
    for (const Family& family : Families()) {
        for (const auto& entry : fs::directory_iterator(kSource / "templates" / family.name)) {
            if (entry.path().extension() == ".gif") continue;
            const std::string text = Bytes(entry.path());
            EXPECT_TRUE(std::ranges::all_of(text, [](char c) {
                return c == '\r' || c == '\n' || (c >= ' ' && c <= '~');
            })) << entry.path();
            EXPECT_TRUE(text.ends_with(kLineEnd)) << entry.path();
            const std::string without = ReplaceAll(text, kLineEnd, "");
            EXPECT_EQ(without.find_first_of("\r\n"), npos) << entry.path();
            EXPECT_FALSE(Contains(text, "://")) << "remote: " << entry.path();
        }
    }
}

}  // namespace
}  // namespace quorrel::test
