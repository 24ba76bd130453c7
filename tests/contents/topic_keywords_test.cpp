// The keywords of a topic, what they do to the index, and references between keywords.
#include "contents/topic_keywords.hpp"

#include "app/startup.hpp"
#include "contents/contents_drag.hpp"
#include "contents/index_targets.hpp"
#include "contents/keyword_store.hpp"
#include "contents/see_also.hpp"
#include "platform/text.hpp"
#include "project/topic_properties.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

class TopicKeywords : public ProjectFixture {
  protected:
    using Lines = std::vector<std::string>;

    void SetUp() override {
        folder.Write("g.hhp",
                     "[OPTIONS]\nTitle=G\n[FILES]\na.htm\n;Title=Ay\nb.htm\n;Title=Bee\n\n");
        folder.Write("a.htm", "<title>Ay</title><body>a</body>");
        folder.Write("b.htm", "<title>Bee</title><body>b</body>");
        Open("g.hhp");
        main.editor.new_main_path = folder.Windows("a.htm");
        main.contents.Tree1.Clear();
        main.topics.ListTopics.Select(&main.topics.ListTopics.At(1));
        main.editor.main_path = folder.Windows("a.htm");
        main.window.TabStrip2.SelectedIndex = right_tab::kProperties;
    }
    void Type(const char* key, const char* sub = "") {
        main.window.EditKeyword.Text = std::string(key);
        main.window.EditSubKey.Text = std::string(sub);
        Command1_Click(main);
    }
    [[nodiscard]] std::string Selected() const { return main.window.ListKeys.Text(); }
    ListRow& SelectKey(std::string_view full_key) {
        ListView& table = main.keywords.ListKeywords;
        ListRow* row = table.FirstWithExactly(keyword_cell::IDX_FULLKEY, full_key);
        EXPECT_NE(row, nullptr) << full_key;
        table.Select(row);
        return *row;
    }
    [[nodiscard]] Lines FullKeys() const {
        Lines keys;
        const ListView& table = main.keywords.ListKeywords;
        for (int i = 1; i <= table.Count(); ++i) keys.push_back(table.At(i).SubItems(2));
        return keys;
    }
};

TEST_F(TopicKeywords, KeysAreTypedEditedAndDeleted) {
    WindowControls& window = main.window;
    int focused = 0;
    window.EditKeyword.focus_wanted.Connect([&] { ++focused; });
    Type("zoo");
    Type(" Apple ", " red ");
    EXPECT_EQ(window.ListKeys.List(), (Lines{"Apple:red", "zoo"}));
    EXPECT_EQ(Selected(), "Apple:red");
    EXPECT_EQ(window.EditKeyword.Text() + window.EditSubKey.Text(), "");
    EXPECT_EQ(focused, 2);
    screen.ExpectMessage("You must enter a main keyword");
    Type("  ", "sub");
    EXPECT_EQ(window.EditSubKey.Text(), "sub") << "the fields keep their text";
    main.editor.TopicPropDirty = false;
    Type("zoo");
    EXPECT_EQ(Selected(), "zoo");
    EXPECT_TRUE(main.editor.TopicPropDirty) << "also for a key that is there";

    ListKeys_DblClick(main);
    Type("Apple", "red");
    EXPECT_EQ(window.ListKeys.List(), (Lines{"Apple:red", "zoo"})) << "the old line stays";
    CommandEdit_Click(main);
    EXPECT_EQ(window.EditKeyword.Text() + "|" + window.EditSubKey.Text(), "Apple|red");
    Type("mango");
    EXPECT_EQ(window.ListKeys.List(), (Lines{"mango", "zoo"}));

    Type("zz");
    CommandDelete_Click(main);
    EXPECT_EQ(Selected(), "zoo") << "the last line takes over";
    window.ListKeys.ListIndex = 0;
    CommandDelete_Click(main);
    CommandDelete_Click(main);
    EXPECT_FALSE(window.CommandEdit.Enabled() || window.CommandDelete.Enabled());
}

TEST_F(TopicKeywords, WhatIsSavedIsInTheIndex) {
    Type("A", "b");
    Type("c");
    main.window.TabStrip2.SelectedIndex = right_tab::kNormal;
    EXPECT_EQ(FullKeys(), (Lines{"A", "A    :b", "c"}));
    EXPECT_EQ(main.topics.ListTopics.At(1).SubItems(topic_cell::kKeywords), "A    :b;c;");
    main.window.TabStrip2.SelectedIndex = right_tab::kProperties;
    main.window.EditTitle.Text = std::string("New");
    main.window.ListKeys.ListIndex = 1;
    CommandDelete_Click(main);
    SaveTopicProperties(main);
    EXPECT_EQ(FullKeys(), (Lines{"A", "A    :b"}));
    EXPECT_EQ(SelectKey("A    :b").SubItems(1).substr(0, 4), "New>");
}

TEST_F(TopicKeywords, ATitleMayBeAPartOfThePathAndOfTheNewTitle) {
    Type("one");
    Type("two");
    main.window.EditTitle.Text = std::string("a.h");
    SaveTopicProperties(main);
    main.window.EditTitle.Text = std::string("a.h file");
    SaveTopicProperties(main);
    for (const char* key : {"one", "two"}) {
        EXPECT_EQ(SelectKey(key).SubItems(1), "a.h file>" + folder.Windows("a.htm") + ";:");
    }
}

TEST_F(TopicKeywords, RetypedInAnotherCaseTheyStayEverywhere) {
    AddToIndex(main, "Ay", folder.Windows("a.htm"), "print;print    :setup;fingerprint;");
    AddToIndex(main, "Bee", folder.Windows("b.htm"), "print;print    :queue;");
    ListView& topics = main.topics.ListTopics;
    topics.At(1).SetSubItem(topic_cell::kKeywords, "print;print    :setup;fingerprint;");
    topics.At(2).SetSubItem(topic_cell::kKeywords, "print;print    :queue;");
    const auto retype = [&](const char* key, const char* main_key, const char* sub_key) {
        LoadTopicProperties(main);
        main.window.ListKeys.ListIndex = main.window.ListKeys.Find(key);
        CommandEdit_Click(main);
        Type(main_key, sub_key);
        SaveTopicProperties(main);
        LoadTopicProperties(main);
    };
    retype("print", "Print", "");
    EXPECT_EQ(FullKeys(), (Lines{"fingerprint", "Print", "Print    :queue", "Print    :setup"}));
    EXPECT_EQ(SelectKey("Print").Text(), "Print");
    EXPECT_EQ(main.window.ListKeys.List(), (Lines{"fingerprint", "Print", "Print:setup"}));
    EXPECT_EQ(topics.At(2).SubItems(topic_cell::kKeywords), "Print;Print    :queue;");
    EXPECT_TRUE(Contains(SelectKey("Print").SubItems(1), "b.htm"));

    retype("Print:setup", "PRINT", "Setup");
    EXPECT_EQ(FullKeys(), (Lines{"fingerprint", "PRINT", "PRINT    :queue", "PRINT    :Setup"}));
    EXPECT_EQ(SelectKey("PRINT    :Setup").Text(), "      Setup");
    EXPECT_EQ(main.window.ListKeys.List(), (Lines{"fingerprint", "PRINT", "PRINT:Setup"}));
}

TEST_F(TopicKeywords, AColonInAKeywordSurvives) {
    ListView& table = main.keywords.ListKeywords;
    table.Add("a::b").SetSubItem(keyword_cell::IDX_FULLKEY, "a::b");  // of another program
    main.topics.ListTopics.At(1).SetSubItem(topic_cell::kKeywords, "a::b;");
    LoadTopicProperties(main);
    SelectKey("a::b");
    Type("std::vector");
    Type("time", "12:30");
    const Lines shown{"a::b", "std::vector", "time:12:30"};
    for (int i = 0; i < 3; ++i) {
        main.window.EditInteger.Text = std::to_string(i);
        SaveTopicProperties(main);
        LoadTopicProperties(main);
        EXPECT_EQ(main.window.ListKeys.List(), shown);
        EXPECT_EQ(FullKeys(), (Lines{"a::b", "std", "std    ::vector", "time", "time    :12:30"}));
    }
    EXPECT_EQ(SelectKey("std    ::vector").Text(), "      :vector");
    EXPECT_EQ(SelectKey("time    :12:30").Text(), "      12:30");
    // From the index to another topic, and off again.
    Type("A::B");
    main.window.ListKeys.ListIndex = main.window.ListKeys.Find("a::b");
    CommandDelete_Click(main);
    SaveTopicProperties(main);
    EXPECT_EQ(main.topics.ListTopics.At(1).SubItems(topic_cell::kKeywords),
              "A::B;std    ::vector;time    :12:30;");
    main.window.ListKeys.Clear();
    SaveTopicProperties(main);
    EXPECT_EQ(FullKeys(), Lines{});
}

TEST_F(TopicKeywords, KeysComeFromTheIndex) {
    AddToIndex(main, "Bee", folder.Windows("b.htm"), "A    :b;k;");
    CommandAddFromIndex_Click(main);
    EXPECT_EQ(main.window.ListKeys.ListCount(), 0) << "nothing is selected";
    SelectKey("A    :b");
    EXPECT_EQ(ListKeywords_OLEStartDrag(main), drop_effect::kCopy);
    EXPECT_EQ(main.contents.tree_drag_text, "qrl_indx_6754");
    EXPECT_EQ(ListKeys_OLEDragOver(main), drop_effect::kCopy);
    ListKeys_OLEDragDrop(main);
    EXPECT_EQ(main.window.ListKeys.List(), (Lines{"A:b"}));
    main.editor.TopicPropDirty = false;
    CommandAddFromIndex_Click(main);
    EXPECT_EQ(Selected(), "A:b");
    EXPECT_FALSE(main.editor.TopicPropDirty);
}

TEST_F(TopicKeywords, AKeyDroppedOnTheEditorIsOneOfTheOpenTopic) {
    AddToIndex(main, "Bee", folder.Windows("b.htm"), "k;");
    main.window.EditTitle.Text = std::string("Ay");
    Type("own");
    main.window.TabStrip2.SelectedIndex = right_tab::kNormal;
    // The page still holds what it showed of another topic.
    main.window.EditTitle.Text = std::string("stale");
    main.window.ListKeys.Clear();
    main.editor.TopicPropDirty = false;
    SelectKey("k");
    ListKeywords_OLEStartDrag(main);
    EXPECT_TRUE(TakeDropOnSurface(main));
    ListKeywords_OLECompleteDrag(main);
    const std::string before = surface.DocumentHTML();
    InsertDroppedText(main);
    EXPECT_EQ(surface.DocumentHTML(), before);
    SaveTopicProperties(main);
    EXPECT_EQ(main.topics.ListTopics.At(1).Text(), "Ay");
    EXPECT_EQ(main.topics.ListTopics.At(1).SubItems(topic_cell::kKeywords), "k;own;");
}

TEST_F(TopicKeywords, AnEntryOfTheIndexGoesAlone) {
    AddToIndex(main, "Ay", folder.Windows("a.htm"), "A    :b;c;");
    SelectKey("A");
    screen.ExpectMessage("You must delete all of this keywords sub-entries first");
    popidelete_Click(main);
    main.keywords.index_dirty = false;
    for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kYes}) {
        SelectKey("A    :b");
        screen.ExpectMessage("Are you sure you want to delete this index entry?", answer);
        ListKeywords_KeyUp(main, 46);
    }
    ListKeywords_KeyUp(main, 45);
    EXPECT_EQ(FullKeys(), (Lines{"A", "c"}));
    EXPECT_FALSE(main.keywords.index_dirty) << "that is left to the topics";
}

TEST_F(TopicKeywords, AReferenceLeadsToItsTarget) {
    AddToIndex(main, "Ay", folder.Windows("a.htm"), "T;A    :b;");
    screen.ExpectForm("FormSeeAlso", [&](Form& form) {
        auto& see_also = static_cast<FormSeeAlso&>(form);
        see_also.EditMainKey.Text = std::string("x:y");
        screen.ExpectMessage("You must select an index entry in the index pane.");
        see_also.Command1_Click();
        SelectKey("T");
        see_also.Command1_Click();
        screen.ExpectMessage("This keyword is already in the index.");
        see_also.Command1_Click();
        SelectKey("A    :b");
        see_also.EditMainKey.Text = std::string("z");
        see_also.Command1_Click();
    });
    popiaddseealso_Click(main);
    EXPECT_EQ(FullKeys(), (Lines{"A", "A    :b", "T", "x", "x    :y", "z"}));
    EXPECT_EQ(SelectKey("x    :y").SubItems(1), "x    :y>SEE ALSO: T>;:");
    EXPECT_EQ(SeeAlsoRow(main.keywords.ListKeywords, SelectKey("x    :y")), &SelectKey("T"));
    EXPECT_EQ(SelectKey("z").SubItems(1), "z>SEE ALSO:       b>;:");
}

}  // namespace
}  // namespace quorrel::test
