// A project of two topics, and an installation with templates of its own.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "project/form_new_topic.hpp"
#include "project/topic_list.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {

class TopicFixture : public ProjectFixture {
  protected:
    TopicFixture() {
        folder.Write("settings/qrrl_hj.ini", "[Locations]\r\nmain dir=" + folder.Windows("inst") +
                                                 "\\\r\n[HTML Help]\r\nhhc=Z:\\old\r\n");
        for (const std::string family : {"htmlhelp", "javahelp"}) {
            const std::string templates = "inst/Topic Templates/" + family + "/";
            folder.Write(templates + "Plain.htm", "<title>[TITLE]</title>\n<body>[TITLE].");
            folder.Write(templates + "Fancy.HTM",
                         "<meta charset=utf-8><title>[TITLE]</title><body>Fancy");
            for (const char* file : {"master.js", "htmlhelp.css", "javahelp.css"}) {
                folder.Write(templates + file, std::string("the ") + file);
            }
        }
        folder.Write("demo/demo.hhp",
                     "[OPTIONS]\r\nTitle=Demo\r\n\r\n[FILES]\r\nfirst.htm\r\nhtml\\second.htm\r\n"
                     "\r\n[INFOTYPES]\r\n");
        folder.Write("demo/first.htm", "<title>First</title><body>first");
        folder.Write("demo/html/second.htm", "<title>Second</title><body>second");
    }

    void OpenDemo() {
        Open("demo/demo.hhp");
        log_lines.clear();  // of the files that it does not have
    }
    [[nodiscard]] std::string Demo(std::string_view file) const {
        return folder.Windows("demo") + "\\" + std::string(file);
    }
    /// What is done in the next dialog, which has this name.
    template <typename Dialog>
    void InDialog(const char* name, std::function<void(Dialog&)> work) {
        screen.ExpectForm(
            name, [work = std::move(work)](Form& form) { work(static_cast<Dialog&>(form)); });
    }
    void InNewTopic(std::function<void(FormNewTopic&)> work) {
        InDialog<FormNewTopic>("FormNewTopic", std::move(work));
    }
    ListView& Topics() { return main.topics.ListTopics; }
    ListRow& Topic(std::string_view file) {
        ListRow* row = Topics().FirstWith(topic_cell::kFullPath, Demo(file));
        if (row == nullptr) throw std::runtime_error("no topic " + std::string(file));
        return *row;
    }
    void SelectAndOpen(std::string_view file) {
        Topics().Select(&Topic(file));
        poplstopen_Click(main);
    }
    TreeView& Tree() { return main.contents.Tree1; }
    /// The captions with their pictures, "(" and ")" around children.
    [[nodiscard]] std::string Outline() {
        std::string text;
        for (const TreeNode* node : Tree().Roots()) Describe(*node, text);
        return text;
    }

  private:
    static void Describe(const TreeNode& node, std::string& text) {
        text += node.Text + std::to_string(node.Image);
        if (node.Children() > 0) {
            text += "(";
            for (int i = 0; i < node.Children(); ++i) Describe(*node.ChildAt(i), text);
            text += ")";
        }
        text += " ";
    }
};

}  // namespace quorrel::test
