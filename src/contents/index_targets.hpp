// Where a row of the keyword index leads.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/list_view.hpp"

namespace quorrel {

struct IndexTarget {
    std::string title;
    std::string path;  // perhaps with "#" and a bookmark
};

/// The targets of a row's IDX_TITLEPATH in their order. A group without ">" is no target.
[[nodiscard]] std::vector<IndexTarget> IndexTargets(std::string_view title_path);

/// True for a row that refers to another key instead of topics.
[[nodiscard]] bool IsSeeAlso(const ListRow& row);
/// The row that a see-also row refers to, or null.
[[nodiscard]] ListRow* SeeAlsoRow(const ListView& ListKeywords, const ListRow& row);

}  // namespace quorrel
