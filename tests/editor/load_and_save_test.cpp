// The road of a topic's text between its file, the surface and its working copy.
#include <gtest/gtest.h>

#include <string>

#include "editor/document_text.hpp"
#include "editor/load_file.hpp"
#include "editor/object_mask.hpp"
#include "editor/save_html.hpp"
#include "editor/surface_events.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "project/topic_properties.hpp"
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

TEST_F(LoadAndSave, APageThatIsNoTopicIsWrittenOnlyIfEdited) {
    const std::string page = "<body>a page with <object></object> and a link</body>\n";
    folder.Write("p/page.htm", page);
    folder.Write("p/a.htm", "<body>topic a, which is long enough");
    Start();
    Load("page.htm");
    EXPECT_FALSE(surface.IsDirty()) << "masked tags are no edit";
    FileSave_Click(main);
    EXPECT_FALSE(folder.Exists("p/page.htm.tmp.htm"));
    TabStrip& tabs = main.window.TabStrip2;
    tabs.SelectedIndex = right_tab::kSource;
    tabs.SelectedIndex = right_tab::kPreview;
    Load("b.htm");
    EXPECT_EQ(folder.Read("p/page.htm"), page);
    Load("page.htm");
    surface.SetDocumentHTML("<body>edited, with <!OBJECT><!/OBJECT>");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/page.htm"), "<body>edited, with <OBJECT></OBJECT>");
    EXPECT_FALSE(folder.Exists("p/page.htm.tmp.htm"));

    // One that could not be put in its place is still to be saved.
    surface.SetDocumentHTML("<body>x");
    for (int i = 0; i < 2; ++i) {
        screen.ExpectMessage(TooShort("p/page.htm"));
        FileSave_Click(main);
    }
    EXPECT_EQ(folder.Read("p/page.htm"), "<body>edited, with <OBJECT></OBJECT>");
}

TEST_F(LoadAndSave, WhatTheContentsNameAndIsNotThereIsNotMade) {
    const std::string item =
        "<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" "
        "value=\"A\">\r\n<param name=\"Local\" value=\"";
    for (const std::string dead : {"gone.htm", "gone\\gone.htm", "a.htm"}) {
        folder.Write("p/guide.hhc", "<UL>\r\n" + item + dead + "\">\r\n</OBJECT>\r\n</UL>\r\n");
        files.DeleteFile(folder.Windows("p/a.htm"));
        Start();
        EXPECT_EQ(main.editor.main_path, folder.Windows("p") + "\\" + dead);
        log_lines.clear();
        FileSave_Click(main);
        EXPECT_EQ(log_lines, std::vector<std::string>{}) << dead;
        for (const char* file :
             {"p/gone.htm", "p/gone.htm.tmp.htm", "p/a.htm", "p/a.htm.tmp.htm"}) {
            EXPECT_FALSE(folder.Exists(file)) << dead << file;
        }
    }
}

TEST_F(LoadAndSave, ACopyIsMadeOfWhatTheAuthorSeesAndTheDocumentKeepsItsFile) {
    folder.Write("p/a.htm", "<body>topic a <OBJECT></OBJECT>");
    folder.Write("copy/other.htm", "");
    Start();
    Load("b.htm");
    surface.SetDocumentHTML("<body>b, edited and not saved");
    Load("a.htm");
    main.window.TabStrip2.SelectedIndex = right_tab::kSource;
    source.SetText("<body>typed <!OBJECT><!/OBJECT> <object></object>");
    bool ok = false;
    for (const char* target : {"copy/c.htm", "p/b.htm"}) {
        screen.ExpectFileDialog(folder.Windows(target));
        SaveDocument(main, true, ok);
        EXPECT_TRUE(ok);
        EXPECT_EQ(folder.Read(target), "<body>typed <OBJECT></OBJECT> <OBJECT></OBJECT>");
    }
    source.SetText("<body>typed later, behind the copy");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), "<body>typed later, behind the copy");
    EXPECT_EQ(folder.Read("copy/c.htm"), "<body>typed <OBJECT></OBJECT> <OBJECT></OBJECT>");
    EXPECT_EQ(folder.Read("p/b.htm"), "<body>typed <OBJECT></OBJECT> <OBJECT></OBJECT>")
        << "the edits that it had are not saved over it";
}

class InTheSourceView : public LoadAndSave {
  protected:
    void SetUp() override {
        LoadAndSave::SetUp();
        folder.Write("q/other.hhp", "[OPTIONS]\r\nTitle=Other\r\n\r\n[FILES]\r\nc.htm\r\n\r\n");
        folder.Write("q/c.htm", "<title>See</title><body>topic c");
        folder.Write("q/other.hhc",
                     "<UL>\r\n<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" "
                     "value=\"C\">\r\n<param name=\"Local\" value=\"c.htm\">\r\n</OBJECT>\r\n"
                     "</UL>\r\n");
        folder.Write("q/empty.hhp", "[OPTIONS]\r\nTitle=Empty\r\n\r\n[FILES]\r\n\r\n");
        Start();
        Load("a.htm");
        Show(right_tab::kSource);
    }
    void Show(int tab) { main.window.TabStrip2.SelectedIndex = tab; }
    void OpenOther(const std::string& project) {
        main.project.recent_proj = folder.Windows(project);
        OpenProject_Click(main);
    }
};

TEST_F(InTheSourceView, AnotherProjectIsShownThereAndTakesItsEdits) {
    FileSave_Click(main);
    OpenOther("q/other.hhp");
    EXPECT_EQ(source.Text(), "<title>See</title><body>topic c");
    EXPECT_FALSE(source.is_read_only);
    source.SetText("<title>See</title><body>topic c, edited");
    Show(right_tab::kNormal);
    EXPECT_EQ(surface.DocumentHTML(), "<title>See</title><body>topic c, edited");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("q/c.htm"), "<title>See</title><body>topic c, edited");

    Show(right_tab::kSource);
    OpenOther("q/empty.hhp");
    EXPECT_EQ(source.Text(), "") << "nothing of the project before";
    EXPECT_TRUE(source.is_read_only) << "there is no file for what could be typed";
}

TEST_F(InTheSourceView, WhatIsTypedAfterASaveIsNotReplacedLater) {
    source.SetText("<body>typed and <object></object> saved");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), "<body>typed and <OBJECT></OBJECT> saved");
    EXPECT_EQ(source.Text(), "<body>typed and <!OBJECT><!/OBJECT> saved");
    EXPECT_EQ(PromptSaveChanges(main), save_prompt::kNotNeeded);
    const std::string later = "<body>typed and <!OBJECT><!/OBJECT> saved, and more";
    source.SetText(later);
    DHTMLEdit1_DocumentComplete(main);
    EXPECT_EQ(source.Text(), later);
    EXPECT_TRUE(main.editor.ActiveDirty);
    // A document that a routine changes is the author's text with that change.
    SetDocumentTitle(main, "none");
    source.SetText("<title>Ay</title><body>more");
    SetDocumentTitle(main, "Bee");
    EXPECT_EQ(source.Text(), "<title>Bee</title><body>more");
    Show(right_tab::kNormal);
    EXPECT_EQ(surface.DocumentHTML(), "<title>Bee</title><body>more");
}

}  // namespace
}  // namespace quorrel
