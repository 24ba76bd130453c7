#include "platform/system_code_page.hpp"

#include <iconv.h>

#include <array>

namespace quorrel {
namespace {

std::string ConverterName(int number) {
    switch (number) {
        case 20866:
            return "KOI8-R";
        case 21866:
            return "KOI8-U";
        case 51932:
            return "EUC-JP";
        default:
            break;
    }
    if (number > 28590 && number < 28606) return "ISO-8859-" + std::to_string(number - 28590);
    return "CP" + std::to_string(number);
}

/// One direction of the system's converter.
class Iconv {
  public:
    Iconv(const std::string& to, const std::string& from)
        : handle_(iconv_open(to.c_str(), from.c_str())) {}
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;
    ~Iconv() {
        if (Valid()) iconv_close(handle_);
    }
    [[nodiscard]] bool Valid() const {
        return handle_ != reinterpret_cast<iconv_t>(-1);  // NOLINT: the library's own mark
    }

    /// The whole of `bytes` converted, or an empty string.
    [[nodiscard]] std::string Convert(std::string_view bytes) const {
        if (!Valid()) return {};
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        std::array<char, 16> out{};
        std::string in(bytes);
        char* source = in.data();
        std::size_t left = in.size();
        char* target = out.data();
        std::size_t room = out.size();
        if (iconv(handle_, &source, &left, &target, &room) != 0 || left != 0) return {};
        // Some pages hold a letter back, for an accent that could follow.
        if (iconv(handle_, nullptr, nullptr, &target, &room) != 0) return {};
        return {out.data(), out.size() - room};
    }

  private:
    iconv_t handle_;
};

}  // namespace

struct SystemConverter::State {
    explicit State(const std::string& name)
        : to_unicode("UTF-32LE", name), from_unicode(name, "UTF-32LE") {}
    Iconv to_unicode;
    Iconv from_unicode;
};

SystemConverter::SystemConverter(int number)
    : state_(std::make_unique<State>(ConverterName(number))) {}

SystemConverter::~SystemConverter() = default;

bool SystemConverter::Valid() const {
    return state_->to_unicode.Valid();
}

char32_t SystemConverter::Decode(std::string_view bytes) const {
    const std::string utf32 = state_->to_unicode.Convert(bytes);
    if (utf32.size() != 4) return 0;
    char32_t c = 0;
    for (std::size_t i = 4; i-- > 0;) c = c << 8 | static_cast<unsigned char>(utf32[i]);
    return c;
}

std::string SystemConverter::Encode(char32_t c) const {
    std::string utf32;
    for (int shift = 0; shift < 32; shift += 8) utf32 += static_cast<char>(c >> shift & 0xFF);
    return state_->from_unicode.Convert(utf32);
}

int SystemCodePage() {
    return 0;
}

}  // namespace quorrel
