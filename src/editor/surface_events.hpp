// What the program does when the surface tells that something has happened.
#pragma once

namespace quorrel {

struct MainForm;
enum class EngineLoss;

/// A document is there: the source view follows it, or the caret comes back and the names of the
/// block formats are read.
void DHTMLEdit1_DocumentComplete(MainForm& main);

/// The selection or the document has changed: the formatting buttons and the style list follow.
void DHTMLEdit1_DisplayChanged(MainForm& main);

/// Tells the user what has become of his topic.
void DHTMLEdit1_EngineLost(MainForm& main, EngineLoss loss);

}  // namespace quorrel
