// The system's own knowledge of code pages.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quorrel {

/// Converts one character of a code page, given by its Windows number.
class SystemConverter {
  public:
    explicit SystemConverter(int number);
    SystemConverter(const SystemConverter&) = delete;
    SystemConverter& operator=(const SystemConverter&) = delete;
    ~SystemConverter();

    /// False where the system does not know the page; then nothing is converted.
    [[nodiscard]] bool Valid() const;
    /// The character that `bytes` are, or 0 where they are not exactly one.
    [[nodiscard]] char32_t Decode(std::string_view bytes) const;
    /// The bytes of `c`, or none where the page lacks it.
    [[nodiscard]] std::string Encode(char32_t c) const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// The code page of the system's 8-bit calls, or 0 where there is no such thing.
[[nodiscard]] int SystemCodePage();

}  // namespace quorrel
