// What the fuzz targets share: taking an input apart, tables without a window, checks.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/controls/list_view.hpp"
#include "platform/encoding.hpp"
#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "project/project_state.hpp"

namespace quorrel::fuzz {

inline constexpr std::string_view kProject = "Z:\\help\\guide\\guide.hhp";
inline constexpr std::string_view kProjectFolder = "Z:\\help\\guide";
inline constexpr std::string_view kContentsFile = "Z:\\help\\guide\\toc\\guide.hhc";

/// An input is made of lines, so that seeds can be written by hand: first the choices, then the
/// text to read.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    /// The next line without its line feed.
    std::string_view Line() {
        const std::size_t end = rest_.find('\n');
        const std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        return line;
    }
    /// A choice from a line of one character: its low bits.
    unsigned Choice(unsigned choices) {
        const std::string_view line = Line();
        return line.empty() ? 0 : static_cast<unsigned char>(line[0]) % choices;
    }
    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
    [[nodiscard]] std::string_view Rest() const { return rest_; }
    /// The rest as the readers get a file's text: well-formed UTF-8.
    [[nodiscard]] std::string RestAsText() const {
        return DecodeProjectText(std::string(rest_), kWesternCodePage).text;
    }

  private:
    std::string_view rest_;
};

inline void Check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// For texts: what differs is told too.
inline void CheckSame(const std::string& now, const std::string& before, const char* what) {
    if (now == before) return;
    std::fprintf(stderr, "before:\n%s\nnow:\n%s\n", before.c_str(), now.c_str());
    Check(false, what);
}

/// Reads and writes a text until it should be in the program's own form, and then once more.
/// Foreign text may take more than one pass: an entry of which only a part could be taken gets its
/// form by being read as it was written.
template <typename ReadAndWrite>
void CheckSettles(std::string text, ReadAndWrite read_and_write) {
    constexpr int kPasses = 4;
    for (int pass = 0; pass < kPasses; ++pass) text = read_and_write(text);
    CheckSame(read_and_write(text), text, "the form of the program is read as it was written");
}

/// Site properties are kept with all that follows up to their end, on a later line. Others take the
/// rest of the file along and grow with each pass.
inline bool EndsItsSiteProperties(std::string_view text) {
    const std::string upper = UpperAscii(text);
    const std::size_t first = upper.find("SITE PROPERTIES");
    if (first == npos) return true;
    if (upper.find("SITE PROPERTIES", first + 1) != npos) return false;
    const std::size_t end = upper.find("</OBJECT>", first);
    return end != npos && upper.find('\n', first) < end;
}

/// A log that goes nowhere and the trap over it.
class QuietTrap {
  public:
    operator const Trap&() const { return trap_; }

  private:
    ErrorLog log_{[](std::string_view) {}};
    Trap trap_{log_, "fuzz: "};
};

inline void AddTopic(ListView& ListTopics, std::string_view path, std::string_view alias) {
    ListRow& row = ListTopics.Add("Title of " + std::string(path));
    row.SetSubItem(topic_cell::kMapId, std::string(alias));
    row.SetSubItem(topic_cell::kLocation, "\\" + std::string(path));
    row.SetSubItem(topic_cell::kFullPath, std::string(kProjectFolder).append("\\").append(path));
}

/// A few topics that the seeds name.
inline void FillTopics(ListView& ListTopics) {
    AddTopic(ListTopics, "start.htm", "IDH_START");
    AddTopic(ListTopics, "pages\\one.htm", "IDH_ONE");
    AddTopic(ListTopics, "pages\\two.htm", "IDH_TWO");
    AddTopic(ListTopics, "PAGES\\TWO.HTM", "");
    AddTopic(ListTopics, "pages\\\xC3\xA4pfel.htm", "IDH_APPLES");
}

}  // namespace quorrel::fuzz
