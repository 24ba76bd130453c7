#include "platform/growing_text_index.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quorrel {
namespace {

constexpr std::size_t kFewestBuckets = 1024;
constexpr std::size_t kLargestLoad = 4;  // stretches for each bucket

std::uint64_t Mixed(std::uint64_t word) {
    word ^= word >> 29;
    word *= 0xBF58476D1CE4E5B9ULL;
    return word ^ (word >> 32);
}

}  // namespace

std::size_t GrowingTextIndex::Stretches::BucketOf(const char* stretch, std::size_t length) const {
    std::uint64_t hash = 0;
    for (std::size_t at = 0; at < length; at += sizeof hash) {
        std::uint64_t word = 0;
        std::memcpy(&word, stretch + at, std::min(length - at, sizeof word));
        hash = Mixed(hash ^ word);
    }
    return static_cast<std::size_t>(hash) & (buckets_.size() - 1);
}

void GrowingTextIndex::Stretches::Take(std::string_view text, std::size_t length) {
    for (std::size_t at = before_.size(); at + length <= text.size(); ++at) {
        Bucket& bucket = buckets_[BucketOf(text.data() + at, length)];
        before_.push_back(bucket.newest);
        bucket.newest = static_cast<std::uint32_t>(at) + 1;
        ++bucket.count;
    }
}

void GrowingTextIndex::Stretches::Extend(std::string_view text, std::size_t length) {
    if (buckets_.empty() || text.size() > buckets_.size() * kLargestLoad) {
        buckets_.assign(std::max(kFewestBuckets, std::bit_ceil(text.size()) / 2), {});
        before_.clear();
    }
    Take(text, length);
}

bool GrowingTextIndex::Stretches::Find(std::string_view text, std::string_view key,
                                       std::size_t length) const {
    const Bucket* rarest = nullptr;
    std::size_t offset = 0;  // of the rarest stretch in the key
    for (std::size_t at = 0; at + length <= key.size(); ++at) {
        const Bucket& bucket = buckets_[BucketOf(key.data() + at, length)];
        if (rarest != nullptr && bucket.count >= rarest->count) continue;
        rarest = &bucket;
        offset = at;
        if (bucket.count == 0) return false;
    }
    for (std::uint32_t next = rarest->newest; next != 0; next = before_[next - 1]) {
        const std::size_t place = next - 1;
        if (place >= offset && text.substr(place - offset, key.size()) == key) return true;
    }
    return false;
}

bool GrowingTextIndex::Contains(std::string_view text, std::string_view key) {
    if (key.empty()) return false;
    const auto number = static_cast<std::size_t>(std::bit_width(key.size())) - 1;
    const std::size_t of = std::min(number, kLengths - 1);
    const std::size_t length = std::size_t{1} << of;
    stretches_[of].Extend(text, length);
    return stretches_[of].Find(text, key, length);
}

}  // namespace quorrel
