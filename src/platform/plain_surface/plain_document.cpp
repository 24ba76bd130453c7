#include "platform/plain_surface/plain_document.hpp"

#include <algorithm>

#include "platform/failure.hpp"
#include "platform/selection_marker.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

/// Where a place is after `removed` bytes at `at` have become `inserted`. What stands at the
/// start of the stretch stays, what is inside goes behind the new content.
std::size_t Shifted(std::size_t offset, std::size_t at, std::size_t removed, std::size_t inserted) {
    return offset <= at ? offset : std::max(offset, at + removed) - removed + inserted;
}

void Shift(PlainPlace& place, std::size_t at, std::size_t removed, std::size_t inserted) {
    if (!place.is_element) {
        place.from = Shifted(place.from, at, removed, inserted);
        place.to = Shifted(place.to, at, removed, inserted);
    } else if (place.from >= at + removed) {
        place.from = place.from - removed + inserted;
        place.to = place.to - removed + inserted;
    } else if (place.to > at) {
        place.gone = true;
    }
}

}  // namespace

const HtmlOutline& PlainDocument::Outline() const {
    if (!outline_) outline_.emplace(html_);
    return *outline_;
}

const BodyText& PlainDocument::Body() const {
    if (!body_) body_.emplace(html_, Outline());
    return *body_;
}

std::string PlainDocument::Source(std::size_t from, std::size_t to) const {
    std::string source = html_.substr(from, to - from);
    const std::vector<HtmlToken>& tokens = Outline().Tokens();
    auto token = std::partition_point(tokens.begin(), tokens.end(),
                                      [&](const HtmlToken& t) { return t.begin < from; });
    for (; token != tokens.end() && token->end <= to; ++token) {
        if (!token->IsTag()) continue;
        source.replace(token->NameBegin() - from, token->name.size(), token->name);
    }
    return source;
}

const HtmlElement& PlainDocument::ElementOf(const PlainPlace& place) const {
    const int index = place.gone ? -1 : Outline().ElementAt(place.from);
    if (index < 0) throw RuntimeError(run_time_error::kObjectNotSet);
    return Outline().Elements()[static_cast<std::size_t>(index)];
}

std::shared_ptr<PlainPlace> PlainDocument::Track(const PlainPlace& place) {
    if (places_.size() >= places_limit_) {
        std::erase_if(places_, [](const auto& tracked) { return tracked.expired(); });
        places_limit_ = places_.size() * 2 + 16;
    }
    auto tracked = std::make_shared<PlainPlace>(place);
    places_.push_back(tracked);
    return tracked;
}

const PlainPlace& PlainDocument::Selection() const {
    if (!selection_) {
        const std::size_t start = Body().PlaceBehind(0);
        selection_ = PlainPlace{start, start};
    }
    return *selection_;
}

std::size_t PlainDocument::Snapped(std::size_t offset) const {
    const HtmlElement& body = Outline().Body();
    offset = std::clamp(offset, body.open_end, std::max(body.open_end, body.close_begin));
    const HtmlToken* token = Outline().TokenOver(offset);
    if (token != nullptr && token->kind != HtmlTokenKind::kText) offset = token->begin;
    return Body().CharacterStart(offset);
}

void PlainDocument::SelectText(std::size_t from, std::size_t to) {
    from = Snapped(from);
    selection_ = PlainPlace{from, std::max(from, Snapped(to))};
}

void PlainDocument::SelectElement(const HtmlElement& element) {
    selection_ = PlainPlace{element.open_begin, element.open_end, true};
}

SourceStretch PlainDocument::SelectedStretch() const {
    const PlainPlace& place = Selection();
    if (!place.is_element) return {place.from, place.to};
    const HtmlElement& element = ElementOf(place);
    return {element.open_begin, element.close_end};
}

void PlainDocument::Replace(std::size_t from, std::size_t to, std::string_view html) {
    Edit edit{from, html_.substr(from, to - from), std::string(html), Selection(), false, dirty,
              {}};
    edit.is_marker = Contains(html, kSelectionMarker);
    KeepMarker();
    if (edit.is_marker) {
        for (const auto& tracked : places_) {
            if (auto place = tracked.lock()) edit.places.emplace_back(place, *place);
        }
    } else {
        redo_.clear();
    }
    const bool is_selected = edit.selection.from >= from && edit.selection.to <= to;
    Apply(from, to - from, html);
    const std::size_t behind = from + html.size();
    if (is_selected) selection_ = PlainPlace{behind, behind};
    undo_.push_back(std::move(edit));
    dirty = true;
}

/// A paste of the marker that something else follows is a step as any other.
void PlainDocument::KeepMarker() {
    if (!EndsWithMarker()) return;
    undo_.back().is_marker = false;
    undo_.back().places.clear();
    redo_.clear();
}

bool PlainDocument::CanRedo() const {
    // Behind a marker the steps would not fit the text.
    return !redo_.empty() && !EndsWithMarker();
}

void PlainDocument::Undo() {
    Edit edit = std::move(undo_.back());
    undo_.pop_back();
    Apply(edit.at, edit.inserted.size(), edit.removed);
    selection_ = edit.selection;
    if (edit.is_marker) {
        dirty = edit.was_dirty;
        for (const auto& [place, before] : edit.places) *place = before;
        return;
    }
    dirty = true;
    redo_.push_back(std::move(edit));
}

void PlainDocument::Redo() {
    Edit edit = std::move(redo_.back());
    redo_.pop_back();
    Apply(edit.at, edit.removed.size(), edit.inserted);
    const std::size_t behind = edit.at + edit.inserted.size();
    selection_ = PlainPlace{behind, behind};
    dirty = true;
    undo_.push_back(std::move(edit));
}

void PlainDocument::Apply(std::size_t at, std::size_t removed, std::string_view inserted) {
    html_.replace(at, removed, inserted);
    outline_.reset();
    body_.reset();
    for (const auto& tracked : places_) {
        if (const auto place = tracked.lock()) Shift(*place, at, removed, inserted.size());
    }
    if (!selection_) return;
    Shift(*selection_, at, removed, inserted.size());
    if (selection_->gone) {
        const std::size_t behind = at + inserted.size();
        selection_ = PlainPlace{behind, behind};
    }
}

}  // namespace quorrel
