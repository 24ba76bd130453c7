#include "platform/controls/cell_index.hpp"

#include <algorithm>
#include <utility>

#include "platform/controls/list_view.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

constexpr std::size_t kFewestSlots = 16;

std::uint32_t HashOf(std::string_view key) {
    const std::uint64_t hash = HashIgnoringCase(key);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

}  // namespace

const ListRow& CellIndex::AnyRowOf(const Slot& slot) const {
    const Group& group = groups_[slot.group];
    return group.only != nullptr ? *group.only : *group.several->rows.front();
}

std::size_t CellIndex::Place(std::string_view key, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = hash & mask;
    while (slots_[place].group != kFree) {
        const Slot& slot = slots_[place];
        if (slot.hash == hash && EqualsIgnoringCase(AnyRowOf(slot).Cell(column_), key)) break;
        place = (place + 1) & mask;
    }
    return place;
}

void CellIndex::Reserve(std::size_t rows) {
    std::size_t slots = kFewestSlots;
    while (slots * 2 < rows * 3) slots *= 2;
    if (slots > slots_.size()) Resize(slots);
}

void CellIndex::Resize(std::size_t slots) {
    std::vector<Slot> old(slots);
    old.swap(slots_);
    for (const Slot& slot : old) {
        if (slot.group == kFree) continue;
        std::size_t place = slot.hash & (slots - 1);
        while (slots_[place].group != kFree) place = (place + 1) & (slots - 1);
        slots_[place] = slot;
    }
}

void CellIndex::Add(ListRow& row) {
    const std::string_view key = row.Cell(column_);
    if (key.empty()) return;
    Reserve(groups_.size() - unused_groups_.size() + 1);
    const std::uint32_t hash = HashOf(key);
    Slot& slot = slots_[Place(key, hash)];
    if (slot.group == kFree) {
        slot.hash = hash;
        if (unused_groups_.empty()) {
            slot.group = static_cast<std::uint32_t>(groups_.size());
            groups_.emplace_back();
        } else {
            slot.group = unused_groups_.back();
            unused_groups_.pop_back();
        }
        groups_[slot.group].only = &row;
        return;
    }
    Group& group = groups_[slot.group];
    if (group.several == nullptr) {
        group.several = std::make_unique<Several>();
        group.several->rows.push_back(std::exchange(group.only, nullptr));
    }
    group.several->rows.push_back(&row);
    group.several->order_version = 0;
}

void CellIndex::Remove(const ListRow& row) {
    const std::string_view key = row.Cell(column_);
    if (key.empty() || slots_.empty()) return;
    const std::size_t place = Place(key, HashOf(key));
    if (slots_[place].group == kFree) return;
    Group& group = groups_[slots_[place].group];
    if (group.several != nullptr) {
        Several& several = *group.several;
        several.rows.erase(std::remove(several.rows.begin(), several.rows.end(), &row),
                           several.rows.end());
        several.order_version = 0;
        if (!several.rows.empty()) return;
    }
    Free(place);
}

/// Frees a slot and moves up those behind it that could not have their own place.
void CellIndex::Free(std::size_t place) {
    const std::size_t mask = slots_.size() - 1;
    groups_[slots_[place].group] = Group{};
    unused_groups_.push_back(slots_[place].group);
    slots_[place] = Slot{};
    for (std::size_t next = (place + 1) & mask; slots_[next].group != kFree;
         next = (next + 1) & mask) {
        const std::size_t wanted = slots_[next].hash & mask;
        if (((next - wanted) & mask) < ((next - place) & mask)) continue;
        slots_[place] = std::exchange(slots_[next], Slot{});
        place = next;
    }
}

const CellIndex::Group* CellIndex::Find(std::string_view key) const {
    if (slots_.empty()) return nullptr;
    const Slot& slot = slots_[Place(key, HashOf(key))];
    return slot.group == kFree ? nullptr : &groups_[slot.group];
}

}  // namespace quorrel
