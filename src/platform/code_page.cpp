#include "platform/code_page.hpp"

#include <array>
#include <charconv>
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "platform/system_code_page.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

bool IsDoubleByte(int number) {
    return number == 932 || number == 936 || number == 949 || number == 950 || number == 51932;
}

class TableCodePage : public CodePage {
  public:
    explicit TableCodePage(int number) {
        const SystemConverter converter(number);
        for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            char32_t c = converter.Decode(text);
            // As Windows does it: a byte that a single-byte page leaves open between 0x80 and
            // 0x9F is the control character of that number.
            if (c == 0 && byte < 0xA0 && converter.Valid() && !IsDoubleByte(number)) c = byte;
            Set(text, c, converter);
        }
        if (!IsDoubleByte(number)) return;
        for (unsigned lead = 0x81; lead <= 0xFE; ++lead) {
            if (single_[lead] != 0) continue;
            for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
                const std::string text{static_cast<char>(lead), static_cast<char>(trail)};
                Set(text, converter.Decode(text), converter);
            }
        }
    }

    [[nodiscard]] std::string Decode(std::string_view bytes) const override {
        std::string text;
        text.reserve(bytes.size() + bytes.size() / 4);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const auto byte = static_cast<unsigned char>(bytes[i]);
            if (byte < 0x80) {
                text += bytes[i];
            } else if (single_[byte] != 0) {
                AppendUtf8(text, single_[byte]);
            } else if (const char32_t pair = Pair(bytes, i); pair != 0) {
                AppendUtf8(text, pair);
                ++i;
            } else {
                AppendUtf8(text, kLoneByte + byte);
            }
        }
        return text;
    }

    bool Encode(char32_t c, std::string& bytes) const override {
        const auto found = bytes_.find(c);
        if (found == bytes_.end()) return false;
        bytes += found->second;
        return true;
    }

  private:
    void Set(const std::string& bytes, char32_t c, const SystemConverter& converter) {
        if (c == 0) return;
        const auto lead = static_cast<unsigned char>(bytes[0]);
        if (bytes.size() == 1) {
            single_[lead] = c;
        } else {
            if (pairs_.empty()) pairs_.resize(0x10000);
            pairs_[lead * 256U + static_cast<unsigned char>(bytes[1])] = c;
        }
        const auto [place, is_new] = bytes_.try_emplace(c, bytes);
        if (is_new) return;
        // Some characters stand twice in the East Asian pages; the converter knows the usual one.
        if (converter.Encode(c) == bytes) place->second = bytes;
    }

    [[nodiscard]] char32_t Pair(std::string_view bytes, std::size_t i) const {
        if (pairs_.empty() || i + 1 >= bytes.size()) return 0;
        return pairs_[static_cast<unsigned char>(bytes[i]) * 256U +
                      static_cast<unsigned char>(bytes[i + 1])];
    }

    std::array<char32_t, 256> single_{};
    std::vector<char32_t> pairs_;
    std::unordered_map<char32_t, std::string> bytes_;
};

class Utf8CodePage : public CodePage {
  public:
    [[nodiscard]] std::string Decode(std::string_view bytes) const override {
        std::string text;
        text.reserve(bytes.size());
        for (std::size_t i = 0; i < bytes.size();) {
            std::size_t length = Utf8SequenceLength(bytes, i);
            std::size_t next = i;
            if (length == 0 || IsLoneByte(NextCodePoint(bytes, next))) {
                AppendUtf8(text, kLoneByte + static_cast<unsigned char>(bytes[i]));
                length = 1;
            } else {
                text.append(bytes.substr(i, length));
            }
            i += length;
        }
        return text;
    }

    bool Encode(char32_t c, std::string& bytes) const override {
        AppendUtf8(bytes, c);
        return true;
    }
};

class Latin1CodePage : public CodePage {
  public:
    [[nodiscard]] std::string Decode(std::string_view bytes) const override {
        return Get(kWesternCodePage).Decode(bytes);
    }

    bool Encode(char32_t c, std::string& bytes) const override {
        if (c < 0xA0 || c > 0xFF) return false;
        bytes += static_cast<char>(c);
        return true;
    }
};

struct Language {
    unsigned primary;  // the low ten bits of a Windows language number
    const char* code;  // ISO 639
    int code_page;
};

constexpr Language kLanguages[] = {
    {0x01, "ar", 1256}, {0x02, "bg", 1251}, {0x04, "zh", 936},  {0x05, "cs", 1250},
    {0x08, "el", 1253}, {0x0D, "he", 1255}, {0x0E, "hu", 1250}, {0x11, "ja", 932},
    {0x12, "ko", 949},  {0x15, "pl", 1250}, {0x18, "ro", 1250}, {0x19, "ru", 1251},
    {0x1A, "hr", 1250}, {0x1B, "sk", 1250}, {0x1C, "sq", 1250}, {0x1E, "th", 874},
    {0x1F, "tr", 1254}, {0x20, "ur", 1256}, {0x22, "uk", 1251}, {0x23, "be", 1251},
    {0x24, "sl", 1250}, {0x25, "et", 1257}, {0x26, "lv", 1257}, {0x27, "lt", 1257},
    {0x29, "fa", 1256}, {0x2A, "vi", 1258}, {0x2C, "az", 1254}, {0x2F, "mk", 1251},
    {0x3F, "kk", 1251}, {0x40, "ky", 1251}, {0x43, "uz", 1254}, {0x44, "tt", 1251},
    {0x50, "mn", 1251},
};

int CodePageOfLanguageNumber(unsigned number) {
    switch (number) {
        case 0x404:  // Chinese as written in Taiwan, Hong Kong and Macao
        case 0xC04:
        case 0x1404:
            return 950;
        case 0xC1A:  // Serbian and Bosnian in Cyrillic letters
        case 0x1C1A:
        case 0x201A:
        case 0x82C:  // Azeri and Uzbek in Cyrillic letters
        case 0x843:
            return 1251;
        default:
            break;
    }
    for (const Language& language : kLanguages) {
        if (language.primary == (number & 0x3FF)) return language.code_page;
    }
    return kWesternCodePage;
}

int CodePageOfLocale(std::string_view locale) {
    for (const std::string_view traditional : {"zh_TW", "zh_HK", "zh_MO"}) {
        if (locale.starts_with(traditional)) return 950;
    }
    if (locale.starts_with("sr") && !Contains(locale, "@latin")) return 1251;
    if (locale.starts_with("sr") || locale.starts_with("bs")) return 1250;
    const std::string_view code = locale.substr(0, locale.find_first_of("_.@"));
    for (const Language& language : kLanguages) {
        if (code == language.code) return language.code_page;
    }
    return kWesternCodePage;
}

}  // namespace

const CodePage& CodePage::Get(int number) {
    static std::mutex guard;
    static std::map<int, std::unique_ptr<CodePage>> pages;
    const std::scoped_lock lock(guard);
    std::unique_ptr<CodePage>& page = pages[number];
    if (page == nullptr) {
        if (number == kUtf8CodePage) {
            page = std::make_unique<Utf8CodePage>();
        } else if (number == kLatin1CodePage) {
            page = std::make_unique<Latin1CodePage>();
        } else {
            page = std::make_unique<TableCodePage>(number);
        }
    }
    return *page;
}

int CodePageOfLanguageOption(std::string_view option) {
    option = TrimBlanksAndTabs(option);
    const bool is_hex = option.starts_with("0x") || option.starts_with("0X");
    if (is_hex) option.remove_prefix(2);
    unsigned number = 0;
    const auto result =
        std::from_chars(option.data(), option.data() + option.size(), number, is_hex ? 16 : 10);
    if (result.ec != std::errc{} || number == 0) return 0;
    return CodePageOfLanguageNumber(number);
}

MachineCodePage CodePageOfMachine() {
    if (const char* chosen = std::getenv("QUORREL_ANSI_CODEPAGE"); chosen != nullptr) {
        const std::int64_t number = LeadingNumber(chosen);
        if (number > 0 && number <= 0xFFFF) return {static_cast<int>(number), true};
    }
    if (const int number = SystemCodePage(); number != 0) return {number, true};
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return {CodePageOfLocale(value), false};
    }
    return {};
}

}  // namespace quorrel
