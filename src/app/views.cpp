#include "app/views.hpp"

#include <array>
#include <string_view>

#include "app/main_form.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "editor/selection.hpp"
#include "editor/surface_events.hpp"
#include "project/save_project.hpp"
#include "project/topic_properties.hpp"

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
    ShowSource(main, main.Source1.Text());
    editor.ActiveDirty = true;
    editor.SourceViewActive = false;
}

void EnterSourceView(MainForm& main) {
    WaitForSurface(main);
    // Showing the text is no change to it.
    const bool was_dirty = main.editor.ActiveDirty;
    main.Source1.SetText(main.DHTMLEdit1.DocumentHTML());
    main.editor.ActiveDirty = was_dirty;
    SaveSelection(main);
    main.editor.SourceViewActive = true;
    main.Source1.SetFocus();
}

void ShowPreview(MainForm& main) {
    EditorState& editor = main.editor;
    if (editor.main_path.empty()) return;
    const bool dirty = main.DHTMLEdit1.IsDirty() || editor.ActiveDirty;
    const bool has_copy = dirty && SetDirty(main) && !editor.temp_path.empty();
    main.WebBrowser1.Navigate(has_copy ? editor.temp_path : editor.main_path);
}

}  // namespace

void TabStrip2_Click(MainForm& main) {
    if (main.editor.TopicPropDirty) SaveTopicProperties(main);
    WaitForSurface(main);
    LeaveSourceView(main);
    const int tab = main.window.TabStrip2.SelectedIndex();
    if (tab == right_tab::kNormal || tab == right_tab::kProperties) {
        main.DHTMLEdit1.SetBrowseMode(false);
    }
    ShowPane(main, PaneOf(tab));
    switch (tab) {
        case right_tab::kNormal:
            return main.DHTMLEdit1.SetFocus();
        case right_tab::kProperties:
            return LoadTopicProperties(main);
        case right_tab::kSource:
            return EnterSourceView(main);
        case right_tab::kPreview:
            return ShowPreview(main);
        case right_tab::kReport:
            return NavigateToReport(main);
        default:
            return;
    }
}

void ConnectEvents(MainForm& main) {
    ShowPane(main, PaneOf(main.window.TabStrip2.SelectedIndex()));
    main.window.LabelExtEditor.Visible = false;
    main.DHTMLEdit1.DocumentComplete = [&main] { DHTMLEdit1_DocumentComplete(main); };
    main.DHTMLEdit1.DisplayChanged = [&main] { DHTMLEdit1_DisplayChanged(main); };
    main.Source1.Change = [&main] { main.editor.ActiveDirty = true; };
    TabStrip& strip = main.window.TabStrip2;
    strip.changed.Connect([&main, &strip, shown = strip.SelectedIndex()]() mutable {
        if (strip.SelectedIndex() == shown) return;
        shown = strip.SelectedIndex();
        TabStrip2_Click(main);
    });
}

}  // namespace quorrel
