#include "platform/native_shell.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <thread>
#include <vector>

#include "platform/failure.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

using namespace run_time_error;

constexpr std::string_view kBlanks = " \t";

bool IsProgram(const std::string& native) {
    struct stat status {};
    return stat(native.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           access(native.c_str(), X_OK) == 0;
}

/// Empty where PATH has no such program. Parts of PATH that depend on the current folder do not
/// count: it may be that of a project from anywhere.
std::string FindInPath(std::string_view name) {
    const char* set = std::getenv("PATH");
    std::string_view folders = set == nullptr ? "/usr/local/bin:/usr/bin:/bin" : set;
    while (!name.empty() && !folders.empty()) {
        const std::string_view folder = folders.substr(0, folders.find(':'));
        folders.remove_prefix(std::min(folders.size(), folder.size() + 1));
        if (!folder.starts_with('/')) continue;
        std::string native(folder);
        native.append("/").append(name);
        if (IsProgram(native)) return native;
    }
    return {};
}

/// A name without a folder is never looked for in the current one.
bool HasFolder(std::string_view name) {
    return name.find_first_of("/\\") != npos;
}

bool IsInnerPath(std::string_view argument) {
    return argument.size() >= 3 && UpperAscii(argument[0]) == 'Z' && argument[1] == ':' &&
           (argument[2] == '\\' || argument[2] == '/');
}

std::string_view TrimBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text;
}

/// Takes the next word off `line`. A backslash is a letter like others, as paths are full of
/// them; two quotes within quotes are one.
std::string TakeWord(std::string_view& line) {
    std::string word;
    bool is_quoted = false;
    std::size_t at = 0;
    for (; at < line.size(); ++at) {
        const char c = line[at];
        if (c == '"' && is_quoted && at + 1 < line.size() && line[at + 1] == '"') {
            word += line[++at];
        } else if (c == '"') {
            is_quoted = !is_quoted;
        } else if (!is_quoted && Contains(kBlanks, line.substr(at, 1))) {
            break;
        } else {
            word += c;
        }
    }
    line = TrimBlanks(line.substr(at));
    return word;
}

/// What the new process starts with: nothing open, no signal held back, a session of its own.
class SpawnSettings {
  public:
    SpawnSettings() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        posix_spawnattr_init(&attributes_);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }

    /// The process; raises 53 or 5.
    [[nodiscard]] pid_t Spawn(std::vector<std::string>& words) const {
        std::vector<char*> argv;
        for (std::string& word : words) argv.push_back(word.data());
        argv.push_back(nullptr);
        pid_t process = 0;
        const int error =
            posix_spawn(&process, argv.front(), &actions_, &attributes_, argv.data(), environ);
        if (error == ENOENT || error == ENOTDIR) throw RuntimeError(kFileNotFound);
        if (error != 0) throw RuntimeError(kInvalidArgument);
        return process;
    }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

/// Sees the process to its end; an ended one that nobody has asked for stays in the system's
/// table. Not by SIGCHLD, which belongs to whoever else has children here.
void Reap(pid_t process) {
    const auto wait = [process] {
        while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
        }
    };
    try {
        std::thread(wait).detach();
    } catch (const std::system_error&) {
        // It runs; the entry in the table is a small loss.
    }
}

/// The native path of a program.
std::string ProgramFile(NativeFileSystem& files, std::string_view name) {
    if (HasFolder(name)) {
        if (!files.FileExists(name)) throw RuntimeError(kFileNotFound);
        return files.Resolve(name);
    }
    std::string found = FindInPath(name);
    if (found.empty() && name == "start") found = FindInPath("xdg-open");
    if (found.empty()) throw RuntimeError(kFileNotFound);
    return found;
}

/// Takes the program off the front of `line` and gives its native path.
std::string TakeProgram(NativeFileSystem& files, std::string_view& line) {
    if (line.starts_with('"')) return ProgramFile(files, TakeWord(line));
    for (std::size_t end = line.size(); end != npos && end > 0;
         end = line.find_last_of(kBlanks, end - 1)) {
        const std::string_view name = line.substr(0, end);
        const bool is_cut_at_blank = Contains(kBlanks, name.substr(end - 1));
        if (is_cut_at_blank || !HasFolder(name) || !files.FileExists(name)) continue;
        line = TrimBlanks(line.substr(end));
        return files.Resolve(name);
    }
    return ProgramFile(files, TakeWord(line));
}

}  // namespace

void NativeShell::Start(std::string_view command_line, WindowStyle) {
    std::string_view line = TrimBlanks(command_line);
    if (Contains(line, std::string_view("\0", 1))) throw RuntimeError(kInvalidArgument);
    std::vector<std::string> words = {TakeProgram(files_, line)};
    while (!line.empty()) {
        std::string word = TakeWord(line);
        words.push_back(IsInnerPath(word) ? files_.Resolve(word) : std::move(word));
    }
    Reap(SpawnSettings().Spawn(words));
}

}  // namespace quorrel
