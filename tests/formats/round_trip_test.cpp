// Contents and index of both families: what is written reads back the same, where the format has a
// place for it.
#include <gtest/gtest.h>

#include <random>

#include "contents/contents_state.hpp"
#include "contents/node_data.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "formats/htmlhelp/hhk.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "platform/encoding.hpp"
#include "support/model_text.hpp"

namespace quorrel {
namespace {

/// A model by chance, of what both ways of writing keep.
struct Model {
    TopicTables tables;
    TreeView tree;
    KeywordState keywords;
};

constexpr std::string_view kProj = "C:\\p\\guide.hs";

class RoundTrip : public testing::TestWithParam<bool> {
  protected:
    [[nodiscard]] static bool IsJava() { return GetParam(); }
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    std::string Word() {
        // A letter of ISO-8859-1, letters beyond, a control character whose byte is a dash in
        // its Windows relative, and that dash. Two such dashes behind the letter are valid UTF-8,
        // as which a file without a declaration is read.
        static const std::vector<std::string> kPieces{
            "a",        "B",           " c", "&",  "'",        ";",        ",",
            "=",        "/",           "\\", "&l", "\xC3\xA9", "\xD0\x96", "\xF0\x9F\x98\x80",
            "\xC2\x96", "\xE2\x80\x93"};
        const int choices = static_cast<int>(kPieces.size()) - (IsJava() ? 0 : 1);
        std::string word = "w";
        for (int n = Below(6); n > 0; --n)
            word += kPieces[static_cast<std::size_t>(Below(choices))];
        return word;
    }

    void FillTables(TopicTables& tables) {
        for (int i = 0; i < 5; ++i) {
            const std::string number = std::to_string(i);
            ListRow& topic = tables.ListTopics.Add("Topic " + number);
            topic.SetSubItem(topic_cell::kMapId, "id" + number);
            topic.SetSubItem(topic_cell::kFullPath, "C:\\p\\" + number + ".htm");
            tables.ListAliases.Add("mark" + number)
                .SetSubItem(alias_cell::kPath, "C:\\p\\" + number + ".htm#m");
        }
    }

    void FillTree(TreeView& tree) {
        TreeNode* parent = nullptr;
        for (int n = Below(12); n > 0; --n) {
            // Below the node before or one of those above it, as a file has them in order.
            while (parent != nullptr && Below(2) == 0) parent = parent->Parent();
            TreeNode& node = tree.Add(parent, NodeRelation::kChild, Word(), 3, 3);
            if (parent != nullptr) parent->Image = parent->SelectedImage = 2;
            parent = &node;
            const std::string number = std::to_string(Below(5));
            if (!IsJava()) {
                const std::string frame = Below(2) == 0 ? "" : "frame";
                node.Tag = PackNodeData("C:\\p\\" + number + ".htm", "id" + number,
                                        std::to_string(Below(9)) + "," + frame + ",w,1,");
            } else if (Below(4) == 0) {
                node.Tag = PackNodeData("", "", "icon");
            } else {
                node.Tag = PackNodeData("C:\\p\\" + number + ".htm", "id" + number,
                                        Below(2) == 0 ? "icon" : "");
            }
        }
    }

    std::string Targets(int count) {
        std::string targets;
        for (; count > 0; --count) {
            const std::string number = std::to_string(Below(5));
            targets += Below(2) == 0 ? "Topic " + number + ">C:\\p\\" + number + ".htm;:"
                                     : "mark" + number + ">C:\\p\\" + number + ".htm#m;:";
        }
        return targets;
    }

    void AddRow(ListView& table, const std::string& main_key, const std::string& sub_key,
                const std::string& targets) {
        const bool is_sub = !sub_key.empty();
        ListRow& row = table.Add(is_sub ? "      " + sub_key : main_key);
        row.SetSubItem(keyword_cell::IDX_TITLEPATH, targets);
        row.SetSubItem(keyword_cell::IDX_FULLKEY,
                       is_sub ? main_key + kSubKeyMark + sub_key : main_key);
    }

    void FillKeywords(ListView& table) {
        for (int i = Below(8); i > 0; --i) {
            // A number makes it the only one. JavaHelp undoes the escapes of the index.
            const std::string key = Word() + (IsJava() ? "<\">" : "") + std::to_string(i);
            const int sub_keys = Below(3);
            // JavaHelp: of several targets of a main key the last gives its numbered text to the
            // sub-keys. HTML Help: one without any leads to itself.
            AddRow(table, key, "", Targets(IsJava() && sub_keys > 0 ? Below(2) : 1 + Below(3)));
            for (int sub = sub_keys; sub > 0; --sub) {
                AddRow(table, key, Word() + std::to_string(sub), Targets(1 + Below(3)));
            }
        }
        // JavaHelp: a keyword of the first level comes last. HTML Help has no such need.
        AddRow(table, "\xD1\x8F", "", Targets(1));
    }

    [[nodiscard]] std::string WriteContentsFile(const Model& model) const {
        if (!IsJava()) return EncodeProjectText(WriteContents(model.tree, "", kProj), {});
        return EncodeProjectText(WriteTocXml(model.tree), kLatin1);
    }
    [[nodiscard]] std::string WriteIndexFile(const Model& model) const {
        if (!IsJava()) return EncodeProjectText(WriteKeywords(model.keywords, kProj), {});
        return EncodeProjectText(WriteIndexXml(model.keywords.ListKeywords, model.tables), kLatin1);
    }
    void Read(const std::string& contents, const std::string& index, Model& model) {
        const Trap trap(log_, "test: ");
        std::string properties;
        TopicTables& tables = model.tables;
        if (IsJava()) {
            ReadTocXml(DecodeXmlText(contents, 1251).text, tables, model.tree, trap);
            ReadIndexXml(DecodeXmlText(index, 1251).text, model.keywords, tables, trap);
            return;
        }
        ReadContents(DecodeProjectText(contents, kWesternCodePage).text,
                     {kProj, false, tables.ListTopics, tables.ListAliases, trap}, model.tree,
                     properties);
        ReadKeywords(DecodeProjectText(index, kWesternCodePage).text, "C:\\p", model.keywords,
                     tables.ListTopics, trap);
    }

    /// Everything that is to come back.
    static std::string Dump(const Model& model) {
        std::string dump;
        for (int i = 1; i <= model.tree.Count(); ++i) {
            const TreeNode& node = model.tree.At(i);
            dump += node.FullPath() + " " + std::to_string(node.Image) + " " + node.Tag + "\n";
        }
        for (const std::string& row : test::KeywordRows(model.keywords.ListKeywords)) {
            dump += row + "\n";
        }
        return dump;
    }

    static constexpr TextEncoding kLatin1{TextEncoding::Form::kAnsi, kLatin1CodePage};
    std::mt19937 random_{23};
    std::vector<std::string> log_lines_;
    ErrorLog log_{[this](std::string_view line) { log_lines_.emplace_back(line); }};
};

TEST_P(RoundTrip, KeepsContentsAndIndex) {
    int nodes = 0;
    for (int round = 0; round < 400; ++round) {
        Model model;
        FillTables(model.tables);
        FillTree(model.tree);
        FillKeywords(model.keywords.ListKeywords);
        const std::string contents = WriteContentsFile(model);
        const std::string index = WriteIndexFile(model);
        Model read;
        FillTables(read.tables);
        Read(contents, index, read);
        ASSERT_EQ(Dump(read), Dump(model)) << "round " << round << "\n" << contents << index;
        ASSERT_EQ(WriteContentsFile(read), contents);
        ASSERT_EQ(WriteIndexFile(read), index);
        nodes += model.tree.Count();
    }
    EXPECT_GT(nodes, 1000);
    EXPECT_EQ(log_lines_, std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(Families, RoundTrip, testing::Bool(),
                         [](const auto& family) { return family.param ? "JavaHelp" : "HtmlHelp"; });

}  // namespace
}  // namespace quorrel
