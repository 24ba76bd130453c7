// A HelpSet read, written and read again: it says the same.
#include "formats/javahelp/helpset.hpp"

#include "fuzz_support.hpp"
#include "javahelp_tables.hpp"

using namespace quorrel;

static ProjectState Read(const std::string& text) {
    ProjectState project;
    project.proj = fuzz::kHelpSet;
    project.proj_path = fuzz::kHelpSetFolder;
    ReadHelpSet(text, project);
    return project;
}

static std::string ReadAndWrite(const std::string& text) {
    return WriteHelpSet(Read(text), true, true);
}

/// Values are written as they stand: one with a tag or a quote in it ends elsewhere when read.
static bool ComesBack(const ProjectState& project) {
    for (const std::string& value : {project.project_title, project.project_def_topic,
                                     project.java_map_file, project.hhcfile, project.hhkfile}) {
        if (value.find_first_of("<>\"\r\n") != std::string::npos) return false;
    }
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::Input(data, size).RestAsText();
    const std::string written = ReadAndWrite(text);
    if (ComesBack(Read(text))) fuzz::CheckSettles(written, ReadAndWrite);
    return 0;
}
