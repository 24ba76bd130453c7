#include "formats/htmlhelp/hhc.hpp"

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "contents/parent_numbers.hpp"
#include "formats/htmlhelp/sitemap.hpp"
#include "formats/htmlhelp/sitemap_tally.hpp"
#include "platform/text.hpp"
#include "platform/text_budget.hpp"
#include "platform/unicode.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

constexpr int kLevels = 31;  // those below are not placed

/// The state of the scan over one file.
class ContentsReader {
  public:
    ContentsReader(const ContentsSource& source, TreeView& tree)
        : source_(source), tree_(tree), budget_(source.trap) {}

    void TakeLine(std::string_view line, const SitemapTags& tags) {
        if (node_count_ > 0) {
            if (tags.list_start) ++level_;
            if (tags.list_end) --level_;
        }
        source_.trap([&] { parents_.At(level_) = node_count_; });
        tally_.TakeLine(line, in_entry_ ? TakeParam(line) : SitemapTaken{});
        if (tags.object_end) {
            if (have_node_) FinishNode();
            in_entry_ = false;
        }
        // Last, so that params on the line of "<LI" are not read.
        if (tags.entry_start) in_entry_ = true;
        if (tags.entry_start || tags.object_end) has_name_ = false;
    }

    [[nodiscard]] SitemapTally& Tally() { return tally_; }

  private:
    /// The fields of the entry at hand.
    struct Entry {
        std::string frame = {}, window = {}, new_mark = {}, image_number = {};
        std::string location = {}, alias = {}, kept_lines = {};
        bool local_seen = false;
    };

    using Fate = SitemapTaken::Fate;

    SitemapTaken TakeParam(std::string_view line) {
        SitemapTaken taken{.param = ReadSitemapParam(line)};
        const std::string& value = taken.param.value;
        if (taken.param.name.empty() || value.empty()) return taken;
        const std::string name = UpperAscii(taken.param.name);
        if (name == "NAME") {
            // The node of a name before it is never finished.
            taken.is_cut = has_name_;
            has_name_ = true;
            AddNode(value);
            if (node_ == nullptr) return taken;
            taken.level = level_;
            taken.fate = Fate::kKept;
        } else if (std::string* field = have_node_ ? FieldOf(name) : nullptr) {
            // The fields are written with commas between them, and each once.
            const bool is_kept = (field->empty() || *field == value) && !Contains(value, ",");
            taken.fate = is_kept ? Fate::kKept : Fate::kLost;
            *field = value;
        } else if (name == "LOCAL" && !(have_node_ && entry_.local_seen)) {
            if (!have_node_) return taken;
            TakeLocation(value);
            taken.fate = Fate::kKept;
        } else {
            // Of several locations the first counts; the others are kept like unknown params.
            entry_.kept_lines.append(line).append(kLineEnd);
            // Before its name they are not the entry's.
            if (have_node_) taken.fate = Fate::kKeptLine;
        }
        return taken;
    }

    void AddNode(const std::string& text) {
        node_ = nullptr;
        source_.trap([&] {
            TreeNode* parent = level_ == 1 ? nullptr : &tree_.At(parents_.At(level_ - 1));
            node_ = &tree_.Add(parent, NodeRelation::kChild, text, node_image::kPage,
                               node_image::kPage);
            if (parent != nullptr) parent->Image = parent->SelectedImage = node_image::kClosedBook;
        });
        have_node_ = true;
        // The alias stays: an entry without a location has that of the entry before.
        entry_ = Entry{.alias = std::move(entry_.alias)};
        // Also for an entry that could not be placed.
        ++node_count_;
    }

    /// Null for a param that is no field of its own.
    std::string* FieldOf(std::string_view name) {
        if (name == "FRAMENAME") return &entry_.frame;
        if (name == "WINDOWNAME") return &entry_.window;
        if (name == "NEW") return &entry_.new_mark;
        return name == "IMAGENUMBER" ? &entry_.image_number : nullptr;
    }

    void TakeLocation(std::string_view value) {
        entry_.local_seen = true;
        entry_.location = FullLocation(value, source_.file);
        entry_.alias.clear();
        if (const ListRow* topic =
                source_.ListTopics.LastWith(topic_cell::kFullPath, entry_.location)) {
            entry_.alias = topic->SubItems(topic_cell::kMapId);
        }
        if (source_.is_javahelp_edition && entry_.alias.empty()) {
            entry_.alias = ToIdentifier(AfterLast(entry_.location, '\\'));
            source_.ListAliases.Add(entry_.alias).SetSubItem(alias_cell::kPath, entry_.location);
        }
    }

    void FinishNode() {
        std::string comma_text;
        if (!source_.is_javahelp_edition) {
            comma_text = entry_.image_number;
            for (const std::string* part :
                 {&entry_.frame, &entry_.window, &entry_.new_mark, &entry_.kept_lines}) {
                comma_text.append(",").append(*part);
            }
        }
        if (!budget_.Take(entry_.alias.size())) entry_.alias.clear();
        if (node_ != nullptr) node_->Tag = PackNodeData(entry_.location, entry_.alias, comma_text);
        have_node_ = false;
    }

    const ContentsSource& source_;
    TreeView& tree_;
    TextBudget budget_;  // for aliases, which the tags repeat
    ParentNumbers parents_;
    SitemapTally tally_{kLevels};
    int level_ = 1;
    int node_count_ = 0;
    bool in_entry_ = false;
    bool has_name_ = false;
    bool have_node_ = false;
    TreeNode* node_ = nullptr;
    Entry entry_;
};

/// The comma text taken apart. A part whose comma is missing keeps what the node before had.
struct CommaText {
    std::string image_number, frame, window, new_mark, kept_lines;

    void Take(std::string_view extra) {
        for (std::string* part : {&image_number, &frame, &window, &new_mark}) {
            const std::size_t comma = extra.find(',');
            if (comma == npos) return;
            *part = extra.substr(0, comma);
            extra.remove_prefix(comma + 1);
        }
        kept_lines = extra;
    }
};

class ContentsWriter {
  public:
    explicit ContentsWriter(std::string_view proj) : proj_(proj) {}

    [[nodiscard]] const std::string& Text() const { return text_; }

    void WriteNode(const TreeNode& node, int level) {
        const std::string indent = SitemapIndent(level);
        const NodeData data = UnpackNodeData(node.Tag);
        Line(indent, "<LI><OBJECT type=\"text/sitemap\">");
        std::string caption = ReplaceAll(TrimLeft(node.Text), "<", "&lt;");
        caption = ReplaceAll(ReplaceAll(caption, ">", "&gt;"), "\"", "%22");
        AppendSitemapParam(text_, indent, "Name", caption);
        if (!data.location.empty()) {
            AppendSitemapParam(text_, indent, "Local", RelativeLocation(data.location, proj_));
        }
        if (!data.extra.empty()) WriteExtra(data.extra, indent);
        Line(indent, "     </OBJECT>");
        if (node.Children() == 0) return;
        Line(indent, "<UL>");
        for (int row = 0; row < node.Children(); ++row) WriteNode(*node.ChildAt(row), level + 1);
        Line(indent, "</UL>");
    }

  private:
    void Line(std::string_view indent, std::string_view line) {
        text_.append(indent).append(line).append(kLineEnd);
    }

    void WriteExtra(std::string_view extra, const std::string& indent) {
        comma_.Take(extra);
        const std::string_view new_mark =
            comma_.new_mark == "0" ? std::string_view{} : std::string_view(comma_.new_mark);
        const std::pair<std::string_view, std::string_view> params[] = {
            {"FrameName", comma_.frame},
            {"WindowName", comma_.window},
            {"New", new_mark},
            {"ImageNumber", comma_.image_number}};
        for (const auto& [name, value] : params) {
            if (!value.empty()) AppendSitemapParam(text_, indent, name, value);
        }
        constexpr std::size_t kWorthKeeping = 10;
        if (CountCharacters(comma_.kept_lines) > kWorthKeeping) text_ += comma_.kept_lines;
    }

    std::string_view proj_;
    CommaText comma_;
    std::string text_;
};

}  // namespace

std::vector<LeftBehind> ReadContents(std::string_view text, const ContentsSource& source,
                                     TreeView& tree, std::string& site_properties) {
    ContentsReader reader(source, tree);
    TextLines lines(text);
    while (!lines.AtEnd()) {
        std::string_view line = lines.ReadLine();
        SitemapTags tags = FindSitemapTags(line);
        ReadSiteProperties(line, tags, lines, site_properties, source.trap);
        reader.TakeLine(line, tags);
    }
    return reader.Tally().Findings();
}

std::string WriteContents(const TreeView& tree, std::string_view site_properties,
                          std::string_view proj) {
    ContentsWriter writer(proj);
    for (const TreeNode* root : tree.Roots()) writer.WriteNode(*root, 1);
    return SitemapHead(site_properties).append(writer.Text()).append(SitemapTail());
}

namespace {

/// Locations are read as relative to the folder of the file and written as relative to that of the
/// project.
void NoteOtherFolder(MainForm& main, const std::string& file, const TreeView& tree) {
    const std::string& proj = main.project.proj;
    if (EqualsIgnoringCase(BeforeLast(file, '\\', {}), BeforeLast(proj, '\\', {}))) return;
    LeftBehind locations{"locations that are relative to another folder than the project's"};
    for (int i = 1; i <= tree.Count(); ++i) {
        const std::string location = UnpackNodeData(tree.At(i).Tag).location;
        if (!location.empty() && !IsAddress(location)) ++locations.count;
    }
    main.texts.NoteLeftBehind(file, std::move(locations));
}

void ReadTreeFile(MainForm& main, const std::string& file, std::string_view status, TreeView& tree,
                  std::string& site_properties) {
    const Trap trap(main.log, "MainForm ReadTOC: ");
    tree.Clear();
    site_properties.clear();
    main.window.StatusBar1.SetPanel(1, std::string(status));
    std::string text;
    if (!trap([&] { text = main.texts.Read(file); })) return;
    CheckSitemapKind(main.texts, file, text);
    const ContentsSource source{file, main.settings.is_javahelp_edition, main.topics.ListTopics,
                                main.topics.ListAliases, trap};
    main.texts.NoteLeftBehind(file, ReadContents(text, source, tree, site_properties));
    NoteOtherFolder(main, file, tree);
}

/// The label is that of another routine, as the log file has always had it.
bool WriteTreeFile(MainForm& main, const std::string& file, const TreeView& tree,
                   std::string_view site_properties) {
    const Trap trap(main.log, "MainForm JavaWriteTOC: ");
    const std::string text = WriteContents(tree, site_properties, main.project.proj);
    return main.texts.WriteAndSwap(file, text, Backup::kKept, trap);
}

}  // namespace

void ReadTOC(MainForm& main) {
    ReadTreeFile(main, main.project.hhcfile, "Reading Table of Contents...", main.contents.Tree1,
                 main.contents.site_properties_toc);
}

void HTMLWriteTOC(MainForm& main) {
    if (!main.contents.toc_dirty) return;
    std::string& file = main.project.hhcfile;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + ".hhc";
    // What could not be written is written by the next save.
    ContentsState& contents = main.contents;
    contents.toc_dirty = !WriteTreeFile(main, file, contents.Tree1, contents.site_properties_toc);
}

void ReadDocOutline(MainForm& main) {
    ReadTreeFile(main, main.outline.doc_outline, "Reading Printed Document Outline...",
                 main.outline.TreeDoc, main.outline.site_properties_doc);
}

void WriteDocOutline(MainForm& main) {
    if (!main.outline.doc_dirty) return;
    std::string& file = main.outline.doc_outline;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + ".out";
    OutlineState& outline = main.outline;
    outline.doc_dirty = !WriteTreeFile(main, file, outline.TreeDoc, outline.site_properties_doc);
}

}  // namespace quorrel
