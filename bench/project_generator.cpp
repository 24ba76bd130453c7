#include "project_generator.hpp"

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "contents/node_data.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "formats/htmlhelp/hhk.hpp"
#include "formats/htmlhelp/hhp.hpp"
#include "formats/htmlhelp/map_files.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"
#include "word_source.hpp"

namespace quorrel::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFolder = "Z:\\manual";
constexpr int kTopicsInFolder = 100;
constexpr int kFoldersInFolder = 10;
constexpr int kPagesInBook = 20;
constexpr int kBooksInVolume = 10;
constexpr int kFirstInteger = 1000;
constexpr std::size_t kTopicSize = 1000;

std::string Numbered(const char* format, int number) {
    char text[32];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::string PathOfTopic(const std::string& title, int number) {
    const int folder = number / kTopicsInFolder;
    std::string path(kFolder);
    path += Numbered("\\area_%03d", folder / kFoldersInFolder);
    path += Numbered("\\section_%02d\\", folder % kFoldersInFolder);
    return path + LowerAscii(ToIdentifier(title)) + Numbered("_%06d.htm", number);
}

void AddTopic(GeneratedProject& generated, const std::string& title, int number) {
    ListRow& row = generated.ListTopics.Add(title);
    const std::string path = PathOfTopic(title, number);
    row.SetSubItem(topic_cell::kMapId, Numbered("IDH_TOPIC_%06d", number));
    row.SetSubItem(topic_cell::kInteger, std::to_string(kFirstInteger + number));
    row.SetSubItem(topic_cell::kLocation, LocationOf(path, kFolder));
    row.SetSubItem(topic_cell::kFullPath, path);
}

TreeNode& AddNode(TreeView& tree, TreeNode* parent, const ListRow& topic) {
    TreeNode& node =
        tree.Add(parent, NodeRelation::kChild, topic.Text(), node_image::kPage, node_image::kPage);
    node.Tag =
        PackNodeData(topic.SubItems(topic_cell::kFullPath), topic.SubItems(topic_cell::kMapId), "");
    return node;
}

void AddContents(GeneratedProject& generated) {
    TreeNode* volume = nullptr;
    TreeNode* book = nullptr;
    for (int i = 0; i < generated.ListTopics.Count(); ++i) {
        const ListRow& topic = generated.ListTopics.At(i + 1);
        const int in_volume = i % (1 + kBooksInVolume * (1 + kPagesInBook));
        if (in_volume == 0) {
            volume = &AddNode(generated.Tree1, nullptr, topic);
        } else if ((in_volume - 1) % (1 + kPagesInBook) == 0) {
            book = &AddNode(generated.Tree1, volume, topic);
        } else {
            AddNode(generated.Tree1, book, topic);
        }
    }
}

void AddKeyword(GeneratedProject& generated, WordSource& words, std::string text,
                std::string full_key) {
    std::string targets;
    const int count = 1 + words.Below(3);
    for (int i = 0; i < count; ++i) {
        const int position = 1 + words.Below(generated.ListTopics.Count());
        const ListRow& topic = generated.ListTopics.At(position);
        targets.append(topic.Text()).append(">");
        targets.append(topic.SubItems(topic_cell::kFullPath)).append(";:");
    }
    ListRow& row = generated.keywords.ListKeywords.Add(std::move(text));
    row.SetSubItem(keyword_cell::IDX_TITLEPATH, std::move(targets));
    row.SetSubItem(keyword_cell::IDX_FULLKEY, std::move(full_key));
}

void AddIndex(GeneratedProject& generated, WordSource& words) {
    const int count = 2 * generated.ListTopics.Count();
    for (int i = 0; i < count; ++i) {
        const std::string keyword = words.Keyword();
        AddKeyword(generated, words, keyword, keyword);
        if (i % 4 != 0) continue;
        for (int sub = 0; sub < 2; ++sub) {
            const std::string sub_key(words.SubKey());
            AddKeyword(generated, words, "      " + sub_key, keyword + kSubKeyMark + sub_key);
        }
    }
}

std::string TopicText(WordSource& words, const std::string& title) {
    std::string text =
        "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\">\r\n<html>\r\n<head>\r\n<title>";
    text.append(title).append("</title>\r\n<link rel=\"stylesheet\" href=\"../../main.css\">\r\n");
    text.append("</head>\r\n<body>\r\n<h1>").append(title).append("</h1>\r\n");
    while (text.size() < kTopicSize) {
        text.append("<p>").append(words.Sentence()).append(" ");
        text.append(words.Sentence()).append("</p>\r\n");
    }
    return text.append("</body>\r\n</html>\r\n");
}

void WriteFile(const fs::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error("cannot write " + path.string());
}

void WriteTopics(const fs::path& folder, const GeneratedProject& generated, std::uint64_t seed) {
    WordSource words(seed + 1);
    for (int i = 1; i <= generated.ListTopics.Count(); ++i) {
        const ListRow& topic = generated.ListTopics.At(i);
        const std::string_view location = topic.SubItems(topic_cell::kLocation);
        const fs::path file = folder / ReplaceAll(location.substr(1), "\\", "/");
        if (i % kTopicsInFolder == 1) fs::create_directories(file.parent_path());
        WriteFile(file, TopicText(words, topic.Text()));
    }
}

}  // namespace

void Generate(GeneratedProject& generated, int topics, std::uint64_t seed) {
    WordSource words(seed);
    for (int i = 0; i < topics; ++i) AddTopic(generated, words.Title(), i);
    AddContents(generated);
    AddIndex(generated, words);
    ProjectState& project = generated.project;
    const std::string base = std::string(kFolder) + "\\manual";
    project.proj = base + ".hhp";
    project.proj_path = kFolder;
    project.hhcfile = base + ".hhc";
    project.hhkfile = base + ".hhk";
    project.java_map_file = base + ".h";
    project.project_title = "The Manual";
    project.project_def_topic = generated.ListTopics.At(1).SubItems(topic_cell::kFullPath);
}

ProjectTexts TextsOf(const GeneratedProject& generated) {
    constexpr std::string_view kOptions =
        "[OPTIONS]\r\n"
        "Compatibility=1.1 or later\r\n"
        "Display compile progress=No\r\n"
        "Full-text search=Yes\r\n"
        "Language=0x409 English (United States)\r\n"
        "[FILES]\r\n";
    const std::string& proj = generated.project.proj;
    return {WriteProjectText(kOptions, generated.project, generated.ListTopics),
            WriteContents(generated.Tree1, "", proj), WriteKeywords(generated.keywords, proj),
            WriteAliases(generated.ListTopics, proj), WriteMapHeader(generated.ListTopics)};
}

fs::path WriteProject(const fs::path& folder, int topics, std::uint64_t seed) {
    GeneratedProject generated;
    Generate(generated, topics, seed);
    const ProjectTexts texts = TextsOf(generated);
    fs::create_directories(folder);
    WriteFile(folder / "manual.hhp", texts.hhp);
    WriteFile(folder / "manual.hhc", texts.hhc);
    WriteFile(folder / "manual.hhk", texts.hhk);
    WriteFile(folder / "manual.ali", texts.ali);
    WriteFile(folder / "manual.h", texts.h);
    WriteTopics(folder, generated, seed);
    return folder / "manual.hhp";
}

}  // namespace quorrel::bench
