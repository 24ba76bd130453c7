#include "app/views.hpp"

#include "support/recording_services.hpp"

namespace quorrel::test {
namespace {

class Views : public RecordingFixture {
  protected:
    /// Those of the panes that are shown.
    std::string Shown() {
        std::string names;
        for (const char* name :
             {"Tree1", "ListTopics", "ListKeywords", "DHTMLEdit1", "PictureProperties", "Source1",
              "WebBrowser1", "PictureTOCEdit", "TreeDoc", "PictureDocEdit"}) {
            if (main.window.Named(name).Visible) names.append(name).append(" ");
        }
        return names;
    }
    std::string LeftCaptions() {
        const TabStrip& strip = main.window.TabStrip1;
        return strip.TabCaption(1) + "/" + strip.TabCaption(2) + "/" + strip.TabCaption(3);
    }
};

TEST_F(Views, TheLeftStripShowsItsList) {
    const std::tuple<int, const char*, bool> cases[] = {{3, "ListKeywords DHTMLEdit1 ", true},
                                                        {1, "Tree1 DHTMLEdit1 ", false},
                                                        {2, "ListTopics DHTMLEdit1 ", false}};
    for (const auto& [tab, shown, adds_keywords] : cases) {
        main.window.TabStrip1.SelectedIndex = tab;
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(main.window.CommandAddFromIndex.Enabled(), adds_keywords) << tab;
    }
}

TEST_F(Views, EachTabShowsItsPane) {
    const std::pair<int, const char*> cases[] = {{2, "PictureProperties "},
                                                 {3, "Source1 "},
                                                 {4, "WebBrowser1 "},
                                                 {6, "WebBrowser1 "},
                                                 {1, "DHTMLEdit1 "}};
    OpenGuide();
    for (const auto& [tab, shown] : cases) {
        GoTo(tab);
        EXPECT_EQ(Shown(), std::string("Tree1 ") + shown) << tab;
        EXPECT_EQ(LeftCaptions(), "Contents/Topics/Index");
    }
}

TEST_F(Views, TheTreeTabsLockTheLeftSide) {
    const char* organize = "Tree1 ListTopics PictureTOCEdit ";
    const char* wizard = "ListTopics TreeDoc PictureDocEdit ";
    const std::tuple<int, const char*, bool> cases[] = {
        {5, organize, false}, {7, wizard, false},
        {5, organize, false}, {4, "ListTopics WebBrowser1 ", true},
        {7, wizard, false},   {1, "ListTopics DHTMLEdit1 ", true}};
    OpenGuide();
    main.window.TabStrip1.SelectedIndex = left_tab::kIndex;
    for (const auto& [tab, shown, is_free] : cases) {
        GoTo(tab);
        EXPECT_EQ(Shown(), shown) << tab;
        EXPECT_EQ(main.window.TabStrip1.Enabled(), is_free);
        EXPECT_EQ(main.window.TabStrip1.SelectedIndex(), left_tab::kTopics);
        EXPECT_EQ(LeftCaptions(),
                  is_free ? "Contents/Topics/Index" : "(disabled)/Topics/(disabled)");
        EXPECT_FALSE(main.window.CommandAddFromIndex.Enabled());
    }
    main.window.TabStrip2.SelectedIndex = right_tab::kOrganizeTOC;
    main.window.TabStrip1.SelectedIndex = left_tab::kIndex;
    EXPECT_EQ(Shown(), organize) << "a locked strip changes nothing";
}

TEST_F(Views, TheContentsTreeMovesToTheRightAndBack) {
    PaneLayout& panes = main.window.panes;
    panes.inner_width = 15000;
    panes.status_top = 9000;
    Form_Resize(panes, right_tab::kNormal);
    int moves = 0;
    main.window.panes_changed.Connect([&] { ++moves; });
    GoTo(right_tab::kOrganizeTOC);
    EXPECT_EQ(panes.Tree1.left, panes.Source1.left);
    GoTo(right_tab::kDocumentWizard);
    EXPECT_EQ(panes.Tree1, panes.ListTopics);
    EXPECT_EQ(panes.TreeDoc.width, panes.Source1.width);
    EXPECT_EQ(moves, 2);
}

TEST_F(Views, KeywordsAreAddedFromTheIndexOnly) {
    OpenGuide();
    for (const int left : {left_tab::kIndex, left_tab::kTopics}) {
        main.window.TabStrip1.SelectedIndex = left;
        main.window.CommandAddFromIndex.Enabled = true;
        GoTo(right_tab::kProperties);
        EXPECT_EQ(main.window.CommandAddFromIndex.Enabled(), left == left_tab::kIndex);
        GoTo(right_tab::kNormal);
    }
}

TEST_F(Views, TheSourceGoesOverAndBack) {
    OpenGuide();
    const std::string text = surface.DocumentHTML();
    GoTo(right_tab::kSource);
    EXPECT_EQ(source.Text(), text);
    source.SetText("<title>Ay</title><body>other</body>");
    GoTo(right_tab::kNormal);
    EXPECT_EQ(surface.DocumentHTML(), "<title>Ay</title><body>other</body>");
}

TEST_F(Views, ThePreviewShowsWhatIsOnTheSurface) {
    OpenGuide();
    surface.SetDocumentHTML("<title>Ay</title><body>changed</body>");
    TakeCalls();
    GoTo(right_tab::kPreview);
    const std::string copy = folder.Windows("p/a.htm.tmp.htm");
    EXPECT_EQ(TakeCalls(), Calls{"browse " + copy});
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm"), "<title>Ay</title><body>changed</body>");
    GoTo(right_tab::kProperties);
    TakeCalls();
    main.editor.ActiveDirty = false;
    files.MoveFile(copy, folder.Windows("p/away"));
    GoTo(right_tab::kPreview);
    EXPECT_EQ(TakeCalls(), Calls{"browse " + folder.Windows("p/a.htm")});
}

}  // namespace
}  // namespace quorrel::test
