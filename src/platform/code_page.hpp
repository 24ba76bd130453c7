// ANSI code pages: single-byte and double-byte ones, by their Windows numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorrel {

inline constexpr int kWesternCodePage = 1252;
inline constexpr int kUtf8CodePage = 65001;
/// ISO-8859-1. Its bytes are read as those of the western code page, as browsers do; written are
/// only characters whose bytes mean the same in both.
inline constexpr int kLatin1CodePage = 28591;

/// A byte without a meaning in its encoding is kept as the code point kLoneByte + byte, so that
/// it comes back as the same byte when the text is written.
inline constexpr char32_t kLoneByte = 0x10FE00;
constexpr bool IsLoneByte(char32_t c) {
    return c >= kLoneByte && c <= kLoneByte + 0xFF;
}

/// The tables of one code page. They are made once for a number and live for the whole run.
class CodePage {
  public:
    /// An unknown number gives a page whose bytes above 127 have no meaning.
    static const CodePage& Get(int number);
    virtual ~CodePage() = default;

    /// Decodes `bytes` to UTF-8.
    [[nodiscard]] virtual std::string Decode(std::string_view bytes) const = 0;
    /// Appends the bytes of `c`; false, and nothing appended, where the page lacks it.
    virtual bool Encode(char32_t c, std::string& bytes) const = 0;
};

/// The ANSI code page of a Windows language number, as in "Language=0x411 Japanese"; 0 where
/// the text does not begin with a number.
[[nodiscard]] int CodePageOfLanguageOption(std::string_view option);

/// The ANSI code page of this machine: QUORREL_ANSI_CODEPAGE, else the system's own if it has one,
/// else that of the language of the locale, else 1252. `chosen` tells that one of the first two
/// decided, which a project cannot overrule.
struct MachineCodePage {
    int number = kWesternCodePage;
    bool chosen = false;
};
[[nodiscard]] MachineCodePage CodePageOfMachine();

}  // namespace quorrel
