#include "formats/htmlhelp/sitemap_tally.hpp"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

struct Param {
    std::string_view name;
    std::string_view value;
};

Param ParamOf(std::string_view inside) {
    Param param;
    while (const auto attribute = TakeAttribute(inside)) {
        if (EqualsIgnoringCase(attribute->name, "name")) param.name = attribute->value;
        if (EqualsIgnoringCase(attribute->name, "value")) param.value = attribute->value;
    }
    return param;
}

/// A tag of the frame that is written anew, or that says which program has written the file.
bool IsOfTheFrame(const Markup& tag) {
    constexpr std::string_view kFrame[] = {"HTML", "HEAD", "BODY", "LI", "PARAM"};
    const auto has_name = [&](std::string_view name) { return EqualsIgnoringCase(tag.name, name); };
    if (has_name("META")) return ContainsIgnoringAsciiCase(tag.inside, "GENERATOR");
    return std::any_of(std::begin(kFrame), std::end(kFrame), has_name);
}

}  // namespace

void SitemapTally::TakeLine(std::string_view line, const SitemapTaken& taken) {
    is_first_param_ = true;
    is_whole_ = is_whole_ && !taken.is_cut;
    for (const Markup& piece : markup_.Take(line)) {
        if (!piece.is_first_part) continue;
        switch (piece.kind) {
            case Markup::Kind::kTag:
            case Markup::Kind::kEndTag:
                TakeTag(piece, taken);
                break;
            case Markup::Kind::kComment:
                if (!ContainsIgnoringAsciiCase(piece.inside, "SITEMAP 1.0")) ++others_;
                break;
            case Markup::Kind::kText:
                ++others_;
                break;
            default:
                break;
        }
    }
    if (taken.fate == SitemapTaken::Fate::kKept &&
        markup_.IsCommentedOut(FindIgnoringAsciiCase(line, "<PARAM")))
        ++revived_;
}

void SitemapTally::TakeTag(const Markup& tag, const SitemapTaken& taken) {
    const bool is_end = tag.kind == Markup::Kind::kEndTag;
    if (EqualsIgnoringCase(tag.name, "UL")) {
        depth_ += is_end ? -1 : 1;
    } else if (EqualsIgnoringCase(tag.name, "OBJECT")) {
        // With a blank before its ">" the end is not seen.
        EndEntry(is_end && tag.is_whole && tag.inside.empty());
        const bool is_entry =
            !is_end && !ContainsIgnoringAsciiCase(tag.inside, "TEXT/SITE PROPERTIES");
        if (is_entry) BeginEntry();
    } else if (!is_end && EqualsIgnoringCase(tag.name, "PARAM")) {
        TakeParam(tag, taken);
    } else if (!IsOfTheFrame(tag)) {
        ++others_;
    }
}

void SitemapTally::TakeParam(const Markup& tag, const SitemapTaken& taken) {
    // An entry without its object is read all the same.
    if (!in_entry_) BeginEntry();
    const bool is_read = std::exchange(is_first_param_, false);
    if (is_read && taken.level) TakeLevel(*taken.level);
    if (taken.fate == SitemapTaken::Fate::kKeptLine) {
        says_something_ = true;
        return;
    }
    const Param param = ParamOf(tag.inside);
    if (tag.is_whole && (param.name.empty() || param.value.empty())) return;
    says_something_ = true;
    const bool is_kept = is_read && tag.is_whole && taken.fate == SitemapTaken::Fate::kKept &&
                         taken.param.name == param.name && taken.param.value == param.value;
    is_whole_ = is_whole_ && is_kept;
}

void SitemapTally::TakeLevel(int level) {
    is_placed_ = true;
    if (!first_depth_) first_depth_ = depth_;
    const int wanted = std::max(1, depth_ - *first_depth_ + 1);
    if (wanted > deepest_) {
        ++too_deep_;
    } else if (level != wanted) {
        ++moved_;
    }
}

void SitemapTally::BeginEntry() {
    in_entry_ = is_whole_ = true;
    is_placed_ = says_something_ = false;
}

void SitemapTally::EndEntry(bool is_ended) {
    if (in_entry_ && says_something_) entries_.See(!is_placed_ || !is_whole_ || !is_ended);
    in_entry_ = false;
}

std::vector<LeftBehind> SitemapTally::Findings() {
    EndEntry(false);
    return {entries_.Of("entries not read whole"),
            {"entries below level " + std::to_string(deepest_), too_deep_, entries_.seen},
            {"entries that come at another level", moved_, entries_.seen},
            {"commented-out entries that come alive", revived_},
            {"comments and other texts", others_}};
}

}  // namespace quorrel
