// An edited topic is put back into its source: whatever the texts are, an untouched one stays and
// an edit is not lost.
#include "editor/preserve_source.hpp"

#include <optional>

#include "editor/document_tokens.hpp"
#include "fuzz_support.hpp"

using namespace quorrel;
using namespace quorrel::html;

namespace {

/// What a browser reads; nothing where that is not what the tokens of the text are.
std::optional<Meaning> MeaningOfSerialised(std::string_view text) {
    const std::vector<HtmlToken> tokens = HtmlTokens(text);
    const auto read = ParseDocument(text, tokens);
    if (!read) return std::nullopt;
    Meaning meaning = MeaningOf(*read);
    if (meaning.keys != MeaningOf(AsDocument(tokens)).keys) return std::nullopt;
    return meaning;
}

}  // namespace

/// The three texts stand one after the other with a line "=" between them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    const auto next = [&rest] {
        const std::size_t end = rest.find("\n=\n");
        const std::string_view text = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 3);
        return text;
    };
    const std::string_view original = next();
    const std::string_view base = next();
    const std::string_view edited = next();

    fuzz::Check(PreserveSource(original, base, base) == original, "an untouched source stays");
    static_cast<void>(PreserveSource(original, base, edited));

    const auto before = MeaningOfSerialised(base);
    const auto wanted = MeaningOfSerialised(edited);
    if (!before || !wanted) return 0;
    const std::string result = PreserveSource(base, base, edited);
    const auto read = ParseDocument(result, HtmlTokens(result));
    fuzz::Check(read && MeaningOf(*read).keys == wanted->keys, "the result reads as the edit");
    return 0;
}
