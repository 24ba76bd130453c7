#include "formats/javahelp/jhm.hpp"

#include "app/main_form.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
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
    explicit MapWriter(std::string_view proj) : proj_(proj) {
        // A second empty line, which the other files do not have.
        AppendLine(text_, {});
    }

    void Heading(std::string_view heading) {
        AppendLine(text_, {"<!-- ", heading, " -->"});
        AppendLine(text_, {});
    }
    void Entry(const ListRow& row, int path_cell, const std::string& map_id) {
        const std::string url =
            ReplaceAll(MakeRelPathRel(row.SubItems(path_cell), proj_), "\\", "/");
        AppendLine(text_, {"   <mapID target=\"", map_id, "\" url=\"", url, "\"/>"});
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
    std::string_view proj_;
    std::string text_ = JavaHelpHead("map", "Map");
};

}  // namespace

void ReadMap(std::string_view text, std::string_view proj_path, ListView& ListTopics,
             ListView& ListAliases, const TitleOfTopic& title_of_topic) {
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        const std::size_t place = FindIgnoringAsciiCase(line, "<MAPID");
        if (place == npos) continue;
        const std::string address = MakeFullPath(XmlAttribute(line, place, "URL"), proj_path);
        const std::string attribute = XmlAttribute(line, place, "TARGET");
        const std::string_view url = Trim(address);
        const std::string_view target = Trim(attribute);
        // Any ending that begins like that of an HTML file counts as one.
        const bool is_topic = ContainsIgnoringAsciiCase(url, ".HT") && !Contains(url, "#");
        if (!is_topic) {
            ListAliases.Add(std::string(target)).SetSubItem(alias_cell::kPath, std::string(url));
            continue;
        }
        std::string path(url);
        std::optional<std::string> title = title_of_topic(path);
        if (!title) continue;
        ListRow& row = ListTopics.Add(std::move(*title));
        row.SetSubItem(topic_cell::kLocation, LocationOf(path, proj_path));
        row.SetSubItem(topic_cell::kFullPath, std::move(path));
        row.SetSubItem(topic_cell::kMapId, std::string(target));
    }
}

std::string WriteMap(const TopicTables& tables, std::string_view proj) {
    MapWriter writer(proj);
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
    ShownProgress progress(main.window.progress, static_cast<int>(CountLines(text)));
    const TitleOfTopic title_of_topic = [&](const std::string& path) {
        progress.Next();
        return ReadTopicTitle(main.files, path, main.texts.CodePageNumber(), TitlePieces::kTrimmed);
    };
    ReadMap(text, main.project.proj_path, main.topics.ListTopics, main.topics.ListAliases,
            title_of_topic);
}

void JavaWriteMapFile(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaWriteMapFile: ");
    const std::string& proj = main.project.proj;
    std::string& file = main.project.java_map_file;
    if (file.empty()) file = std::string(BaseName(proj)) + ".jhm";
    main.texts.WriteXmlAndSwap(file, WriteMap(main.topics, proj), Backup::kKept, trap);
}

}  // namespace quorrel
