// The open document.
#pragma once

#include <string>

namespace quorrel {

struct EditorState {
    std::string main_path;      // the topic as the caller of LoadFile named it
    std::string new_main_path;  // what LoadFile is to open next
    std::string temp_path;      // the file that is on the surface: the topic or its working copy
    bool ActiveDirty = false;
    bool TopicPropDirty = false;
    // A boolean kept as text: the document is a topic template.
    std::string new_topic_template = "False";
};

}  // namespace quorrel
