// The document objects of a plain surface.
#pragma once

#include <memory>

#include "platform/edit_surface.hpp"
#include "platform/plain_surface/plain_document.hpp"

namespace quorrel {

class PlainSelection : public Selection {
  public:
    explicit PlainSelection(const std::shared_ptr<PlainDocument>& document) : document_(document) {}
    SelectionType Type() const override;
    std::unique_ptr<TextRange> createRange() const override;
    std::unique_ptr<ControlRange> createControlRange() const override;

  private:
    const std::shared_ptr<PlainDocument>& document_;
};

/// Speaks of the document that `document` holds at the time.
class PlainDom : public Document {
  public:
    explicit PlainDom(const std::shared_ptr<PlainDocument>& document)
        : document_(document), selection_(document) {}
    Selection& selection() override { return selection_; }
    std::unique_ptr<Element> body() override;

  private:
    const std::shared_ptr<PlainDocument>& document_;
    PlainSelection selection_;
};

}  // namespace quorrel
