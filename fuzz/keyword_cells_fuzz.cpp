// The keyword cells against a plain search. Input: how many keys are there before, then a key a
// line; a key whose first byte is odd goes to the first of two topics.
#include "fuzz_support.hpp"
#include "platform/text.hpp"
#include "project/keyword_cell.hpp"

using namespace quorrel;

namespace {

/// Both ways side by side.
class Cells {
  public:
    void Append(bool first, std::string_view key) {
        ListRow& row = first ? first_ : second_;
        std::string& cell = first ? plain_first_ : plain_second_;
        cells_.Append(row, key);
        if (!Contains(cell, key)) cell.append(key).append(";");
    }
    void Compare() const {
        fuzz::Check(first_.SubItems(topic_cell::kKeywords) == plain_first_, "the same keys");
        fuzz::Check(second_.SubItems(topic_cell::kKeywords) == plain_second_, "the same keys");
    }

  private:
    TopicTables tables_;
    ListRow& first_ = tables_.ListTopics.Add("first");
    ListRow& second_ = tables_.ListTopics.Add("second");
    fuzz::QuietTrap trap_;
    TextBudget budget_{trap_};
    KeywordCells cells_{budget_};
    std::string plain_first_, plain_second_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    Cells cells;
    // A cell is searched in another way when it is long.
    const unsigned before = input.Choice(40) * 8;
    for (unsigned i = 0; i < before; ++i) {
        cells.Append(true, "keyword " + std::to_string(i * 7919));
    }
    constexpr int kKeys = 2000;
    for (int i = 0; i < kKeys && !input.AtEnd(); ++i) {
        const std::string_view key = input.Line();
        cells.Append(!key.empty() && (key[0] & 1) != 0, key);
    }
    cells.Compare();
    return 0;
}
