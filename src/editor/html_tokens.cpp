#include "editor/html_tokens.hpp"

#include <algorithm>

#include "editor/html_references.hpp"
#include "editor/html_tag_scanner.hpp"
#include "platform/text.hpp"

namespace quorrel::html {
namespace {

constexpr std::uint64_t kHashStart = 14695981039346656037ULL;

constexpr std::uint64_t HashByte(std::uint64_t hash, char c) {
    return (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
}
std::uint64_t HashBytes(std::uint64_t hash, std::string_view text) {
    for (const char c : text) hash = HashByte(hash, c);
    return hash;
}
/// Spreads the bits, so that sums of hashes stay apart.
constexpr std::uint64_t Mix(std::uint64_t hash) {
    hash ^= hash >> 31;
    hash *= 0x9E3779B97F4A7C15ULL;
    return hash ^ (hash >> 29);
}

/// Line ends count as LF, as a browser reads them.
std::uint64_t HashNormalised(std::uint64_t hash, std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r') {
            hash = HashByte(hash, text[at]);
        } else if (at + 1 == text.size() || text[at + 1] != '\n') {
            hash = HashByte(hash, '\n');
        }
    }
    return hash;
}

std::uint64_t HashOfKind(TokenKind kind) {
    return HashByte(kHashStart, static_cast<char>(kind));
}

std::uint64_t HashOfValue(std::uint64_t hash, std::string_view value) {
    const bool is_plain = value.find_first_of("&\r") == npos;
    return HashBytes(hash, is_plain ? value : std::string_view(DecodedAttributeValue(value)));
}

bool IsLetter(char c) {
    return LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z';
}

class Tokenizer {
  public:
    explicit Tokenizer(std::string_view text) : text_(text) {
        tokens_.reserve(text.size() / 3 + 16);
    }

    std::vector<HtmlToken> Run() {
        while (at_ < text_.size()) ScanToken();
        return std::move(tokens_);
    }

  private:
    void ScanToken() {
        if (IsMarkup(at_)) return ScanMarkup();
        ScanText(text_.size(), true);
    }

    /// Whether the "<" at the offset is more than a character.
    bool IsMarkup(std::size_t at) const {
        if (text_[at] != '<' || at + 1 >= text_.size()) return false;
        const char next = text_[at + 1];
        if (next == '/') return at + 2 < text_.size();
        return next == '!' || next == '?' || IsLetter(next);
    }

    /// One blank or word that ends by `limit`.
    void ScanText(std::size_t limit, bool stop_at_markup) {
        const std::size_t begin = at_;
        bool is_plain = true;
        for (std::size_t size = 0; at_ < limit && (size = BlankSize(at_)) > 0; at_ += size) {
            if (size > 1) is_plain = false;
        }
        if (at_ > begin) {
            return Add(TokenKind::kBlank, begin,
                       is_plain ? HashNormalised(HashOfKind(TokenKind::kBlank), From(begin))
                                : HashOfText(From(begin), TokenKind::kBlank));
        }
        std::uint64_t hash = HashOfKind(TokenKind::kWord);
        do {
            const char c = text_[at_++];
            hash = HashByte(hash, c);
            if (c == '&' || c == '\0') is_plain = false;
        } while (at_ < limit && BlankSize(at_) == 0 && !(stop_at_markup && IsMarkup(at_)));
        Add(TokenKind::kWord, begin, is_plain ? hash : HashOfText(From(begin), TokenKind::kWord));
    }

    /// The length of a white space at the offset, which may be a reference such as "&#13;".
    std::size_t BlankSize(std::size_t at) const {
        if (IsHtmlBlank(text_[at])) return 1;
        if (text_[at] != '&' || at + 1 >= text_.size() || text_[at + 1] != '#') return 0;
        std::string meaning;
        const std::size_t size = DecodeReference(text_, at, ReferencePlace::kText, meaning);
        return meaning.size() == 1 && IsHtmlBlank(meaning[0]) ? size : 0;
    }

    void ScanMarkup() {
        const char next = text_[at_ + 1];
        if (IsLetter(next)) return ScanTag(TokenKind::kStart);
        if (next == '/' && IsLetter(text_[at_ + 2])) return ScanTag(TokenKind::kEnd);
        const std::size_t begin = at_;
        if (next == '/' && text_[at_ + 2] == '>') {
            at_ += 3;
            return Add(TokenKind::kNothing, begin, 0);
        }
        if (text_.substr(at_).starts_with("<!--")) {
            at_ = CommentEnd(at_);
        } else {
            at_ = std::min(text_.find('>', at_), text_.size() - 1) + 1;
            if (IsDoctype(From(begin))) return Add(TokenKind::kDoctype, begin, DoctypeHash(begin));
        }
        Add(TokenKind::kComment, begin,
            HashNormalised(HashOfKind(TokenKind::kComment), CommentData(From(begin))));
    }

    static bool IsDoctype(std::string_view text) {
        return FindIgnoringAsciiCase(text.substr(0, 9), "<!DOCTYPE") == 0;
    }

    std::size_t CommentEnd(std::size_t begin) {
        const std::string_view rest = text_.substr(begin);
        if (rest.starts_with("<!-->")) return begin + 5;
        if (rest.starts_with("<!--->")) return begin + 6;
        for (std::size_t at = begin + 4; (at = text_.find("--", at)) != npos; ++at) {
            if (text_.substr(at + 2).starts_with('>')) return at + 3;
            if (text_.substr(at + 2).starts_with("!>")) return at + 4;
        }
        return text_.size();
    }

    std::uint64_t DoctypeHash(std::size_t begin) const {
        const Doctype doctype = ParseDoctype(From(begin));
        std::uint64_t hash = HashBytes(HashOfKind(TokenKind::kDoctype), doctype.name);
        hash = HashBytes(HashByte(hash, '\n'), doctype.public_id.value_or(""));
        return HashBytes(HashByte(hash, '\n'), doctype.system_id.value_or(""));
    }

    void ScanTag(TokenKind kind) {
        const std::size_t begin = at_;
        HtmlToken token;
        token.kind = kind;
        token.begin = static_cast<std::uint32_t>(begin);
        const std::string_view rest = text_.substr(begin);
        const std::size_t name_end = TagNameEnd(rest);
        token.name = NameOf(rest.substr(kind == TokenKind::kEnd ? 2 : 1,
                                        name_end - (kind == TokenKind::kEnd ? 2 : 1)));
        HtmlTagScanner scanner(rest, name_end);
        attributes_.clear();
        for (AttributePlace place; scanner.Next(place);) {
            if (kind == TokenKind::kStart) NoteAttribute(rest, place);
        }
        const std::size_t end = scanner.Offset();
        at_ = begin + std::min(end + 1, rest.size());
        if (end >= rest.size()) return Add(TokenKind::kNothing, begin, 0);
        token.end = static_cast<std::uint32_t>(at_);
        token.is_self_closing = rest[end - 1] == '/';
        token.hash = kind == TokenKind::kEnd ? HashOfEndTag(token.name)
                                             : HashOfStartTag(token.name) + SumOfAttributes();
        tokens_.push_back(token);
        if (kind == TokenKind::kStart)
            ScanContent(token);
        else if (foreign_ > 0 && IsForeignRoot(token.name))
            --foreign_;
    }

    static TagName NameOf(std::string_view written) {
        TagName name = 2166136261U;
        for (const char c : written) {
            name = (name ^ static_cast<unsigned char>(LowerAscii(c))) * 16777619U;
        }
        return name;
    }

    void NoteAttribute(std::string_view tag, const AttributePlace& place) {
        std::uint64_t name = kHashStart;
        for (std::size_t at = place.begin; at < place.name_end; ++at) {
            name = HashByte(name, LowerAscii(tag[at]));
        }
        const std::string_view value =
            tag.substr(place.value_begin, place.value_end - place.value_begin);
        attributes_.emplace_back(name, Mix(HashOfValue(HashByte(name, '='), value)));
    }

    /// Whatever their order; the first of each name counts.
    std::uint64_t SumOfAttributes() {
        const auto by_name = [](const auto& a, const auto& b) { return a.first < b.first; };
        const auto same_name = [](const auto& a, const auto& b) { return a.first == b.first; };
        std::stable_sort(attributes_.begin(), attributes_.end(), by_name);
        const auto end = std::unique(attributes_.begin(), attributes_.end(), same_name);
        std::uint64_t sum = 0;
        for (auto it = attributes_.begin(); it != end; ++it) sum += it->second;
        return sum;
    }

    static bool IsForeignRoot(TagName name) { return name == Tag("svg") || name == Tag("math"); }

    void ScanContent(const HtmlToken& tag) {
        if (IsForeignRoot(tag.name) && !tag.is_self_closing) ++foreign_;
        if (foreign_ > 0 || !IsRawElement(tag.name)) return;
        const bool has_references = tag.name == Tag("title") || tag.name == Tag("textarea");
        const std::size_t begin = at_;
        const std::size_t end = RawEnd(tag);
        if (has_references) {
            while (at_ < end) ScanText(end, false);
        } else if (end > begin) {
            at_ = end;
            Add(TokenKind::kRaw, begin, HashOfText(From(begin), TokenKind::kRaw));
        }
    }

    /// The offset of the end tag, or the size.
    std::size_t RawEnd(const HtmlToken& tag) const {
        if (tag.name == Tag("plaintext")) return text_.size();
        const bool is_script = tag.name == Tag("script");
        bool is_commented = false;
        bool is_nested = false;  // "<!-- <script>" swallows an end tag of its own
        for (std::size_t at = at_; (at = text_.find_first_of("<-", at)) != npos; ++at) {
            if (text_[at] == '-') {
                if (is_commented && text_.substr(at).starts_with("-->")) {
                    is_commented = is_nested = false;
                }
            } else if (is_script && text_.substr(at).starts_with("<!--")) {
                is_commented = true;
            } else if (is_commented && !is_nested && IsTagAt(at + 1, tag.name)) {
                is_nested = true;
            } else if (text_.substr(at).starts_with("</") && IsTagAt(at + 2, tag.name)) {
                if (!is_nested) return at;
                is_nested = false;
            }
        }
        return text_.size();
    }

    bool IsTagAt(std::size_t at, TagName name) const {
        if (at >= text_.size() || !IsLetter(text_[at])) return false;
        std::size_t end = at;
        while (end < text_.size() && IsLetter(text_[end])) ++end;
        if (end < text_.size() && !IsHtmlBlank(text_[end]) && text_[end] != '/' &&
            text_[end] != '>') {
            return false;
        }
        return end < text_.size() && NameOf(text_.substr(at, end - at)) == name;
    }

    std::string_view From(std::size_t begin) const { return text_.substr(begin, at_ - begin); }

    void Add(TokenKind kind, std::size_t begin, std::uint64_t hash) {
        HtmlToken token;
        token.kind = kind;
        token.begin = static_cast<std::uint32_t>(begin);
        token.end = static_cast<std::uint32_t>(at_);
        token.hash = hash;
        tokens_.push_back(token);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    int foreign_ = 0;
    std::vector<HtmlToken> tokens_;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> attributes_;  // of one tag: name, both
};

}  // namespace

std::vector<HtmlToken> HtmlTokens(std::string_view text) {
    return Tokenizer(text).Run();
}

std::uint64_t HashOfStartTag(TagName name) {
    return Mix(name + (std::uint64_t{1} << 32));
}
std::uint64_t HashOfEndTag(TagName name) {
    return Mix(name + (std::uint64_t{2} << 32));
}

std::uint64_t HashOfText(std::string_view text, TokenKind kind) {
    const std::uint64_t hash = HashOfKind(kind);
    const bool is_blank = kind == TokenKind::kBlank;
    if (is_blank && text.find('&') != npos) return HashNormalised(hash, WithoutReferences(text));
    if (kind != TokenKind::kWord) return HashNormalised(hash, text);
    const bool is_plain = text.find('&') == npos && text.find('\0') == npos;
    return HashBytes(hash, is_plain ? text : std::string_view(WithoutReferences(text)));
}

std::string WithoutReferences(std::string_view text) {
    std::string decoded;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        std::size_t size = 1;
        if (c == '&') {
            size = DecodeReference(text, at, ReferencePlace::kText, decoded);
            if (size == 0) decoded += c;
        } else if (c == '\r') {
            decoded += '\n';
            if (text.substr(at).starts_with("\r\n")) size = 2;
        } else if (c != '\0') {  // passed over by a browser
            decoded += c;
        }
        at += std::max<std::size_t>(size, 1);
    }
    return decoded;
}

std::uint64_t HashOfAttribute(const HtmlAttribute& attribute) {
    const std::uint64_t name = HashBytes(kHashStart, attribute.name);
    return Mix(HashBytes(HashByte(name, '='), attribute.value));
}

std::string_view CommentData(std::string_view comment) {
    if (!comment.starts_with("<!--")) {
        comment.remove_prefix(comment.starts_with("<?") ? 1 : 2);
        if (comment.ends_with('>')) comment.remove_suffix(1);
        return comment;
    }
    comment.remove_prefix(4);
    if (comment == ">" || comment == "->") return {};
    for (const std::string_view end : {"-->", "--!>", "--!", "--", "-"}) {
        if (comment.ends_with(end)) return comment.substr(0, comment.size() - end.size());
    }
    return comment;
}

Doctype ParseDoctype(std::string_view text) {
    Doctype doctype;
    std::size_t at = 9;  // "<!DOCTYPE"
    const auto skip_blanks = [&] {
        while (at < text.size() && IsHtmlBlank(text[at])) ++at;
    };
    const auto quoted = [&]() -> std::optional<std::string> {
        skip_blanks();
        if (at >= text.size() || (text[at] != '"' && text[at] != '\'')) return std::nullopt;
        const std::size_t end = std::min(text.find(text[at], at + 1), text.size());
        const std::string value(text.substr(at + 1, end - at - 1));
        at = std::min(end + 1, text.size());
        return value;
    };
    skip_blanks();
    for (; at < text.size() && !IsHtmlBlank(text[at]) && text[at] != '>'; ++at) {
        doctype.name += LowerAscii(text[at]);
    }
    skip_blanks();
    const std::string keyword = LowerAscii(text.substr(at, 6));
    at = std::min(at + 6, text.size());
    if (keyword == "public") {
        doctype.public_id = quoted();
        doctype.system_id = quoted();
    } else if (keyword == "system") {
        doctype.system_id = quoted();
    }
    return doctype;
}

}  // namespace quorrel::html
