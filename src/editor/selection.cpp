#include "editor/selection.hpp"

#include <string>

#include "app/main_form.hpp"
#include "platform/selection_marker.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kDesignTime = "DESIGNTIME";
constexpr std::string_view kCharacter = "character";
/// Further up than any document goes.
constexpr std::int64_t kToStart = -5'000'000;

/// Runs a step whose failure is ignored. False if it failed.
template <typename Step>
bool Try(Step&& step) {
    try {
        step();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

template <typename Object>
Object& Required(const std::unique_ptr<Object>& object) {
    if (!object) throw RuntimeError(run_time_error::kObjectNotSet);
    return *object;
}

std::int64_t Length(std::string_view text) {
    return static_cast<std::int64_t>(CountCharacters(text));
}

/// The 1-based position of the marker in characters, or 0.
std::int64_t MarkerPosition(std::string_view text) {
    const std::size_t at = text.find(kSelectionMarker);
    return at == npos ? 0 : Length(text.substr(0, at)) + 1;
}

std::string_view WithoutLastCharacter(std::string_view text) {
    const auto continues = [&] { return (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80; };
    while (!text.empty() && continues()) text.remove_suffix(1);
    if (!text.empty()) text.remove_suffix(1);
    return text;
}

/// Drops the attributes that the surface adds for its own use, each with the character before it
/// and all up to the tag's end. Each also costs the text its last character; SelLen counts on it.
std::string WithoutDesignTime(std::string_view html) {
    std::string result;
    std::size_t at = 0;
    while ((at = html.find(kDesignTime)) != npos) {
        result += WithoutLastCharacter(html.substr(0, at));
        const std::size_t tag_end = html.find('>', at);
        if (tag_end == npos) return result;
        html = WithoutLastCharacter(html.substr(tag_end));
    }
    return result.append(html);
}

std::string CleanSource(const std::unique_ptr<TextRange>& range) {
    return WithoutDesignTime(Required(range).HTMLText());
}

/// Puts the marker at the start of the selection's element and measures from there. False if the
/// document is as it was.
bool MarkElement(MainForm& main, const std::unique_ptr<TextRange>& range) {
    const bool marked = Try([&] {
        Required(GetSelectionElement(main)).insertAdjacentHTML("AfterBegin", kSelectionMarker);
    });
    Try([&] {
        const std::string html = CleanSource(range);
        main.editor.SelLen = Length(html) - MarkerPosition(html);
    });
    return marked;
}

/// A paste of the whole selection, since an insertion would not be sure to stand at its start.
bool MarkText(const std::unique_ptr<TextRange>& range, const std::string& html) {
    return Try([&] { Required(range).pasteHTML(std::string(kSelectionMarker) + html); });
}

void TakeMarkerFromDocbuf(EditorState& editor) {
    editor.SelStart = MarkerPosition(editor.docbuf);
    editor.docbuf = ReplaceAll(editor.docbuf, kSelectionMarker, {});
    if (editor.SelStart == 0) return;
    const std::string_view rest =
        std::string_view(editor.docbuf)
            .substr(
                OffsetOfCharacter(editor.docbuf, static_cast<std::size_t>(editor.SelStart - 1)));
    editor.seltext = FirstCharacters(rest, static_cast<std::size_t>(editor.SelLen));
}

}  // namespace

std::unique_ptr<Element> GetSelectionElement(MainForm& main) {
    Selection& selection = main.DHTMLEdit1.DOM().selection();
    if (selection.Type() == SelectionType::kControl) {
        const auto control = selection.createControlRange();
        return control ? control->commonParentElement() : nullptr;
    }
    const auto range = selection.createRange();
    if (!range) return nullptr;
    range->collapse(true);
    return range->parentElement();
}

void GetSelection(MainForm& main) {
    EditSurface& surface = main.DHTMLEdit1;
    EditorState& editor = main.editor;
    std::unique_ptr<TextRange> range;
    std::string html;
    Try([&] { range = surface.DOM().selection().createRange(); });
    Try([&] { html = CleanSource(range); });
    editor.SelLen = Length(html);
    editor.multi_cell_selection = Contains(html, "</TD>") || Contains(html, "</td>");
    const bool marked =
        editor.multi_cell_selection ? MarkElement(main, range) : MarkText(range, html);
    Try([&] {
        if (!surface.Busy()) editor.docbuf = surface.DocumentHTML();
    });
    // Without the marker this would take back an edit of the user.
    if (marked) Try([&] { surface.ExecCommand(surface_command::DECMD_UNDO); });
    TakeMarkerFromDocbuf(editor);
}

void SaveSelection(MainForm& main) {
    EditorState& editor = main.editor;
    Try([&] {
        Selection& selection = main.DHTMLEdit1.DOM().selection();
        if (selection.Type() == SelectionType::kControl) {
            editor.SelEnd = 0;
            return;
        }
        const auto range = selection.createRange();
        editor.SelEnd = -Required(range).Move(kCharacter, kToStart);
        range->Select();
        range->Move(kCharacter, editor.SelEnd);
        range->Select();
    });
}

void RestoreSelection(MainForm& main) {
    Try([&] {
        const auto body = main.DHTMLEdit1.DOM().body();
        const auto range = Required(body).createTextRange();
        Required(range).collapse(false);
        range->Move(kCharacter, kToStart);
        range->Move(kCharacter, main.editor.SelEnd);
        range->scrollIntoView();
        range->Select();
    });
}

void ShowDocbuf(MainForm& main) {
    EditSurface& surface = main.DHTMLEdit1;
    const std::string base_url = surface.BaseURL();
    // First, for a surface that is complete at once.
    main.editor.DoRestoreSelection = true;
    surface.SetDocumentHTML(main.editor.docbuf);
    surface.SetBaseURL(base_url);
}

bool ReplaceSelectedSource(MainForm& main, std::string_view html) {
    EditorState& editor = main.editor;
    const std::string_view docbuf = editor.docbuf;
    if (editor.SelStart < 1 || editor.SelLen < 0 || editor.SelStart > Length(docbuf) + 1) {
        return false;
    }
    const std::string_view before =
        FirstCharacters(docbuf, static_cast<std::size_t>(editor.SelStart - 1));
    const std::string_view selected =
        FirstCharacters(docbuf.substr(before.size()), static_cast<std::size_t>(editor.SelLen));
    editor.docbuf =
        std::string(before).append(html).append(docbuf.substr(before.size() + selected.size()));
    ShowDocbuf(main);
    return true;
}

}  // namespace quorrel
