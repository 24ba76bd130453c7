// The road of a topic's text between its file, the surface and its working copy.
#include <gtest/gtest.h>

#include <string>

#include "editor/load_file.hpp"
#include "editor/object_mask.hpp"
#include "editor/save_html.hpp"
#include "project/save_project.hpp"
#include "support/recording_services.hpp"

namespace quorrel {
namespace {

TEST(ObjectMask, KnowsTwoSpellingsAndReturnsOne) {
    EXPECT_EQ(MaskObjects("<object id=x><PARAM></OBJECT>"), "<!OBJECT id=x><PARAM><!/OBJECT>");
    EXPECT_EQ(UnmaskObjects("<!OBJECT id=x><PARAM><!/OBJECT>"), "<OBJECT id=x><PARAM></OBJECT>");
    EXPECT_EQ(MaskObjects("<Object a></Object>"), "<Object a></Object>");
    EXPECT_EQ(MaskObjects("a </object> alone"), "a <!/OBJECT> alone");
    EXPECT_EQ(UnmaskObjects("a <!/OBJECT> alone"), "a <!/OBJECT> alone");
    EXPECT_FALSE(HasObjectTags("<Object>"));
    EXPECT_TRUE(HasObjectTags("a <objection>"));
}

TEST(RepairLocalLinks, MakesThemRelativeToTheTopic) {
    for (const auto& [html, repaired] : std::initializer_list<std::pair<const char*, const char*>>{
             {R"(<a href="file:///C|/proj/a/b.htm">)", R"(<a href="b.htm">)"},
             {R"(<img src="file:///C:/proj/i/p.gif" alt="x\y">)",
              R"(<img src="../i/p.gif" alt="x/y">)"},
             {R"(<a href="file://D:/other.htm">)", R"(<a href="D:/other.htm">)"},
             {R"(<a href="file:///C:/proj/a/b.htm"><a name="file:///C:/proj/a/c.htm">)",
              R"(<a href="b.htm"><a name="c.htm">)"},
             {R"(<a href="file:///C:/proj/a/b.htm)", R"(<a href="file:///C:/proj/a/b.htm)"},
             {R"(<a href='file:///C:/proj/a/b.htm'>)", R"(<a href='file:///C:/proj/a/b.htm'>)"},
         }) {
        EXPECT_EQ(RepairLocalLinks(html, "C:\\proj\\a\\x.htm"), repaired);
    }
}

class LoadAndSave : public test::ProjectFixture {
  protected:
    void SetUp() override {
        folder.Write("p/guide.hhp",
                     "[OPTIONS]\r\nTitle=Guide\r\n\r\n[FILES]\r\na.htm\r\n;Title=Ay\r\nb.htm\r\n"
                     ";Title=Bee\r\n");
        folder.Write("p/a.htm", "<body>topic a");
        folder.Write("p/b.htm", "<body>topic b");
        folder.Write("p/guide.hhc", "");
        folder.Write("p/guide.hhk", "");
    }
    void Start(std::string_view edition = "html") {
        Open("p/guide.hhp", edition);
        log_lines.clear();
    }
    void Load(std::string_view topic) {
        main.editor.new_main_path = folder.Windows("p/" + std::string(topic));
        LoadFile(main);
    }
    /// The topic's bytes after it was opened, `edit` was put in place of `old_text`, and saved.
    std::string Saved(const std::string& bytes, const std::string& old_text = "",
                      const std::string& edit = "") {
        Load("b.htm");
        FileSave_Click(main);
        folder.Write("p/a.htm", bytes);
        Load("a.htm");
        if (!old_text.empty()) {
            std::string html = surface.DocumentHTML();
            const std::size_t at = html.find(old_text);
            EXPECT_NE(at, std::string::npos) << html;
            surface.SetDocumentHTML(html.replace(at, old_text.size(), edit));
        }
        FileSave_Click(main);
        return folder.Read("p/a.htm");
    }
};

TEST_F(LoadAndSave, EncodingsKeepTheirBytes) {
    Start();
    const std::string cyrillic = "<meta charset=windows-1251>\xE6\xF3\xEA word \x98</body>\r\n";
    const std::string utf8 = "<meta charset=\"utf-8\">\xC3\xA9 word \xFF\r</body>";
    const std::string plain = "<body>caf\xE9 word \x81</body>\r\nmixed\nends\r";
    const std::string wide("\xFF\xFE<\0b\0>\0w\0o\0r\0d\0\xE9\0s\0 \0a\0r\0e\0\n\0", 28);
    for (const std::string& bytes :
         {cyrillic, utf8, plain, wide,
          std::string("<META content='text/html; charset=Shift_JIS'>\x93\xFA\x96\x7B word\n"),
          std::string("\xEF\xBB\xBF<body>\xC3\xA9 word and more</body>\r\n")}) {
        EXPECT_EQ(Saved(bytes), bytes);
    }
    // "\u00E9" is in no Cyrillic page, "\u0436" in no Western one.
    EXPECT_EQ(Saved(cyrillic, "word", "wor\u00E9"),
              "<meta charset=windows-1251>\xE6\xF3\xEA wor&#233; \x98</body>\r\n");
    EXPECT_EQ(Saved(plain, "word", "\u0436"), "<body>caf\xE9 &#1078; \x81</body>\r\nmixed\nends\r");
    EXPECT_EQ(Saved(utf8, "word", "\u0436"),
              "<meta charset=\"utf-8\">\xC3\xA9 \xD0\xB6 \xFF\r</body>");
    EXPECT_EQ(Saved(cyrillic, "windows-1251", "utf-8"),
              "<meta charset=utf-8>\u0436\u0443\u043A word \xC2\x98</body>\r\n")
        << "a declaration that was edited holds";
}

TEST_F(LoadAndSave, ObjectsAreMaskedInTheHtmlHelpEditionOnly) {
    const char* html = "<body><OBJECT type=x><PARAM name=a></OBJECT> text that is long enough";
    folder.Write("p/a.htm", html);
    Start();
    Load("a.htm");
    EXPECT_EQ(surface.DocumentHTML(), MaskObjects(html));
    EXPECT_EQ(source.Text(), surface.DocumentHTML());
    EXPECT_EQ(Saved(html), html);
    Start("");
    Load("a.htm");
    EXPECT_EQ(surface.DocumentHTML(), html);
}

TEST_F(LoadAndSave, TheSourceViewHandsItsTextOver) {
    Start();
    Load("a.htm");
    TabStrip& tabs = main.window.TabStrip2;
    tabs.SelectedIndex = right_tab::kSource;
    source.SetText("<body>topic a with <object></object>");
    tabs.SelectedIndex = right_tab::kNormal;
    EXPECT_EQ(surface.DocumentHTML(), "<body>topic a with <!OBJECT><!/OBJECT>");
    EXPECT_TRUE(main.editor.ActiveDirty);

    // From topic to topic within the source view.
    tabs.SelectedIndex = right_tab::kSource;
    source.SetText("<body>edited in the source view");
    Load("b.htm");
    EXPECT_EQ(source.Text(), "<body>topic b");
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm"), "<body>edited in the source view");
    source.SetText("<body>b is edited in the source view");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), "<body>edited in the source view");
    EXPECT_EQ(folder.Read("p/b.htm"), "<body>b is edited in the source view");

    // A view that is almost empty is not pushed by SetHTML, but by a change of tab.
    source.SetText("<p>");
    SetHTML(main);
    EXPECT_EQ(surface.DocumentHTML(), "<body>b is edited in the source view");
    tabs.SelectedIndex = right_tab::kNormal;
    EXPECT_EQ(surface.DocumentHTML(), "<p>");
}

TEST_F(LoadAndSave, WhatCannotBeEditedStaysAsItIs) {
    const std::string frameset = "<html><!-- <body> --><frameset cols=2><frame src=a></frameset>";
    const std::string server = "<%@ Language=VBScript %><% Response.Write(\"a long script\") %>x";
    Start();
    for (const std::string& bytes : {frameset, server}) {
        EXPECT_EQ(Saved(bytes), bytes);
        EXPECT_EQ(surface.DocumentHTML(), "");
        EXPECT_EQ(surface.CurrentDocumentPath(), "");
        EXPECT_FALSE(folder.Exists("p/a.htm.tmp.htm"));
    }
    EXPECT_EQ(Saved(""), "") << "an empty file";
    const std::string binary("MZ\x00\x01\xFF\xFE\r\n\x1A tail", 14);
    EXPECT_EQ(Saved(binary), binary);
}

TEST_F(LoadAndSave, AMissingTopicIsLookedForInItsCopyAndElseEmpty) {
    Start();
    files.MoveFile(folder.Windows("p/a.htm"), folder.Windows("p/a.htm.tmp.htm"));
    Load("a.htm");
    EXPECT_EQ(surface.DocumentHTML(), "<body>topic a");
    EXPECT_EQ(main.editor.temp_path, folder.Windows("p/a.htm.tmp.htm"));
    Load("b.htm");
    Load("gone.htm");
    EXPECT_EQ(surface.DocumentHTML(), "");
    EXPECT_EQ(main.editor.main_path, folder.Windows("p/gone.htm"));
    Load("b.htm");
    main.topics.ListTopics.FirstWith(topic_cell::kMapId, "b")
        ->SetSubItem(topic_cell::kModified, "1");
    files.DeleteFile(folder.Windows("p/b.htm.tmp.htm"));
    Load("b.htm");
    EXPECT_EQ(surface.DocumentHTML(), "<body>topic b");
}

TEST_F(LoadAndSave, ATopicThatCannotBePutAwayStaysOpen) {
    Start();
    Load("a.htm");
    surface.SetDocumentHTML("<body>new text of a");
    // A folder stands where the working copy belongs.
    folder.Write("p/a.htm.tmp.htm/x", "");
    screen.ExpectMessage("Error occurred while saving document: Access denied.");
    Load("b.htm");
    EXPECT_EQ(main.editor.main_path, folder.Windows("p/a.htm"));
    EXPECT_EQ(surface.DocumentHTML(), "<body>new text of a");
    EXPECT_TRUE(surface.IsDirty());
    EXPECT_EQ(main.topics.ListTopics.SelectedItem()->Text(), "Ay");
}

TEST_F(LoadAndSave, AnExternalEditorGetsTheTopic) {
    test::Calls calls;
    test::RecordingShell recording(calls);
    MainForm form({files, screen, surface, source, browser, recording}, folder.Windows("settings"),
                  MachineCodePage{});
    form.settings.use_ext_editor = true;
    form.settings.ext_editor = "/opt/my editor/run";
    form.editor.new_main_path = folder.Windows("p/a.htm");
    LoadFile(form);
    EXPECT_EQ(calls, test::Calls{"shell /opt/my editor/run \"" + folder.Windows("p/a.htm") + "\""});
    EXPECT_EQ(form.editor.main_path, folder.Windows("p/a.htm"));
    EXPECT_EQ(surface.DocumentHTML(), "");
}

}  // namespace
}  // namespace quorrel
