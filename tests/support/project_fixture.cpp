#include "support/project_fixture.hpp"

#include "app/startup.hpp"
#include "project/open_project.hpp"

namespace quorrel::test {

void ProjectFixture::Open(std::string_view name, std::string_view edition) {
    LoadSettings(main, edition);
    main.project.recent_proj = folder.Windows(name);
    OpenProject_Click(main);
}

}  // namespace quorrel::test
