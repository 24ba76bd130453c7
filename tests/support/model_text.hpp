// Parts of the model as text, for comparisons.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/list_view.hpp"
#include "platform/controls/tree_view.hpp"

namespace quorrel::test {

/// The rows of a keyword table, "text|full key|targets" each.
inline std::vector<std::string> KeywordRows(const ListView& table) {
    std::vector<std::string> rows;
    for (int i = 1; i <= table.Count(); ++i) {
        const ListRow& row = table.At(i);
        rows.push_back(row.Text() + "|" + row.SubItems(2) + "|" + row.SubItems(1));
    }
    return rows;
}

/// "caption image{tag}" of each node, children in brackets.
inline std::string TreeText(const std::vector<TreeNode*>& nodes) {
    std::string text;
    for (const TreeNode* node : nodes) {
        if (!text.empty()) text += " ";
        text += node->Text + std::to_string(node->Image) + "{" + node->Tag + "}";
        std::vector<TreeNode*> children;
        for (int row = 0; row < node->Children(); ++row) children.push_back(node->ChildAt(row));
        if (!children.empty()) text += "(" + TreeText(children) + ")";
    }
    return text;
}

}  // namespace quorrel::test
