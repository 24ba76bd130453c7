#include "support/project_fixture.hpp"

#include "app/startup.hpp"
#include "project/open_project.hpp"

namespace quorrel::test {

void ProjectFixture::Open(std::string_view name, std::string_view edition) {
    LoadSettings(main, edition);
    main.project.recent_proj = folder.Windows(name);
    OpenProject_Click(main);
}

std::string ProjectFixture::TooShort(std::string_view file) const {
    return "A page of 25 bytes or less counts as empty and does not take the place of a topic. Not "
           "saved:\r\n\r\n" +
           folder.Native(file) +
           "\r\n\r\nThe old text stays there. Yours is kept beside it, in the file with .tmp.htm "
           "at the end of its name, and saved when it is longer.";
}

}  // namespace quorrel::test
