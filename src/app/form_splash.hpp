// The picture that is shown while the program starts.
#pragma once

#include <string_view>

#include "platform/screen.hpp"

namespace quorrel {

/// Closes by itself, on any key and on a click.
class frmSplash : public Form {
  public:
    static constexpr int kMilliseconds = 1500;

    explicit frmSplash(std::string_view command_line);
    [[nodiscard]] std::string_view Name() const override { return "frmSplash"; }

    /// Which of the two pictures is shown.
    [[nodiscard]] bool ShowsHtmlHelpPicture() const { return html_help_; }

  private:
    bool html_help_;
};

}  // namespace quorrel
