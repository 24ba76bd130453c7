// What is done about a failure that no routine has dealt with.
#pragma once

#include <string_view>

namespace quorrel {

struct MainForm;

/// Writes the failure of a step to the log.
void LogFailedStep(MainForm& main, int number, std::string_view text);
/// Tells the user that a step broke off and that his work is still there.
void TellFailedStep(MainForm& main, std::string_view text);

}  // namespace quorrel
