// A text taken line by line, as the readers of the project files do.
#pragma once

#include <cstddef>
#include <string_view>

namespace quorrel {

/// Lines end with CR LF, LF or CR. A line end at the very end of the text opens no further line.
class TextLines {
  public:
    /// The views that ReadLine gives point into `text`, which must outlive them.
    explicit TextLines(std::string_view text) : text_(text) {}

    [[nodiscard]] bool AtEnd() const { return position_ >= text_.size(); }
    /// The next line without its line end. Raises 62 at the end.
    std::string_view ReadLine();
    /// The byte offset of the next line.
    [[nodiscard]] std::size_t Position() const { return position_; }

  private:
    std::string_view text_;
    std::size_t position_ = 0;
    // The next line feed from position_ on, kept because a text may have only carriage returns.
    std::size_t next_feed_ = 0;
    bool feed_known_ = false;
};

}  // namespace quorrel
