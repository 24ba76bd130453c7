// What of the disk a page with scripts may have.
#pragma once

#include <QUrl>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "platform/file_system.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// A page gets the files that belong to what is shown. A picture or style sheet elsewhere it gets
/// only where a source that it was given names it: a script can make up any other path.
class PageFiles {
  public:
    explicit PageFiles(FileSystem& files) : files_(files) {}

    /// Whether a full path belongs to what is shown.
    std::function<bool(const std::string& path)> belongs;

    [[nodiscard]] bool MayServe(const QUrl& url) const;
    /// A page or a style sheet with this source has been served.
    void NoteServed(const QUrl& url, std::string_view source, bool is_style_sheet);
    /// Other sources are shown from now on.
    void Forget() { parts_.clear(); }

  private:
    [[nodiscard]] bool IsPart(const std::string& path) const;

    FileSystem& files_;
    std::unordered_set<std::string, IgnoringCaseHash, IgnoringCaseEqual> parts_;  // plain paths
};

}  // namespace quorrel
