// Work that a run which ended badly has left: working copies beside the topics, and what
// unsaved_work kept beside the settings.
#pragma once

namespace quorrel {

class ListRow;
struct MainForm;

/// Offers it in one list and takes back what the author ticks; the rest is put aside. To be called
/// when the project's lists have been read and no topic is open yet. It also notes these lists as
/// those that the project's files have.
void OfferUnsavedWork(MainForm& main);

/// To be called for a project that is being made: what is left of one that was there before is put
/// aside, and all of the new one is still to be saved.
void StartUnsavedWork(MainForm& main);

/// Goes on with the working copy that an earlier run left of the topic. Saving asks where another
/// program has changed the topic since.
void TakeBackTopic(MainForm& main, ListRow& row);

/// To be called when the project is open: what was taken back is still to be saved.
void MarkTakenBackWork(MainForm& main);

}  // namespace quorrel
