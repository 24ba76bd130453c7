#include "app/settings_file.hpp"

#include <utility>

#include "app/main_form.hpp"

namespace quorrel {

std::string GetIni(const MainForm& main, std::string_view section, std::string_view key,
                   std::string_view otherwise) {
    return main.machine_profiles.Get(main.settings.ini_file, section, key, otherwise);
}

void SetIni(MainForm& main, std::string_view section, const ProfilePairs& pairs) {
    if (main.machine_profiles.Set(main.settings.ini_file, section, pairs)) return;
    TellSettingsNotKept(main, main.settings.ini_file);
}

void TellSettingsNotKept(MainForm& main, std::string_view file) {
    const std::string path = main.files.NativePath(main.machine_profiles.PathOf(file));
    main.log.Note("MainForm SetIni: ", run_time_error::kPathFileAccess,
                  path + " could not be written");
    if (std::exchange(main.settings.is_failure_told, true)) return;
    main.screen.ShowMessage({"Settings cannot be kept: " + path +
                                 " could not be written. The next start will not know of changes "
                                 "made from here on.",
                             main.settings.APP_NAME, MessageButtons::kOk,
                             MessageIcon::kExclamation});
}

}  // namespace quorrel
