#include "app/form_splash.hpp"

#include "app/startup.hpp"

namespace quorrel {

frmSplash::frmSplash(std::string_view command_line)
    : html_help_(SelectsHtmlHelpEdition(command_line)) {}

}  // namespace quorrel
