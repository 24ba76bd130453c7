// Whether a text stands somewhere within a growing one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorrel {

/// A search that does not look the whole text through. It knows at which places of the text each
/// stretch of a few bytes stands, by a hash of the stretch. A key can only be where its rarest
/// stretch is, and of keys that all have their stretches in common with many others there cannot
/// be many. Takes about twelve bytes of memory for a byte of the text and length of stretches,
/// and goes up to 4 GB of text.
class GrowingTextIndex {
  public:
    /// `text` is that of the call before, with more behind it or not. An empty key stands nowhere.
    [[nodiscard]] bool Contains(std::string_view text, std::string_view key);

  private:
    /// The places of all stretches of one length.
    class Stretches {
      public:
        /// Takes in the stretches of `text` behind those taken before.
        void Extend(std::string_view text, std::size_t length);
        [[nodiscard]] bool Find(std::string_view text, std::string_view key,
                                std::size_t length) const;

      private:
        /// The stretches with the same low bits of their hash.
        struct Bucket {
            std::uint32_t newest = 0;  // place + 1; 0 is none
            std::uint32_t count = 0;
        };

        [[nodiscard]] std::size_t BucketOf(const char* stretch, std::size_t length) const;
        void Take(std::string_view text, std::size_t length);

        std::vector<Bucket> buckets_;        // a power of two of them
        std::vector<std::uint32_t> before_;  // by place: the one before in its bucket, as `newest`
    };

    // A key longer than twice the longest stretch is still found by its rarest one.
    static constexpr std::size_t kLengths = 5;  // 1, 2, 4, 8, 16 bytes
    std::array<Stretches, kLengths> stretches_;
};

}  // namespace quorrel
