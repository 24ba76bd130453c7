// The keywords of the open topic, as ListKeys has them, go into its row and the index.
#pragma once

#include <string_view>

#include "platform/controls/list_view.hpp"

namespace quorrel {

struct MainForm;

/// Takes what differs between the topic's cell and ListKeys to the index: deleted keywords, new
/// ones and such in another case of letters, and the title, which was `old_title` before. The cell
/// is built anew; a keyword that stays has the full key there that it had.
void SaveTopicKeywords(MainForm& main, ListRow& topic, std::string_view old_title);

}  // namespace quorrel
