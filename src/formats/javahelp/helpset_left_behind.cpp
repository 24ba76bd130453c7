#include "formats/javahelp/helpset_left_behind.hpp"

#include <algorithm>
#include <iterator>
#include <string>

#include "app/main_form.hpp"
#include "formats/javahelp/helpset.hpp"
#include "formats/javahelp/item_tally.hpp"
#include "formats/markup_lines.hpp"
#include "formats/unread_file.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

/// A <view> with all that the program writes of one.
struct View {
    std::string name, label, type, data, engine;

    /// Whether all that this one says is said by `other`.
    [[nodiscard]] bool IsWithin(const View& other) const {
        const auto is_same = [&](std::string View::*part) {
            return (this->*part).empty() || this->*part == other.*part;
        };
        return is_same(&View::name) && is_same(&View::label) && is_same(&View::type) &&
               is_same(&View::data) && is_same(&View::engine);
    }
};

/// A HelpSet as a reader of XML sees it.
class HelpSetScan {
  public:
    explicit HelpSetScan(std::string_view text) {
        TextLines lines(text);
        while (!lines.AtEnd()) {
            for (const Markup& piece : markup_.Take(lines.ReadLine())) TakePiece(piece);
        }
    }

    std::string title, home, map;
    std::vector<View> views;
    int presentations = 0;
    int sub_helpsets = 0;
    int further_maps = 0;
    int attributes = 0;
    int others = 0;

  private:
    void TakePiece(const Markup& piece) {
        if (piece.kind == Markup::Kind::kTag) {
            TakeTag(piece);
        } else if (piece.kind == Markup::Kind::kEndTag) {
            TakeEndTag(UpperAscii(piece.name));
        } else if (piece.kind == Markup::Kind::kText) {
            TakeText(TrimBlanksAndTabs(piece.inside));
        } else if (piece.is_first_part && !foreign_.empty()) {
            return;
        } else if (piece.is_first_part) {
            const bool is_head =
                piece.inside.starts_with("<?xml") || piece.inside.starts_with("<!DOCTYPE");
            if (!is_head && !IsOwnComment(piece.inside)) ++others;
        }
    }

    void TakeTag(const Markup& tag) {
        std::string name = UpperAscii(tag.name);
        if (!foreign_.empty()) {
            if (name == foreign_ && !tag.inside.ends_with('/')) ++foreign_depth_;
            return;
        }
        if (name == "VIEW") views.emplace_back();
        if (IsOfAForeignPart(name, tag)) return;
        std::string_view inside = tag.inside;
        while (const auto attribute = TakeAttribute(inside)) {
            TakeAttributeOf(name, UpperAscii(attribute->name), attribute->value);
        }
        element_ = tag.inside.ends_with('/') ? "" : std::move(name);
    }

    /// Elements that are not written at all: all that is in them goes with them.
    bool IsOfAForeignPart(const std::string& name, const Markup& tag) {
        constexpr std::string_view kKnown[] = {"HELPSET", "TITLE", "MAPS",  "HOMEID", "MAPREF",
                                               "VIEW",    "NAME",  "LABEL", "TYPE",   "DATA"};
        const bool is_known =
            std::find(std::begin(kKnown), std::end(kKnown), name) != std::end(kKnown);
        const bool is_further_map = name == "MAPREF" && !map.empty();
        if (is_known && !is_further_map) return false;
        if (is_further_map) {
            ++further_maps;
        } else if (name == "PRESENTATION") {
            ++presentations;
        } else if (name == "SUBHELPSET") {
            ++sub_helpsets;
        } else {
            ++others;
        }
        if (!tag.inside.ends_with('/')) {
            foreign_ = name;
            foreign_depth_ = 1;
        }
        return true;
    }

    void TakeAttributeOf(std::string_view element, std::string_view name, std::string_view value) {
        if (element == "HELPSET" && name == "VERSION") return;
        if (element == "MAPREF" && name == "LOCATION") {
            map = value;
        } else if (element == "DATA" && name == "ENGINE" && !views.empty()) {
            views.back().engine = value;
        } else {
            ++attributes;
        }
    }

    void TakeEndTag(std::string_view name) {
        element_.clear();
        if (foreign_.empty() || name != foreign_ || --foreign_depth_ > 0) return;
        foreign_.clear();
    }

    void TakeText(std::string_view text) {
        if (!foreign_.empty()) return;
        std::string* place = PlaceOfText();
        if (place == nullptr) {
            ++others;
            return;
        }
        if (!place->empty()) *place += ' ';
        *place += text;
    }

    std::string* PlaceOfText() {
        if (element_ == "TITLE") return &title;
        if (element_ == "HOMEID") return &home;
        if (views.empty()) return nullptr;
        View& view = views.back();
        if (element_ == "NAME") return &view.name;
        if (element_ == "LABEL") return &view.label;
        if (element_ == "TYPE") return &view.type;
        return element_ == "DATA" ? &view.data : nullptr;
    }

    MarkupLines markup_;
    std::string element_;  // whose text comes next, in upper case
    std::string foreign_;  // the element at hand that is not written
    int foreign_depth_ = 0;
};

/// Without what stands between two tags, which are given in upper case: that is read and written as
/// it is typed, whatever it looks like.
std::string WithoutContent(std::string_view text, std::string_view open, std::string_view close) {
    const std::size_t begin = FindIgnoringAsciiCase(text, open);
    const std::size_t end = begin == npos ? npos : FindIgnoringAsciiCase(text, close, begin);
    if (end == npos) return std::string(text);
    return std::string(text.substr(0, begin + open.size())).append(text.substr(end));
}

HelpSetScan Scan(std::string_view text) {
    const std::string without_title = WithoutContent(text, "<TITLE>", "</TITLE>");
    return HelpSetScan(WithoutContent(without_title, "<HOMEID>", "</HOMEID>"));
}

bool Holds(const std::vector<View>& views, const View& view) {
    return std::any_of(views.begin(), views.end(),
                       [&](const View& other) { return view.IsWithin(other); });
}

}  // namespace

std::vector<LeftBehind> LeftBehindInHelpSet(std::string_view text, const ProjectState& project,
                                            bool has_contents, bool has_keywords) {
    HelpSetScan read = Scan(text);
    const HelpSetScan written = Scan(WriteHelpSet(project, has_contents, has_keywords));
    LossCount views, options;
    int revived = 0;
    const auto normalize = [](std::string& data) { data = ReplaceAll(data, "\\", "/"); };
    for (View& view : read.views) {
        if (view.engine.empty()) normalize(view.data);
        views.See(!Holds(written.views, view));
    }
    // A class of the same view makes another of it; one that is nowhere was in a comment.
    for (const View& view : written.views) {
        const std::string kind = UpperAscii(AfterLast(view.type, '.'));
        const bool is_there =
            std::any_of(read.views.begin(), read.views.end(), [&](const View& other) {
                return ContainsIgnoringAsciiCase(other.type, kind) || other.data == view.data;
            });
        if (!is_there) ++revived;
    }
    normalize(read.map);
    for (const auto& [before, after] :
         {std::pair(read.title, written.title), std::pair(read.home, written.home),
          std::pair(read.map, written.map)}) {
        if (!before.empty()) options.See(before != after);
    }
    return {views.Of("views with a name, label, class or file of their own"),
            {"commented-out views that come alive", revived},
            {"presentations", read.presentations},
            {"sub-helpsets", read.sub_helpsets},
            {"further maps", read.further_maps},
            options.Of("title, home or map"),
            {"attributes that are not kept", read.attributes},
            {"comments and other parts", read.others}};
}

void NoteFilesNotInHelpSet(MainForm& main) {
    const ProjectState& project = main.project;
    const std::string base(BaseName(project.proj));
    const std::string index = base + "Index.xml";
    if (project.java_map_file.empty()) NoteUnreadFile(main, base + ".jhm", "<MAPID");
    if (project.hhkfile.empty()) NoteUnreadFile(main, index, "<INDEXITEM");
    // Without a view of the contents their variable has the name of the index file.
    if (project.hhcfile == index) NoteUnreadFile(main, base + "TOC.xml", "<TOCITEM");
}

}  // namespace quorrel
