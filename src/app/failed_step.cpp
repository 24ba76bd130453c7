#include "app/failed_step.hpp"

#include <string>

#include "app/main_form.hpp"

namespace quorrel {

void LogFailedStep(MainForm& main, int number, std::string_view text) {
    main.log.Write("MainForm Event: ", number, text);
}

void TellFailedStep(MainForm& main, std::string_view text) {
    main.screen.ShowMessage({"The last step could not be finished:\r\n\r\n" + std::string(text) +
                                 "\r\n\r\nYour work is still open. Save it before you go on.",
                             main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kCritical,
                             MessageAnswer::kOk, true});
}

}  // namespace quorrel
