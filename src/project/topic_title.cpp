#include "project/topic_title.hpp"

#include "editor/html_references.hpp"
#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "platform/topic_encoding.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

constexpr std::size_t kHeadSize = std::size_t{16} << 10;

/// What could be cut in two by the end of the head is left out.
std::string_view WholeLines(std::string_view head) {
    const std::size_t end = head.find_last_of("\r\n");
    return end == npos ? std::string_view{} : head.substr(0, end + 1);
}

bool HasLoneByte(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (IsLoneByte(NextCodePoint(text, at))) return true;
    }
    return false;
}

}  // namespace

std::optional<std::string> ScanTopicTitle(std::string_view text, std::string_view path,
                                          TitlePieces pieces) {
    const auto piece = [&](std::string_view part) {
        return pieces == TitlePieces::kTrimmed ? Trim(part) : part;
    };
    TextLines lines(text);
    std::string title;
    bool in_title = false;
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        if (in_title) {
            const std::size_t end = line.find('<');
            title.append(piece(line.substr(0, end)));
            if (end != npos) return std::string(piece(title));
            title += ' ';
        } else if (const std::size_t tag = FindIgnoringAsciiCase(line, "<TITLE"); tag != npos) {
            const std::size_t begin = line.find('>', tag);
            const std::size_t end = begin == npos ? npos : line.find('<', begin);
            const std::string_view rest =
                begin == npos ? std::string_view{} : line.substr(begin + 1);
            if (end != npos) return std::string(piece(line.substr(begin + 1, end - begin - 1)));
            title.assign(piece(rest)).append(" ");
            in_title = true;
        }
        if (ContainsIgnoringAsciiCase(line, "<BODY")) return std::string(AfterLast(path, '\\'));
    }
    return std::nullopt;
}

std::string TitleText(std::string_view html) {
    std::string text;
    for (std::size_t at = 0; at < html.size();) {
        std::string characters;
        const std::size_t length =
            html[at] != '&'
                ? 0
                : html::DecodeReference(html, at, html::ReferencePlace::kText, characters);
        // "AT&T" and "Tips &copies" are no references.
        if (length > 0 && html[at + length - 1] == ';') {
            text += characters;
            at += length;
        } else {
            text += html[at++];
        }
    }
    return text;
}

std::string TitleInHtml(std::string_view title) {
    if (!Contains(title, "<") && TitleText(title) == title) return std::string(title);
    return ReplaceAll(ReplaceAll(title, "&", "&amp;"), "<", "&lt;");
}

namespace {

/// The title in an encoding that the file tells, or in the code page if it does not fit that one.
std::optional<std::string> DecodedTitle(std::string_view bytes, const TextEncoding& encoding,
                                        int code_page, std::string_view path, TitlePieces pieces) {
    auto title = ScanTopicTitle(DecodeText(bytes, encoding), path, pieces);
    if (!title || !HasLoneByte(*title)) return title;
    const TextEncoding ansi{TextEncoding::Form::kAnsi, code_page};
    auto other = ScanTopicTitle(DecodeText(bytes, ansi), path, pieces);
    return other && !HasLoneByte(*other) ? other : title;
}

/// As it stands in the file.
std::optional<std::string> FindTitle(FileSystem& files, std::string_view path, int code_page,
                                     TitlePieces pieces) {
    try {
        std::string bytes = files.ReadFileHead(path, kHeadSize);
        const bool is_head = bytes.size() == kHeadSize;
        const auto told = ToldEncoding(bytes, code_page);
        const bool wide = told && (told->form == TextEncoding::Form::kUtf16LittleEndian ||
                                   told->form == TextEncoding::Form::kUtf16BigEndian);
        if (is_head && !wide) {
            // ASCII is ASCII in all the other encodings, so an ASCII title needs no more.
            auto title = ScanTopicTitle(WholeLines(bytes), path, pieces);
            if (title && IsAscii(*title)) return title;
            if (title && told) {
                return DecodedTitle(WholeLines(bytes), *told, code_page, path, pieces);
            }
        }
        if (is_head) bytes = files.ReadFile(path);
        // Scanned before it is decoded: "<" and ">" are no part of a double-byte character.
        if (!wide) {
            auto title = ScanTopicTitle(bytes, path, pieces);
            if (!title || IsAscii(*title)) return title;
        }
        return DecodedTitle(bytes, TopicEncoding(bytes, code_page), code_page, path, pieces);
    } catch (const RuntimeError& error) {
        using namespace run_time_error;
        const bool is_missing = error.Number() == kFileNotFound || error.Number() == kPathNotFound;
        if (is_missing || files.FolderExists(path)) return std::nullopt;
        throw;
    }
}

}  // namespace

std::optional<std::string> ReadTopicTitle(FileSystem& files, std::string_view path, int code_page,
                                          TitlePieces pieces) {
    auto title = FindTitle(files, path, code_page, pieces);
    if (title) title = TitleText(*title);
    return title;
}

}  // namespace quorrel
