// The commands that make topics and templates.
#pragma once

namespace quorrel {

struct MainForm;

/// A new topic. A template that is being edited is saved first.
void FileNew_Click(MainForm& main);
/// A new template for topics. What is being edited is saved first.
void newtemplate_Click(MainForm& main);
/// A new topic from the menu of the contents.
void popnewtopic_Click(MainForm& main);
/// The same with a book for it in the contents.
void popnewbooktopic_Click(MainForm& main);

}  // namespace quorrel
