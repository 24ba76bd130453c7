// An HTML Help project becomes a JavaHelp project beside it.
#include <filesystem>
#include <map>

#include "cli_fixture.hpp"

namespace quorrel {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using test::RunProgram;

class ConvertCommand : public test::Cli {
  protected:
    ConvertCommand() {
        const auto entry = [](const std::string& name, const std::string& file) {
            return "<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"" + name +
                   "\">\r\n<param name=\"Local\" value=\"" + file + "\">\r\n</OBJECT>\r\n";
        };
        folder.Write("p/g.hhp",
                     "[OPTIONS]\r\nTitle=Guide\r\nContents file=g.hhc\r\nIndex file=g.hhk\r\n\r\n"
                     "[FILES]\r\na.htm\r\nsub\\b.htm\r\n\r\n[ALIAS]\r\n#include g.ali\r\n");
        folder.Write("p/g.ali", "IDH_A=a.htm\r\n");
        folder.Write("p/g.hhc", "<UL>\r\n" + entry("A & <b", "a.htm") + "<UL>\r\n" +
                                    entry("B", "sub\\b.htm") + "</UL>\r\n</UL>\r\n");
        folder.Write("p/g.hhk", "<UL>\r\n" + entry("key", "sub\\b.htm") + "</UL>\r\n");
        folder.Write("p/a.htm", "<html><title>A</title><body>a</body></html>");
        folder.Write("p/sub/b.htm", "<html><title>B</title><body>b</body></html>");
    }
    Outcome Convert(const std::vector<const char*>& options = {}) {
        std::vector<const char*> arguments{"convert", project.c_str()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunProgram(arguments);
    }
    /// Name and state of each file of the project.
    std::map<std::string, std::pair<std::string, fs::file_time_type>> Files() const {
        std::map<std::string, std::pair<std::string, fs::file_time_type>> files;
        for (const auto& entry : fs::recursive_directory_iterator(folder.Native("p"))) {
            if (!entry.is_regular_file()) continue;
            const std::string name = entry.path().lexically_relative(folder.Native()).string();
            files[name] = {folder.Read(name), entry.last_write_time()};
        }
        return files;
    }
    [[nodiscard]] std::string Lines(const std::vector<std::string>& names) const {
        std::string lines;
        for (const std::string& name : names) lines += folder.Native("p/" + name) + "\n";
        return lines;
    }

    const std::string project = folder.Native("p/g.hhp");
    const std::vector<std::string> made{"gTOC.xml", "gIndex.xml", "g.jhm", "g.hs"};
};

TEST_F(ConvertCommand, WritesAProjectBesideTheOldOneAndListsItsFiles) {
    const auto before = Files();
    const Outcome outcome = Convert();
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_NE(outcome.err.find("\n\nContents: A & <b\n\n"), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.out, Lines(made));
    auto after = Files();
    EXPECT_EQ(after.size(), before.size() + made.size());
    for (const auto& [name, file] : before) EXPECT_EQ(after[name], file) << name;
    EXPECT_NE(folder.Read("p/gTOC.xml")
                  .find("     <tocitem text=\"A & &lt;b\" target=\"IDH_A\">\r\n"
                        "          <tocitem text=\"B\" target=\"b\"/>\r\n"
                        "     </tocitem>\r\n</toc>\r\n"),
              std::string::npos);
    EXPECT_NE(
        folder.Read("p/gIndex.xml").find("     <indexitem text=\"key\" target=\"b\"/>\r\n</index>"),
        std::string::npos);
    EXPECT_NE(folder.Read("p/g.jhm").find("   <mapID target=\"IDH_A\" url=\"a.htm\"/>\r\n"
                                          "   <mapID target=\"b\" url=\"sub/b.htm\"/>\r\n"),
              std::string::npos);
    EXPECT_NE(folder.Read("p/g.hs").find("<title>Guide</title>"), std::string::npos);
}

TEST_F(ConvertCommand, ReplacesAnotherProjectOnlyWhenTold) {
    folder.Write("p/gTOC.xml", "an author's own");
    const auto before = Files();
    const Outcome refused = Convert();
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "quorrel-cli: " + folder.Native("p/gTOC.xml") +
                               ": exists already; --force replaces it\n");
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(Convert({"--force"}).out, Lines(made));
    EXPECT_EQ(Convert({"--force"}).out, Lines(made)) << "and backups are none of them";
    EXPECT_TRUE(folder.Exists("p/g.hs.bak"));
}

TEST_F(ConvertCommand, TellsWhatItCannotConvert) {
    ASSERT_EQ(Convert().code, 0);
    for (const char* file : {"p/g.hs", "p/none.hhp"}) {
        const std::string name = folder.Native(file);
        const Outcome outcome = RunProgram({"convert", name.c_str()});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find(name), std::string::npos) << outcome.err;
    }
}

}  // namespace
}  // namespace quorrel
