#include "editor/document_text.hpp"

#include <string>

#include "app/main_form.hpp"
#include "editor/object_mask.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

/// What the program itself puts into the source view is no change by the author.
void PutIntoSource(MainForm& main, void (SourceEdit::*put)(std::string_view),
                   std::string_view html) {
    EditorState& editor = main.editor;
    const bool was_dirty = editor.ActiveDirty;
    (main.Source1.*put)(html);
    editor.ActiveDirty = was_dirty;
    editor.source_edited = false;
}

}  // namespace

void ShowSource(MainForm& main, std::string_view html) {
    EditSurface& surface = main.DHTMLEdit1;
    const std::string base = surface.BaseURL();
    const bool mask = !main.settings.is_javahelp_edition && HasObjectTags(html);
    surface.SetDocumentHTML(mask ? MaskObjects(html) : std::string(html));
    surface.SetBaseURL(base);
}

void SetHTML(MainForm& main) {
    constexpr std::size_t kShortest = 20;
    const std::string text = main.Source1.Text();
    if (CountCharacters(text) >= kShortest) ShowSource(main, text);
}

void TakeBackSource(MainForm& main) {
    EditorState& editor = main.editor;
    if (!editor.SourceViewActive || !editor.source_edited) return;
    // Before the surface tells that it has the text, which the source view then follows.
    editor.source_edited = false;
    ShowSource(main, main.Source1.Text());
    editor.ActiveDirty = true;
}

void ShowInSource(MainForm& main, std::string_view html) {
    PutIntoSource(main, &SourceEdit::SetText, html);
    main.Source1.SetReadOnly(main.DHTMLEdit1.CurrentDocumentPath().empty());
}

void FollowInSource(MainForm& main) {
    if (main.editor.source_edited) return;
    const std::string html = main.DHTMLEdit1.DocumentHTML();
    if (html != main.Source1.Text()) PutIntoSource(main, &SourceEdit::ReplaceText, html);
}

void CloseDocument(MainForm& main, std::string_view why) {
    main.DHTMLEdit1.NewDocument(why);
    ShowInSource(main, {});
    main.editor.kept_html.clear();
    main.editor.temp_path.clear();
    main.editor.ActiveDirty = false;
}

bool IsDocumentEdited(MainForm& main) {
    try {
        TakeBackSource(main);
        return main.DHTMLEdit1.DocumentHTML() != main.editor.kept_html;
    } catch (const RuntimeError&) {
        return true;  // the attempt to save it tells what is wrong
    }
}

}  // namespace quorrel
