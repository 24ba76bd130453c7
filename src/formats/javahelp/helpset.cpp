#include "formats/javahelp/helpset.hpp"

#include "app/main_form.hpp"
#include "contents/open_contents_item.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "formats/javahelp/helpset_left_behind.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/jhm.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "project/paths.hpp"
#include "project/recovery.hpp"
#include "project/verify_map_ids.hpp"

namespace quorrel {
namespace {

std::string JoinLines(std::string_view text) {
    std::string joined;
    joined.reserve(text.size());
    TextLines lines(text);
    while (!lines.AtEnd()) {
        if (!joined.empty()) joined += ' ';
        joined += lines.ReadLine();
    }
    return joined;
}

/// The text between two tags, which are given in upper case.
void TakeElement(std::string_view text, std::string_view open, std::string_view close, XmlForm form,
                 std::string& value) {
    const std::size_t begin = FindIgnoringAsciiCase(text, open);
    if (begin == npos) return;
    const std::size_t end = FindIgnoringAsciiCase(text, close, begin);
    if (end == npos) return;
    const std::string_view content = text.substr(begin + open.size(), end - begin - open.size());
    value = TextFromXml(content, form);
}

/// The places of one word, asked for at rising positions: the text is searched once.
class NextPlace {
  public:
    NextPlace(std::string_view text, std::string_view upper) : text_(text), upper_(upper) {}
    std::size_t From(std::size_t position) {
        if (!known_ || (place_ != npos && place_ < position)) {
            place_ = FindIgnoringAsciiCase(text_, upper_, position);
            known_ = true;
        }
        return place_;
    }

  private:
    std::string_view text_;
    std::string_view upper_;
    std::size_t place_ = 0;
    bool known_ = false;
};

void TakeViews(std::string_view text, ProjectState& project) {
    NextPlace view(text, "<VIEW"), view_end(text, "</VIEW"), data(text, "<DATA");
    NextPlace toc(text, "TOCVIEW"), index(text, "INDEXVIEW"), search(text, "SEARCHENGINE");
    NextPlace data_end(text, "</DATA");
    for (std::size_t begin = view.From(0); begin != npos; begin = view.From(begin + 1)) {
        const std::size_t end = view_end.From(begin + 1);
        if (end == npos) return;  // nor has any later view an end
        const std::size_t value = data.From(begin);
        if (value >= end) continue;
        const std::size_t value_end = data_end.From(value);
        if (value_end >= end) continue;
        // Six characters: the element is taken to have no attributes.
        const std::string file =
            TextFromXml(text.substr(value + 6, value_end < value + 6 ? 0 : value_end - value - 6),
                        project.xml_form);
        if (toc.From(begin) < end) project.hhcfile = file;
        if (index.From(begin) < end) project.hhkfile = file;
        if (search.From(begin) < end) project.javahelp_do_fts = true;
    }
}

/// `data` is the whole element.
void AppendView(std::string& text, std::string_view name, std::string_view label,
                std::string_view type, std::string_view data) {
    AppendLine(text, {"<view>"});
    AppendLine(text, {"    <name>", name, "</name>"});
    AppendLine(text, {"    <label>", label, "</label>"});
    AppendLine(text, {"    <type>javax.help.", type, "</type>"});
    AppendLine(text, {"    ", data});
    AppendLine(text, {"</view>"});
    AppendLine(text, {});
}

std::string DataOfFile(std::string_view file, const ProjectState& project) {
    return "<data>" + XmlContent(AddressOf(file, project.proj), project.xml_form) + "</data>";
}

void RepairMapIds(MainForm& main) {
    TopicTables& topics = main.topics;
    verify_map_ids(topics, main.project.Alias_Prefix);
    main.texts.NoteLeftBehind(
        main.project.java_map_file,
        LeftBehind{"identifiers that two topics have", SeparateMapIds(topics)});
}

}  // namespace

void ReadHelpSet(std::string_view text, ProjectState& project) {
    project.javahelp_do_fts = false;
    const std::string joined = JoinLines(text);
    const XmlForm form = project.xml_form;
    TakeElement(joined, "<TITLE>", "</TITLE>", form, project.project_title);
    TakeElement(joined, "<HOMEID>", "</HOMEID>", form, project.project_def_topic);
    if (const std::size_t map = FindIgnoringAsciiCase(joined, "<MAPREF"); map != npos) {
        project.java_map_file = MakeFullPath(
            TextFromXml(XmlAttribute(joined, map, "LOCATION"), form), project.proj_path);
    }
    TakeViews(joined, project);
    project.hhcfile = MakeFullPath(project.hhcfile, project.proj_path);
    project.hhkfile = MakeFullPath(project.hhkfile, project.proj_path);
}

std::string WriteHelpSet(const ProjectState& project, bool has_contents, bool has_keywords) {
    const XmlForm form = project.xml_form;
    std::string text = JavaHelpHead("helpset", "HelpSet");
    AppendLine(text, {"<!-- title -->"});
    AppendLine(text, {"<title>", XmlContent(project.project_title, form), "</title>"});
    AppendLine(text, {});
    AppendLine(text, {"<!-- maps -->"});
    AppendLine(text, {"<maps>"});
    AppendLine(text, {"    <homeID>", XmlContent(project.project_def_topic, form), "</homeID>"});
    AppendLine(text, {"    <mapref location=\"",
                      XmlValue(AddressOf(project.java_map_file, project.proj), form), "\" />"});
    AppendLine(text, {"</maps>"});
    AppendLine(text, {});
    AppendLine(text, {"<!-- views -->"});
    if (has_contents) {
        AppendView(text, "TOC", "Table Of Contents", "TOCView",
                   DataOfFile(project.hhcfile, project));
    }
    if (has_keywords) {
        AppendView(text, "Index", "Index", "IndexView", DataOfFile(project.hhkfile, project));
    }
    if (project.javahelp_do_fts) {
        AppendView(text, "Search", "Search", "SearchView",
                   "<data engine=\"com.sun.java.help.search.DefaultSearchEngine\">\r\n"
                   "     JavaHelpSearch</data>");
    }
    AppendLine(text, {"</helpset>"});
    return text;
}

/// The contents and the index find their topics by the map, and the HelpSet names them only where
/// they have entries: what would be made of a part that could not be read is not written.
static void KeepWhatNeedsFailedFiles(MainForm& main) {
    KnownFiles& known = main.texts.Known();
    const ProjectState& project = main.project;
    const std::string of_map = known.FailureOf(project.java_map_file);
    for (const std::string& file : {project.hhcfile, project.hhkfile}) {
        if (!of_map.empty()) known.NoteFailure(file, of_map);
        const std::string reason = known.FailureOf(file);
        if (!reason.empty()) known.NoteFailure(project.proj, reason);
    }
}

void ReadJavaHelpSet(MainForm& main) {
    const Trap trap(main.log, "MainForm ReadJavaHelpSet: ");
    main.window.StatusBar1.SetPanel(1, "Reading HelpSet File...");
    std::string text;
    if (trap([&] { text = main.texts.ReadXml(main.project.proj); })) {
        main.texts.CheckKind(main.project.proj, text, {"<HELPSET", "<MAPREF", "<VIEW"});
        ReadHelpSet(text, main.project);
    }
    ReadJavaMapFile(main);
    RepairMapIds(main);
    JavaReadTOC(main);
    JavaReadIndex(main);
    KeepWhatNeedsFailedFiles(main);
    if (main.files.FileExists(main.outline.doc_outline)) ReadDocOutline(main);
    main.texts.NoteLeftBehind(
        main.project.proj, LeftBehindInHelpSet(text, main.project, main.contents.Tree1.Count() > 0,
                                               main.keywords.ListKeywords.Count() > 0));
    NoteFilesNotInHelpSet(main);
    OfferUnsavedWork(main);
    if (main.contents.Tree1.Count() > 0) trap([&] { OpenFirstContentsItem(main); });
    main.contents.toc_dirty = false;
    main.keywords.index_dirty = false;
    main.project.project_dirty = false;
}

void JavaWriteHelpSetFile(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaWriteHelpSetFile: ");
    const std::string text = WriteHelpSet(main.project, main.contents.Tree1.Count() > 0,
                                          main.keywords.ListKeywords.Count() > 0);
    main.texts.WriteXmlAndSwap(main.project.proj, text, Backup::kKept, trap);
}

}  // namespace quorrel
