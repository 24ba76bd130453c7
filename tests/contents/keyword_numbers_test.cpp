// Keywords with several targets, and ones that only look like their numbered lines, over a change
// of a topic's properties, a save and another opening.
#include "contents/contents_state.hpp"
#include "editor/load_file.hpp"
#include "project/save_project.hpp"
#include "project/topic_properties.hpp"
#include "support/model_text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

class NumberedKeywords : public ProjectFixture {
  protected:
    void OpenIndex(const std::string& index) {
        std::string map;
        for (const std::string id : {"a", "b", "c"}) {
            folder.Write("p/" + id + ".htm", "<title>" + id + "</title><body>x</body>");
            map += "<mapID target=\"" + id + "\" url=\"" + id + ".htm\"/>\n";
        }
        // As the program writes it: a view for an index with something in it.
        const std::string view =
            "<view><data>gIndex.xml</data><type>javax.help.IndexView</type></view>";
        folder.Write("p/g.hs", "<mapref location=\"g.jhm\"/>" + (index.empty() ? "" : view));
        folder.Write("p/g.jhm", map);
        folder.Write("p/gIndex.xml", index);
        Open("p/g.hs", "");
    }
    /// Opens a topic, runs `change` on its properties and saves.
    void Change(const std::string& file, const std::function<void()>& change) {
        main.editor.new_main_path = folder.Windows("p/" + file);
        LoadFile(main);
        LoadTopicProperties(main);
        change();
        main.editor.TopicPropDirty = true;
        FileSave_Click(main);
        Open("p/g.hs", "");
    }
    [[nodiscard]] std::string Target(const std::string& title, const std::string& file) const {
        return title + ">" + folder.Windows("p/" + file) + ";:";
    }
};

using Lines = std::vector<std::string>;

TEST_F(NumberedKeywords, KeepTheirTargetsAndWhatIsBelowThem) {
    OpenIndex(
        "<indexitem text=\"print\" target=\"a\"/>\n"
        "<indexitem text=\"print (2)\" target=\"b\"/> <!-- QR IMULT -->\n"
        "<indexitem text=\"print (3)\" target=\"c\"> <!-- QR IMULT -->\n"
        "<indexitem text=\"pages\" target=\"a\"/>\n</indexitem>\n"
        "<indexitem text=\"quit\" target=\"a\"/>\n");
    Change("c.htm", [&] {
        EXPECT_EQ(main.window.ListKeys.List(), Lines{"print"});
        main.window.EditTitle.Text = std::string("new c");
    });
    EXPECT_EQ(KeywordRows(main.keywords.ListKeywords),
              (Lines{"print|print|" + Target("a", "a.htm") + Target("b", "b.htm") +
                         Target("new c", "c.htm"),
                     "      pages|print    :pages|" + Target("a", "a.htm"),
                     "quit|quit|" + Target("a", "a.htm")}));
}

TEST_F(NumberedKeywords, AreNotThoseThatAnAuthorTyped) {
    OpenIndex(
        "<indexitem text=\"print\" target=\"a\"/>\n"
        "<indexitem text=\"print (3)\" target=\"a\"/>\n");
    Change("a.htm", [&] {
        EXPECT_EQ(main.window.ListKeys.List(), (Lines{"print", "print (3)"}));
        main.window.EditTitle.Text = std::string("A");
    });
    const std::string target = Target("A", "a.htm");
    EXPECT_EQ(KeywordRows(main.keywords.ListKeywords),
              (Lines{"print|print|" + target, "print (3)|print (3)|" + target}));
    Change("b.htm", [&] { main.window.ListKeys.AddItem("print (3)"); });
    EXPECT_EQ(
        KeywordRows(main.keywords.ListKeywords),
        (Lines{"print|print|" + target, "print (3)|print (3)|" + target + Target("b", "b.htm")}));
    Change("a.htm", [&] { main.window.ListKeys.RemoveItem(1); });
    EXPECT_EQ(KeywordRows(main.keywords.ListKeywords),
              (Lines{"print|print|" + target, "print (3)|print (3)|" + Target("b", "b.htm")}));
}

TEST_F(NumberedKeywords, TypedWithANoteOutliveAnotherChange) {
    OpenIndex("");
    main.editor.new_main_path = folder.Windows("p/a.htm");
    LoadFile(main);
    LoadTopicProperties(main);
    main.window.ListKeys.AddItem("Fonts (overview)");
    SaveTopicProperties(main);
    Change("a.htm", [&] {
        EXPECT_EQ(main.window.ListKeys.List(), Lines{"Fonts (overview)"});
        main.window.EditTitle.Text = std::string("A");
    });
    EXPECT_EQ(KeywordRows(main.keywords.ListKeywords),
              Lines{"Fonts (overview)|Fonts (overview)|" + Target("A", "a.htm")});
}

}  // namespace
}  // namespace quorrel::test
