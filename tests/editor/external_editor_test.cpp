// Topics that are edited in another program.
#include <tuple>

#include "app/form_settings.hpp"
#include "editor/load_file.hpp"
#include "project/save_project.hpp"
#include "support/recording_services.hpp"

namespace quorrel::test {
namespace {

class ExternalEditor : public RecordingFixture {
  protected:
    ExternalEditor() { OpenGuide(); }

    void Use(bool on) {
        FormSettings form(main);
        form.EditEditorPath.Text = std::string("edit");
        form.CheckExtEditor.Value = on;
        form.OKButton_Click();
        TakeCalls();
    }
    void Load(const std::string& topic) {
        main.editor.new_main_path = folder.Windows("p/" + topic);
        LoadFile(main);
    }
    std::string Started(const std::string& topic) {
        return "shell edit \"" + folder.Windows("p/" + topic) + "\"";
    }
    static constexpr const char* kEdited = "<title>Ay</title><body>edited and not saved yet</body>";
    static constexpr const char* kB = "<title>Bee</title><body>text b</body>\r\n";
};

TEST_F(ExternalEditor, GetsATopicAndLeavesNothingToBeSavedForIt) {
    surface.SetDocumentHTML(kEdited);
    Use(true);
    Load("b.htm");
    EXPECT_EQ(TakeCalls(), Calls{Started("b.htm")});
    EXPECT_EQ(surface.CurrentDocumentPath(), "");
    EXPECT_EQ(main.topics.ListTopics.At(main.topics.current_topic_index).Text(), "Bee");
    main.window.EditAlias.Text = std::string("IDH_B");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), kEdited);
    EXPECT_EQ(folder.Read("p/b.htm"), kB);
    EXPECT_EQ(main.topics.ListTopics.At(main.topics.current_topic_index).SubItems(1), "IDH_B");

    Use(false);
    EXPECT_EQ(surface.DocumentHTML(), kB) << "what was open there is shown here";
}

TEST_F(ExternalEditor, IsOfferedTheChangesThatAreNotSaved) {
    const std::string question = folder.Native("p/a.htm") +
                                 " has changes that are not saved yet. Your editor would show the "
                                 "file without them.\r\n\r\nDo you want to save them first?";
    for (const auto& [answer, is_saved] :
         {std::pair{MessageAnswer::kNo, false}, {MessageAnswer::kYes, true}}) {
        surface.SetDocumentHTML(kEdited);
        Use(true);
        screen.ExpectMessage(question, answer);
        Load("a.htm");
        EXPECT_EQ(TakeCalls(), Calls{Started("a.htm")});
        EXPECT_EQ(folder.Read("p/a.htm") == kEdited, is_saved);
        Use(false);
        EXPECT_EQ(surface.DocumentHTML(), kEdited) << "kept in either case";
    }
    // Nothing was edited, so nothing is asked, and a version of the other program stays.
    Load("b.htm");
    Use(true);
    Load("b.htm");
    folder.Write("p/b.htm", "<title>Bee</title><body>by another program</body>");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/b.htm"), "<title>Bee</title><body>by another program</body>");
}

TEST_F(ExternalEditor, WaitsWhileTheOpenTopicCannotBePutAway) {
    surface.SetDocumentHTML(kEdited);
    folder.Write("p/a.htm.tmp.htm/x", "");
    Use(true);
    screen.ExpectMessage("Error occurred while saving document: Access denied.");
    Load("b.htm");
    EXPECT_EQ(TakeCalls(), Calls{});
    EXPECT_EQ(main.editor.main_path, folder.Windows("p/a.htm"));
    EXPECT_EQ(surface.DocumentHTML(), kEdited);
}

}  // namespace
}  // namespace quorrel::test
