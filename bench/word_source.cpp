#include "word_source.hpp"

#include <array>

namespace quorrel::bench {
namespace {

constexpr std::array<std::string_view, 64> kNouns = {
    "account",  "address", "archive",  "backup",    "border",   "browser",  "button",   "calendar",
    "camera",   "channel", "chart",    "column",    "contact",  "cursor",   "customer", "device",
    "document", "drawing", "drive",    "editor",    "envelope", "event",    "export",   "filter",
    "folder",   "font",    "form",     "header",    "image",    "invoice",  "journal",  "keyboard",
    "label",    "layer",   "ledger",   "letter",    "library",  "macro",    "margin",   "message",
    "monitor",  "network", "notebook", "order",     "page",     "palette",  "password", "picture",
    "printer",  "profile", "project",  "query",     "record",   "report",   "ruler",    "scanner",
    "schedule", "screen",  "shortcut", "signature", "table",    "template", "toolbar",  "window"};

constexpr std::array<std::string_view, 40> kAdjectives = {
    "active",   "automatic", "blank",    "coloured", "common",   "current",  "custom", "daily",
    "default",  "deleted",   "empty",    "external", "final",    "floating", "hidden", "imported",
    "incoming", "internal",  "linked",   "local",    "locked",   "missing",  "nested", "old",
    "open",     "outgoing",  "personal", "pinned",   "printed",  "private",  "public", "read-only",
    "recent",   "remote",    "saved",    "scanned",  "selected", "shared",   "sorted", "wireless"};

constexpr std::array<std::string_view, 40> kVerbs = {
    "adding",    "aligning",   "archiving", "changing",  "checking",  "choosing",   "closing",
    "comparing", "connecting", "copying",   "creating",  "deleting",  "editing",    "exporting",
    "finding",   "formatting", "grouping",  "hiding",    "importing", "installing", "joining",
    "linking",   "locking",    "merging",   "moving",    "naming",    "opening",    "pausing",
    "printing",  "protecting", "removing",  "repairing", "restoring", "saving",     "searching",
    "sharing",   "showing",    "sorting",   "testing",   "updating"};

}  // namespace

int WordSource::Below(int bound) {
    // Not <random>: its distributions differ between libraries.
    state_ += 0x9E3779B97F4A7C15ULL;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    mixed ^= mixed >> 31;
    return static_cast<int>(mixed % static_cast<std::uint64_t>(bound));
}

std::string_view WordSource::Noun() {
    return kNouns[static_cast<std::size_t>(Below(kNouns.size()))];
}

std::string_view WordSource::Adjective() {
    return kAdjectives[static_cast<std::size_t>(Below(kAdjectives.size()))];
}

std::string_view WordSource::Verb() {
    return kVerbs[static_cast<std::size_t>(Below(kVerbs.size()))];
}

std::string_view WordSource::SubKey() {
    return Verb();
}

std::string WordSource::Title() {
    std::string title(Verb());
    title[0] = static_cast<char>(title[0] - 'a' + 'A');
    title.append(" the ").append(Adjective()).append(" ").append(Noun());
    if (Below(3) == 0) title.append(" of a ").append(Noun());
    return title;
}

std::string WordSource::KeywordCandidate() {
    std::string keyword(Noun());
    switch (Below(4)) {
        case 0:
            return std::string(Adjective()).append(" ").append(keyword);
        case 1:
            return keyword.append(", ").append(Verb());
        case 2:
            return keyword.append(" ").append(Noun()).append(", ").append(Adjective());
        default:
            return keyword.append(" in the ").append(Adjective()).append(" ").append(Noun());
    }
}

std::string WordSource::Keyword() {
    std::string keyword = KeywordCandidate();
    // Large projects use the phrases up; they grow longer then.
    while (!given_.insert(keyword).second) keyword.append(" ").append(Noun());
    return keyword;
}

std::string WordSource::Sentence() {
    std::string sentence("The ");
    sentence.append(Adjective()).append(" ").append(Noun()).append(" helps with ");
    sentence.append(Verb()).append(" each ").append(Adjective()).append(" ").append(Noun());
    return sentence.append(" before ").append(Verb()).append(" the ").append(Noun()).append(".");
}

}  // namespace quorrel::bench
