#include "platform/system_code_page.hpp"

#include <array>

#include "platform/windows_api.hpp"

namespace quorrel {
namespace {

/// The system's number for EUC-JP is not the one that documents go by.
UINT SystemNumber(int number) {
    return number == 51932 ? 20932U : static_cast<UINT>(number);
}

}  // namespace

struct SystemConverter::State {
    UINT number;
};

SystemConverter::SystemConverter(int number)
    : state_(std::make_unique<State>(State{SystemNumber(number)})) {}

SystemConverter::~SystemConverter() = default;

bool SystemConverter::Valid() const {
    return IsValidCodePage(state_->number) != 0;
}

char32_t SystemConverter::Decode(std::string_view bytes) const {
    std::array<wchar_t, 4> units{};
    const int count = MultiByteToWideChar(state_->number, MB_ERR_INVALID_CHARS, bytes.data(),
                                          static_cast<int>(bytes.size()), units.data(),
                                          static_cast<int>(units.size()));
    if (count == 1) {
        // The system has private characters for bytes that a page leaves open.
        const bool is_private = units[0] >= 0xE000 && units[0] <= 0xF8FF;
        return is_private ? 0 : static_cast<char32_t>(units[0]);
    }
    const bool is_pair = count == 2 && units[0] >= 0xD800 && units[0] < 0xDC00;
    if (!is_pair) return 0;
    return 0x10000 + ((units[0] & 0x3FFU) << 10) + (units[1] & 0x3FFU);
}

std::string SystemConverter::Encode(char32_t c) const {
    if (c > 0xFFFF) return {};
    const auto unit = static_cast<wchar_t>(c);
    std::array<char, 8> bytes{};
    BOOL has_failed = FALSE;
    const int count =
        WideCharToMultiByte(state_->number, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, &has_failed);
    if (count <= 0 || has_failed != 0) return {};
    return {bytes.data(), static_cast<std::size_t>(count)};
}

int SystemCodePage() {
    return static_cast<int>(GetACP());
}

}  // namespace quorrel
