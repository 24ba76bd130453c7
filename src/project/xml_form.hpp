// How the texts of a JavaHelp project stand in its files: the choice, and what depends on it.
#pragma once

namespace quorrel {

struct MainForm;

/// Takes the author's choice from the project's settings.
void ReadXmlForm(MainForm& main);

/// Before a save: names the entries that make a file unreadable as they are typed, and offers to
/// write them as XML from now on. Once for each opening of a project.
void OfferXmlForm(MainForm& main);

/// Turns the references in all texts of the project into the characters that viewers show for them:
/// what was read as it was typed is to mean the same when it is written escaped.
void TakeReferencesAsCharacters(MainForm& main);

}  // namespace quorrel
