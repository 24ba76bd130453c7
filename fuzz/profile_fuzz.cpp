// A key of a profile text set and read back. Input: section, key, value, the text.
#include "fuzz_support.hpp"
#include "platform/profile_file.hpp"
#include "platform/text.hpp"

using namespace quorrel;

static bool HasLineEnd(std::string_view text) {
    return text.find_first_of("\r\n") != npos;
}

/// What a line of the form "key=value" cannot carry is left out here.
static bool ComesBack(std::string_view section, std::string_view key, std::string_view value) {
    if (HasLineEnd(section) || HasLineEnd(key) || HasLineEnd(value)) return false;
    const std::string_view name = TrimBlanksAndTabs(key);
    if (Contains(name, "=") || name.starts_with(';') || name.starts_with('[')) return false;
    if (value != TrimBlanksAndTabs(value)) return false;
    const auto quote = [](char c) { return c == '"' || c == '\''; };
    return value.empty() || !(quote(value.front()) || quote(value.back()));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string_view section = input.Line();
    const std::string_view key = input.Line();
    const std::string_view value = input.Line();
    const std::string_view text = input.Rest();
    (void)ProfileValue(text, section, key);
    const std::string changed = SetProfileValue(text, section, key, value);
    if (!ComesBack(section, key, value)) return 0;
    fuzz::Check(ProfileValue(changed, section, key) == value, "a value that was set comes back");
    fuzz::Check(SetProfileValue(changed, section, key, value) == changed,
                "setting the same value again changes nothing");
    return 0;
}
