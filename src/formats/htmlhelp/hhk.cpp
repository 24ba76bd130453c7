#include "formats/htmlhelp/hhk.hpp"

#include "app/main_form.hpp"
#include "formats/htmlhelp/sitemap.hpp"
#include "formats/htmlhelp/sitemap_tally.hpp"
#include "platform/text.hpp"
#include "platform/text_budget.hpp"
#include "project/keyword_cell.hpp"
#include "project/paths.hpp"
#include "project/topic_path_finder.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kSeeAlso = "SEE ALSO:";
constexpr std::string_view kGroupEnd = ";:";
constexpr int kLevels = 2;

/// The state of the scan over one file.
class KeywordReader {
  public:
    KeywordReader(std::string_view proj_path, ListView& ListKeywords, ListView& ListTopics,
                  const Trap& trap)
        : proj_path_(proj_path),
          keywords_(ListKeywords),
          finder_(ListTopics),
          budget_(trap),
          cells_(budget_) {}

    void TakeLine(std::string_view line, const SitemapTags& tags) {
        if (count_ > 0) {
            if (tags.list_start) {
                ++level_;
                parent_ = last_key_;
            }
            if (tags.list_end) --level_;
        }
        SitemapTaken taken;
        if (in_entry_) taken = TakeParam(line);
        taken.is_cut = tags.object_end && has_title_;
        tally_.TakeLine(line, taken);
        if (tags.object_end) FinishEntry();
        if (tags.entry_start) first_name_ = in_entry_ = true;
    }

    [[nodiscard]] SitemapTally& Tally() { return tally_; }

  private:
    SitemapTaken TakeParam(std::string_view line) {
        SitemapTaken taken{.param = ReadSitemapParam(line)};
        const std::string& value = taken.param.value;
        if (taken.param.name.empty() || value.empty()) return taken;
        const std::string name = UpperAscii(taken.param.name);
        bool is_kept = false;
        if (first_name_) {
            is_kept = name == "NAME" && AddKeyword(value);
            // Two blanks are what tells a sub-entry when it is written.
            if (is_kept) taken.level = row_->Text().starts_with("  ") ? kLevels : 1;
        } else if (name == "NAME") {
            is_kept = !has_title_ && !Contains(value, kSeeAlso) && !Contains(value, kGroupEnd);
            has_title_ = true;
            pending_ += value;
        } else if (name == "SEE ALSO") {
            // Such a reference stands alone.
            is_kept = pending_.empty();
            pending_.append(kSeeAlso).append(" ").append(value).append(">");
        } else if (name == "LOCAL") {
            is_kept = !pending_.starts_with(kSeeAlso) && !Contains(value, kGroupEnd);
            has_title_ = false;
            AddTarget(value);
        }
        if (is_kept) taken.fate = SitemapTaken::Fate::kKept;
        return taken;
    }

    bool AddKeyword(const std::string& value) {
        std::string indent;
        std::string prefix;
        if (level_ > 1) {
            const std::size_t indent_size = static_cast<std::size_t>(level_) * 3;
            if (!budget_.Take(indent_size + parent_.size())) return false;
            indent.assign(indent_size, ' ');
            prefix.append(parent_).append(kSubKeyMark);
        }
        prefix_ = std::move(prefix);
        last_key_ = value;
        row_ = &keywords_.Add(indent + value);
        row_->SetSubItem(keyword_cell::IDX_FULLKEY, prefix_ + value);
        first_name_ = has_title_ = false;
        pending_.clear();
        ++count_;
        return true;
    }

    void AddTarget(const std::string& value) {
        std::string path;
        if (!IsFullPath(value)) {
            path = proj_path_;
            if (!value.starts_with('\\')) path += '\\';
        }
        path += value;
        pending_.append(">").append(path).append(kGroupEnd);
        if (ListRow* topic = finder_.Find(path)) cells_.Append(*topic, prefix_ + last_key_);
    }

    void FinishEntry() {
        if (!first_name_ && row_ != nullptr) {
            row_->SetSubItem(keyword_cell::IDX_TITLEPATH, pending_);
        }
        pending_.clear();
        in_entry_ = has_title_ = false;
    }

    std::string_view proj_path_;
    ListView& keywords_;
    TopicPathFinder finder_;
    TextBudget budget_;
    KeywordCells cells_;
    SitemapTally tally_{kLevels};
    int level_ = 1;
    int count_ = 0;
    bool first_name_ = true;
    bool in_entry_ = false;
    bool has_title_ = false;  // of a target that is still to come
    ListRow* row_ = nullptr;
    std::string pending_, parent_, last_key_, prefix_;
};

class KeywordWriter {
  public:
    explicit KeywordWriter(std::string_view proj) : proj_(proj) {}

    void WriteRow(const ListRow& row) {
        const bool is_sub_entry = row.Text().starts_with("  ");
        if (is_sub_entry && level_ == 1) {
            text_.append(SitemapIndent(1)).append("<UL>").append(kLineEnd);
            level_ = 2;
        } else if (!is_sub_entry && level_ == 2) {
            level_ = 1;
            text_.append(SitemapIndent(1)).append("</UL>").append(kLineEnd);
        }
        const std::string indent = SitemapIndent(level_);
        const std::string_view keyword = TrimLeft(row.Text());
        text_.append(indent).append("<LI><OBJECT type=\"text/sitemap\">").append(kLineEnd);
        AppendSitemapParam(text_, indent, "Name", keyword);
        WriteTargets(row.SubItems(keyword_cell::IDX_TITLEPATH), keyword, indent);
        text_.append(indent).append("</OBJECT>").append(kLineEnd);
    }
    [[nodiscard]] const std::string& Text() const { return text_; }

  private:
    void WriteTargets(std::string_view targets, std::string_view keyword,
                      const std::string& indent) {
        if (targets.empty()) {
            // A keyword that leads nowhere refers to itself.
            AppendSitemapParam(text_, indent, "See Also",
                               TrimLeft(keyword.substr(0, keyword.find('>'))));
            return;
        }
        if (const std::size_t at = targets.find(kSeeAlso); at != npos) {
            std::string_view target = targets.substr(at + kSeeAlso.size());
            target = TrimLeft(target.substr(0, target.find('>')));
            AppendSitemapParam(text_, indent, "See Also", target);
            return;
        }
        while (!targets.empty()) {
            const std::size_t end = targets.find(kGroupEnd);
            const std::string_view group = targets.substr(0, end);
            targets.remove_prefix(end == npos ? targets.size() : end + kGroupEnd.size());
            const std::size_t mark = group.find('>');
            if (mark == npos) continue;
            AppendSitemapParam(text_, indent, "Name", group.substr(0, mark));
            AppendSitemapParam(text_, indent, "Local",
                               RelativeLocation(group.substr(mark + 1), proj_));
        }
    }

    std::string_view proj_;
    int level_ = 1;
    std::string text_;
};

}  // namespace

std::vector<LeftBehind> ReadKeywords(std::string_view text, std::string_view proj_path,
                                     KeywordState& keywords, ListView& ListTopics,
                                     const Trap& trap) {
    KeywordReader reader(proj_path, keywords.ListKeywords, ListTopics, trap);
    TextLines lines(text);
    while (!lines.AtEnd()) {
        std::string_view line = lines.ReadLine();
        SitemapTags tags = FindSitemapTags(line);
        ReadSiteProperties(line, tags, lines, keywords.site_properties_index, trap);
        reader.TakeLine(line, tags);
    }
    return reader.Tally().Findings();
}

std::string WriteKeywords(const KeywordState& keywords, std::string_view proj) {
    KeywordWriter writer(proj);
    const ListView& table = keywords.ListKeywords;
    for (int i = 1; i <= table.Count(); ++i) writer.WriteRow(table.At(i));
    return SitemapHead(keywords.site_properties_index).append(writer.Text()).append(SitemapTail());
}

void ReadIndex(MainForm& main) {
    const Trap trap(main.log, "MainForm ReadIndex: ");
    main.window.StatusBar1.SetPanel(1, "Reading Index...");
    main.keywords.ListKeywords.Clear();
    main.keywords.site_properties_index.clear();
    std::string text;
    if (!trap([&] { text = main.texts.Read(main.project.hhkfile); })) return;
    CheckSitemapKind(main.texts, main.project.hhkfile, text);
    main.texts.NoteLeftBehind(
        main.project.hhkfile,
        ReadKeywords(text, main.project.proj_path, main.keywords, main.topics.ListTopics, trap));
}

void HTMLWriteIndex(MainForm& main) {
    const Trap trap(main.log, "MainForm HTMLWriteIndex: ");
    std::string& file = main.project.hhkfile;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + ".hhk";
    KeywordState& keywords = main.keywords;
    // What could not be written is written by the next save.
    keywords.index_dirty = !main.texts.WriteAndSwap(
        file, WriteKeywords(keywords, main.project.proj), Backup::kKept, trap);
}

}  // namespace quorrel
