// Builds the tree of a document from its tokens, by the rules of HTML for browsers.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "editor/html_tree.hpp"

namespace quorrel::html {

class HtmlTreeBuilder {
  public:
    HtmlTreeBuilder(std::string_view text, const std::vector<HtmlToken>& tokens);

    /// False if the work went beyond any reason.
    bool Run();
    [[nodiscard]] std::vector<DocumentToken> Serialised() const;

  private:
    using NodeId = std::int32_t;
    static constexpr NodeId kNone = -1;
    static constexpr NodeId kDocument = 0;
    static constexpr NodeId kMarker = -2;  // in the list of formatting elements

    enum class Space : std::uint8_t { kHtml, kSvg, kMath };
    enum class Mode : std::uint8_t {
        kInitial,
        kBeforeHtml,
        kBeforeHead,
        kInHead,
        kInHeadNoscript,
        kAfterHead,
        kInBody,
        kInTable,
        kInCaption,
        kInColumnGroup,
        kInTableBody,
        kInRow,
        kInCell,
        kInSelect,
        kInSelectInTable,
        kAfterBody,
        kAfterAfterBody
    };
    enum class Scope : std::uint8_t { kUsual, kListItem, kButton, kTable, kSelect };

    struct Node {
        TagName name = 0;
        std::uint64_t hash = 0;
        std::int32_t token = -1;      // of the start tag; the first of a text
        std::int32_t end_token = -1;  // of the end tag; the last of a text
        NodeId parent = kNone;
        NodeId first = kNone;
        NodeId last = kNone;
        NodeId previous = kNone;
        NodeId next = kNone;
        bool is_element = false;
        Space space = Space::kHtml;
    };
    struct Place {
        NodeId parent = kNone;
        NodeId before = kNone;
    };

    // The tree.
    NodeId NewNode(const Node& node);
    void Insert(NodeId node, Place place);
    void Detach(NodeId node);
    Place PlaceFor(NodeId target) const;
    Place FosterPlace() const;
    void InsertLeaf();
    [[nodiscard]] bool JoinText(Place place);
    void AppendLeaf(NodeId parent);
    NodeId InsertElement(Space space = Space::kHtml);
    NodeId InsertImplied(TagName name);
    NodeId InsertCopy(NodeId of);
    void InsertVoid();
    /// Scripts, style sheets, titles: the element with what the tokenizer took as its content.
    void InsertRaw();
    void AddMissingAttributes(NodeId node);

    // The stack of open elements.
    [[nodiscard]] NodeId Current() const { return stack_.back(); }
    [[nodiscard]] TagName CurrentName() const { return nodes_[Current()].name; }
    [[nodiscard]] bool CurrentIs(TagName name) const;
    [[nodiscard]] bool IsHtml(NodeId node, TagName name) const;
    void Pop() {
        if (stack_.size() > 1) stack_.pop_back();
    }
    /// Pops up to the nearest element of that name, which the token at hand ends.
    void PopThrough(TagName name);
    void PopThroughNode(NodeId node);
    [[nodiscard]] bool IsOnStack(NodeId node) const;
    void RemoveFromStack(NodeId node);
    bool HasInScope(TagName name, Scope scope = Scope::kUsual);
    [[nodiscard]] static bool EndsScope(const Node& node, Scope scope);
    void CloseImplied(TagName except = 0);
    void ClosePInScope();
    void NoteEnd(NodeId node);

    // The active formatting elements.
    void PushFormatting(NodeId node);
    void Reconstruct();
    void ClearToMarker();
    [[nodiscard]] NodeId FormattingElement(TagName name) const;
    void RemoveFromFormatting(NodeId node);
    void Adopt(TagName name);
    bool AdoptOnce(TagName name);
    void Rebuild(NodeId formatting, NodeId block);

    // The insertion modes. They say whether the token is done with; if not it is looked at again
    // in the mode that is set by then.
    void ProcessToken();
    bool Process(Mode mode);
    bool Initial();
    bool BeforeHtml();
    bool BeforeHead();
    bool InHead();
    bool InHeadNoscript();
    bool AfterHead();
    bool InBody();
    bool AfterBody();
    bool AfterAfterBody();
    void StartInBody();
    bool StartBlockInBody();
    bool StartInlineInBody();
    void EndInBody();
    bool EndBlockInBody();
    void CloseElement(TagName name, TagName except);
    void EndHeading();
    void EndForm();
    void EndOther();
    void StartItem(std::initializer_list<TagName> ended);
    void StartAnchor();
    void StartSelect();
    void Ruby();
    bool InTable();
    bool StartInTable();
    void TextInTable();
    void ByBodyWithFostering();
    bool InTableBody();
    bool InRow();
    bool InCell();
    bool InCaption();
    bool InColumnGroup();
    bool InSelect();
    bool InSelectInTable();
    void ClearStackTo(std::initializer_list<TagName> names);
    void CloseCell();
    bool CloseRow();
    bool CloseCaption();
    void ResetMode();
    void EndTemplate();

    // Foreign content.
    [[nodiscard]] bool IsInForeignContent() const;
    bool Foreign();
    bool LeavesForeignContent() const;

    [[nodiscard]] bool Is(TokenKind kind) const { return token_->kind == kind; }
    [[nodiscard]] bool IsText() const;
    [[nodiscard]] bool IsStart(std::initializer_list<TagName> names) const;
    [[nodiscard]] bool IsEnd(std::initializer_list<TagName> names) const;
    [[nodiscard]] std::string_view Source(std::int32_t token) const;
    [[nodiscard]] bool IsQuirky(const HtmlToken& doctype) const;
    void Spend(std::size_t work) { work_ += work; }

    std::string_view text_;
    const std::vector<HtmlToken>& tokens_;
    std::vector<Node> nodes_;
    std::vector<NodeId> stack_;
    std::vector<NodeId> formatting_;
    Mode mode_ = Mode::kInitial;
    const HtmlToken* token_ = nullptr;
    std::int32_t index_ = 0;  // of the token at hand
    NodeId html_ = kNone;
    NodeId head_ = kNone;
    NodeId body_ = kNone;
    NodeId form_ = kNone;
    bool is_quirky_ = true;
    bool is_fostering_ = false;
    bool skips_line_feed_ = false;
    std::size_t work_ = 0;
    std::size_t work_allowed_ = 0;
};

[[nodiscard]] bool IsFormatting(TagName name);
[[nodiscard]] bool IsSpecial(TagName name);
[[nodiscard]] bool IsHeading(TagName name);

}  // namespace quorrel::html
