#include "formats/javahelp/jhm.hpp"

#include "app/main_form.hpp"
#include "formats/javahelp/item_tally.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "platform/unicode.hpp"
#include "project/paths.hpp"
#include "project/topic_title.hpp"

namespace quorrel {
namespace {

bool IsImage(const ListRow& alias) {
    const std::string& path = alias.SubItems(alias_cell::kPath);
    return ContainsIgnoringAsciiCase(path, ".GIF") || ContainsIgnoringAsciiCase(path, ".JPG");
}

class MapWriter {
  public:
    MapWriter(std::string_view file, XmlForm form) : file_(file), form_(form) {
        // A second empty line, which the other files do not have.
        AppendLine(text_, {});
    }

    void Heading(std::string_view heading) {
        AppendLine(text_, {"<!-- ", heading, " -->"});
        AppendLine(text_, {});
    }
    void Entry(const ListRow& row, int path_cell, const std::string& map_id) {
        const std::string url = AddressOf(row.SubItems(path_cell), file_);
        if (map_id.empty() && url.empty()) return;
        AppendLine(text_, {"   <mapID target=\"", XmlValue(map_id, form_), "\" url=\"",
                           XmlValue(url, form_), "\"/>"});
    }
    void Aliases(const ListView& ListAliases, bool images) {
        for (int i = 1; i <= ListAliases.Count(); ++i) {
            const ListRow& alias = ListAliases.At(i);
            if (IsImage(alias) == images) Entry(alias, alias_cell::kPath, alias.Text());
        }
        AppendLine(text_, {});
    }
    void Topics(const ListView& ListTopics) {
        for (int i = 1; i <= ListTopics.Count(); ++i) {
            const ListRow& topic = ListTopics.At(i);
            Entry(topic, topic_cell::kFullPath, topic.SubItems(topic_cell::kMapId));
        }
        AppendLine(text_, {});
    }
    [[nodiscard]] std::string Finish() {
        AppendLine(text_, {"</map>"});
        return std::move(text_);
    }

  private:
    std::string_view file_;
    XmlForm form_;
    std::string text_ = JavaHelpHead("map", "Map");
};

/// The map's path without the steps up that its address may have.
std::string PlaceOfMap(const ProjectState& project) {
    return MakeFullPathRel(MakeRelPathRel(project.java_map_file, project.proj), project.proj);
}

/// What viewers take for the place of an address: one relative to the map's folder. Of a map beside
/// the project file that is the project's. A map elsewhere may have been written with addresses
/// relative to the project's folder.
std::string PathOf(const MainForm& main, const std::string& address) {
    if (IsAddress(address)) return address;
    const ProjectState& project = main.project;
    const std::string map = PlaceOfMap(project);
    const std::string of_project = MakeFullPath(address, project.proj_path);
    if (EqualsIgnoringCase(BeforeLast(map, '\\', {}), project.proj_path)) return of_project;
    const std::string of_map = MakeFullPathRel(address, map);
    const auto exists = [&](std::string_view path) {
        return main.files.FileExists(path.substr(0, path.find('#')));
    };
    return !exists(of_map) && exists(of_project) ? of_project : of_map;
}

}  // namespace

std::vector<LeftBehind> ReadMap(std::string_view text, std::string_view proj_path,
                                ListView& ListTopics, ListView& ListAliases,
                                const PathOfAddress& path_of_address,
                                const TitleOfTopic& title_of_topic, XmlForm form) {
    ItemTally tally("MAPID", {"target", "url"}, "map ids", 1);
    LossCount pages;
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        const std::size_t place = FindIgnoringAsciiCase(line, "<MAPID");
        tally.TakeLine(line, {place, 1});
        if (place == npos) continue;
        const std::string address =
            path_of_address(TextFromXml(XmlAttribute(line, place, "URL"), form));
        const std::string attribute = TextFromXml(XmlAttribute(line, place, "TARGET"), form);
        const std::string_view url = Trim(address);
        const std::string_view target = Trim(attribute);
        // Any ending that begins like that of an HTML file counts as one.
        const bool is_topic =
            ContainsIgnoringAsciiCase(url, ".HT") && !Contains(url, "#") && !IsAddress(url);
        if (!is_topic) {
            ListAliases.Add(std::string(target)).SetSubItem(alias_cell::kPath, std::string(url));
            continue;
        }
        std::string path(url);
        std::optional<std::string> title = title_of_topic(path);
        pages.See(!title);
        if (!title) continue;
        ListRow& row = ListTopics.Add(std::move(*title));
        row.SetSubItem(topic_cell::kLocation, LocationOf(path, proj_path));
        row.SetSubItem(topic_cell::kFullPath, std::move(path));
        row.SetSubItem(topic_cell::kMapId, std::string(target));
    }
    std::vector<LeftBehind> findings = tally.Findings();
    findings.push_back(pages.Of("map ids of pages that are missing or have no title"));
    return findings;
}

std::string WriteMap(const TopicTables& tables, std::string_view file, XmlForm form) {
    MapWriter writer(file, form);
    writer.Heading("Images");
    writer.Aliases(tables.ListAliases, true);
    writer.Heading("Topics");
    writer.Topics(tables.ListTopics);
    writer.Heading("Index Bookmarks");
    writer.Aliases(tables.ListAliases, false);
    return writer.Finish();
}

void ReadJavaMapFile(MainForm& main) {
    const Trap trap(main.log, "MainForm ReadJavaMapFile: ");
    main.window.StatusBar1.SetPanel(1, "Reading Map File...");
    std::string text;
    if (!trap([&] { text = main.texts.ReadXml(main.project.java_map_file); })) return;
    main.texts.CheckKind(main.project.java_map_file, text, {"<MAP"});
    ShownProgress progress(main.window.progress, static_cast<int>(CountLines(text)));
    const PathOfAddress path_of_address = [&](const std::string& address) {
        return PathOf(main, address);
    };
    const TitleOfTopic title_of_topic = [&](const std::string& path) {
        progress.Next();
        // No file of the project has the title: where it cannot be read the name will do.
        std::optional<std::string> title = std::string(AfterLast(path, '\\'));
        trap([&] {
            title = ReadTopicTitle(main.files, path, main.texts.CodePageNumber(),
                                   TitlePieces::kTrimmed);
        });
        return title;
    };
    main.texts.NoteLeftBehind(
        main.project.java_map_file,
        ReadMap(text, main.project.proj_path, main.topics.ListTopics, main.topics.ListAliases,
                path_of_address, title_of_topic, main.project.xml_form));
}

void JavaWriteMapFile(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaWriteMapFile: ");
    std::string& file = main.project.java_map_file;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + ".jhm";
    main.texts.WriteXmlAndSwap(
        file, WriteMap(main.topics, PlaceOfMap(main.project), main.project.xml_form), Backup::kKept,
        trap);
}

}  // namespace quorrel
