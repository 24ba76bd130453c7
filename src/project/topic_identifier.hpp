// The identifier of a topic, wherever it stands.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/list_view.hpp"

namespace quorrel {

struct MainForm;

/// Gives a topic of the table the identifier that the author has typed. One that another topic or
/// an alias has is refused with a message; in the place of an empty one comes that which opening
/// the project would give it. What refers to the old one follows: the contents, the home topic and
/// the identifiers that bookmarks in the topic have got from it.
void ChangeTopicIdentifier(MainForm& main, ListRow& topic, std::string_view typed);

}  // namespace quorrel
