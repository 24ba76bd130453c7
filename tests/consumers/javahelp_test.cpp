// JavaHelp's own programs and an XML parser on what the program writes.
#include <algorithm>
#include <set>
#include <sstream>

#include "contents/index_targets.hpp"
#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "support/project_session.hpp"
#include "tools.hpp"

namespace quorrel {
namespace {

using test::HasTool;
using test::RunTool;
using test::ToolRun;

constexpr const char* kJar = "/usr/share/java/jhall.jar";

class JavaHelpTools : public testing::Test {
  protected:
    void Convert(const std::string& project) {
        ASSERT_NO_FATAL_FAILURE(test::RunCommand(folder, {"convert"}, project));
    }
    /// What a viewer finds in the HelpSet, by a program of ours on JavaHelp's library.
    ToolRun View(const std::string& helpset) {
        const std::string source = QUORREL_TOOLS_FOLDER "/java/ReadHelpSet.java";
        const ToolRun compiled = RunTool(
            folder.Native(), "javac -d classes -cp " + std::string(kJar) + " '" + source + "'");
        EXPECT_EQ(compiled.status, 0) << compiled.output;
        return RunTool(folder.Native(), "java -Djava.awt.headless=true -cp classes:" +
                                            std::string(kJar) + " ReadHelpSet " + helpset);
    }
    /// The same by the tables of the project that it was made from.
    static std::string Expected(const MainForm& main, const std::string& home) {
        const TreeView& tree = main.contents.Tree1;
        int targets = 0, depth = 0;
        for (int i = 1; i <= tree.Count(); ++i) {
            if (!UnpackNodeData(tree.At(i).Tag).target.empty()) ++targets;
            int level = 1;
            for (const TreeNode* up = tree.At(i).Parent(); up != nullptr; up = up->Parent())
                ++level;
            depth = std::max(depth, level);
        }
        const ListView& table = main.keywords.ListKeywords;
        std::size_t lines = 0, leading = 0;
        for (int i = 1; i <= table.Count(); ++i) {
            const std::size_t groups =
                IsSeeAlso(table.At(i))
                    ? 0
                    : IndexTargets(table.At(i).SubItems(keyword_cell::IDX_TITLEPATH)).size();
            lines += std::max<std::size_t>(groups, 1);
            leading += groups;
        }
        std::ostringstream text;
        text << "title: " << main.project.project_title << "\nhome: " << home
             << "\nmap: " << main.topics.ListTopics.Count() << " ids, "
             << main.topics.ListTopics.Count() << " open\ncontents: " << tree.Count()
             << " items in " << depth << " levels, " << targets << " targets, " << targets
             << " open\nindex: " << lines << " items in 2 levels, " << leading << " targets, "
             << leading << " open\n";
        return text.str();
    }

    test::ScratchFolder folder;
};

#define SKIP_WITHOUT_JAVAHELP()                    \
    SKIP_WITHOUT("javac", "default-jdk-headless"); \
    if (!std::filesystem::exists(kJar))            \
    GTEST_SKIP() << kJar << " is not there (Debian package javahelp2)"

TEST_F(JavaHelpTools, AViewerReadsASavedProject) {
    SKIP_WITHOUT_JAVAHELP();
    test::CopySample(folder, "javahelp");
    ASSERT_NO_FATAL_FAILURE(
        test::RunCommand(folder, {"--edition", "javahelp", "resave", "--all"}, "p/sourdough.hs"));
    const test::ProjectSession session(folder, "p/sourdough.hs", "");
    EXPECT_EQ(View("p/sourdough.hs").output, Expected(session.main, "opens"));
}

TEST_F(JavaHelpTools, AViewerReadsAConvertedProject) {
    SKIP_WITHOUT_JAVAHELP();
    test::CopySample(folder, "htmlhelp");
    Convert("p/sourdough.hhp");
    const test::ProjectSession session(folder, "p/sourdough.hhp", "html");
    EXPECT_EQ(View("p/sourdough.hs").output, Expected(session.main, "opens"));
}

TEST_F(JavaHelpTools, TheTopicsOfAConvertedProjectAreFound) {
    SKIP_WITHOUT("jhindexer", "javahelp2");
    SKIP_WITHOUT("jhsearch", "javahelp2");
    test::CopySample(folder, "htmlhelp");
    Convert("p/sourdough.hhp");
    std::string topics;
    const test::ProjectSession session(folder, "p/sourdough.hs", "");
    const ListView& table = session.main.topics.ListTopics;
    for (int i = 1; i <= table.Count(); ++i) {
        topics += " ." + ReplaceAll(table.At(i).SubItems(topic_cell::kLocation), "\\", "/");
    }
    const ToolRun built = RunTool(folder.Native("p"), "jhindexer" + topics);
    ASSERT_EQ(built.status, 0) << built.output;
    ASSERT_TRUE(folder.Exists("p/JavaHelpSearch/DOCS")) << built.output;
    for (const std::string word : {"oven", "rye", "starter", "flour", "submarine"}) {
        std::set<std::string> holding;
        std::istringstream files(RunTool(folder.Native("p"), "grep -liw " + word + topics).output);
        for (std::string line; std::getline(files, line);) holding.insert(line.substr(2));
        const ToolRun query =
            RunTool(folder.Native("p"), "printf '" + word + "\\n.\\n' | jhsearch JavaHelpSearch");
        std::set<std::string> found;
        std::istringstream lines(query.output);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t begin = line.find("./");
            if (begin == npos) continue;
            found.insert(line.substr(begin + 2, line.find(" [") - begin - 2));
        }
        EXPECT_EQ(found, holding) << word << "\n" << query.output;
    }
}

TEST_F(JavaHelpTools, AViewerReadsAllLettersAndFilesInSubFolders) {
    SKIP_WITHOUT_JAVAHELP();
    folder.Write("p/html/a.htm", "<title>A</title><body>a</body>");
    folder.Write("p/g.hs",
                 "<?xml version='1.0' encoding='utf-8'?><title>Справка</title><homeID>a</homeID>\n"
                 "<mapref location=\"maps\\g.jhm\"/>\n"
                 "<view><data>sub/t.xml</data>TOCView</view>\n"
                 "<view><data>sub/i.xml</data>IndexView</view>\n");
    folder.Write("p/maps/g.jhm",
                 "<mapID target=\"a\" url=\"../html/a.htm\"/>\n"
                 "<mapID target=\"b\" url=\"html/a.htm#b\"/>\n");
    folder.Write("p/sub/t.xml",
                 "<tocitem text=\"Save as…\" target=\"a\">\n"
                 "<tocitem text=\"“The target=quoted”\" target=\"b\"/>\n"
                 "<tocitem text=\"Привет, 日本語\"/>\n</tocitem>\n");
    folder.Write("p/sub/i.xml",
                 "<indexitem text=\"«é»\" target=\"a\"/>\n"
                 "<indexitem text=\"日…\" target=\"b\"/>\n");
    ASSERT_NO_FATAL_FAILURE(
        test::RunCommand(folder, {"--edition", "javahelp", "resave", "--all"}, "p/g.hs"));
    EXPECT_EQ(View("p/g.hs texts").output,
              "title: Справка\nhome: opens\nmap: 2 ids, 2 open\n"
              "contents1: Save as… -> a\ncontents2: “The target=quoted” -> b\n"
              "contents2: Привет, 日本語\nindex1: «é» -> a\nindex1: 日… -> b\n");
    for (const std::string file : {"g.hs", "maps/g.jhm", "sub/t.xml", "sub/i.xml"}) {
        const ToolRun run = RunTool(folder.Native("p"), "xmllint --nonet --noent --noout " + file);
        EXPECT_EQ(run.status, 0) << run.output;
    }
}

TEST_F(JavaHelpTools, AViewerShowsEscapedTextsAsTheyWereTyped) {
    SKIP_WITHOUT_JAVAHELP();
    folder.Write("p/R&D.htm", "<title>A</title><body>a</body>");
    folder.Write("p/g.prj", "[Settings]\nxml_escapes=1\n");
    folder.Write("p/g.hs",
                 "<title>Q&A <1> &amp;amp;</title><homeID>a&b</homeID>"
                 "<mapref location=\"g.jhm\"/>\n<view><data>t&u.xml</data>TOCView</view>\n"
                 "<view><data>i.xml</data>IndexView</view>\n");
    folder.Write("p/g.jhm", "<mapID target=\"a&b\" url=\"R&D.htm\"/>\n");
    folder.Write("p/t&u.xml",
                 "<tocitem text=\"&quot;Q&A&quot; <&amp;lt;>\" target=\"a&b\"/>\n"
                 "<tocitem text=\"&amp;amp; %22 &hellip;\"/>\n");
    folder.Write("p/i.xml", "<indexitem text=\"&&&amp;quot;&quot;\" target=\"a&b\"/>\n");
    ASSERT_NO_FATAL_FAILURE(
        test::RunCommand(folder, {"--edition", "javahelp", "resave", "--all"}, "p/g.hs"));
    EXPECT_EQ(View("p/g.hs texts").output,
              "title: Q&A <1> &amp;\nhome: opens\nmap: 1 ids, 1 open\n"
              "contents1: \"Q&A\" <&lt;> -> a&b\ncontents1: &amp; %22 …\n"
              "index1: &&&quot;\" -> a&b\n");
}

/// A project of one topic and what is well-formed of it.
struct XmlCase {
    const char* why;
    std::string title, caption, map_id, index;
    std::string broken;  // the file that is not well-formed, or none
    std::string message;
};

const std::string kItem = "<indexitem text=\"k\" target=\"a\"/>\n";

const XmlCase kXmlCases[] = {
    {"escaped", "T", "less < more", "a", kItem, "", ""},
    {"a title stands as it is typed", "Bread & butter", "c", "a", kItem, "g.hs",
     "xmlParseEntityRef"},
    {"\"&\" in a caption stays", "T", "Bread & butter", "a", kItem, "gTOC.xml",
     "xmlParseEntityRef"},
    {"a map id stands as it is", "T", "c", "a<b", kItem, "g.jhm", "'<'"},
    {"\"&\" in a keyword stays", "T", "c", "a", "<indexitem text=\"b & c\" target=\"a\"/>\n",
     "gIndex.xml", "xmlParseEntityRef"},
    {"a group at the end of the index is not closed", "T", "c", "a",
     "<indexitem text=\"k\">\n" + kItem + "</indexitem>\n", "gIndex.xml",
     "Opening and ending tag mismatch: indexitem"},
    {"a group before the end is", "T", "c", "a",
     "<indexitem text=\"k\">\n" + kItem + "</indexitem>\n<indexitem text=\"l\"/>\n", "", ""},
};

TEST_F(JavaHelpTools, FilesAreWellFormedButForWhatIsNotEscaped) {
    SKIP_WITHOUT("xmllint", "libxml2-utils");
    const auto check = [&](const XmlCase& test, const std::string& broken) {
        ASSERT_NO_FATAL_FAILURE(
            test::RunCommand(folder, {"--edition", "javahelp", "resave", "--all"}, "p/g.hs"));
        for (const std::string file : {"g.hs", "g.jhm", "gTOC.xml", "gIndex.xml"}) {
            const ToolRun run = RunTool(folder.Native("p"), "xmllint --nonet --noout " + file);
            EXPECT_EQ(run.status != 0, file == broken) << test.why << "\n" << run.output;
            if (file != broken) continue;
            EXPECT_NE(run.output.find(test.message), npos) << test.why << "\n" << run.output;
        }
    };
    for (const XmlCase& test : kXmlCases) {
        folder.Write("p/a.htm", "<title>A</title><body>a</body>");
        folder.Write("p/g.hs", "<title>" + test.title +
                                   "</title><homeID>a</homeID><mapref location=\"g.jhm\"/>\n"
                                   "<view><data>gTOC.xml</data>TOCView</view>\n"
                                   "<view><data>gIndex.xml</data>IndexView</view>\n");
        folder.Write("p/g.jhm", "<mapID target=\"" + test.map_id + "\" url=\"a.htm\"/>\n");
        folder.Write("p/gTOC.xml", "<tocitem text=\"" + test.caption + "\"/>\n");
        folder.Write("p/gIndex.xml", test.index);
        folder.Write("p/g.prj", "");
        check(test, test.broken);
        folder.Write("p/g.prj", "[Settings]\nxml_escapes=1\n");
        const bool is_open_group = test.message.starts_with("Opening");
        check(test, is_open_group ? test.broken : "");
    }
}

}  // namespace
}  // namespace quorrel
