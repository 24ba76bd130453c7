#include "platform/text_lines.hpp"

#include <algorithm>

#include "platform/failure.hpp"

namespace quorrel {

std::string_view TextLines::ReadLine() {
    if (AtEnd()) throw RuntimeError(run_time_error::kInputPastEnd);
    if (!feed_known_ || next_feed_ < position_) {
        next_feed_ = std::min(text_.find('\n', position_), text_.size());
        feed_known_ = true;
    }
    const std::string_view up_to_feed = text_.substr(position_, next_feed_ - position_);
    const std::size_t turn = up_to_feed.find('\r');
    if (turn == std::string_view::npos) {
        position_ = next_feed_ + 1;
        return up_to_feed;
    }
    const bool before_feed = turn + 1 == up_to_feed.size() && next_feed_ < text_.size();
    position_ += turn + (before_feed ? 2 : 1);
    return up_to_feed.substr(0, turn);
}

}  // namespace quorrel
