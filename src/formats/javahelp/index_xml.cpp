#include "formats/javahelp/index_xml.hpp"

#include "app/main_form.hpp"
#include "formats/javahelp/item_tally.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "platform/text_budget.hpp"
#include "platform/text_lines.hpp"
#include "project/keyword_cell.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

/// Stands behind a line that repeats the keyword before for a further target. As the file is
/// written, the whole comment closes it; only its beginning is looked for.
constexpr std::string_view kRepeatMark = "<!-- QR IMULT";
constexpr std::string_view kRepeatComment = " <!-- QR IMULT -->";

std::string KeywordFromXml(std::string_view text, XmlForm form) {
    if (form == XmlForm::kEscaped) return TextFromXml(text, form);
    return ReplaceAll(ReplaceAll(ReplaceAll(text, "&lt;", "<"), "&gt;", ">"), "%22", "\"");
}

constexpr int kLevels = 2;

class IndexReader {
  public:
    IndexReader(KeywordState& keywords, TopicTables& tables, const Trap& trap, XmlForm form)
        : table_(keywords.ListKeywords),
          tables_(tables),
          form_(form),
          trap_(trap),
          budget_(trap),
          cells_(budget_) {}

    void TakeLine(std::string_view line) {
        next_level_ += LevelChange(line, "INDEXITEM");
        ItemTaken taken;
        if (ContainsIgnoringAsciiCase(line, "<INDEXITEM")) taken = TakeItem(line);
        tally_.TakeLine(line, taken);
        level_ = next_level_;
    }
    [[nodiscard]] const ItemTally& Tally() const { return tally_; }

  private:
    ItemTaken TakeItem(std::string_view line) {
        ItemTaken taken{line.find('<')};
        const bool repeats = Contains(line, kRepeatMark);
        // A repeat stands for its row, under whatever number: also as the head of a group.
        if (!repeats || row_ == nullptr) text_ = KeywordFromXml(ItemText(line), form_);
        if (next_level_ > level_) parent_ = text_;
        if (!repeats && !AddRow()) return taken;
        taken.is_kept = AddTarget(TextFromXml(XmlAttribute(line, 0, "TARGET"), form_));
        if (row_ == nullptr) return taken;
        const std::string& key = row_->SubItems(keyword_cell::IDX_FULLKEY);
        taken.level = Contains(key, kSubKeyMark) ? kLevels : 1;
        return taken;
    }

    /// False where there is no room for the row.
    bool AddRow() {
        const bool is_sub_entry = level_ > 1;
        const std::size_t indent = is_sub_entry ? static_cast<std::size_t>(level_) * 3 : 0;
        row_ = nullptr;
        if (is_sub_entry && !budget_.Take(indent + parent_.size())) return false;
        row_ = &table_.Add(std::string(indent, ' ') + text_);
        row_->SetSubItem(keyword_cell::IDX_FULLKEY,
                         is_sub_entry ? parent_ + kSubKeyMark + text_ : text_);
        return true;
    }

    /// False for a target that is not written again.
    bool AddTarget(std::string_view target) {
        if (target.empty()) return true;
        bool is_kept = false;
        trap_([&] {
            if (row_ == nullptr) throw RuntimeError(run_time_error::kObjectNotSet);
            const std::string entry = EntryFor(target, row_->SubItems(keyword_cell::IDX_FULLKEY));
            if (!budget_.Take(entry.size())) return;
            row_->AppendToSubItem(keyword_cell::IDX_TITLEPATH, entry);
            is_kept = !entry.empty() && IsWritten(target);
        });
        return is_kept;
    }

    /// Of the aliases only places within topics, and addresses, are written.
    [[nodiscard]] bool IsWritten(std::string_view target) const {
        if (tables_.ListTopics.FirstWithExactly(topic_cell::kMapId, target) != nullptr) return true;
        const std::string& path =
            tables_.ListAliases.FirstWithExactly(0, target)->SubItems(alias_cell::kPath);
        return Contains(path, "#") || IsAddress(path);
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
    XmlForm form_;
    const Trap& trap_;
    TextBudget budget_;
    KeywordCells cells_;
    ItemTally tally_{"INDEXITEM", {"text", "target"}, "items", kLevels};
    ListRow* row_ = nullptr;
    std::string text_;  // of the row, without its indent
    std::string parent_;
    int level_ = 1;
    int next_level_ = 1;
};

/// Whether a sub-key of `main_key` stands anywhere in `full_key`; not only at its beginning.
bool HoldsSubKeyOf(std::string_view full_key, std::string_view main_key) {
    for (std::size_t at = full_key.find(kSubKeyMark); at != npos;
         at = full_key.find(kSubKeyMark, at + 1)) {
        if (full_key.substr(0, at).ends_with(main_key)) return true;
    }
    return false;
}

void CheckSize(std::size_t bytes, std::size_t largest) {
    if (bytes > largest) throw RuntimeError(run_time_error::kOutOfMemory);
}

class IndexWriter {
  public:
    IndexWriter(const TopicTables& tables, XmlForm form, std::size_t largest)
        : tables_(tables), form_(form), largest_(largest) {}

    void WriteItem(const ListRow& row, bool has_children, int level) {
        const std::string start =
            ItemIndent(level) + "<indexitem text=\"" + EscapedItemText(row.Text(), form_);
        const std::string targets = JavaIndexTargets(row, tables_, largest_);
        if (targets.empty()) AppendLine(text_, {start, "\"", has_children ? ">" : "/>"});
        std::string_view rest = targets;
        for (int number = 1; !rest.empty(); ++number) {
            const std::size_t end = rest.find(';');
            const std::string_view id = rest.substr(0, end);
            rest.remove_prefix(end + 1);
            CheckSize(text_.size() + start.size() + id.size(), largest_);
            // Only the last line opens the group, though it is a repeat.
            const bool opens = has_children && rest.empty();
            const std::string repeat = number == 1 ? "" : " (" + std::to_string(number) + ")";
            AppendLine(text_, {start, repeat, "\"", ItemAttribute("target", id, form_),
                               opens ? ">" : "/>", number == 1 ? "" : kRepeatComment});
        }
    }
    void CloseGroup() { AppendLine(text_, {"</indexitem>"}); }
    [[nodiscard]] std::string Finish() {
        AppendLine(text_, {"</index>"});
        return std::move(text_);
    }

  private:
    const TopicTables& tables_;
    XmlForm form_;
    std::size_t largest_;
    std::string text_ = JavaHelpHead("index", "Index");
};

}  // namespace

std::vector<LeftBehind> ReadIndexXml(std::string_view text, KeywordState& keywords,
                                     TopicTables& tables, const Trap& trap, XmlForm form) {
    IndexReader reader(keywords, tables, trap, form);
    TextLines lines(text);
    while (!lines.AtEnd()) reader.TakeLine(lines.ReadLine());
    return reader.Tally().Findings();
}

std::string JavaIndexTargets(const ListRow& keyword, const TopicTables& tables,
                             std::size_t largest) {
    constexpr std::string_view kGroupEnd = ";:";
    std::string ids;
    std::string_view targets = keyword.SubItems(keyword_cell::IDX_TITLEPATH);
    while (!targets.empty()) {
        CheckSize(ids.size(), largest);
        const std::size_t end = targets.find(kGroupEnd);
        // The last ">", as a title may hold one and a path does not.
        const std::string_view path = AfterLast(targets.substr(0, end), '>');
        targets.remove_prefix(end == npos ? targets.size() : end + kGroupEnd.size());
        if (Contains(path, "#") || IsAddress(path)) {
            const ListRow* alias = tables.ListAliases.FirstWith(alias_cell::kPath, path);
            if (alias != nullptr) ids.append(alias->Text()).append(";");
        } else {
            const ListRow* topic = tables.ListTopics.FirstWith(topic_cell::kFullPath, path);
            if (topic != nullptr) ids.append(topic->SubItems(topic_cell::kMapId)).append(";");
        }
    }
    return ids;
}

std::string WriteIndexXml(const ListView& ListKeywords, const TopicTables& tables, XmlForm form,
                          std::size_t largest) {
    IndexWriter writer(tables, form, largest);
    const int count = ListKeywords.Count();
    const auto key = [&](int i) -> const std::string& {
        return ListKeywords.At(i).SubItems(keyword_cell::IDX_FULLKEY);
    };
    int level = 1;
    std::string main_key = count > 0 ? key(1) : std::string();
    for (int i = 1; i < count; ++i) {
        const ListRow& row = ListKeywords.At(i);
        if (level == 1 && HoldsSubKeyOf(key(i + 1), key(i))) {
            writer.WriteItem(row, true, 1);
            main_key = key(i);
            level = 2;
            continue;
        }
        writer.WriteItem(row, false, level);
        if (HoldsSubKeyOf(key(i + 1), main_key)) continue;
        if (level == 2) writer.CloseGroup();
        main_key = key(i);
        level = 1;
    }
    if (count > 0) writer.WriteItem(ListKeywords.At(count), false, level);
    return writer.Finish();
}

void JavaReadIndex(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaReadIndex: ");
    main.window.StatusBar1.SetPanel(1, "Reading Index...");
    main.keywords.ListKeywords.Clear();
    if (!main.files.FileExists(main.project.hhkfile)) return;
    std::string text;
    if (trap([&] { text = main.texts.ReadXml(main.project.hhkfile); })) {
        main.texts.CheckKind(main.project.hhkfile, text, {"<INDEX"});
        main.texts.NoteLeftBehind(
            main.project.hhkfile,
            ReadIndexXml(text, main.keywords, main.topics, trap, main.project.xml_form));
    }
    main.window.StatusBar1.SetPanel(1, "");
}

void JavaWriteIndex(MainForm& main) {
    if (!main.keywords.index_dirty) return;
    const Trap trap(main.log, "MainForm JavaWriteIndex: ");
    std::string& file = main.project.hhkfile;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + "Index.xml";
    std::string text;
    const bool composed = trap([&] {
        text = WriteIndexXml(main.keywords.ListKeywords, main.topics, main.project.xml_form);
    });
    if (!composed) return;
    // What could not be written is written by the next save.
    main.keywords.index_dirty = !main.texts.WriteXmlAndSwap(file, text, Backup::kKept, trap);
}

}  // namespace quorrel
