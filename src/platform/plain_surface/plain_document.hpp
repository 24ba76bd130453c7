// The text of a plain surface with what lives on it: the selection, the places that elements and
// ranges remember, the history.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/plain_surface/body_text.hpp"
#include "platform/plain_surface/html_outline.hpp"

namespace quorrel {

/// A place in a document that edits elsewhere shift, in bytes.
struct PlainPlace {
    std::size_t from = 0;
    std::size_t to = 0;
    bool is_element = false;  // the start tag of an element, which stands for it
    bool gone = false;        // the tag has left the document
};

/// One document from its load on: the next one is another object, so whoever holds a place in
/// this one by a weak pointer notices.
class PlainDocument {
  public:
    explicit PlainDocument(std::string html, bool is_dirty = false)
        : dirty(is_dirty), html_(std::move(html)) {}

    [[nodiscard]] const std::string& Html() const { return html_; }
    [[nodiscard]] const HtmlOutline& Outline() const;
    [[nodiscard]] const BodyText& Body() const;
    /// The source of the stretch with element names in upper case.
    [[nodiscard]] std::string Source(std::size_t from, std::size_t to) const;
    /// The element of a place; raises 91 if it is gone. Valid up to the next edit.
    [[nodiscard]] const HtmlElement& ElementOf(const PlainPlace& place) const;

    /// A place that is kept up to date as long as somebody holds it.
    [[nodiscard]] std::shared_ptr<PlainPlace> Track(const PlainPlace& place);

    /// At first a caret at the start of the text.
    [[nodiscard]] const PlainPlace& Selection() const;
    /// Selects a text, or sets the caret; in the body, and not in the middle of a tag or
    /// character.
    void SelectText(std::size_t from, std::size_t to);
    void SelectElement(const HtmlElement& element);
    /// What is selected, an element with its content.
    [[nodiscard]] SourceStretch SelectedStretch() const;

    /// Replaces a stretch of the source: one step of undo. A caret behind the new content is set
    /// if the selection is in the stretch.
    void Replace(std::size_t from, std::size_t to, std::string_view html);
    [[nodiscard]] bool CanUndo() const { return !undo_.empty(); }
    [[nodiscard]] bool CanRedo() const;
    void Undo();
    void Redo();

    bool dirty;

  private:
    struct Edit {
        std::size_t at = 0;
        std::string removed;
        std::string inserted;
        PlainPlace selection;  // before it
        // A paste of the selection marker: undone at once it leaves no trace.
        bool is_marker = false;
        bool was_dirty = false;
        std::vector<std::pair<std::shared_ptr<PlainPlace>, PlainPlace>> places;
    };

    [[nodiscard]] bool EndsWithMarker() const { return !undo_.empty() && undo_.back().is_marker; }
    void KeepMarker();
    [[nodiscard]] std::size_t Snapped(std::size_t offset) const;
    void Apply(std::size_t at, std::size_t removed, std::string_view inserted);

    std::string html_;
    mutable std::optional<HtmlOutline> outline_;
    mutable std::optional<BodyText> body_;
    mutable std::optional<PlainPlace> selection_;
    std::vector<std::weak_ptr<PlainPlace>> places_;
    std::size_t places_limit_ = 16;
    std::vector<Edit> undo_;
    std::vector<Edit> redo_;
};

}  // namespace quorrel
