// Starts programs of this system.
#pragma once

#include <string_view>

#include "platform/native_file_system.hpp"
#include "platform/surfaces.hpp"

namespace quorrel {

/// Programs run in a session of their own, so that they outlive this one, with nothing to read
/// from and nothing of ours open.
class NativeShell : public Shell {
  public:
    explicit NativeShell(NativeFileSystem& files) : files_(files) {}

    /// The program is the first word in double quotes, else the longest beginning of the line, up
    /// to a blank, that is a file, else the first word, looked up in PATH. "start" opens a document
    /// or an address with the desktop's own program. On a system with "/" paths arguments are
    /// separated by blanks outside of double quotes, those of the form "Z:\..." are handed over as
    /// native paths, and the style has no meaning: a window manager does not take it from a
    /// starter.
    void Start(std::string_view command_line, WindowStyle style) override;

  private:
    NativeFileSystem& files_;
};

}  // namespace quorrel
