#include "project/xml_form.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "app/main_form.hpp"
#include "contents/contents_item_panel.hpp"
#include "contents/node_data.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "project/side_files.hpp"
#include "project/topic_properties.hpp"
#include "project/topic_rows.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kKey = "xml_escapes";
constexpr std::size_t kMostLines = 10;  // of a box that fits a small screen

bool IsNumber(std::string_view reference) {
    const std::size_t digits = reference.find_first_not_of("0123456789", 2);
    return reference.starts_with("&#") && digits != npos && digits > 2 && reference[digits] == ';';
}

/// Between two tags the reader of JavaHelp takes references by number only.
bool SpoilsContent(std::string_view text) {
    for (std::size_t at = text.find_first_of("&<"); at != npos;
         at = text.find_first_of("&<", at + 1)) {
        if (text[at] == '<' || !IsNumber(text.substr(at))) return true;
    }
    return false;
}

/// In an attribute it takes these, and others only at some places or not as XML does.
bool SpoilsCaption(std::string_view text) {
    for (std::size_t at = text.find('&'); at != npos; at = text.find('&', at + 1)) {
        const std::string_view rest = text.substr(at);
        const auto stands_here = [&](std::string_view name) { return rest.starts_with(name); };
        constexpr std::string_view kKnown[] = {"&amp;", "&lt;", "&gt;", "&quot;"};
        if (std::none_of(std::begin(kKnown), std::end(kKnown), stands_here)) return true;
    }
    return false;
}

/// A value without the escapes that captions and keywords have in both forms.
bool SpoilsValue(std::string_view text) {
    return text.find_first_of("<\"") != npos || SpoilsCaption(text);
}

/// A kind of text: its name for the author, and whether one typed like `text` spoils its file.
/// Without a name it is listed under another one.
struct Kind {
    std::string_view name;
    bool (*spoils)(std::string_view text);
};

constexpr Kind kTitle{"Title", SpoilsContent};
constexpr Kind kDefaultTopic{"Default topic", SpoilsContent};
constexpr Kind kContents{"Contents", SpoilsCaption};
constexpr Kind kIndex{"Index", SpoilsCaption};
constexpr Kind kMapId{"MapID", SpoilsValue};
constexpr Kind kListedElsewhere{"", nullptr};

/// Shows `visit` a copy of each text that goes into the files but paths, and keeps what it changes.
template <typename Visit>
class TextWalk {
  public:
    TextWalk(MainForm& main, Visit visit) : main_(main), visit_(visit) {}

    void All() {
        visit_(kTitle, main_.project.project_title);
        visit_(kDefaultTopic, main_.project.project_def_topic);
        for (int i = 1; i <= main_.contents.Tree1.Count(); ++i) Node(main_.contents.Tree1.At(i));
        for (ListRow* row : Rows(main_.keywords.ListKeywords)) {
            Cell(*row, 0, kIndex);
            Cell(*row, keyword_cell::IDX_FULLKEY, kListedElsewhere);
        }
        for (ListRow* row : Rows(main_.topics.ListTopics)) {
            Cell(*row, topic_cell::kMapId, kMapId);
            Cell(*row, topic_cell::kKeywords, kListedElsewhere);
        }
        for (ListRow* row : Rows(main_.topics.ListAliases)) Cell(*row, 0, kMapId);
    }

  private:
    void Node(TreeNode& node) {
        const NodeData old = UnpackNodeData(node.Tag);
        NodeData data = old;
        const std::string old_text = node.Text;
        visit_(kContents, node.Text);
        visit_(kListedElsewhere, data.target);
        visit_(kListedElsewhere, data.extra);
        const bool same_data = data.target == old.target && data.extra == old.extra;
        if (!same_data) node.Tag = PackNodeData(data.location, data.target, data.extra);
        if (!same_data || node.Text != old_text) main_.contents.Tree1.node_changed.Emit(node);
    }
    /// A changed row may take another place in its table.
    static std::vector<ListRow*> Rows(ListView& table) {
        std::vector<ListRow*> rows;
        for (int i = 1; i <= table.Count(); ++i) rows.push_back(&table.At(i));
        return rows;
    }
    void Cell(ListRow& row, int cell, const Kind& kind) {
        std::string text = row.Cell(cell);
        visit_(kind, text);
        if (text == row.Cell(cell)) return;
        if (cell == 0) return row.SetText(std::move(text));
        row.SetSubItem(cell, std::move(text));
    }

    MainForm& main_;
    Visit visit_;
};

/// The entries as the author knows them, and their number.
struct Spoiling {
    std::string lines;
    std::size_t count = 0;

    void Take(std::string_view kind, std::string_view text) {
        if (++count > kMostLines) return;
        lines.append(kLineEnd).append(kind).append(": ").append(TrimLeft(text));
    }
};

/// Paths stay what they are, but their addresses are written by the same rules.
void TakePaths(const MainForm& main, Spoiling& found) {
    const std::string folder = main.project.proj_path + "\\";
    const auto take = [&](const ListView& table, int cell) {
        for (int i = 1; i <= table.Count(); ++i) {
            const std::string& path = table.At(i).SubItems(cell);
            const bool is_below = path.starts_with(folder);
            const std::string address =
                main.files.NativePath(is_below ? path.substr(folder.size()) : path);
            if (SpoilsValue(address)) found.Take("File", address);
        }
    };
    take(main.topics.ListTopics, topic_cell::kFullPath);
    take(main.topics.ListAliases, alias_cell::kPath);
}

Spoiling FindSpoiling(MainForm& main) {
    Spoiling found;
    TextWalk walk(main, [&](const Kind& kind, const std::string& text) {
        if (kind.spoils != nullptr && kind.spoils(text)) found.Take(kind.name, text);
    });
    walk.All();
    TakePaths(main, found);
    if (found.count > kMostLines) {
        const std::string more = std::to_string(found.count - kMostLines);
        found.lines.append(kLineEnd).append("and ").append(more).append(" more");
    }
    return found;
}

}  // namespace

void ReadXmlForm(MainForm& main) {
    const bool is_chosen = GetProj(main, "Settings", kKey, "0") == "1";
    main.project.xml_form = is_chosen ? XmlForm::kEscaped : XmlForm::kAsTyped;
    main.project.xml_form_offered = false;
}

void OfferXmlForm(MainForm& main) {
    ProjectState& project = main.project;
    if (project.xml_form == XmlForm::kEscaped || project.xml_form_offered) return;
    const Spoiling found = FindSpoiling(main);
    if (found.count == 0) return;
    project.xml_form_offered = true;
    const MessageAnswer answer = main.screen.ShowMessage(
        {"JavaHelp viewers cannot read signs such as \"&\" as they are typed in this project:\r\n" +
             found.lines +
             "\r\n\r\nWrite them as XML does (\"&amp;\") from now on? Viewers then show what you "
             "see "
             "here.",
         main.settings.APP_NAME, MessageButtons::kYesNo, MessageIcon::kExclamation,
         MessageAnswer::kNo});
    if (answer != MessageAnswer::kYes) return;
    SetProj(main, "Settings", {{std::string(kKey), "1"}});
    ReadXmlForm(main);
    // Without the choice on the disk the escaped files would be read as typed.
    if (project.xml_form != XmlForm::kEscaped) return;
    TakeReferencesAsCharacters(main);
    main.contents.toc_dirty = main.keywords.index_dirty = true;
    LoadTOCProperties(main);
    LoadTopicProperties(main);
}

void TakeReferencesAsCharacters(MainForm& main) {
    const OpenRowKeeper keeper(main.topics);
    TextWalk walk(
        main, [](const Kind&, std::string& text) { text = TextFromXml(text, XmlForm::kEscaped); });
    walk.All();
}

}  // namespace quorrel
