#include "support/random_project.hpp"

#include <algorithm>

namespace quorrel::test {
namespace {

std::string Param(std::string_view name, std::string_view value) {
    return std::string("<param name=\"").append(name).append("\" value=\"").append(value) + "\">";
}

std::string WithBackslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
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
        switch (Below(10)) {
            case 0:
                break;
            case 1:
                node.file = topic.file + "#here";
                node.id = "here";
                break;
            case 2:
                node.file = "loose.htm";
                node.id = "loose";
                break;
            case 3:
                node.file = "http://example.org/a/page.htm";
                node.id = "nowhere";
                break;
            case 4:
                node.file = "pictures/one.gif";
                node.id = "one";
                break;
            default:
                node.file = topic.file;
                node.id = topic.id;
        }
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
        "a", "B",    " c",   "  ",        "&",       "&amp;", "&lt;", "%22", "'",
        ";", "\xE9", "\\",   "/",         "&#1078;", "=text", "<",    "#",   "(1)",
        "?", "name", "\x96", "&#128512;", ",",       "=",     "&l"};
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

std::string RandomProject::Sitemap(const std::string& entries) const {
    return "<HTML><BODY>" + line_end_ + "<OBJECT type=\"text/site properties\">" + line_end_ +
           Param("ImageType", "Folder") + line_end_ + "</OBJECT>" + line_end_ + "<ul>" + line_end_ +
           entries + "</ul>" + line_end_ + "</BODY></HTML>" + line_end_;
}

std::string RandomProject::SitemapKeyword(const Keyword& keyword, bool is_sub_key) {
    std::string text =
        "<LI><OBJECT type=\"text/sitemap\">" + line_end_ + Param("Name", keyword.text) + line_end_;
    for (const int target : keyword.targets) {
        const bool is_topic = target < static_cast<int>(topics_.size());
        const std::string file =
            is_topic ? topics_[static_cast<std::size_t>(target)].file + (Chance(15) ? "#here" : "")
                     : "gone.htm";
        text += Param("Name", "T " + std::to_string(target)) + line_end_;
        text += Param("Local", Chance(50) ? WithBackslashes(file) : file) + line_end_;
    }
    if (keyword.targets.empty() && Chance(50)) text += Param("See Also", "w") + line_end_;
    text += "</OBJECT>" + line_end_;
    if (is_sub_key || keyword.sub_keys.empty()) return text;
    text += "<ul>" + line_end_;
    for (const Keyword& sub_key : keyword.sub_keys) text += SitemapKeyword(sub_key, true);
    return text + "</ul>" + line_end_;
}

void RandomProject::WriteHtmlHelp(const ScratchFolder& folder) {
    WriteTopics(folder);
    std::string files, aliases, numbers = "#define GONE " + std::to_string(Below(200)) + line_end_;
    for (const Topic& topic : topics_) {
        files += WithBackslashes(topic.file) + line_end_;
        if (!topic.title.empty()) files += ";Title=" + topic.title + line_end_;
        if (topic.id.empty()) continue;
        aliases += topic.id + "=" + topic.file + line_end_;
        if (!topic.number.empty())
            numbers += "#define " + topic.id + " " + topic.number + line_end_;
    }
    files += line_end_;
    const std::string first = Chance(50) ? "Default Topic=" + topics_[0].file + line_end_ : "";
    folder.Write("p/g.hhp", "[OPTIONS]" + line_end_ + "Contents file=g.hhc" + line_end_ +
                                "Index file=g.hhk" + line_end_ + "Title=" + Word() + line_end_ +
                                first + line_end_ + "[WINDOWS]" + line_end_ + "main=\"t\",,,0x1" +
                                line_end_ + line_end_ + "[FILES]" + line_end_ + files + "[ALIAS]" +
                                line_end_ + "#include g.ali" + line_end_ + "[MAP]" + line_end_ +
                                "#include \"g.h\"" + line_end_);
    folder.Write("p/g.ali", aliases);
    folder.Write("p/g.h", numbers);
    std::string entries;
    int level = 1;
    const auto go_to = [&](int wanted) {
        for (; level < wanted; ++level) entries += "<ul>" + line_end_;
        for (; level > wanted; --level) entries += "</ul>" + line_end_;
    };
    for (const Node& node : nodes_) {
        go_to(node.level);
        entries +=
            "<li><object type=\"text/sitemap\">" + line_end_ + Param("Name", node.text) + line_end_;
        if (!node.file.empty()) entries += Param("Local", node.file) + line_end_;
        if (Chance(20)) entries += Param("New", std::to_string(Below(2))) + line_end_;
        if (Chance(20)) entries += Param("FrameName", "right") + line_end_;
        if (Chance(20)) entries += Param("Comment", "kept, with commas") + line_end_;
        entries += "</object>" + line_end_;
    }
    go_to(1);
    folder.Write("p/g.hhc", Sitemap(entries));
    entries.clear();
    for (const Keyword& keyword : keywords_) entries += SitemapKeyword(keyword, false);
    folder.Write("p/g.hhk", Sitemap(entries));
}

std::string RandomProject::IndexItem(const Keyword& keyword) {
    const auto id = [&](int target) {
        return target < static_cast<int>(topics_.size()) ? "id" + std::to_string(target) : "gone";
    };
    std::string text;
    for (std::size_t i = 0; i < std::max<std::size_t>(keyword.targets.size(), 1); ++i) {
        const std::string number = i == 0 ? "" : " (" + std::to_string(i + 1) + ")";
        const bool opens = !keyword.sub_keys.empty() && i + 1 >= keyword.targets.size();
        text += "<indexitem" + Attribute("text", keyword.text + number);
        if (!keyword.targets.empty()) text += Attribute("target", id(keyword.targets[i]));
        text += (opens ? ">" : "/>") + std::string(i == 0 ? "" : " <!-- QR IMULT -->") + line_end_;
    }
    if (keyword.sub_keys.empty()) return text;
    for (const Keyword& sub_key : keyword.sub_keys) text += IndexItem(sub_key);
    return text + "</indexitem>" + line_end_;
}

void RandomProject::WriteJavaHelp(const ScratchFolder& folder) {
    WriteTopics(folder);
    const std::string head = "<?xml version='1.0' encoding='ISO-8859-1' ?>" + line_end_;
    folder.Write("p/g.hs",
                 head + "<helpset version=\"1.0\">" + line_end_ + "<title>" + Word() + "</title>" +
                     line_end_ + "<homeID>id0</homeID><mapref location=\"g.jhm\"/>" + line_end_ +
                     "<view><data>toc.xml</data><type>x.TOCView</type></view>" +
                     "<view><data>index.xml</data><type>x.IndexView</type></view>" + line_end_ +
                     (Chance(50) ? "<view><data engine=\"x.SearchEngine\">D</data></view>" : "") +
                     "</helpset>");
    std::string map = head + "<map>" + line_end_;
    const auto entry = [&](const std::string& id, const std::string& file) {
        map += " <mapID" + Attribute("target", id) + Attribute("url", file) + "/>" + line_end_;
    };
    entry("here", topics_[0].file + "#here");
    for (std::size_t i = 0; i < topics_.size(); ++i)
        entry("id" + std::to_string(i), topics_[i].file);
    entry("gone", "gone.htm");
    entry("one", "pictures/one.gif");
    folder.Write("p/g.jhm", map + "</map>" + line_end_);
    std::string items;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        const Node& node = nodes_[i];
        const int next = i + 1 < nodes_.size() ? nodes_[i + 1].level : 1;
        const std::string target =
            node.id.rfind("ID_", 0) == 0 ? "id" + node.id.substr(3) : node.id;
        items += "<tocitem" + Attribute("text", node.text) +
                 (target.empty() ? "" : Attribute("target", target)) +
                 (Chance(30) ? Attribute("image", "one") : "") + (next > node.level ? ">" : "/>") +
                 line_end_;
        for (int level = node.level; level > next; --level) items += "</tocitem>" + line_end_;
    }
    folder.Write("p/toc.xml", head + "<toc>" + line_end_ + items + "</toc>" + line_end_);
    items.clear();
    for (const Keyword& keyword : keywords_) items += IndexItem(keyword);
    folder.Write("p/index.xml", head + "<index>" + line_end_ + items + "</index>" + line_end_);
}

}  // namespace quorrel::test
