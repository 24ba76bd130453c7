#include "platform/plain_surface/html_scan.hpp"

#include "platform/text.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kRawTextElements =
    "SCRIPT STYLE TITLE TEXTAREA XMP IFRAME NOEMBED NOFRAMES";

bool IsLetter(char c) {
    const char upper = UpperAscii(c);
    return upper >= 'A' && upper <= 'Z';
}

class Scanner {
  public:
    explicit Scanner(std::string_view html) : html_(html) {}

    std::vector<HtmlToken> Run() {
        while (at_ < html_.size()) {
            const std::size_t markup = NextMarkup(at_);
            AddUpTo(markup, HtmlTokenKind::kText);
            if (markup < html_.size()) ReadMarkup();
        }
        return std::move(tokens_);
    }

  private:
    [[nodiscard]] char CharAt(std::size_t at) const { return at < html_.size() ? html_[at] : '\0'; }

    [[nodiscard]] std::size_t NextMarkup(std::size_t at) const {
        while ((at = html_.find('<', at)) != npos) {
            const char next = CharAt(at + 1);
            if (IsLetter(next) || next == '!' || next == '?' || next == '/') return at;
            ++at;
        }
        return html_.size();
    }

    void AddUpTo(std::size_t end, HtmlTokenKind kind, std::string name = {}) {
        if (end > at_) tokens_.push_back({kind, at_, end, std::move(name)});
        at_ = end;
    }

    void ReadMarkup() {
        const char next = CharAt(at_ + 1);
        if (html_.substr(at_).starts_with("<!--")) {
            // From the "!" on, so that "<!-->" is a whole comment.
            const std::size_t end = html_.find("-->", at_ + 2);
            AddUpTo(end == npos ? html_.size() : end + 3, HtmlTokenKind::kInert);
        } else if (IsLetter(next)) {
            ReadTag(HtmlTokenKind::kStartTag, at_ + 1);
        } else if (next == '/' && IsLetter(CharAt(at_ + 2))) {
            ReadTag(HtmlTokenKind::kEndTag, at_ + 2);
        } else {
            const std::size_t end = html_.find('>', at_);
            if (end == npos) return AddUpTo(html_.size(), HtmlTokenKind::kText);
            AddUpTo(end + 1, HtmlTokenKind::kInert);
        }
    }

    void ReadTag(HtmlTokenKind kind, std::size_t name_begin) {
        const std::size_t end = TagEnd(name_begin);
        if (end == npos) return AddUpTo(html_.size(), HtmlTokenKind::kText);
        const std::size_t name_end = html_.find_first_of(" \t\r\n\f/>", name_begin);
        std::string name = UpperAscii(html_.substr(name_begin, name_end - name_begin));
        const bool is_raw = kind == HtmlTokenKind::kStartTag && HasWord(kRawTextElements, name);
        const std::string end_tag = "</" + name;
        AddUpTo(end, kind, std::move(name));
        if (!is_raw) return;
        const std::size_t raw_end = FindIgnoringAsciiCase(html_, end_tag, at_);
        AddUpTo(raw_end == npos ? html_.size() : raw_end, HtmlTokenKind::kInert);
    }

    std::size_t TagEnd(std::size_t at) {
        if (quotes_count_) {
            const std::size_t end = QuotedTagEnd(at);
            if (end != npos) return end;
            // A quote is open up to the end of the text. Quotes mean nothing from here on, or
            // each further tag would be read up to the end again.
            quotes_count_ = false;
        }
        const std::size_t end = html_.find('>', at);
        return end == npos ? npos : end + 1;
    }

    /// Behind the ">" that is in no attribute value.
    [[nodiscard]] std::size_t QuotedTagEnd(std::size_t at) const {
        char quote = '\0';
        bool behind_equals = false;
        for (; at < html_.size(); ++at) {
            const char c = html_[at];
            if (quote != '\0') {
                if (c == quote) quote = '\0';
                continue;
            }
            if (c == '>') return at + 1;
            if (behind_equals && (c == '"' || c == '\'')) quote = c;
            behind_equals = c == '=' || (behind_equals && IsHtmlBlank(c));
        }
        return npos;
    }

    std::string_view html_;
    std::size_t at_ = 0;
    bool quotes_count_ = true;
    std::vector<HtmlToken> tokens_;
};

}  // namespace

bool HasWord(std::string_view list, std::string_view word) {
    while (!list.empty()) {
        const std::size_t end = list.find(' ');
        if (list.substr(0, end) == word) return true;
        list.remove_prefix(end == npos ? list.size() : end + 1);
    }
    return false;
}

std::vector<HtmlToken> ScanHtml(std::string_view html) {
    return Scanner(html).Run();
}

}  // namespace quorrel
