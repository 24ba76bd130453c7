#include "app/views.hpp"

#include <array>
#include <string>
#include <string_view>

#include "app/main_form.hpp"
#include "app/tool_bar.hpp"
#include "contents/contents_item_panel.hpp"
#include "contents/contents_tree.hpp"
#include "contents/topic_keywords.hpp"
#include "documents/topic_report.hpp"
#include "editor/document_text.hpp"
#include "editor/save_html.hpp"
#include "editor/selection.hpp"
#include "editor/surface_events.hpp"
#include "platform/text.hpp"
#include "project/save_project.hpp"
#include "project/topic_properties.hpp"
#include "project/unsaved_work.hpp"

namespace quorrel {
namespace {

constexpr std::array<std::string_view, 6> kPanes = {"DHTMLEdit1",     "PictureProperties",
                                                    "Source1",        "WebBrowser1",
                                                    "PictureTOCEdit", "PictureDocEdit"};

/// The pane that a tab shows; on the two tree tabs the tree stands above it.
std::string_view PaneOf(int tab) {
    switch (tab) {
        case right_tab::kNormal:
            return "DHTMLEdit1";
        case right_tab::kProperties:
            return "PictureProperties";
        case right_tab::kSource:
            return "Source1";
        case right_tab::kOrganizeTOC:
            return "PictureTOCEdit";
        case right_tab::kDocumentWizard:
            return "PictureDocEdit";
        default:
            return "WebBrowser1";
    }
}

void ShowPane(MainForm& main, std::string_view shown) {
    for (const std::string_view pane : kPanes) main.window.Named(pane).Visible = pane == shown;
}

/// The source view's text goes back to the surface.
void LeaveSourceView(MainForm& main) {
    EditorState& editor = main.editor;
    if (!editor.SourceViewActive) return;
    editor.DoRestoreSelection = true;
    editor.source_edited = false;
    ShowSource(main, main.Source1.Text());
    editor.ActiveDirty = true;
    editor.SourceViewActive = false;
}

void EnterSourceView(MainForm& main) {
    WaitForSurface(main);
    ShowInSource(main, main.DHTMLEdit1.DocumentHTML());
    SaveSelection(main);
    main.editor.SourceViewActive = true;
    main.Source1.SetFocus();
}

void ShowPreview(MainForm& main) {
    EditorState& editor = main.editor;
    if (editor.main_path.empty()) return;
    const bool dirty = main.DHTMLEdit1.IsDirty() || editor.ActiveDirty;
    const bool is_current = !dirty || SetDirty(main);
    // A working copy is gone once the project has been saved.
    const bool has_copy =
        is_current && Contains(editor.temp_path, ".") && main.files.FileExists(editor.temp_path);
    const std::string& shown = has_copy ? editor.temp_path : editor.main_path;
    if (Contains(shown, ".")) main.WebBrowser1.Navigate(shown);
}

void ShowReport(MainForm& main) {
    if (main.project.proj.empty()) return;
    main.window.ProgressReport.Visible = true;
    const Hourglass hourglass(main.screen);
    WriteReport(main);
    main.WebBrowser1.Navigate(ReportPath(main));
    main.window.ProgressReport.Visible = false;
}

/// The left side shows the topics and cannot be changed.
void LockLeftSide(MainForm& main) {
    constexpr const char* kDisabled = "(disabled)";
    WindowControls& window = main.window;
    TabStrip& strip = window.TabStrip1;
    strip.SelectedIndex = left_tab::kTopics;
    window.Named("ListTopics").Visible = true;
    window.Named("ListKeywords").Visible = false;
    strip.SetTabCaption(left_tab::kContents, kDisabled);
    strip.SetTabCaption(left_tab::kIndex, kDisabled);
    strip.Enabled = false;
}

void FreeLeftSide(MainForm& main) {
    TabStrip& strip = main.window.TabStrip1;
    strip.SetTabCaption(left_tab::kContents, "Contents");
    strip.SetTabCaption(left_tab::kIndex, "Index");
    strip.Enabled = true;
}

/// The image map ids that can stand for a contents icon.
void FillComboIcon(MainForm& main) {
    ComboBox& icons = main.window.ComboIcon;
    icons.Clear();
    icons.AddItem("Default");
    const ListView& aliases = main.topics.ListAliases;
    for (int i = 1; i <= aliases.Count(); ++i) {
        const ListRow& row = aliases.At(i);
        const std::string path = LowerAscii(row.SubItems(alias_cell::kPath));
        if (Contains(path, ".gif") || Contains(path, ".jpg")) icons.AddItem(row.Text());
    }
}

/// The tree of the printed document and the panel below it come and go together.
void ShowOutline(MainForm& main, bool on) {
    main.window.Named("TreeDoc").Visible = on;
    main.window.Named("PictureDocEdit").Visible = on;
}

void ArrangePanes(MainForm& main, int tab) {
    if (tab == right_tab::kDocumentWizard) {
        ArrangeOutlineView(main);
    } else {
        ArrangeContentsView(main);
    }
}

/// Runs `work` when another tab has been selected.
template <typename Work>
void FollowTab(TabStrip& strip, Work work) {
    strip.changed.Connect([&strip, work, shown = strip.SelectedIndex()]() mutable {
        if (strip.SelectedIndex() == shown) return;
        shown = strip.SelectedIndex();
        work();
    });
}

}  // namespace

void TabStrip1_Click(MainForm& main) {
    WindowControls& window = main.window;
    const int tab = window.TabStrip1.SelectedIndex;
    window.Named("Tree1").Visible = tab == left_tab::kContents;
    window.Named("ListTopics").Visible = tab == left_tab::kTopics;
    window.Named("ListKeywords").Visible = tab == left_tab::kIndex;
    window.CommandAddFromIndex.Enabled = tab == left_tab::kIndex;
}

void ArrangeContentsView(MainForm& main) {
    WindowControls& window = main.window;
    const int tab = window.TabStrip2.SelectedIndex;
    PlaceContentsView(window.panes, tab);
    MenuEntry& tree = window.Named("Tree1");
    if (tab == right_tab::kOrganizeTOC) {
        LockLeftSide(main);
        // Behind the change of tab, which hides the tree of the left side.
        tree.Visible = true;
        FillComboIcon(main);
    } else {
        if (window.TabStrip1.SelectedIndex() != left_tab::kContents) tree.Visible = false;
        FreeLeftSide(main);
    }
    window.panes_changed.Emit();
}

void ArrangeOutlineView(MainForm& main) {
    WindowControls& window = main.window;
    const int tab = window.TabStrip2.SelectedIndex;
    if (tab != right_tab::kDocumentWizard) return;
    PlaceContentsView(window.panes, tab);
    PlaceOutlineView(window.panes, tab);
    LockLeftSide(main);
    // It may come from the right side, where the other tree stands now.
    window.Named("Tree1").Visible = false;
    ShowOutline(main, true);
    window.panes_changed.Emit();
}

void ShowFirstTabs(MainForm& main) {
    TabStrip1_Click(main);
    ShowOutline(main, false);
    ShowPane(main, PaneOf(main.window.TabStrip2.SelectedIndex));
    main.window.ProgressReport.Visible = false;
}

void TabStrip2_Click(MainForm& main) {
    CommitContentsItem(main);
    if (main.editor.TopicPropDirty) SaveTopicProperties(main);
    WaitForSurface(main);
    UpdateToolbars(main);
    main.contents.Tree1.SetDropHighlight(nullptr);
    LeaveSourceView(main);
    const int tab = main.window.TabStrip2.SelectedIndex();
    if (tab == right_tab::kNormal || tab == right_tab::kProperties) {
        main.DHTMLEdit1.SetBrowseMode(false);
    }
    ShowOutline(main, false);
    ShowPane(main, PaneOf(tab));
    ArrangePanes(main, tab);
    switch (tab) {
        case right_tab::kNormal:
            return main.DHTMLEdit1.SetFocus();
        case right_tab::kProperties:
            LoadTopicProperties(main);
            main.window.CommandAddFromIndex.Enabled =
                main.window.TabStrip1.SelectedIndex() == left_tab::kIndex;
            return;
        case right_tab::kSource:
            return EnterSourceView(main);
        case right_tab::kPreview:
            return ShowPreview(main);
        case right_tab::kOrganizeTOC:
            return LoadTOCProperties(main);
        case right_tab::kReport:
            return ShowReport(main);
        default:
            return;
    }
}

void ConnectEvents(MainForm& main) {
    ShowPane(main, PaneOf(main.window.TabStrip2.SelectedIndex()));
    main.window.LabelExtEditor.Visible = false;
    main.DHTMLEdit1.DocumentComplete = [&main] { DHTMLEdit1_DocumentComplete(main); };
    main.DHTMLEdit1.EngineLost = [&main](EngineLoss loss) { DHTMLEdit1_EngineLost(main, loss); };
    FollowUnsavedWork(main);
    main.DHTMLEdit1.DisplayChanged = [&main] { DHTMLEdit1_DisplayChanged(main); };
    main.Source1.Change = [&main] {
        main.editor.ActiveDirty = main.editor.source_edited = true;
        main.unsaved.changed.Emit();
    };
    FollowTab(main.window.TabStrip1, [&main] {
        if (main.window.TabStrip1.Enabled) TabStrip1_Click(main);
    });
    FollowTab(main.window.TabStrip2, [&main] { TabStrip2_Click(main); });
    KeepContentsReferences(main);
    ConnectContentsItemPanel(main);
    ConnectTopicKeywords(main);
}

}  // namespace quorrel
