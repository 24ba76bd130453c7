// Measures that several views share.
#pragma once

#include <cstddef>

namespace quorrel {

/// The unit of the control models' widths.
constexpr int PixelsOfTwips(int twips) {
    return twips / 15;
}
constexpr int TwipsOfPixels(int pixels) {
    return pixels * 15;
}

/// A longer text is cut where it is shown: a damaged file can make one of megabytes, and the
/// toolkit lays out all of it.
inline constexpr std::size_t kShownCharacters = 1000;

}  // namespace quorrel
