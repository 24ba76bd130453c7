// Texts of any content, one behind the other in one text: the form of the program's own records.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorrel {

/// Each field is its length in bytes, ":" and the bytes.
inline void AppendField(std::string& record, std::string_view field) {
    record.append(std::to_string(field.size())).append(":").append(field);
}
inline void AppendField(std::string& record, std::int64_t number) {
    AppendField(record, std::string_view(std::to_string(number)));
}

class FieldReader {
  public:
    /// `record` must outlive the reader and what it gives.
    explicit FieldReader(std::string_view record) : rest_(record) {}

    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
    /// The next field. From the first that is damaged on, and behind the last, all are empty.
    std::string_view Next() {
        std::size_t size = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), size);
        const auto digits = static_cast<std::size_t>(end - rest_.data());
        const bool is_whole = error == std::errc() && digits < rest_.size() &&
                              rest_[digits] == ':' && size <= rest_.size() - digits - 1;
        if (!is_whole) {
            is_damaged_ = true;
            rest_ = {};
            return {};
        }
        const std::string_view field = rest_.substr(digits + 1, size);
        rest_.remove_prefix(digits + 1 + size);
        return field;
    }
    std::int64_t NextNumber() {
        const std::string_view text = Next();
        std::int64_t number = 0;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }
    /// What has not been read yet.
    [[nodiscard]] std::string_view Rest() const { return rest_; }
    /// A field was asked for that is not there whole.
    [[nodiscard]] bool IsDamaged() const { return is_damaged_; }

  private:
    std::string_view rest_;
    bool is_damaged_ = false;
};

}  // namespace quorrel
