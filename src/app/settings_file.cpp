#include "app/settings_file.hpp"

#include "app/main_form.hpp"

namespace quorrel {

std::string GetIni(const MainForm& main, std::string_view section, std::string_view key,
                   std::string_view otherwise) {
    return main.machine_profiles.Get(main.settings.ini_file, section, key, otherwise);
}

void SetIni(MainForm& main, std::string_view section, std::string_view key,
            std::string_view value) {
    main.machine_profiles.Set(main.settings.ini_file, section, key, value);
}

}  // namespace quorrel
