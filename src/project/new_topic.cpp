#include "project/new_topic.hpp"

#include "app/main_form.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "project/form_new_topic.hpp"
#include "project/save_project.hpp"
#include "project/topic_properties.hpp"

namespace quorrel {
namespace {

/// False where a template is being edited and could not be saved; the user has been told.
bool SaveOpenTemplate(MainForm& main) {
    if (!IsTemplateOpen(main)) return true;
    return SaveHTML(main, main.DHTMLEdit1.CurrentDocumentPath());
}

}  // namespace

void FileNew_Click(MainForm& main) {
    if (!SaveOpenTemplate(main)) return;
    main.editor.new_topic_template = "False";
    main.contents.create_from_toc_selected = false;
    ShowNewTopic(main);
}

void newtemplate_Click(MainForm& main) {
    if (!SaveOpenTemplate(main)) return;
    // With a template open they would not be stored any longer.
    if (main.editor.TopicPropDirty) SaveTopicProperties(main);
    const bool changed = main.DHTMLEdit1.IsDirty() || main.editor.ActiveDirty;
    if (changed && !main.project.proj.empty() && !SetDirty(main)) return;
    main.editor.ActiveDirty = false;
    main.editor.new_topic_template = "True";
    main.contents.create_from_toc_selected = false;
    ShowNewTopic(main);
}

void popnewtopic_Click(MainForm& main) {
    main.contents.create_book_with_topic = false;
    FileNew_Click(main);
}

void popnewbooktopic_Click(MainForm& main) {
    main.contents.toc_dirty = true;
    main.contents.create_book_with_topic = true;
    FileNew_Click(main);
    main.contents.create_book_with_topic = false;
}

}  // namespace quorrel
