#include "formats/javahelp/index_xml.hpp"

#include "app/main_form.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "platform/text_budget.hpp"
#include "platform/text_lines.hpp"
#include "project/keyword_cell.hpp"
#include "project/tag_value.hpp"

namespace quorrel {
namespace {

/// Stands behind a line that repeats the keyword before for a further target. As the file is
/// written, the whole comment closes it; only its beginning is looked for.
constexpr std::string_view kRepeatMark = "<!-- QR IMULT";

std::string UndoEscapes(std::string_view text) {
    return ReplaceAll(ReplaceAll(ReplaceAll(text, "&lt;", "<"), "&gt;", ">"), "%22", "\"");
}

class IndexReader {
  public:
    IndexReader(KeywordState& keywords, TopicTables& tables, const Trap& trap)
        : table_(keywords.ListKeywords),
          tables_(tables),
          trap_(trap),
          budget_(trap),
          cells_(budget_) {}

    void TakeLine(std::string_view line) {
        next_level_ += LevelChange(line, "INDEXITEM");
        if (ContainsIgnoringAsciiCase(line, "<INDEXITEM")) TakeItem(line);
        level_ = next_level_;
    }

  private:
    void TakeItem(std::string_view line) {
        const std::string text = UndoEscapes(ItemText(line));
        const std::string target = TagValue(line, 1, "TARGET", "", TagMode::kRead);
        if (next_level_ > level_) parent_ = text;
        const bool is_sub_entry = level_ > 1;
        const std::size_t indent = is_sub_entry ? static_cast<std::size_t>(level_) * 3 : 0;
        if (is_sub_entry && !budget_.Take(indent + parent_.size())) return;
        const std::string full_key = is_sub_entry ? parent_ + kSubKeyMark + text : text;
        if (!Contains(line, kRepeatMark)) {
            row_ = &table_.Add(std::string(indent, ' ') + text);
            row_->SetSubItem(keyword_cell::IDX_FULLKEY, full_key);
        }
        if (target.empty()) return;
        const std::string entry = EntryFor(target, full_key);
        if (!budget_.Take(entry.size())) return;
        trap_([&] {
            if (row_ == nullptr) throw RuntimeError(run_time_error::kObjectNotSet);
            row_->AppendToSubItem(keyword_cell::IDX_TITLEPATH, entry);
        });
    }

    std::string EntryFor(std::string_view target, std::string_view full_key) {
        if (ListRow* topic = tables_.ListTopics.FirstWithExactly(topic_cell::kMapId, target)) {
            cells_.Append(*topic, full_key);
            return topic->Text() + ">" + topic->SubItems(topic_cell::kFullPath) + ";:";
        }
        const ListRow* alias = tables_.ListAliases.FirstWithExactly(0, target);
        return alias == nullptr ? std::string()
                                : alias->Text() + ">" + alias->SubItems(alias_cell::kPath) + ";:";
    }

    ListView& table_;
    TopicTables& tables_;
    const Trap& trap_;
    TextBudget budget_;
    KeywordCells cells_;
    ListRow* row_ = nullptr;
    int level_ = 1;
    int next_level_ = 1;
    std::string parent_;
};

}  // namespace

void ReadIndexXml(std::string_view text, KeywordState& keywords, TopicTables& tables,
                  const Trap& trap) {
    IndexReader reader(keywords, tables, trap);
    TextLines lines(text);
    while (!lines.AtEnd()) reader.TakeLine(lines.ReadLine());
}

void JavaReadIndex(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaReadIndex: ");
    main.window.StatusBar1.SetPanel(1, "Reading Index...");
    main.keywords.ListKeywords.Clear();
    if (!main.files.FileExists(main.project.hhkfile)) return;
    std::string text;
    if (trap([&] { text = main.texts.ReadXml(main.project.hhkfile); })) {
        ReadIndexXml(text, main.keywords, main.topics, trap);
    }
    main.window.StatusBar1.SetPanel(1, "");
}

}  // namespace quorrel
