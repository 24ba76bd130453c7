#include "formats/javahelp/jhm.hpp"

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "project/paths.hpp"
#include "project/tag_value.hpp"
#include "project/topic_title.hpp"

namespace quorrel {

void ReadMap(std::string_view text, std::string_view proj_path, ListView& ListTopics,
             ListView& ListAliases, const TitleOfTopic& title_of_topic) {
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        const std::size_t place = FindIgnoringAsciiCase(line, "<MAPID");
        if (place == npos) continue;
        const std::string address =
            MakeFullPath(TagValue(line, place + 1, "URL", "", TagMode::kRead), proj_path);
        const std::string attribute = TagValue(line, place + 1, "TARGET", "", TagMode::kRead);
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

void ReadJavaMapFile(MainForm& main) {
    const Trap trap(main.log, "MainForm ReadJavaMapFile: ");
    main.window.StatusBar1.SetPanel(1, "Reading Map File...");
    std::string text;
    if (!trap([&] { text = main.texts.ReadXml(main.project.java_map_file); })) return;
    const TitleOfTopic title_of_topic = [&](const std::string& path) {
        return ReadTopicTitle(main.files, path, main.texts.CodePageNumber(), TitlePieces::kTrimmed);
    };
    ReadMap(text, main.project.proj_path, main.topics.ListTopics, main.topics.ListAliases,
            title_of_topic);
}

}  // namespace quorrel
