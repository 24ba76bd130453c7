// Topics that come into the project and leave it.
#pragma once

#include <string_view>

#include "platform/controls/list_view.hpp"

namespace quorrel {

struct MainForm;
struct TopicTables;

/// Keeps the number of the open topic's row right while rows come, go and move.
class OpenRowKeeper {
  public:
    explicit OpenRowKeeper(TopicTables& topics);
    OpenRowKeeper(const OpenRowKeeper&) = delete;
    OpenRowKeeper& operator=(const OpenRowKeeper&) = delete;
    ~OpenRowKeeper();

    /// To be called before `row` goes: if it is that of the open topic, there is none any more.
    void Forget(const ListRow& row);

  private:
    TopicTables& topics_;
    const ListRow* open_;
};

/// Adds a topic to the table, its `keywords` (full keys, each closed by ";") to the index and,
/// while the contents are in view, a node to them. `path` is a full one. Gives the new row.
ListRow& AddTopic(MainForm& main, std::string_view title, std::string_view path,
                  std::string_view keywords, std::string_view alias, std::string_view integer);

/// Asks before the selected topic goes, if its file is to be deleted or if contents items that lie
/// below it go with it. True where nothing is to be asked.
[[nodiscard]] bool MayRemoveTopic(MainForm& main, bool delete_file);

/// Takes the selected topic out of the project: its row, its keywords, its nodes in the contents.
/// If it is open, the topic that is selected next is opened in its place. With `delete_file` its
/// file and the working copy go as well.
void RemoveTopic(MainForm& main, bool delete_file);

}  // namespace quorrel
