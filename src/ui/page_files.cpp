#include "ui/page_files.hpp"

#include "editor/page_parts.hpp"
#include "project/project_files.hpp"
#include "ui/qt_text.hpp"
#include "ui/topic_scheme.hpp"

namespace quorrel {
namespace {

/// Kinds of files that make up a page. No text of the disk is among them.
bool IsPartByKind(std::string_view path) {
    const QByteArray type = MimeTypeOf(path);
    for (const char* kind : {"image/", "audio/", "video/", "font/", "text/css", "text/javascript",
                             "application/javascript"}) {
        if (type.startsWith(kind)) return true;
    }
    return false;
}

/// A path on another machine, which would be asked by the mere look for the file.
bool IsRemote(std::string_view path) {
    return path.starts_with("\\\\");
}

}  // namespace

bool PageFiles::MayServe(const QUrl& url) const {
    const std::string path = PathOfUrl(url);
    return (belongs && belongs(path)) || IsPart(PlainPath(path));
}

bool PageFiles::IsPart(const std::string& path) const {
    // The name of a link says nothing of the file that it leads to.
    return parts_.contains(path) && IsPartByKind(files_.RealPath(path));
}

void PageFiles::NoteServed(const QUrl& url, std::string_view source, bool is_style_sheet) {
    for (const std::string& part :
         is_style_sheet ? PartsOfStyleSheet(source) : PartsOfPage(source)) {
        const std::string path = PlainPath(PathOfUrl(url.resolved(QUrl(ToQt(part)))));
        if (IsPartByKind(path) && !IsRemote(path)) parts_.insert(path);
    }
}

}  // namespace quorrel
