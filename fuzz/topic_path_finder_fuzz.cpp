// The finder against a scan. Input: full paths a line, an empty line, the paths to look for.
#include "fuzz_support.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/topic_path_finder.hpp"

using namespace quorrel;

namespace {

constexpr int kRows = 200;
constexpr int kSearches = 200;

/// The first row in which the first place of the path is the beginning or behind a backslash.
ListRow* Scan(ListView& ListTopics, std::string_view path) {
    const std::string upper = UpperUnicode(path);
    for (int i = 1; i <= ListTopics.Count(); ++i) {
        ListRow& row = ListTopics.At(i);
        const std::string full = UpperUnicode(row.SubItems(topic_cell::kFullPath));
        const std::size_t at = full.find(upper);
        if (at == 0 || (at != npos && full[at - 1] == '\\')) return &row;
    }
    return nullptr;
}

std::string TextLine(fuzz::Input& input) {
    return DecodeProjectText(std::string(input.Line()), kWesternCodePage).text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    TopicTables tables;
    for (int i = 0; i < kRows && !input.AtEnd(); ++i) {
        std::string path = TextLine(input);
        if (path.empty()) break;
        tables.ListTopics.Add(path.substr(0, 1)).SetSubItem(topic_cell::kFullPath, path);
    }
    TopicPathFinder finder(tables.ListTopics);
    for (int i = 0; i < kSearches && !input.AtEnd(); ++i) {
        const std::string path = TextLine(input);
        if (path.empty()) continue;
        fuzz::Check(finder.Find(path) == Scan(tables.ListTopics, path), "both find the same row");
    }
    return 0;
}
