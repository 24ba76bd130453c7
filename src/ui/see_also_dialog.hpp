// The view of FormSeeAlso.
#pragma once

#include <QDialog>

#include <memory>
#include <optional>

#include "contents/see_also.hpp"
#include "ui/typed_text.hpp"

namespace quorrel {

/// Stays beside the index until it is closed; it goes then, and the form with it.
class SeeAlsoDialog : public QDialog {
    Q_OBJECT
  public:
    SeeAlsoDialog(std::unique_ptr<FormSeeAlso> form, QWidget* parent);

    void reject() override;
    void done(int result) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    [[nodiscard]] QWidget* MakeButtons();
    void MoveBesideIndex();

    std::unique_ptr<FormSeeAlso> form_;
    std::optional<TypedText> typed_;
};

}  // namespace quorrel
