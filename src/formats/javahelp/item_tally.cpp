#include "formats/javahelp/item_tally.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/unicode.hpp"

namespace quorrel {
namespace {

bool IsAnyOf(std::string_view name, const std::vector<std::string_view>& names) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view known) { return EqualsIgnoringCase(name, known); });
}

}  // namespace

bool IsOwnComment(std::string_view comment) {
    constexpr std::string_view kOwn[] = {
        "<!-- title -->",  "<!-- maps -->",     "<!-- views -->",          "<!-- Images -->",
        "<!-- Topics -->", "<!-- QR IMULT -->", "<!-- Index Bookmarks -->"};
    return std::any_of(std::begin(kOwn), std::end(kOwn),
                       [&](std::string_view own) { return EqualsIgnoringCase(comment, own); });
}

void ItemTally::TakeLine(std::string_view line, const ItemTaken& taken) {
    may_have_text_ = false;
    for (const Markup& piece : markup_.Take(line)) {
        if (!piece.is_first_part) {
            if (piece.is_whole && std::exchange(is_in_item_, false)) {
                if (piece.inside.ends_with("/>")) --depth_;
            }
            continue;
        }
        const bool is_item = EqualsIgnoringCase(piece.name, element_);
        switch (piece.kind) {
            case Markup::Kind::kTag:
                if (is_item) {
                    TakeItem(piece, taken);
                } else {
                    CountAttributes(piece);
                }
                break;
            case Markup::Kind::kEndTag:
                if (is_item) --depth_;
                break;
            case Markup::Kind::kComment:
                if (!IsOwnComment(piece.inside)) ++others_;
                break;
            case Markup::Kind::kText:
                if (!may_have_text_) ++others_;
                may_have_text_ = false;
                break;
            case Markup::Kind::kOther:
                // The head is written anew.
                if (!piece.inside.starts_with("<?xml") && !piece.inside.starts_with("<!DOCTYPE")) {
                    ++others_;
                }
                break;
        }
    }
    if (taken.place != npos && markup_.IsCommentedOut(taken.place)) ++revived_;
}

void ItemTally::TakeItem(const Markup& tag, const ItemTaken& taken) {
    const bool is_taken = tag.is_whole && tag.begin == taken.place && taken.level;
    items_.See(!is_taken || !taken.is_kept);
    if (is_taken) TakeLevel(*taken.level);
    is_in_item_ = !tag.is_whole;
    if (is_in_item_ || !tag.inside.ends_with('/')) ++depth_;
    may_have_text_ = is_taken;
    std::string_view inside = tag.inside;
    while (const auto attribute = TakeAttribute(inside)) {
        if (!IsAnyOf(attribute->name, attributes_)) ++other_attributes_;
        if (EqualsIgnoringCase(attribute->name, "text")) may_have_text_ = false;
    }
}

void ItemTally::TakeLevel(int level) {
    const int wanted = std::max(depth_, 0) + 1;
    if (wanted > deepest_) {
        ++too_deep_;
    } else if (level != wanted) {
        ++moved_;
    }
}

/// Of the root, which is written anew, and of elements that have no place there at all.
void ItemTally::CountAttributes(const Markup& tag) {
    constexpr std::string_view kRoots[] = {"toc", "index", "map"};
    const bool is_root = std::any_of(std::begin(kRoots), std::end(kRoots), [&](std::string_view r) {
        return EqualsIgnoringCase(tag.name, r);
    });
    if (!is_root) ++others_;
    std::string_view inside = tag.inside;
    while (const auto attribute = TakeAttribute(inside)) {
        if (!EqualsIgnoringCase(attribute->name, "version")) ++other_attributes_;
    }
}

std::vector<LeftBehind> ItemTally::Findings() const {
    return {items_.Of(noun_ + " not read whole"),
            {noun_ + " below level " + std::to_string(deepest_), too_deep_, items_.seen},
            {noun_ + " that come at another level", moved_, items_.seen},
            {"commented-out " + noun_ + " that come alive", revived_},
            {"attributes that are not kept", other_attributes_},
            {"comments and other texts", others_}};
}

}  // namespace quorrel
