#include "editor/html_tree_builder.hpp"

#include <algorithm>
#include <array>

namespace quorrel::html {
namespace {

/// Deeper elements become siblings.
constexpr std::size_t kDeepest = 512;

}  // namespace

HtmlTreeBuilder::HtmlTreeBuilder(std::string_view text, const std::vector<HtmlToken>& tokens)
    : text_(text), tokens_(tokens), work_allowed_(1'000'000 + tokens.size() * 64) {
    nodes_.reserve(tokens.size() / 4 + 16);
    nodes_.emplace_back();
}

bool HtmlTreeBuilder::Run() {
    const auto count = static_cast<std::int32_t>(tokens_.size());
    for (index_ = 0; index_ < count; ++index_) {
        token_ = &tokens_[index_];
        ProcessToken();
        if (work_ > work_allowed_) return false;
    }
    if (html_ == kNone) html_ = InsertImplied(Tag("html"));
    if (head_ == kNone) {
        head_ = InsertImplied(Tag("head"));
        Pop();
    }
    if (body_ == kNone) {
        stack_ = {html_};
        body_ = InsertImplied(Tag("body"));
    }
    return true;
}

std::string_view HtmlTreeBuilder::Source(std::int32_t token) const {
    return text_.substr(tokens_[token].begin, tokens_[token].end - tokens_[token].begin);
}

bool HtmlTreeBuilder::IsText() const {
    return Is(TokenKind::kBlank) || Is(TokenKind::kWord) || Is(TokenKind::kRaw);
}

bool HtmlTreeBuilder::IsStart(std::initializer_list<TagName> names) const {
    return Is(TokenKind::kStart) &&
           std::find(names.begin(), names.end(), token_->name) != names.end();
}

bool HtmlTreeBuilder::IsEnd(std::initializer_list<TagName> names) const {
    return Is(TokenKind::kEnd) &&
           std::find(names.begin(), names.end(), token_->name) != names.end();
}

HtmlTreeBuilder::NodeId HtmlTreeBuilder::NewNode(const Node& node) {
    Spend(8);
    nodes_.push_back(node);
    return static_cast<NodeId>(nodes_.size()) - 1;
}

void HtmlTreeBuilder::Insert(NodeId id, Place place) {
    Node& node = nodes_[id];
    Node& parent = nodes_[place.parent];
    node.parent = place.parent;
    node.next = place.before;
    node.previous = place.before == kNone ? parent.last : nodes_[place.before].previous;
    (node.previous == kNone ? parent.first : nodes_[node.previous].next) = id;
    (node.next == kNone ? parent.last : nodes_[node.next].previous) = id;
}

void HtmlTreeBuilder::Detach(NodeId id) {
    Node& node = nodes_[id];
    if (node.parent == kNone) return;
    Node& parent = nodes_[node.parent];
    (node.previous == kNone ? parent.first : nodes_[node.previous].next) = node.next;
    (node.next == kNone ? parent.last : nodes_[node.next].previous) = node.previous;
    node.parent = node.previous = node.next = kNone;
}

HtmlTreeBuilder::Place HtmlTreeBuilder::FosterPlace() const {
    for (std::size_t at = stack_.size(); at-- > 0;) {
        if (!IsHtml(stack_[at], Tag("table"))) continue;
        const NodeId parent = nodes_[stack_[at]].parent;
        if (parent != kNone) return {parent, stack_[at]};
        return {stack_[at > 0 ? at - 1 : 0], kNone};
    }
    return {stack_.front(), kNone};
}

HtmlTreeBuilder::Place HtmlTreeBuilder::PlaceFor(NodeId target) const {
    const TagName name = nodes_[target].name;
    const bool is_table = name == Tag("table") || name == Tag("tbody") || name == Tag("tfoot") ||
                          name == Tag("thead") || name == Tag("tr");
    if (is_fostering_ && is_table) return FosterPlace();
    return {target, kNone};
}

void HtmlTreeBuilder::InsertLeaf() {
    const Place place = PlaceFor(Current());
    Node node;
    node.token = node.end_token = index_;
    node.hash = token_->hash;
    if (skips_line_feed_ && Is(TokenKind::kBlank)) {
        std::string_view text = Source(index_);
        if (text.starts_with("\r\n")) {
            text.remove_prefix(2);
        } else if (text.starts_with('\n') || text.starts_with('\r')) {
            text.remove_prefix(1);
        }
        if (text.empty()) return;
        node.hash = HashOfText(text, TokenKind::kBlank);
    } else if (IsText() && JoinText(place)) {
        return;
    }
    Insert(NewNode(node), place);
}

/// Words that follow each other are one node.
bool HtmlTreeBuilder::JoinText(Place place) {
    if (place.before != kNone) return false;
    const NodeId last = nodes_[place.parent].last;
    if (last == kNone || nodes_[last].is_element || nodes_[last].end_token != index_ - 1)
        return false;
    const TokenKind kind = tokens_[index_ - 1].kind;
    if (kind != TokenKind::kWord && kind != TokenKind::kBlank) return false;
    nodes_[last].end_token = index_;
    return true;
}

void HtmlTreeBuilder::AppendLeaf(NodeId parent) {
    Node node;
    node.token = node.end_token = index_;
    node.hash = token_->hash;
    Insert(NewNode(node), {parent, kNone});
}

HtmlTreeBuilder::NodeId HtmlTreeBuilder::InsertElement(Space space) {
    Node node;
    node.name = token_->name;
    node.hash = token_->hash;
    node.token = index_;
    node.is_element = true;
    node.space = space;
    const NodeId id = NewNode(node);
    Place place = stack_.empty() ? Place{kDocument, kNone} : PlaceFor(Current());
    const NodeId above = nodes_[place.parent].parent;
    if (stack_.size() > kDeepest && above > kDocument) place = {above, kNone};
    Insert(id, place);
    stack_.push_back(id);
    return id;
}

HtmlTreeBuilder::NodeId HtmlTreeBuilder::InsertImplied(TagName name) {
    Node node;
    node.name = name;
    node.hash = HashOfStartTag(name);
    node.is_element = true;
    const NodeId id = NewNode(node);
    Insert(id, stack_.empty() ? Place{kDocument, kNone} : PlaceFor(Current()));
    stack_.push_back(id);
    return id;
}

HtmlTreeBuilder::NodeId HtmlTreeBuilder::InsertCopy(NodeId of) {
    Node node;
    node.name = nodes_[of].name;
    node.hash = nodes_[of].hash;
    node.is_element = true;
    return NewNode(node);
}

void HtmlTreeBuilder::InsertVoid() {
    InsertElement();
    Pop();
}

void HtmlTreeBuilder::InsertRaw() {
    const NodeId element = InsertElement();
    const bool skips = token_->name == Tag("textarea");
    const TagName name = token_->name;
    const auto count = static_cast<std::int32_t>(tokens_.size());
    bool is_first = true;
    while (index_ + 1 < count) {
        const HtmlToken& next = tokens_[index_ + 1];
        const bool is_text = next.kind == TokenKind::kRaw || next.kind == TokenKind::kWord ||
                             next.kind == TokenKind::kBlank;
        const bool is_end = next.kind == TokenKind::kEnd && next.name == name;
        if (!is_text && !is_end) break;
        token_ = &tokens_[++index_];
        if (is_end) {
            nodes_[element].end_token = index_;
            break;
        }
        skips_line_feed_ = skips && is_first;
        is_first = false;
        InsertLeaf();
    }
    skips_line_feed_ = false;
    Pop();
}

void HtmlTreeBuilder::AddMissingAttributes(NodeId id) {
    std::vector<HtmlAttribute> present;
    if (nodes_[id].token >= 0) present = AttributesOf(Source(nodes_[id].token));
    const auto is_present = [&](const HtmlAttribute& attribute) {
        return std::any_of(present.begin(), present.end(), [&](const HtmlAttribute& other) {
            return other.name == attribute.name;
        });
    };
    for (const HtmlAttribute& attribute : AttributesOf(Source(index_))) {
        Spend(64 + present.size());
        if (is_present(attribute)) continue;
        nodes_[id].hash += HashOfAttribute(attribute);
        present.push_back(attribute);
    }
}

bool HtmlTreeBuilder::IsHtml(NodeId node, TagName name) const {
    return node >= 0 && nodes_[node].name == name && nodes_[node].space == Space::kHtml;
}

bool HtmlTreeBuilder::CurrentIs(TagName name) const {
    return !stack_.empty() && IsHtml(Current(), name);
}

void HtmlTreeBuilder::NoteEnd(NodeId node) {
    if (Is(TokenKind::kEnd) && nodes_[node].end_token < 0) nodes_[node].end_token = index_;
}

void HtmlTreeBuilder::PopThrough(TagName name) {
    while (stack_.size() > 1) {
        const NodeId node = Current();
        Pop();
        if (!IsHtml(node, name)) continue;
        if (Is(TokenKind::kEnd) && token_->name == name) NoteEnd(node);
        return;
    }
}

void HtmlTreeBuilder::PopThroughNode(NodeId node) {
    while (stack_.size() > 1) {
        const NodeId popped = Current();
        Pop();
        if (popped == node) return;
    }
}

bool HtmlTreeBuilder::IsOnStack(NodeId node) const {
    return std::find(stack_.rbegin(), stack_.rend(), node) != stack_.rend();
}

void HtmlTreeBuilder::RemoveFromStack(NodeId node) {
    Spend(stack_.size() / 8);
    const auto found = std::find(stack_.begin(), stack_.end(), node);
    if (found != stack_.end()) stack_.erase(found);
}

bool HtmlTreeBuilder::EndsScope(const Node& node, Scope scope) {
    if (node.space != Space::kHtml) return scope != Scope::kTable && scope != Scope::kSelect;
    const TagName name = node.name;
    if (scope == Scope::kSelect) return name != Tag("optgroup") && name != Tag("option");
    if (name == Tag("html") || name == Tag("table") || name == Tag("template")) return true;
    if (scope == Scope::kTable) return false;
    if (scope == Scope::kListItem && (name == Tag("ol") || name == Tag("ul"))) return true;
    if (scope == Scope::kButton && name == Tag("button")) return true;
    return name == Tag("applet") || name == Tag("caption") || name == Tag("td") ||
           name == Tag("th") || name == Tag("marquee") || name == Tag("object");
}

bool HtmlTreeBuilder::HasInScope(TagName name, Scope scope) {
    for (std::size_t at = stack_.size(); at-- > 0;) {
        Spend(1);
        if (IsHtml(stack_[at], name)) return true;
        if (EndsScope(nodes_[stack_[at]], scope)) return false;
    }
    return false;
}

void HtmlTreeBuilder::CloseImplied(TagName except) {
    constexpr std::array kImplied = {Tag("dd"),     Tag("dt"), Tag("li"), Tag("optgroup"),
                                     Tag("option"), Tag("p"),  Tag("rb"), Tag("rp"),
                                     Tag("rt"),     Tag("rtc")};
    while (stack_.size() > 1 && nodes_[Current()].space == Space::kHtml &&
           CurrentName() != except &&
           std::find(kImplied.begin(), kImplied.end(), CurrentName()) != kImplied.end()) {
        Pop();
    }
}

void HtmlTreeBuilder::ClosePInScope() {
    if (!HasInScope(Tag("p"), Scope::kButton)) return;
    CloseImplied(Tag("p"));
    PopThrough(Tag("p"));
}

void HtmlTreeBuilder::PushFormatting(NodeId node) {
    // No more than three of a kind behind the last marker.
    int equal = 0;
    for (std::size_t at = formatting_.size(); at-- > 0 && formatting_[at] != kMarker;) {
        Spend(1);
        if (nodes_[formatting_[at]].hash != nodes_[node].hash || ++equal < 3) continue;
        formatting_.erase(formatting_.begin() + static_cast<std::ptrdiff_t>(at));
        break;
    }
    formatting_.push_back(node);
}

void HtmlTreeBuilder::Reconstruct() {
    std::size_t first = formatting_.size();
    while (first > 0 && formatting_[first - 1] != kMarker && !IsOnStack(formatting_[first - 1])) {
        Spend(1 + stack_.size() / 8);
        --first;
    }
    for (std::size_t at = first; at < formatting_.size(); ++at) {
        const NodeId copy = InsertCopy(formatting_[at]);
        Insert(copy, PlaceFor(Current()));
        stack_.push_back(copy);
        formatting_[at] = copy;
    }
}

void HtmlTreeBuilder::ClearToMarker() {
    while (!formatting_.empty()) {
        const NodeId last = formatting_.back();
        formatting_.pop_back();
        if (last == kMarker) return;
    }
}

HtmlTreeBuilder::NodeId HtmlTreeBuilder::FormattingElement(TagName name) const {
    for (std::size_t at = formatting_.size(); at-- > 0 && formatting_[at] != kMarker;) {
        if (nodes_[formatting_[at]].name == name) return formatting_[at];
    }
    return kNone;
}

void HtmlTreeBuilder::RemoveFromFormatting(NodeId node) {
    const auto found = std::find(formatting_.begin(), formatting_.end(), node);
    if (found != formatting_.end()) formatting_.erase(found);
}

/// The adoption agency: an end tag of a formatting element that other elements overlap.
void HtmlTreeBuilder::Adopt(TagName name) {
    if (CurrentIs(name) &&
        std::find(formatting_.begin(), formatting_.end(), Current()) == formatting_.end()) {
        NoteEnd(Current());
        return Pop();
    }
    for (int round = 0; round < 8; ++round) {
        Spend(stack_.size() / 8 + formatting_.size());
        if (!AdoptOnce(name)) return;
    }
}

bool HtmlTreeBuilder::AdoptOnce(TagName name) {
    const NodeId formatting = FormattingElement(name);
    if (formatting == kNone) {
        if (Is(TokenKind::kEnd)) EndOther();
        return false;
    }
    const auto on_stack = std::find(stack_.begin(), stack_.end(), formatting);
    if (on_stack == stack_.end()) {
        RemoveFromFormatting(formatting);
        return false;
    }
    for (std::size_t at = stack_.size(); stack_[--at] != formatting;) {
        if (EndsScope(nodes_[stack_[at]], Scope::kUsual)) return false;
    }
    NoteEnd(formatting);
    const auto block = std::find_if(on_stack, stack_.end(), [&](NodeId node) {
        return nodes_[node].space == Space::kHtml && IsSpecial(nodes_[node].name);
    });
    if (block == stack_.end()) {
        PopThroughNode(formatting);
        RemoveFromFormatting(formatting);
        return false;
    }
    Rebuild(formatting, *block);
    return true;
}

void HtmlTreeBuilder::Rebuild(NodeId formatting, NodeId block) {
    auto place_of = [&](NodeId node) {
        const auto found = std::find(stack_.begin(), stack_.end(), node);
        return static_cast<std::size_t>(found - stack_.begin());
    };
    const NodeId ancestor = stack_[place_of(formatting) - 1];
    auto bookmark = static_cast<std::size_t>(
        std::find(formatting_.begin(), formatting_.end(), formatting) - formatting_.begin());
    std::size_t at = place_of(block);
    NodeId last = block;
    for (int inner = 1;; ++inner) {
        NodeId node = stack_[--at];
        if (node == formatting) break;
        Spend(4 + formatting_.size());
        const auto listed = std::find(formatting_.begin(), formatting_.end(), node);
        const bool is_listed = listed != formatting_.end();
        if (inner > 3 && is_listed) {
            if (static_cast<std::size_t>(listed - formatting_.begin()) < bookmark) --bookmark;
            formatting_.erase(listed);
        }
        if (!is_listed || inner > 3) {
            stack_.erase(stack_.begin() + static_cast<std::ptrdiff_t>(at));
            continue;
        }
        const NodeId copy = InsertCopy(node);
        *listed = copy;
        stack_[at] = copy;
        if (last == block) {
            bookmark = static_cast<std::size_t>(listed - formatting_.begin()) + 1;
        }
        Detach(last);
        Insert(last, {copy, kNone});
        last = copy;
    }
    Detach(last);
    const bool was_fostering = is_fostering_;
    is_fostering_ = true;
    Insert(last, PlaceFor(ancestor));
    is_fostering_ = was_fostering;
    const NodeId copy = InsertCopy(formatting);
    while (nodes_[block].first != kNone) {
        const NodeId child = nodes_[block].first;
        Spend(2);
        Detach(child);
        Insert(child, {copy, kNone});
    }
    Insert(copy, {block, kNone});
    // In the document the end tag stands behind what it ended last.
    if (nodes_[formatting].end_token == index_) {
        nodes_[formatting].end_token = -1;
        nodes_[copy].end_token = index_;
    }
    const auto old = std::find(formatting_.begin(), formatting_.end(), formatting);
    if (static_cast<std::size_t>(old - formatting_.begin()) < bookmark) --bookmark;
    formatting_.erase(old);
    formatting_.insert(formatting_.begin() + static_cast<std::ptrdiff_t>(bookmark), copy);
    stack_.erase(stack_.begin() + static_cast<std::ptrdiff_t>(place_of(formatting)));
    stack_.insert(stack_.begin() + static_cast<std::ptrdiff_t>(place_of(block)) + 1, copy);
}

}  // namespace quorrel::html
