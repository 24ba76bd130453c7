#include "ui/web_document.hpp"

#include <algorithm>
#include <utility>

#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

/// Beyond any document, and exact as a number of the script.
constexpr std::int64_t kMostCharacters = std::int64_t{1} << 40;

/// One object that the page keeps for us.
class PageObject {
  public:
    PageObject(PageCalls* calls, int object)
        : calls_(calls), load_(calls->Load()), object_(object) {}
    ~PageObject() {
        if (!calls_.isNull()) calls_->Release(load_, object_);
    }
    PageObject(const PageObject&) = delete;
    PageObject& operator=(const PageObject&) = delete;

    QVariant Call(const char* name, QJsonArray arguments = {}) const {
        if (calls_.isNull()) throw RuntimeError(run_time_error::kObjectNotSet);
        arguments.prepend(object_);
        return calls_->CallFor(load_, name, arguments);
    }
    std::string Text(const char* name) const { return FromQt(Call(name).toString()); }

    /// The object that a call gives; null for none.
    template <typename Object>
    std::unique_ptr<Object> Kept(const char* name) const {
        const int found = Call(name).toInt();
        return found == 0 ? nullptr : std::make_unique<Object>(calls_.data(), found);
    }

  private:
    QPointer<PageCalls> calls_;
    int load_;
    int object_;
};

class PageRange;

class PageElement : public Element {
  public:
    PageElement(PageCalls* calls, int object) : object_(calls, object) {}

    std::string innerHTML() const override { return object_.Text("innerHTML"); }
    std::string outerHTML() const override { return object_.Text("outerHTML"); }
    void SetOuterHTML(std::string_view html) override {
        object_.Call("setOuterHTML", {ToQt(html)});
    }
    void insertAdjacentHTML(std::string_view where, std::string_view html) override {
        object_.Call("insertAdjacent", {ToQt(where), ToQt(html)});
    }
    std::unique_ptr<Element> parentElement() const override {
        return object_.Kept<PageElement>("elementParent");
    }
    std::unique_ptr<TextRange> createTextRange() const override;

  private:
    PageObject object_;
};

class PageRange : public TextRange {
  public:
    PageRange(PageCalls* calls, int object) : object_(calls, object) {}

    std::string HTMLText() const override { return object_.Text("rangeHTML"); }
    std::string Text() const override { return object_.Text("rangeText"); }
    void pasteHTML(std::string_view html) override { object_.Call("rangePaste", {ToQt(html)}); }
    std::unique_ptr<Element> parentElement() const override {
        return object_.Kept<PageElement>("rangeParent");
    }
    void collapse(bool to_start) override { object_.Call("rangeCollapse", {to_start}); }
    std::int64_t Move(std::string_view unit, std::int64_t count) override {
        return MoveEdge("both", unit, count);
    }
    std::int64_t moveStart(std::string_view unit, std::int64_t count) override {
        return MoveEdge("start", unit, count);
    }
    std::int64_t moveEnd(std::string_view unit, std::int64_t count) override {
        return MoveEdge("end", unit, count);
    }
    bool findText(std::string_view text, std::int64_t count, int flags) override {
        return object_.Call("rangeFind", {ToQt(text), Bounded(count), flags}).toBool();
    }
    void Select() override { object_.Call("rangeSelect"); }
    void scrollIntoView() override { object_.Call("rangeScroll"); }

  private:
    static qint64 Bounded(std::int64_t count) {
        return std::clamp(count, -kMostCharacters, kMostCharacters);
    }
    std::int64_t MoveEdge(const char* edge, std::string_view unit, std::int64_t count) {
        if (LowerAscii(unit) != "character") throw RuntimeError(run_time_error::kInvalidArgument);
        return object_.Call("rangeMove", {edge, Bounded(count)}).toLongLong();
    }

    PageObject object_;
};

std::unique_ptr<TextRange> PageElement::createTextRange() const {
    return object_.Kept<PageRange>("elementRange");
}

class PageControl : public ControlRange {
  public:
    explicit PageControl(std::shared_ptr<PageObject> object) : object_(std::move(object)) {}
    std::unique_ptr<Element> commonParentElement() const override {
        return object_->Kept<PageElement>("sameElement");
    }

  private:
    std::shared_ptr<PageObject> object_;
};

}  // namespace

std::unique_ptr<Element> WebDocument::body() {
    if (!IsThere()) return nullptr;
    const int found = calls_->Call("body").toInt();
    return found == 0 ? nullptr : std::make_unique<PageElement>(calls_.data(), found);
}

SelectionType WebDocument::Type() const {
    if (!IsThere()) return SelectionType::kNone;
    return static_cast<SelectionType>(calls_->Call("selectionType").toInt());
}

std::unique_ptr<TextRange> WebDocument::createRange() const {
    if (!IsThere()) return nullptr;
    const int found = calls_->Call("selectionRange").toInt();
    return found == 0 ? nullptr : std::make_unique<PageRange>(calls_.data(), found);
}

std::unique_ptr<ControlRange> WebDocument::createControlRange() const {
    if (!IsThere()) return nullptr;
    const int found = calls_->Call("selectedControl").toInt();
    if (found == 0) return nullptr;
    return std::make_unique<PageControl>(std::make_shared<PageObject>(calls_.data(), found));
}

}  // namespace quorrel
