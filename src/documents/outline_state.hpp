// The outline of the printed document.
#pragma once

#include <string>

#include "platform/controls/tree_view.hpp"

namespace quorrel {

struct OutlineState {
    TreeView TreeDoc;
    std::string doc_outline;  // full path of the outline file
    bool doc_dirty = false;
    // Apart from that of the contents: each file keeps its own.
    std::string site_properties_doc;
};

}  // namespace quorrel
