// The attribute reader against a plain one that goes character by character. Input: the start,
// the attribute, the value, the mode, the text.
#include "fuzz_support.hpp"
#include "platform/text.hpp"
#include "project/tag_value.hpp"

using namespace quorrel;

namespace {

/// The characters of a text by 1-based positions; a position outside is an empty character.
class Characters {
  public:
    explicit Characters(std::string_view text) : text_(text) {}
    [[nodiscard]] std::size_t Count() const { return text_.size(); }
    [[nodiscard]] std::string At(std::size_t i) const {
        return i >= 1 && i <= text_.size() ? std::string(1, text_[i - 1]) : std::string();
    }
    [[nodiscard]] std::string From(std::size_t first, std::size_t last) const {
        std::string part;
        for (std::size_t i = first; i <= last; ++i) part += At(i);
        return part;
    }

  private:
    std::string text_;
};

std::size_t PlaceOf(const Characters& text, const std::string& what, std::size_t from,
                    std::size_t last) {
    for (std::size_t i = from; i <= last; ++i) {
        if (text.At(i) == what) return i;
    }
    return 0;
}

bool StandsAt(const Characters& text, std::size_t at, const std::string& attribute) {
    for (std::size_t i = 0; i < attribute.size(); ++i) {
        if (UpperAscii(text.At(at + i)) != attribute.substr(i, 1)) return false;
    }
    return true;
}

std::size_t AttributeIn(const Characters& text, const std::string& attribute, std::size_t from,
                        std::size_t end) {
    for (std::size_t at = from; at + attribute.size() <= end + 1; ++at) {
        if (StandsAt(text, at, attribute)) return at;
    }
    return 0;
}

std::string Added(const std::string& attribute, const std::string& value, TagMode mode) {
    if (mode == TagMode::kWriteFlag) return value == "1" ? " " + attribute : "";
    return value.empty() ? "" : " " + attribute + "=" + value;
}

std::string WithoutValue(const Characters& text, std::size_t name, std::size_t end,
                         const std::string& attribute, const std::string& value, TagMode mode) {
    if (mode != TagMode::kWriteFlag) return std::string(kAttributeOn);
    return text.From(1, name - 1) + (value == "1" ? attribute : "") + text.From(end, text.Count());
}

/// The value without the quotes round it and, where it has none, without blanks.
std::string Read(const Characters& text, std::size_t first, std::size_t last, bool quoted) {
    std::string value;
    for (std::size_t i = first; i <= last; ++i) {
        const std::string c = text.At(i);
        if (c != "\"" && (quoted || c != " ")) value += c;
    }
    return value;
}

std::string PlainTagValue(std::string_view whole, std::size_t start, const std::string& attribute,
                          const std::string& value, TagMode mode) {
    const Characters text(whole);
    if (start < 1 || start > text.Count()) return {};
    const std::size_t end = PlaceOf(text, ">", start, text.Count());
    if (end == 0) return {};
    const std::size_t name = AttributeIn(text, attribute, start, end);
    if (name == 0) {
        if (mode == TagMode::kRead) return {};
        return text.From(1, end - 1) + Added(attribute, value, mode) + text.From(end, text.Count());
    }
    const std::size_t equals = PlaceOf(text, "=", name, end);
    if (equals == 0) return WithoutValue(text, name, end, attribute, value, mode);
    std::size_t first = equals + 1;
    while (first <= end && text.At(first) == " ") ++first;
    const bool quoted = first <= end && text.At(first) == "\"";
    const std::size_t opening = first;  // of the value with its quote
    if (quoted) ++first;
    std::size_t close = PlaceOf(text, quoted ? "\"" : " ", first, end);
    if (close == 0) close = PlaceOf(text, ">", first, end);
    if (close == 0) return {};
    if (mode == TagMode::kRead) return Read(text, first, close - 1, quoted);
    const std::size_t tail = text.At(close) == "\"" ? close + 1 : close;
    if (value.empty()) return text.From(1, name - 1) + text.From(tail, text.Count());
    return text.From(1, opening - 1) + value + text.From(tail, text.Count());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto start = static_cast<std::size_t>(LeadingNumber(input.Line()));
    const std::string attribute = UpperAscii(input.Line());
    const std::string value(input.Line());
    const auto mode = static_cast<TagMode>(input.Choice(3));
    const std::string_view text = input.Rest();

    const std::string result = TagValue(text, start, attribute, value, mode);
    fuzz::Check(mode != TagMode::kRead || result == kAttributeOn || result.size() <= text.size(),
                "what is read stands in the text");
    // The plain way is slow: it is for texts of a usual length.
    constexpr std::size_t kCompared = 4096;
    if (text.size() > kCompared) return 0;
    fuzz::Check(result == PlainTagValue(text, start, attribute, value, mode),
                "both ways give the same");
    return 0;
}
