#include "cli/cli.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "cli_fixture.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

using test::Cli;
using test::Outcome;
using test::RunProgram;

TEST_F(Cli, ResavesAProjectAndTellsWhatItCouldNotRead) {
    const std::string contents =
        "<UL>\r\n<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"N\"><param "
        "name=\"Local\" value=\"a.htm\"></OBJECT>\r\n<LI><OBJECT type=\"text/sitemap\">\r\n"
        "<param name=\"Name\" value=\"M\">\r\n</OBJECT>\r\n</UL>\r\n";
    folder.Write("g.hhp", "[OPTIONS]\r\nTitle=G\r\n\r\n[FILES]\r\na.htm\r\n");
    folder.Write("g.hhc", contents);
    folder.Write("g.hhk", "");
    folder.Write("a.htm", "<title>A</title>");
    const std::string file = folder.Native("g.hhp");
    const Outcome plain = RunProgram({"resave", file.c_str()});
    EXPECT_EQ(plain.code, 0) << plain.err;
    EXPECT_NE(plain.err.find("\ng.hhc: entries not read whole (1 of 2)\n"), std::string::npos)
        << plain.err;
    EXPECT_EQ(folder.Read("g.hhc"), contents) << "nothing has changed it";
    EXPECT_FALSE(folder.Exists("g.hhc.orig"));
    EXPECT_TRUE(folder.Exists("g.ali"));

    EXPECT_EQ(RunProgram({"resave", "--all", file.c_str()}).code, 0);
    EXPECT_NE(folder.Read("g.hhc"), contents);
    EXPECT_EQ(folder.Read("g.hhc.orig"), contents);
    const std::string once = folder.Read("g.hhc");
    const Outcome again = RunProgram({"resave", "--all", file.c_str()});
    EXPECT_EQ(again.err, "MainForm OpenProject Click: 35600 Index out of bounds\n");
    EXPECT_EQ(folder.Read("g.hhc"), once);
    EXPECT_EQ(folder.Read("g.hhc.orig"), contents);
    EXPECT_EQ(RunProgram({"resave", "/nowhere/x.hhp"}).code, exit_code::kFailure);
}

TEST_F(Cli, NamesWhatJavaHelpViewersCannotReadAndLeavesIt) {
    const std::string contents = "<tocitem text=\"Q&A\" target=\"a\"/>\n";
    folder.Write("g.hs",
                 "<title>T</title><mapref location=\"g.jhm\"/>\n"
                 "<view><data>gTOC.xml</data><type>javax.help.TOCView</type></view>\n");
    folder.Write("g.jhm", "<mapID target=\"a\" url=\"a.htm\"/>\n");
    folder.Write("a.htm", "<title>A</title>");
    folder.Write("gTOC.xml", contents);
    const Outcome outcome =
        RunProgram({"--edition", "javahelp", "resave", folder.Native("g.hs").c_str()});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_NE(outcome.err.find("\n\nContents: Q&A\n\n"), std::string::npos) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with("? Viewers then show what you see here. No.\n"))
        << outcome.err;
    EXPECT_EQ(folder.Read("gTOC.xml"), contents);
    EXPECT_FALSE(folder.Exists("g.prj"));
}

TEST_F(Cli, DumpsAProject) {
    folder.Write("g.hhp", "[OPTIONS]\nTitle=\"G\"\\\xE9\n[FILES]\na.htm\n;Title=A\x01\n");
    folder.Write("g.hhc", "<LI><OBJECT>\n<param name=Name value=N>\n</OBJECT>\n");
    folder.Write("g.hhk", "<LI><OBJECT>\n<param name=Name value=K>\n</OBJECT>\n");
    const std::string file = folder.Native("g.hhp");
    const Outcome outcome = RunProgram({"--edition", "html", "dump", file.c_str()});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "MainForm OpenProject Click: 35600 Index out of bounds\n");
    const auto json = [&](std::string_view name) {
        return "\"" + ReplaceAll(folder.Windows(name), "\\", "\\\\") + "\"";
    };
    EXPECT_EQ(
        outcome.out,
        "{\"edition\":\"html\",\"help_mode\":0,\"proj\":" + json("g.hhp") + ",\"proj_path\":" +
            json("") + ",\"hhcfile\":" + json("g.hhc") + ",\"hhkfile\":" + json("g.hhk") +
            ",\"java_map_file\":\"\",\"doc_outline\":" + json("g.out") +
            ",\"status_file\":" + json("g.stn") +
            ",\"project_title\":\"\\\"G\\\"\\\\\xC3\xA9\",\"project_def_topic\":" + json("a.htm") +
            ",\"next_integer\":0,\"javahelp_do_fts\":false,\"site_properties_toc\":\"\","
            "\"site_properties_index\":\"\",\"ListTopics\":[{\"Text\":\"A\\u0001\",\"SubItems\":["
            "\"a\","
            "\"\\\\a.htm\",\"\",\"\",\"\",\"\"," +
            json("a.htm") +
            "]}],\"ListAliases\":[],\"ListKeywords\":[{\"Text\":\"K\",\"SubItems\":[\"\",\"K\"]}],"
            "\"Tree1\":[{\"Text\":\"N\",\"Image\":3,\"SelectedImage\":3,\"Tag\":\"#^##^#,,,,#^#\","
            "\"Children\":[]}],\"TreeDoc\":[]}\n");
}

TEST_F(Cli, WrongUseAndFailuresAreTold) {
    for (const std::string& name : {folder.Native("none.hhp"), folder.Native()}) {
        const Outcome outcome = RunProgram({"dump", name.c_str()});
        EXPECT_EQ(outcome.code, 1) << name;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find(name), std::string::npos) << outcome.err;
    }
    for (const std::vector<const char*>& arguments : std::vector<std::vector<const char*>>{
             {}, {"dump"}, {"fly"}, {"--edition", "x", "dump", "a"}, {"dump", "a", "b"}}) {
        const Outcome outcome = RunProgram(arguments);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_NE(outcome.err, "");
        EXPECT_EQ(outcome.out, "");
    }
    EXPECT_EQ(RunProgram({"--version"}).out, "quorrel-cli " QUORREL_VERSION "\n");
    EXPECT_NE(RunProgram({"--help"}).out.find("tagvalue"), std::string::npos);
}

TEST_F(Cli, RunsRoutinesOnLines) {
    EXPECT_EQ(RunProgram(
                  {"tagvalue"},
                  R"({"text":"<a x=\u00e91>","start":1,"attribute":"X","value":"","mode":0})"
                  "\r\n\n"
                  R"({"text":"\u00e9<a x=1><b x=2>","start":9,"attribute":"X","value":"","mode":0})"
                  "\n"
                  R"({"text":"<td>","start":1,"attribute":"W","value":"1","mode":2})"
                  "\n"
                  R"({"text":"<td>","start":-3,"attribute":"W","value":"1","mode":2})")
                  .out,
              "{\"result\":\"\u00e91\"}\n{\"result\":\"2\"}\n{\"result\":\"<td "
              "W>\"}\n{\"result\":\"\"}\n");
    EXPECT_EQ(RunProgram({"tagvalue"}, std::string(1000000, '[')).code, 2);

    const std::pair<std::string, std::string> paths[] = {
        {R"("MakeFullPath","args":["a/b"],"proj_path":"C:\\p","main_path":"")", R"("C:\\p\\a\\b")"},
        {R"("MakeFullPathRel","args":["..\\b","C:\\p\\q\\x"])", R"("C:\\p\\b")"},
        {R"("MakeRelPathRel","args":["C:\\p\\b","C:\\p\\x"])", R"("b")"},
        {R"("GetRelativePath","args":["C:\\p\\b"],"main_path":"C:\\p\\x")", R"("b")"},
        {R"("FormatRGBString","args":[255])", R"("#FF0000")"},
        {R"("RevFormatRGBString","args":["#ff0000"])", "255"}};
    for (const auto& [call, result] : paths) {
        const Outcome outcome = RunProgram({"paths"}, "{\"fn\":" + call + "}\n");
        EXPECT_EQ(outcome.out, "{\"result\":" + result + "}\n");
    }
    EXPECT_EQ(RunProgram({"paths"}, "{\"fn\":\"Nothing\",\"args\":[\"\"]}").code, 2);
}

TEST_F(Cli, TheProjectTellsTheEdition) {
    folder.Write("g.HS", "<helpset><title>J</title></helpset>");
    const std::string file = folder.Native("g.HS");
    EXPECT_NE(RunProgram({"dump", file.c_str()}).out.find("\"edition\":\"javahelp\""),
              std::string::npos);
    const Outcome refused = RunProgram({"--edition", "html", "resave", file.c_str()});
    EXPECT_EQ(refused.code, 1);
    EXPECT_NE(refused.err.find("is not for the edition html"), std::string::npos) << refused.err;
    EXPECT_EQ(folder.Read("g.HS"), "<helpset><title>J</title></helpset>");
}

TEST_F(Cli, OnlyForceReplacesAFileElsewhere) {
    folder.Write("victim.h", "a letter");
    folder.Write("p/g.hhp", "[FILES]\r\n[MAP]\r\n#include ..\\victim.h\r\n");
    const std::string file = folder.Native("p/g.hhp");
    const Outcome refused = RunProgram({"resave", file.c_str()});
    EXPECT_EQ(refused.code, 1);
    EXPECT_NE(refused.err.find("victim.h is not in the folder of this project. --force"),
              std::string::npos)
        << refused.err;
    EXPECT_EQ(folder.Read("victim.h"), "a letter");
    EXPECT_EQ(RunProgram({"resave", "--force", file.c_str()}).code, 0);
    EXPECT_EQ(folder.Read("victim.h"), "");
}

}  // namespace
}  // namespace quorrel
