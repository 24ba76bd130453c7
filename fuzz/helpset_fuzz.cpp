// A HelpSet read, written and read again.
#include "formats/javahelp/helpset.hpp"

#include "fuzz_support.hpp"
#include "javahelp_tables.hpp"

using namespace quorrel;

static std::string ReadAndWrite(const std::string& text) {
    ProjectState project;
    project.proj = fuzz::kHelpSet;
    project.proj_path = fuzz::kHelpSetFolder;
    ReadHelpSet(text, project);
    return WriteHelpSet(project, true, true);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::Input(data, size).RestAsText();
    (void)ReadAndWrite(ReadAndWrite(text));
    return 0;
}
