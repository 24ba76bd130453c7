#include "platform/plain_surface/plain_commands.hpp"

#include <algorithm>
#include <iterator>

#include "platform/failure.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

using namespace surface_command;

constexpr int kNotAvailable = 445;
constexpr int kLastCommand = DECMD_UNORDERLIST;
/// Far more than anybody inserts, and no more than memory holds.
constexpr std::int64_t kMostCells = 1'000'000;

struct BlockFormat {
    std::string_view name;
    std::string_view tag;
    bool can_be_set;  // the lists cannot
};
constexpr BlockFormat kBlockFormats[] = {
    {"Normal", "P", true},          {"Formatted", "PRE", true},
    {"Address", "ADDRESS", true},   {"Heading 1", "H1", true},
    {"Heading 2", "H2", true},      {"Heading 3", "H3", true},
    {"Heading 4", "H4", true},      {"Heading 5", "H5", true},
    {"Heading 6", "H6", true},      {"Numbered List", "OL", false},
    {"Bulleted List", "UL", false}, {"Directory List", "DIR", false},
    {"Menu List", "MENU", false},   {"Definition Term", "DT", false},
    {"Definition", "DD", false},    {"Paragraph", "P", true},
};
constexpr std::string_view kBlocksToSet = "P PRE ADDRESS H1 H2 H3 H4 H5 H6";

struct CharacterFormat {
    int command;
    std::string_view tag;
    std::string_view names;
};
constexpr CharacterFormat kCharacterFormats[] = {
    {DECMD_BOLD, "b", "B STRONG"}, {DECMD_ITALIC, "i", "I EM"}, {DECMD_UNDERLINE, "u", "U"}};

const CharacterFormat* FindCharacterFormat(int command) {
    const auto* found =
        std::find_if(std::begin(kCharacterFormats), std::end(kCharacterFormats),
                     [&](const CharacterFormat& format) { return format.command == command; });
    return found == std::end(kCharacterFormats) ? nullptr : found;
}

std::string Tag(std::string_view name) {
    return std::string("<").append(name).append(">");
}
std::string EndTag(std::string_view name) {
    return std::string("</").append(name).append(">");
}

const std::string& TextOf(const CommandValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr) throw RuntimeError(run_time_error::kInvalidArgument);
    return *text;
}

/// The innermost element with one of the names around the selection, or null.
const HtmlElement* Enclosing(const PlainDocument& document, std::string_view names) {
    const SourceStretch selected = document.SelectedStretch();
    const HtmlOutline& outline = document.Outline();
    int index = outline.ElementAround(selected.from, selected.to);
    while (index >= 0) {
        const HtmlElement& element = outline.Elements()[static_cast<std::size_t>(index)];
        if (HasWord(names, element.name)) return &element;
        index = element.parent;
    }
    return nullptr;
}

/// The link around the selection, else the first one in it, else null.
const HtmlElement* SelectedLink(const PlainDocument& document) {
    if (const HtmlElement* link = Enclosing(document, "A")) return link;
    const SourceStretch selected = document.SelectedStretch();
    for (const HtmlElement& element : document.Outline().Elements()) {
        if (element.open_begin < selected.from || element.name != "A") continue;
        return element.close_end <= selected.to ? &element : nullptr;
    }
    return nullptr;
}

/// Replaces the element's tags and keeps what is selected in it.
void ReplaceTags(PlainDocument& document, const HtmlElement& element, std::string_view open,
                 std::string_view close) {
    const HtmlElement old = element;
    const PlainPlace selected = document.Selection();
    const std::string content =
        document.Html().substr(old.open_end, old.close_begin - old.open_end);
    document.Replace(old.open_begin, old.close_end,
                     std::string(open).append(content).append(close));
    const std::size_t begin = old.open_begin + open.size();
    const auto moved = [&](std::size_t offset) {
        return begin + std::clamp(offset, old.open_end, old.close_begin) - old.open_end;
    };
    document.SelectText(moved(selected.from), moved(selected.to));
    const int index = selected.is_element ? document.Outline().ElementAt(moved(selected.from)) : -1;
    if (index < 0) return;
    document.SelectElement(document.Outline().Elements()[static_cast<std::size_t>(index)]);
}

void Wrap(PlainDocument& document, SourceStretch stretch, std::string_view open,
          std::string_view close) {
    const HtmlElement without_tags{{}, stretch.from, stretch.from, stretch.to, stretch.to};
    ReplaceTags(document, without_tags, open, close);
}

void ToggleCharacterFormat(PlainDocument& document, const CharacterFormat& format) {
    const SourceStretch selected = document.SelectedStretch();
    if (selected.from == selected.to) return;
    if (const HtmlElement* element = Enclosing(document, format.names)) {
        ReplaceTags(document, *element, {}, {});
    } else {
        Wrap(document, selected, Tag(format.tag), EndTag(format.tag));
    }
}

std::string CurrentBlockFormat(const PlainDocument& document) {
    std::string tags;
    for (const BlockFormat& format : kBlockFormats) tags.append(format.tag).append(" ");
    const HtmlElement* block = Enclosing(document, tags);
    if (block == nullptr) return std::string(kBlockFormats[0].name);
    const auto* format =
        std::find_if(std::begin(kBlockFormats), std::end(kBlockFormats),
                     [&](const BlockFormat& known) { return known.tag == block->name; });
    return std::string(format->name);
}

/// The line that the selection stands in, where it is in no block.
SourceStretch SelectedLine(const PlainDocument& document) {
    const BodyText& body = document.Body();
    SourceStretch line = document.SelectedStretch();
    const auto is_break = [&](std::size_t n) {
        return Contains(body.Text(body.PlaceBefore(n), body.PlaceBehind(n + 1)), kLineEnd);
    };
    std::size_t first = body.CharactersBefore(line.from);
    while (first > 0 && !is_break(first - 1)) --first;
    std::size_t last = body.CharactersBegunBefore(line.to);
    while (last < body.Count() && !is_break(last)) ++last;
    line.from = std::min(line.from, body.PlaceBehind(first));
    line.to = std::max(line.to, body.PlaceBehind(last));
    return line;
}

void SetBlockFormat(PlainDocument& document, std::string_view name) {
    const auto* format = std::find_if(std::begin(kBlockFormats), std::end(kBlockFormats),
                                      [&](const BlockFormat& known) { return known.name == name; });
    if (format == std::end(kBlockFormats)) throw RuntimeError(run_time_error::kInvalidArgument);
    if (!format->can_be_set) throw RuntimeError(kNotAvailable);
    const HtmlElement* block = Enclosing(document, kBlocksToSet);
    if (block == nullptr) {
        return Wrap(document, SelectedLine(document), Tag(format->tag), EndTag(format->tag));
    }
    const std::size_t attributes = block->open_begin + 1 + block->name.size();
    const std::string open = std::string("<").append(format->tag) +
                             document.Html().substr(attributes, block->open_end - attributes);
    ReplaceTags(document, *block, open, EndTag(format->tag));
}

/// A start tag without the attribute HREF.
std::string WithoutHref(std::string_view tag) {
    std::size_t at = 0;
    while ((at = FindIgnoringAsciiCase(tag, "HREF", at)) != npos && !IsHtmlBlank(tag[at - 1])) ++at;
    if (at == npos) return std::string(tag);
    std::size_t end = tag.find_first_not_of(" \t\r\n\f", at + 4);
    if (end != npos && tag[end] == '=') {
        end = tag.find_first_not_of(" \t\r\n\f", end + 1);
        const char quote = tag[end];
        const bool is_quoted = quote == '"' || quote == '\'';
        const std::size_t close = is_quoted ? tag.find(quote, end + 1) : npos;
        end = close == npos ? tag.find_first_of(" \t\r\n\f>", end) : close + 1;
    }
    while (at > 0 && IsHtmlBlank(tag[at - 1])) --at;
    return std::string(tag.substr(0, at)).append(tag.substr(end));
}

void Link(PlainDocument& document, const std::string& url) {
    const std::string href = " href=\"" + ReplaceAll(url, "\"", "&quot;") + "\"";
    if (const HtmlElement* link = SelectedLink(document)) {
        const HtmlElement& element = *link;
        std::string open = WithoutHref(
            document.Html().substr(element.open_begin, element.open_end - element.open_begin));
        open.insert(2, href);
        const bool has_end = element.close_end > element.close_begin;
        return ReplaceTags(document, element, open, has_end ? "</A>" : "");
    }
    const SourceStretch selected = document.SelectedStretch();
    if (selected.from == selected.to) {
        // At a caret the address is the link's text.
        return document.Replace(selected.from, selected.to, "<A" + href + ">" + url + "</A>");
    }
    Wrap(document, selected, "<A" + href + ">", "</A>");
}

std::string TableOf(const InsertTableParam& table) {
    const std::int64_t cells = std::int64_t{table.num_rows} * table.num_cols;
    if (table.num_rows < 1 || table.num_cols < 1 || cells > kMostCells) {
        throw RuntimeError(run_time_error::kInvalidArgument);
    }
    const auto with_blank = [](const std::string& attributes) {
        return attributes.empty() || attributes[0] == ' ' ? attributes : " " + attributes;
    };
    std::string row = "<TR>";
    for (int i = 0; i < table.num_cols; ++i) {
        row += "<TD" + with_blank(table.cell_attrs) + ">&nbsp;</TD>";
    }
    row += "</TR>";
    std::string html = "<TABLE" + with_blank(table.table_attrs) + "><TBODY>";
    for (int i = 0; i < table.num_rows; ++i) html += row;
    return html + "</TBODY></TABLE>";
}

void Paste(PlainDocument& document, std::string_view html) {
    const SourceStretch selected = document.SelectedStretch();
    document.Replace(selected.from, selected.to, html);
}

void Copy(const PlainDocument& document, std::string& clipboard) {
    const SourceStretch selected = document.SelectedStretch();
    clipboard = document.Source(selected.from, selected.to);
}

std::vector<std::string> BlockFormatNames() {
    std::vector<std::string> names;
    for (const BlockFormat& format : kBlockFormats) names.emplace_back(format.name);
    return names;
}

void SelectAll(PlainDocument& document) {
    const HtmlElement body = document.Outline().Body();
    document.SelectText(body.open_end, body.close_begin);
}

}  // namespace

int PlainCommandStatus(const PlainDocument& document, const std::string& clipboard, int command) {
    using namespace command_status;
    const auto when = [](bool enabled) { return enabled ? kEnabled : kDisabled; };
    if (const CharacterFormat* format = FindCharacterFormat(command)) {
        return Enclosing(document, format->names) == nullptr ? kEnabled : kLatched;
    }
    switch (command) {
        case DECMD_CUT:
        case DECMD_COPY:
        case DECMD_DELETE: {
            const SourceStretch selected = document.SelectedStretch();
            return when(selected.from < selected.to);
        }
        case DECMD_PASTE:
            return when(!clipboard.empty());
        case DECMD_UNDO:
            return when(document.CanUndo());
        case DECMD_REDO:
            return when(document.CanRedo());
        case DECMD_UNLINK:
            return when(SelectedLink(document) != nullptr);
        case DECMD_GETBLOCKFMT:
        case DECMD_GETBLOCKFMTNAMES:
        case DECMD_SETBLOCKFMT:
        case DECMD_HYPERLINK:
        case DECMD_INSERTTABLE:
        case DECMD_SELECTALL:
            return kEnabled;
        default:
            return kNotSupported;
    }
}

CommandValue RunPlainCommand(PlainDocument& document, std::string& clipboard, int command,
                             const CommandValue& value) {
    if (command < DECMD_BOLD || command > kLastCommand) {
        throw RuntimeError(run_time_error::kInvalidArgument);
    }
    if (PlainCommandStatus(document, clipboard, command) < command_status::kEnabled) {
        throw RuntimeError(kNotAvailable);
    }
    if (const CharacterFormat* format = FindCharacterFormat(command)) {
        ToggleCharacterFormat(document, *format);
        return {};
    }
    switch (command) {
        case DECMD_CUT:
            Copy(document, clipboard);
            Paste(document, {});
            break;
        case DECMD_COPY:
            Copy(document, clipboard);
            break;
        case DECMD_DELETE:
            Paste(document, {});
            break;
        case DECMD_PASTE:
            Paste(document, clipboard);
            break;
        case DECMD_UNDO:
            document.Undo();
            break;
        case DECMD_REDO:
            document.Redo();
            break;
        case DECMD_UNLINK:
            ReplaceTags(document, *SelectedLink(document), {}, {});
            break;
        case DECMD_GETBLOCKFMT:
            return CurrentBlockFormat(document);
        case DECMD_GETBLOCKFMTNAMES:
            return BlockFormatNames();
        case DECMD_SETBLOCKFMT:
            SetBlockFormat(document, TextOf(value));
            break;
        case DECMD_HYPERLINK:
            Link(document, TextOf(value));
            break;
        case DECMD_INSERTTABLE: {
            const auto* table = std::get_if<InsertTableParam>(&value);
            if (table == nullptr) throw RuntimeError(run_time_error::kInvalidArgument);
            Paste(document, TableOf(*table));
            break;
        }
        default:
            SelectAll(document);
            break;
    }
    return {};
}

}  // namespace quorrel
