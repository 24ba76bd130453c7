// A main form with a small tree of contents, shown in rows of 240 twips.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/startup.hpp"
#include "contents/node_data.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {

class ContentsFixture : public ProjectFixture {
  protected:
    void Start(std::string_view edition, std::string_view shape) {
        LoadSettings(main, edition);
        main.project.proj = "C:\\p\\g.hhp";
        main.project.proj_path = "C:\\p";
        main.project.help_mode = main.settings.is_javahelp_edition ? 1 : 0;
        Fill(nullptr, shape);
        main.contents.Tree1.hit_test = [this](double x, double y) { return NodeAt(x, y); };
    }

    /// Captions of one letter, children in parentheses: "a(bc)d".
    [[nodiscard]] std::string Shape() const { return Shape(main.contents.Tree1.Roots()); }
    [[nodiscard]] TreeNode& Node(std::string_view caption) const {
        const TreeView& tree = main.contents.Tree1;
        int i = 1;
        while (tree.At(i).Text != caption) ++i;
        return tree.At(i);
    }
    TreeNode& Select(std::string_view caption) {
        TreeNode& node = Node(caption);
        main.contents.Tree1.Select(&node);
        return node;
    }
    /// The upper edge of the node's row; the caption begins at 300 for each level.
    [[nodiscard]] double Top(std::string_view caption) const {
        double top = 0;
        for (const TreeNode* node : Rows()) {
            if (node->Text == caption) break;
            top += kRow;
        }
        return top;
    }
    [[nodiscard]] bool IsDirty() const {
        return main.project.project_dirty && main.contents.toc_dirty;
    }

    static constexpr double kRow = 240;
    static constexpr double kCaption = 600;

  private:
    std::size_t Fill(TreeNode* parent, std::string_view shape) {
        TreeView& tree = main.contents.Tree1;
        TreeNode* last = nullptr;
        std::size_t i = 0;
        for (; i < shape.size() && shape[i] != ')'; ++i) {
            if (shape[i] == '(') {
                last->Image = last->SelectedImage = node_image::kClosedBook;
                i += 1 + Fill(last, shape.substr(i + 1));
                continue;
            }
            last = &tree.Add(parent, NodeRelation::kChild, std::string(1, shape[i]),
                             node_image::kPage, node_image::kPage);
            last->Tag = PackNodeData("C:\\p\\" + last->Text + ".htm", "", "");
        }
        return i;
    }
    static std::string Shape(const std::vector<TreeNode*>& nodes) {
        std::string shape;
        for (const TreeNode* node : nodes) {
            shape += node->Text;
            if (node->Children() == 0) continue;
            std::vector<TreeNode*> children;
            for (int i = 0; i < node->Children(); ++i) children.push_back(node->ChildAt(i));
            shape += "(" + Shape(children) + ")";
        }
        return shape;
    }
    [[nodiscard]] std::vector<TreeNode*> Rows() const {
        std::vector<TreeNode*> rows;
        for (TreeNode* root : main.contents.Tree1.Roots()) AddRows(*root, rows);
        return rows;
    }
    static void AddRows(TreeNode& node, std::vector<TreeNode*>& rows) {
        rows.push_back(&node);
        for (int i = 0; i < node.Children(); ++i) AddRows(*node.ChildAt(i), rows);
    }
    TreeNode* NodeAt(double x, double y) const {
        const std::vector<TreeNode*> rows = Rows();
        if (y < 0 || y >= kRow * static_cast<double>(rows.size())) return nullptr;
        TreeNode* node = rows[static_cast<std::size_t>(y / kRow)];
        double left = 0;
        for (const TreeNode* above = node->Parent(); above; above = above->Parent()) left += 300;
        return x >= left && x < left + kCaption ? node : nullptr;
    }
};

}  // namespace quorrel::test
