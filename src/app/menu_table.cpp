// The menus and their entries.
#include "app/command_tables.hpp"
#include "app/form_error_log.hpp"
#include "app/form_settings.hpp"
#include "app/menu_commands.hpp"
#include "app/tool_bar.hpp"
#include "app/user_guide.hpp"
#include "contents/contents_tree.hpp"
#include "contents/see_also.hpp"
#include "contents/topic_keywords.hpp"
#include "editor/formatting.hpp"
#include "formats/htmlhelp/hhp.hpp"
#include "project/form_create_project.hpp"
#include "project/form_project_settings.hpp"
#include "project/new_topic.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "project/topic_list.hpp"

namespace quorrel {
namespace {

/// The routine of an entry of a control array.
template <auto Click, int kIndex>
void At(MainForm& main) {
    Click(main, kIndex);
}

constexpr Routine kNotBuilt = nullptr;

void Save(MainForm& main) {
    FileSave_Click(main);
}

constexpr Command kFile[] = {
    {"FileNewProject", "&New Project", FileNewProject_Click, "Ctrl+Shift+N",
     "project-development-new-template", "Makes a new help project."},
    {"FileNew", "N&ew Topic...", FileNew_Click, "Ctrl+N", "document-new",
     "Adds a new topic to the project."},
    {"newtemplate", "Ne&w Topic Template...", newtemplate_Click, "", "document-new-from-template",
     "Makes a template for new topics."},
    {"filesep1", kSeparator},
    {"OpenProject", "&Open Project...", OpenProject_Click, "Ctrl+O", "document-open",
     "Opens a help project."},
    {"fileopen", "O&pen HTML File...", fileopen_Click, "", "document-open-data",
     "Opens an HTML file without adding it to the project."},
    {"filesep2", kSeparator},
    {"FileSave", "&Save Project", Save, "Ctrl+S", "document-save",
     "Saves the project and all changed topics."},
    {"FileSaveAs", "Save HTML File &As...", FileSaveAs_Click, "", "document-save-as",
     "Saves the open document under another name."},
    {"rebuildindex", "Rebuild Keyword Indexes", rebuildindex_Click, "", "project_rebuild",
     "Adds the files that the project file lists to the topics."},
    {"filesep3", kSeparator},
    {"fileprint", "&Print...", Print_Click, "Ctrl+P", "document-print",
     "Prints the open document."},
    {"filesep4", kSeparator},
    {"replacetopic", "&Replace Current Topic with HTML File...", kNotBuilt, "", "document-replace",
     "Replaces the open topic with an HTML file."},
    {"importhtml", "&Import HTML File(s)...", kNotBuilt, "", "document-import",
     "Adds HTML files to the project as topics."},
    {"filesep5", kSeparator},
    {"viewjavahelp", "&View JavaHelp System", kNotBuilt, "", "system-run",
     "Shows the help system in its viewer."},
    {"buildsearch", "&Build Full-Text Search Database...", kNotBuilt, "", "run-build",
     "Builds what readers use, with the tool from the settings."},
    {"validatesearch", "&Test Search Database...", kNotBuilt, "", "system-search",
     "Shows what has been built."},
    {"filesep6", kSeparator},
    {"recent0", "", At<recent_Click, 0>, "", "", "Opens this project."},
    {"recent1", "", At<recent_Click, 1>, "", "", "Opens this project."},
    {"recent2", "", At<recent_Click, 2>, "", "", "Opens this project."},
    {"recent3", "", At<recent_Click, 3>, "", "", "Opens this project."},
    {"recent4", "", At<recent_Click, 4>, "", "", "Opens this project."},
    {"fileexitsep", kSeparator},
    {"fileexit", "E&xit", fileexit_Click, "Ctrl+Q", "application-exit", "Ends the program."},
};

constexpr Command kEdit[] = {
    {"EditSub0", "Undo", At<EditSub_Click, 0>, "Ctrl+Z", "edit-undo",
     "Takes the last change back."},
    {"EditSub1", "Redo", At<EditSub_Click, 1>, "Ctrl+Y", "edit-redo",
     "Makes the change again that was taken back last."},
    {"EditSub2", kSeparator},
    {"EditSub3", "Cut", At<EditSub_Click, 3>, "Ctrl+X", "edit-cut",
     "Moves the selection to the clipboard."},
    {"EditSub4", "Copy", At<EditSub_Click, 4>, "Ctrl+C", "edit-copy",
     "Copies the selection to the clipboard."},
    {"EditSub5", "Paste", At<EditSub_Click, 5>, "Ctrl+V", "edit-paste",
     "Puts what is in the clipboard at the selection."},
    {"EditSub6", "Select All", At<EditSub_Click, 6>, "Ctrl+A", "edit-select-all",
     "Selects the whole document."},
    {"EditSub7", kSeparator},
    {"EditSub8", "Find", At<EditSub_Click, 8>, "Ctrl+F", "edit-find",
     "Looks for a text in the document."},
    {"EditSub9", "Replace...", kNotBuilt, "Ctrl+H", "edit-find-replace",
     "Replaces a text in the document or in all topics."},
    {"EditSub10", kSeparator},
    {"EditSub11", "Snap To Grid", At<EditSub_Click, 11>, "", "snap",
     "Moves positioned elements in steps.", true},
};

constexpr Command kView[] = {
    {"Viewsub0", "Borders", At<Viewsub_Click, 0>, "", "format-border-set-all",
     "Shows the edges of tables that have no border.", true},
    {"Viewsub1", "Document Details", At<Viewsub_Click, 1>, "", "view-visible",
     "Shows signs for comments, anchors, scripts and line breaks.", true},
    {"Viewsub2", "Autoformat HTML Source", At<Viewsub_Click, 2>, "", "format-text-code",
     "Writes the source of a topic anew instead of keeping it as it was written.", true},
};

constexpr Command kInsert[] = {
    {"InsertSub0", "&Graphic...", kNotBuilt, "", "insert-image",
     "Inserts a graphic or edits the selected one."},
    {"InsertSub1", "&Hyperlink...", kNotBuilt, "Ctrl+K", "insert-link",
     "Inserts a link or edits the selected one."},
    {"insertboomkark", "&Bookmark...", kNotBuilt, "", "bookmark-new",
     "Marks a place that links can lead to."},
    {"insertmidkey", "&Mid-Topic Keyword...", kNotBuilt, "", "tag-new",
     "Inserts a keyword that leads to this place."},
    {"insertexpsec", "&Expanding/Contracting Section...", kNotBuilt, "", "view-list-tree",
     "Inserts a section that readers open and close."},
    {"insertpopup", "&Pop-up/Secondary Window Link...", kNotBuilt, "", "window-new",
     "Inserts a link that opens a pop-up or a second window."},
    {"InsertButton", "B&utton", InsertButton_Click, "", "insert-button", "Inserts a button."},
    {"InsertHTML", "&HTML Code...", kNotBuilt, "", "code-context", "Inserts HTML as you type it."},
    {"insertsep1", kSeparator},
    {"Topic", "&New Topic", FileNew_Click, "F2", "document-new",
     "Adds a new topic to the project."},
};

constexpr Command kFormatMain[] = {
    {"Font", "&Font", Font_Click, "", "font", "Chooses the font of the selection."},
    {"Format", "&Style", nullptr, "", "format-text-capitalize",
     "Chooses the style of the paragraph."},
};

constexpr std::string_view kStyleTip = "Gives the paragraph this style.";
constexpr Command kFormat[] = {
    {"FormatSub0", "", At<FormatSub_Click, 0>, "", "", kStyleTip},
    {"FormatSub1", "", At<FormatSub_Click, 1>, "", "", kStyleTip},
    {"FormatSub2", "", At<FormatSub_Click, 2>, "", "", kStyleTip},
    {"FormatSub3", "", At<FormatSub_Click, 3>, "", "", kStyleTip},
    {"FormatSub4", "", At<FormatSub_Click, 4>, "", "", kStyleTip},
    {"FormatSub5", "", At<FormatSub_Click, 5>, "", "", kStyleTip},
    {"FormatSub6", "", At<FormatSub_Click, 6>, "", "", kStyleTip},
    {"FormatSub7", "", At<FormatSub_Click, 7>, "", "", kStyleTip},
    {"FormatSub8", "", At<FormatSub_Click, 8>, "", "", kStyleTip},
    {"FormatSub9", "", At<FormatSub_Click, 9>, "", "", kStyleTip},
    {"FormatSub10", "", At<FormatSub_Click, 10>, "", "", kStyleTip},
    {"FormatSub11", "", At<FormatSub_Click, 11>, "", "", kStyleTip},
    {"FormatSub12", "", At<FormatSub_Click, 12>, "", "", kStyleTip},
    {"FormatSub13", "", At<FormatSub_Click, 13>, "", "", kStyleTip},
    {"FormatSub14", "", At<FormatSub_Click, 14>, "", "", kStyleTip},
    {"FormatSub15", "", At<FormatSub_Click, 15>, "", "", kStyleTip},
};

constexpr Command kTable[] = {
    {"tablesub0", "&Insert Table...", kNotBuilt, "", "insert-table", "Inserts a table."},
    {"tablesub1", kSeparator},
    {"tablesub2", "Insert &Row", At<tablesub_Click, 2>, "", "edit-table-insert-row-below",
     "Adds a row to the table."},
    {"tablesub3", "Insert &Column", At<tablesub_Click, 3>, "", "edit-table-insert-column-right",
     "Adds a column to the table."},
    {"tablesub4", "Insert C&ell", At<tablesub_Click, 4>, "", "insertcell",
     "Adds a cell to the row."},
    {"tablesub5", kSeparator},
    {"tablesub6", "&Delete Row", At<tablesub_Click, 6>, "", "edit-table-delete-row",
     "Deletes the row."},
    {"tablesub7", "Delete C&olumn", At<tablesub_Click, 7>, "", "edit-table-delete-column",
     "Deletes the column."},
    {"tablesub8", "De&lete Cell", At<tablesub_Click, 8>, "", "", "Deletes the cell."},
    {"tablesub9", kSeparator},
    {"tablesub10", "&Merge Cells", At<tablesub_Click, 10>, "", "edit-table-cell-merge",
     "Makes one cell of the selected ones."},
    {"tablesub11", "&Split Cell", At<tablesub_Click, 11>, "", "edit-table-cell-split",
     "Makes two cells of one."},
    {"tablesub12", kSeparator},
    {"tablesub13", "Cell &Properties...", kNotBuilt, "", "",
     "Sets size, colors and alignment of the cell."},
    {"tablesub14", "Ro&w Properties...", kNotBuilt, "", "",
     "Sets size, colors and alignment of all cells of the row."},
    {"tablesub15", "Col&umn Properties...", kNotBuilt, "", "",
     "Sets size, colors and alignment of all cells of the column."},
    {"tablesub16", "&Table Properties...", kNotBuilt, "", "document-properties",
     "Sets size, colors and borders of the table."},
};

constexpr Command kPosition[] = {
    {"D2DSub0", "Bring To &Front", At<D2DSub_Click, 0>, "", "object-order-front",
     "Puts the element in front of all others."},
    {"D2DSub1", "Send To &Back", At<D2DSub_Click, 1>, "", "object-order-back",
     "Puts the element behind all others."},
    {"D2DSub2", kSeparator},
    {"D2DSub3", "Bring For&ward", At<D2DSub_Click, 3>, "", "object-order-raise",
     "Puts the element one place further to the front."},
    {"D2DSub4", "Send Back&ward", At<D2DSub_Click, 4>, "", "object-order-lower",
     "Puts the element one place further back."},
    {"D2DSub5", "Bring &Above Text", At<D2DSub_Click, 5>, "", "",
     "Puts the element in front of the text."},
    {"D2DSub6", "Send B&elow Text", At<D2DSub_Click, 6>, "", "",
     "Puts the element behind the text."},
    {"D2DSub7", kSeparator},
    {"D2DSub8", "&Lock Element", At<D2DSub_Click, 8>, "", "object-locked",
     "Keeps the element from being moved.", true},
    {"D2DSub9", kSeparator},
    {"D2DSub10", "Set Position Attribute To Absolute", At<D2DSub_Click, 10>, "", "",
     "Frees the element from its place in the text, or puts it back there."},
};

constexpr Command kTools[] = {
    {"mnuqrsettings", "Quorrel &Settings...", mnuqrsettings_Click, "", "configure",
     "Sets up the program."},
    {"projopt", "Project Options...", projopt_Click, "", "configure_project",
     "Sets up the project."},
    {"runhelpworkshop", "&HTML Help Workshop", kNotBuilt, "", "system-run",
     "Opens the project in HTML Help Workshop."},
    {"editcssfile", "Edit &Style Sheet File...", editcssfile_Click, "", "document-edit",
     "Edits the style sheet of the project."},
    {"editjsfile", "Edit &JavaScript File...", editjsfile_Click, "", "document-edit",
     "Edits the script of the project."},
    {"toolssep1", kSeparator},
    {"spellck", "&Spell Check", kNotBuilt, "F7", "tools-check-spelling",
     "Checks the spelling of the topic."},
    {"spellcksettings", "S&pell Check Settings...", kNotBuilt, "", "settings-configure",
     "Chooses the dictionaries."},
};

constexpr Command kHelp[] = {
    {"helpcontents", "&Contents...", helpcontents_Click, "F1", "help-contents",
     "Shows how to work with this program."},
    {"htmlhelpdoc", "&HTML Help Documentation", kNotBuilt, "", "help-hint",
     "Shows the documentation of HTML Help."},
    {"checkforupdates", "Check for &Updates (online)...", checkforupdates_Click, "", "download",
     "Opens the page with the latest version."},
    {"helpsep1", kSeparator},
    {"AboutQuorrelEdit", "&About Quorrel...", AboutQuorrelEdit_Click, "", "help-about",
     "Tells what this program is."},
};

constexpr Command kKeys[] = {
    {"center_kb", "center", center_kb_Click, "Ctrl+E", "format-justify-center",
     "Centers the paragraph."},
    {"preview_kb", "preview", preview_kb_Click, "F5", "view-refresh",
     "Shows the topic as its readers see it."},
};

constexpr Command kTreePop[] = {
    {"popnewtopic", "&NewTopic...", popnewtopic_Click, "", "document-new",
     "Adds a new topic here."},
    {"popnewbook", "New &Book/Folder (not linked to topic)...", popnewbook_Click, "", "folder-new",
     "Adds a book without a topic of its own."},
    {"popnewbooktopic", "N&ew Book/Folder Topic...", popnewbooktopic_Click, "", "address-book-new",
     "Adds a book with a topic of its own."},
    {"pop1delete", "&Delete Item", pop1delete_Click, "", "edit-delete",
     "Takes the item out of the contents; the topic stays."},
    {"popproperties", "TOC &Organizer...", popproperties_Click, "", "document-properties",
     "Shows the page where the contents are organized."},
};

constexpr Command kTreeDocPop[] = {
    {"popdocnewheading", "&New Heading", kNotBuilt, "", "document-new",
     "Adds a heading to the document."},
    {"popdocnewbook", "New &Book/Folder Heading...", kNotBuilt, "", "folder-new",
     "Adds a chapter to the document."},
    {"popdocdelete", "&Delete Item", kNotBuilt, "", "edit-delete",
     "Takes the item out of the document."},
};

constexpr Command kListPop[] = {
    {"poplstopen", "&Open Topic", poplstopen_Click, "", "document-open", "Opens the topic."},
    {"poplstproperties", "Topic &Properties", poplstproperties_Click, "", "document-properties",
     "Opens the topic on its properties page."},
    {"poplstnewtopic", "&New Topic...", FileNew_Click, "", "document-new",
     "Adds a new topic to the project."},
    {"poplstremove", "&Remove Topic from Project", poplstremove_Click, "", "list-remove",
     "Takes the topic out of the project; its file stays."},
    {"poplstdelete", "&Delete Topic File", poplstdelete_Click, "", "edit-delete",
     "Takes the topic out of the project and deletes its file."},
    {"poplstsep1", kSeparator},
    {"expandpane", "&Expand Pane", expandpane_Click, "", "view-right-new",
     "Gives the right side the whole window.", true},
    {"popcopyinteger", "&Selecting Copies HelpContextID", popcopyinteger_Click, "", "edit-copy",
     "Copies the context number of each topic that is clicked to the clipboard.", true},
};

constexpr Command kIndexPop[] = {
    {"popidelete", "&Delete Entry", popidelete_Click, "", "edit-delete", "Deletes the keyword."},
    {"popiaddseealso", "&Add See Also", popiaddseealso_Click, "", "list-add",
     "Adds the keyword as a reference."},
};

constexpr Menu kMenus[] = {
    {"file", "&File", MenuPlace::kBar, kFile, file_Click},
    {"edit", "&Edit", MenuPlace::kBar, kEdit, edit_Click},
    {"View", "&View", MenuPlace::kBar, kView},
    {"insert", "&Insert", MenuPlace::kBar, kInsert, insert_Click},
    {"FormatMain", "F&ormat", MenuPlace::kBar, kFormatMain, FormatMain_Click},
    {"table", "T&able", MenuPlace::kBar, kTable, table_Click},
    {"D2D", "2&D", MenuPlace::kBar, kPosition, D2D_Click},
    {"tools", "&Tools", MenuPlace::kBar, kTools},
    {"help", "Help", MenuPlace::kBar, kHelp},
    {"Format", "&Style", MenuPlace::kSubmenu, kFormat, Format_Click},
    {"keys", "", MenuPlace::kKeys, kKeys},
    {"mnutreepop", "pop", MenuPlace::kContext, kTreePop, mnutreepop_Opening},
    {"mnutreedocpop", "pop_doc", MenuPlace::kContext, kTreeDocPop},
    {"mnulistpop", "pop2", MenuPlace::kContext, kListPop, mnulistpop_Opening},
    {"mnuindexpop", "popindex", MenuPlace::kContext, kIndexPop},
};

}  // namespace

std::span<const Menu> Menus() {
    return kMenus;
}

}  // namespace quorrel
