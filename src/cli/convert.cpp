#include "cli/convert.hpp"

#include <algorithm>
#include <ostream>
#include <vector>

#include "cli/cli.hpp"
#include "cli/session.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

/// Remembers which files have got new content and are still there.
class NotingFileSystem : public NativeFileSystem {
  public:
    [[nodiscard]] const std::vector<std::string>& Written() const { return written_; }

    // A copy is a file written, and nothing of a project is moved but into another's place.
    void WriteFile(std::string_view path, std::string_view bytes) override {
        NativeFileSystem::WriteFile(path, bytes);
        Forget(path);
        // All but the log, which goes to the current folder, have a full path.
        if (Contains(path, ":")) written_.emplace_back(path);
    }
    bool ReplaceFile(std::string_view from, std::string_view to) override {
        if (!NativeFileSystem::ReplaceFile(from, to)) return false;
        Forget(from);
        Forget(to);
        written_.emplace_back(to);
        return true;
    }
    bool DeleteFile(std::string_view path) override {
        Forget(path);
        return NativeFileSystem::DeleteFile(path);
    }

  private:
    void Forget(std::string_view path) { std::erase(written_, path); }

    std::vector<std::string> written_;
};

/// The first of the files that the conversion is to make and that exists, or an empty text.
std::string ExistingFile(MainForm& main) {
    const ProjectState& project = main.project;
    for (const std::string& file :
         {project.proj, project.java_map_file, project.hhcfile, project.hhkfile}) {
        if (main.files.FileExists(file)) return main.files.NativePath(file);
    }
    return {};
}

}  // namespace

int Convert(const ProjectCall& call, std::ostream& out, std::ostream& err) {
    const auto refuse = [&](const std::string& file, std::string_view why) {
        err << "quorrel-cli: " << file << ": " << why << '\n';
        return exit_code::kFailure;
    };
    if (!LowerAscii(call.project).ends_with(".hhp")) {
        return refuse(call.project, "not an HTML Help project (.hhp)");
    }
    NotingFileSystem files;
    ProjectCall javahelp = call;
    javahelp.edition = "javahelp";
    Session session(javahelp, files, err);
    if (!session.Open()) return exit_code::kFailure;
    if (const std::string file = ExistingFile(session.main); !file.empty() && !call.force) {
        return refuse(file, "exists already; --force replaces it");
    }
    // Saving would put the topic that opening has opened in its own place.
    session.main.editor.main_path.clear();
    const bool saved = session.Save();
    for (const std::string& file : files.Written()) out << files.NativePath(file) << '\n';
    return saved ? exit_code::kSuccess : exit_code::kFailure;
}

}  // namespace quorrel
