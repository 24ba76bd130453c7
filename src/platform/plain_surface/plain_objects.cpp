#include "platform/plain_surface/plain_objects.hpp"

#include <algorithm>
#include <utility>

#include "platform/failure.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

/// What elements and ranges share: a place in a document that may be there no more.
class PlacedObject {
  public:
    PlacedObject(const std::shared_ptr<PlainDocument>& document, const PlainPlace& place)
        : document_(document), place_(document->Track(place)) {}

  protected:
    [[nodiscard]] std::shared_ptr<PlainDocument> Owner() const {
        auto document = document_.lock();
        if (!document) throw RuntimeError(run_time_error::kObjectNotSet);
        return document;
    }
    [[nodiscard]] PlainPlace& Place() const { return *place_; }

  private:
    std::weak_ptr<PlainDocument> document_;
    std::shared_ptr<PlainPlace> place_;
};

std::unique_ptr<TextRange> MakeRange(const std::shared_ptr<PlainDocument>& document,
                                     std::size_t from, std::size_t to);

/// An element of the source, or the body of a source that has no tag of it.
class PlainElement : public Element, private PlacedObject {
  public:
    PlainElement(const std::shared_ptr<PlainDocument>& document, const HtmlElement& element)
        : PlacedObject(document, {element.open_begin, element.open_end, true}) {}
    explicit PlainElement(const std::shared_ptr<PlainDocument>& document)
        : PlacedObject(document, {}), is_implied_body_(true) {}

    std::string innerHTML() const override {
        const auto document = Owner();
        const HtmlElement& element = Find(*document);
        return document->Source(element.open_end, element.close_begin);
    }
    std::string outerHTML() const override {
        const auto document = Owner();
        const HtmlElement& element = Find(*document);
        std::string html = document->Source(element.open_begin, element.close_end);
        return is_implied_body_ ? "<BODY>" + html + "</BODY>" : html;
    }
    void SetOuterHTML(std::string_view html) override {
        const auto document = Owner();
        const HtmlElement& element = Find(*document);
        document->Replace(element.open_begin, element.close_end, html);
    }
    void insertAdjacentHTML(std::string_view where, std::string_view html) override {
        const auto document = Owner();
        const HtmlElement& element = Find(*document);
        const std::string upper = UpperAscii(where);
        std::size_t at = 0;
        if (upper == "BEFOREBEGIN") {
            at = element.open_begin;
        } else if (upper == "AFTERBEGIN") {
            at = element.open_end;
        } else if (upper == "BEFOREEND") {
            at = element.close_begin;
        } else if (upper == "AFTEREND") {
            at = element.close_end;
        } else {
            throw RuntimeError(run_time_error::kInvalidArgument);
        }
        document->Replace(at, at, html);
    }
    std::unique_ptr<Element> parentElement() const override;
    std::unique_ptr<TextRange> createTextRange() const override {
        const auto document = Owner();
        const HtmlElement& element = Find(*document);
        return MakeRange(document, element.open_end, element.close_begin);
    }

  private:
    [[nodiscard]] const HtmlElement& Find(const PlainDocument& document) const {
        return is_implied_body_ ? document.Outline().Body() : document.ElementOf(Place());
    }

    bool is_implied_body_ = false;
};

std::unique_ptr<Element> MakeElement(const std::shared_ptr<PlainDocument>& document, int index) {
    const auto& elements = document->Outline().Elements();
    return std::make_unique<PlainElement>(document, elements[static_cast<std::size_t>(index)]);
}

std::unique_ptr<Element> MakeBody(const std::shared_ptr<PlainDocument>& document) {
    const int index = document->Outline().BodyIndex();
    return index < 0 ? std::make_unique<PlainElement>(document) : MakeElement(document, index);
}

std::unique_ptr<Element> PlainElement::parentElement() const {
    const auto document = Owner();
    const HtmlElement& element = Find(*document);
    if (element.parent >= 0) return MakeElement(document, element.parent);
    const HtmlOutline& outline = document->Outline();
    const bool in_implied_body = !is_implied_body_ && outline.BodyIndex() < 0 &&
                                 element.open_begin >= outline.Body().open_end;
    return in_implied_body ? MakeBody(document) : nullptr;
}

void CheckUnit(std::string_view unit) {
    if (UpperAscii(unit) != "CHARACTER") throw RuntimeError(run_time_error::kInvalidArgument);
}

/// `n` characters moved by `count`, as far as the body goes.
std::size_t Moved(const BodyText& body, std::size_t n, std::int64_t count) {
    const auto at = static_cast<std::int64_t>(n);
    const auto last = static_cast<std::int64_t>(body.Count());
    return static_cast<std::size_t>(at + std::clamp(count, -at, last - at));
}

std::int64_t Difference(std::size_t from, std::size_t to) {
    return static_cast<std::int64_t>(to) - static_cast<std::int64_t>(from);
}

class PlainRange : public TextRange, private PlacedObject {
  public:
    using PlacedObject::PlacedObject;

    std::string HTMLText() const override { return Owner()->Source(Place().from, Place().to); }
    std::string Text() const override { return Owner()->Body().Text(Place().from, Place().to); }
    void pasteHTML(std::string_view html) override {
        const std::size_t from = Place().from;
        Owner()->Replace(from, Place().to, html);
        Set(from + html.size(), from + html.size());
    }
    std::unique_ptr<Element> parentElement() const override {
        const auto document = Owner();
        const int index = document->Outline().ElementAround(Place().from, Place().to);
        return index < 0 ? MakeBody(document) : MakeElement(document, index);
    }
    void collapse(bool to_start) override {
        (void)Owner();
        const std::size_t at = to_start ? Place().from : Place().to;
        Set(at, at);
    }
    std::int64_t Move(std::string_view unit, std::int64_t count) override {
        CheckUnit(unit);
        const auto document = Owner();
        const BodyText& body = document->Body();
        const std::size_t edge = count < 0 ? Place().from : Place().to;
        const std::size_t n = body.CharactersBefore(edge);
        const std::size_t target = Moved(body, n, count);
        const std::size_t at = count == 0 ? edge : body.PlaceBehind(target);
        Set(at, at);
        return Difference(n, target);
    }
    std::int64_t moveStart(std::string_view unit, std::int64_t count) override {
        CheckUnit(unit);
        const auto document = Owner();
        const BodyText& body = document->Body();
        const std::size_t n = body.CharactersBefore(Place().from);
        const std::size_t target = Moved(body, n, count);
        if (target == n) return 0;
        // Before the tags in front of the next character the range would begin with end tags.
        const std::size_t from = body.PlaceBefore(target);
        Set(from, std::max(from, Place().to));
        return Difference(n, target);
    }
    std::int64_t moveEnd(std::string_view unit, std::int64_t count) override {
        CheckUnit(unit);
        const auto document = Owner();
        const BodyText& body = document->Body();
        const bool is_empty = Place().from == Place().to;
        const std::size_t n =
            is_empty ? body.CharactersBefore(Place().to) : body.CharactersBegunBefore(Place().to);
        const std::size_t target = Moved(body, n, count);
        if (target == n) return 0;
        const std::size_t to = body.PlaceBehind(target);
        const std::size_t from = is_empty && target > n ? body.PlaceBefore(n) : Place().from;
        Set(std::min(from, to), to);
        return Difference(n, target);
    }
    bool findText(std::string_view text, std::int64_t count, int flags) override {
        const auto document = Owner();
        const BodyText& body = document->Body();
        const BodyText::Search search{text, (flags & 2) != 0, (flags & 4) != 0, count < 0};
        const std::size_t edge = count < 0 ? Place().to : Place().from;
        const std::size_t n = body.CharactersBefore(edge);
        const std::size_t limit = Moved(body, n, count);
        const auto hit = body.Find(search, std::min(n, limit), std::max(n, limit));
        if (hit) Set(hit->from, hit->to);
        return hit.has_value();
    }
    void Select() override { Owner()->SelectText(Place().from, Place().to); }
    void scrollIntoView() override { (void)Owner(); }

  private:
    void Set(std::size_t from, std::size_t to) {
        Place().from = from;
        Place().to = to;
    }
};

std::unique_ptr<TextRange> MakeRange(const std::shared_ptr<PlainDocument>& document,
                                     std::size_t from, std::size_t to) {
    return std::make_unique<PlainRange>(document, PlainPlace{from, to});
}

class PlainControlRange : public ControlRange, private PlacedObject {
  public:
    using PlacedObject::PlacedObject;
    std::unique_ptr<Element> commonParentElement() const override {
        const auto document = Owner();
        return std::make_unique<PlainElement>(document, document->ElementOf(Place()));
    }
};

}  // namespace

SelectionType PlainSelection::Type() const {
    const PlainPlace& place = document_->Selection();
    if (place.is_element) return SelectionType::kControl;
    return place.from < place.to ? SelectionType::kText : SelectionType::kNone;
}

std::unique_ptr<TextRange> PlainSelection::createRange() const {
    const PlainPlace& place = document_->Selection();
    return place.is_element ? nullptr : MakeRange(document_, place.from, place.to);
}

std::unique_ptr<ControlRange> PlainSelection::createControlRange() const {
    const PlainPlace& place = document_->Selection();
    if (!place.is_element) return nullptr;
    return std::make_unique<PlainControlRange>(document_, place);
}

std::unique_ptr<Element> PlainDom::body() {
    return MakeBody(document_);
}

}  // namespace quorrel
