// The document on the web engine's surface, and the objects in it.
#pragma once

#include <QPointer>

#include <functional>

#include "platform/edit_surface.hpp"
#include "ui/page_calls.hpp"

namespace quorrel {

/// The objects stay with the script in the page; here are their numbers.
class WebDocument : public Document, private Selection {
  public:
    /// Before the first page there is nothing selected and no body.
    WebDocument() = default;
    void SetCalls(PageCalls* calls) { calls_ = calls; }

    Selection& selection() override { return *this; }
    std::unique_ptr<Element> body() override;

  private:
    SelectionType Type() const override;
    std::unique_ptr<TextRange> createRange() const override;
    std::unique_ptr<ControlRange> createControlRange() const override;

    [[nodiscard]] bool IsThere() const { return !calls_.isNull() && calls_->Load() != 0; }

    QPointer<PageCalls> calls_;
};

}  // namespace quorrel
