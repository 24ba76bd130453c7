#include "support/random_project.hpp"

#include <algorithm>
#include <tuple>

#include "platform/text.hpp"

namespace quorrel::test {
namespace {

std::string Param(std::string_view name, std::string_view value) {
    return std::string("<param name=\"").append(name).append("\" value=\"").append(value) + "\">\n";
}

std::string WithBackslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string Sitemap(const std::string& entries) {
    return "<HTML><BODY>\n<OBJECT type=\"text/site properties\">\n" + Param("ImageType", "Folder") +
           "</OBJECT>\n<ul>\n" + entries + "</ul>\n</BODY></HTML>\n";
}

std::string Attribute(std::string_view name, std::string_view value) {
    return std::string(" ").append(name).append("=\"").append(value) + "\"";
}

}  // namespace

RandomProject::RandomProject(unsigned seed) : random_(seed) {
    line_end_ = Chance(50) ? "\r\n" : "\n";
    for (int i = 0, count = 1 + Below(7); i < count; ++i) {
        const std::string number = std::to_string(i);
        const std::string folder = Chance(40) ? "" : Chance(50) ? "sub/" : "Deep er/x_y/";
        topics_.push_back({folder + "t-" + number + (Chance(80) ? ".htm" : ".html"),
                           Chance(80) ? Word() + " n" + number : "",
                           Chance(60) ? "ID_" + number : "",
                           Chance(50) ? std::to_string(Below(90)) : ""});
    }
    int level = 1;
    for (int count = Below(12); count > 0; --count) {
        Node node{level, Word(), "", ""};
        const Topic& topic =
            topics_[static_cast<std::size_t>(Below(static_cast<int>(topics_.size())))];
        const std::pair<std::string, std::string> others[] = {
            {"", ""},
            {topic.file + "#here", "here"},
            {"loose.htm", "loose"},
            {"http://example.org/a/page.htm", "nowhere"},
            {"pictures/one.gif", "one"}};
        const int kind = Below(10);
        std::tie(node.file, node.id) = kind < 5 ? others[kind] : std::pair(topic.file, topic.id);
        nodes_.push_back(node);
        level = 1 + Below(std::min(level + 1, 5));
    }
    int number = 0;
    for (int count = Below(8); count > 0; --count) keywords_.push_back(MakeKeyword(number));
}

/// The number, which no other has, keeps keywords from containing one another.
RandomProject::Keyword RandomProject::MakeKeyword(int& number) {
    Keyword keyword;
    keyword.text = Word() + " k" + std::to_string(number++) + "k";
    for (int count = Below(4); count > 0; --count) {
        keyword.targets.push_back(Below(static_cast<int>(topics_.size()) + 1));
    }
    for (int count = Chance(40) ? Below(4) : 0; count > 0; --count) {
        keyword.sub_keys.push_back(MakeKeyword(number));
        keyword.sub_keys.back().sub_keys.clear();
    }
    return keyword;
}

std::string RandomProject::Word() {
    static constexpr const char* kPieces[] = {
        "a", "B",    " c",   "  ",        "&",       "&amp;", "&lt;", "%22",     "'",
        ";", "\xE9", "\\",   "/",         "&#1078;", "=text", "<",    "#",       "(1)",
        "?", "name", "\x96", "&#128512;", ",",       "=",     "&l",   " target", "image="};
    std::string word = "w";
    for (int count = Below(6); count > 0; --count) word += kPieces[Below(std::size(kPieces))];
    return word;
}

void RandomProject::WriteTopics(const ScratchFolder& folder) const {
    const auto write = [&](const std::string& file) {
        const std::string name = file.substr(file.rfind('/') + 1);
        folder.Write("p/" + file, "<html><head>\n<title> " + TitleOfFile(name) +
                                      "</title></head><body>x</body></html>");
    };
    for (const Topic& topic : topics_) write(topic.file);
    write("loose.htm");
    folder.Write("p/pictures/one.gif", "GIF89a");
}

/// With the line ends of this project.
void RandomProject::Write(const ScratchFolder& folder, const std::string& name,
                          const std::string& text) const {
    folder.Write("p/" + name, ReplaceAll(text, "\n", line_end_));
}

std::string RandomProject::SitemapKeyword(const Keyword& keyword, bool is_sub_key) {
    std::string text = "<LI><OBJECT type=\"text/sitemap\">\n" + Param("Name", keyword.text);
    for (const int target : keyword.targets) {
        const bool is_topic = target < static_cast<int>(topics_.size());
        const std::string file =
            is_topic ? topics_[static_cast<std::size_t>(target)].file + (Chance(15) ? "#here" : "")
                     : "gone.htm";
        text += Param("Name", "T " + std::to_string(target));
        text += Param("Local", Chance(50) ? WithBackslashes(file) : file);
    }
    if (keyword.targets.empty() && Chance(50)) text += Param("See Also", "w");
    text += "</OBJECT>\n";
    if (is_sub_key || keyword.sub_keys.empty()) return text;
    text += "<ul>\n";
    for (const Keyword& sub_key : keyword.sub_keys) text += SitemapKeyword(sub_key, true);
    return text + "</ul>\n";
}

void RandomProject::WriteHtmlHelp(const ScratchFolder& folder) {
    WriteTopics(folder);
    std::string files, aliases, numbers = "#define GONE " + std::to_string(Below(200)) + "\n";
    for (const Topic& topic : topics_) {
        files += WithBackslashes(topic.file) + "\n";
        if (!topic.title.empty()) files += ";Title=" + topic.title + "\n";
        if (topic.id.empty()) continue;
        aliases += topic.id + "=" + topic.file + "\n";
        if (!topic.number.empty()) numbers += "#define " + topic.id + " " + topic.number + "\n";
    }
    const std::string first = Chance(50) ? "Default Topic=" + topics_[0].file + "\n" : "";
    Write(folder, "g.hhp",
          "[OPTIONS]\nContents file=g.hhc\nIndex file=g.hhk\nTitle=" + Word() + "\n" + first +
              "\n[WINDOWS]\nmain=\"t\",,,0x1\n\n[FILES]\n" + files +
              "\n[ALIAS]\n#include g.ali\n[MAP]\n#include \"g.h\"\n");
    Write(folder, "g.ali", aliases);
    Write(folder, "g.h", numbers);
    std::string entries;
    int level = 1;
    const auto go_to = [&](int wanted) {
        for (; level < wanted; ++level) entries += "<ul>\n";
        for (; level > wanted; --level) entries += "</ul>\n";
    };
    for (const Node& node : nodes_) {
        go_to(node.level);
        entries += "<li><object type=\"text/sitemap\">\n" + Param("Name", node.text);
        if (!node.file.empty()) entries += Param("Local", node.file);
        if (Chance(20)) entries += Param("New", std::to_string(Below(2)));
        if (Chance(20)) entries += Param("FrameName", "right");
        if (Chance(20)) entries += Param("Comment", "kept, with commas");
        entries += "</object>\n";
    }
    go_to(1);
    Write(folder, "g.hhc", Sitemap(entries));
    entries.clear();
    for (const Keyword& keyword : keywords_) entries += SitemapKeyword(keyword, false);
    Write(folder, "g.hhk", Sitemap(entries));
}

std::string RandomProject::IndexItem(const Keyword& keyword) const {
    std::string text;
    for (std::size_t i = 0; i < std::max<std::size_t>(keyword.targets.size(), 1); ++i) {
        const std::string number = i == 0 ? "" : " (" + std::to_string(i + 1) + ")";
        const bool opens = !keyword.sub_keys.empty() && i + 1 >= keyword.targets.size();
        text += "<indexitem" + Attribute("text", keyword.text + number);
        if (!keyword.targets.empty()) {
            const int target = keyword.targets[i];
            const bool is_topic = target < static_cast<int>(topics_.size());
            text += Attribute("target", is_topic ? "id" + std::to_string(target) : "gone");
        }
        text += std::string(opens ? ">" : "/>") + (i == 0 ? "\n" : " <!-- QR IMULT -->\n");
    }
    if (keyword.sub_keys.empty()) return text;
    for (const Keyword& sub_key : keyword.sub_keys) text += IndexItem(sub_key);
    return text + "</indexitem>\n";
}

void RandomProject::WriteEscapedJavaHelp(const ScratchFolder& folder) {
    WriteJavaHelp(folder);
    Write(folder, "g.prj", "[Settings]\nxml_escapes=1\n");
}

void RandomProject::WriteJavaHelp(const ScratchFolder& folder) {
    WriteTopics(folder);
    const std::string head = "<?xml version='1.0' encoding='ISO-8859-1' ?>\n";
    Write(folder, "g.hs",
          head + "<helpset version=\"1.0\">\n<title>" + Word() +
              "</title>\n<homeID>id0</homeID><mapref location=\"g.jhm\"/>\n"
              "<view><data>toc.xml</data><type>x.TOCView</type></view>"
              "<view><data>index.xml</data><type>x.IndexView</type></view>\n" +
              (Chance(50) ? "<view><data engine=\"x.SearchEngine\">D</data></view>" : "") +
              "</helpset>");
    std::string map;
    const auto entry = [&](const std::string& id, const std::string& file) {
        map += " <mapID" + Attribute("target", id) + Attribute("url", file) + "/>\n";
    };
    entry("here", topics_[0].file + "#here");
    for (std::size_t i = 0; i < topics_.size(); ++i) {
        entry("id" + std::to_string(i), topics_[i].file);
    }
    entry("gone", "gone.htm");
    entry("one", "pictures/one.gif");
    Write(folder, "g.jhm", head + "<map>\n" + map + "</map>\n");
    std::string items;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        const Node& node = nodes_[i];
        const int next = i + 1 < nodes_.size() ? nodes_[i + 1].level : 1;
        const bool is_topic = node.id.starts_with("ID_");
        const std::string target = is_topic ? "id" + node.id.substr(3) : node.id;
        items += "<tocitem" + Attribute("text", node.text) +
                 (target.empty() ? "" : Attribute("target", target)) +
                 (Chance(30) ? Attribute("image", "one") : "") +
                 (next > node.level ? ">\n" : "/>\n");
        for (int level = node.level; level > next; --level) items += "</tocitem>\n";
    }
    Write(folder, "toc.xml", head + "<toc>\n" + items + "</toc>\n");
    items.clear();
    for (const Keyword& keyword : keywords_) items += IndexItem(keyword);
    Write(folder, "index.xml", head + "<index>\n" + items + "</index>\n");
}

}  // namespace quorrel::test
