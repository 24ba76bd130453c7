// Help projects by chance, in the files of either family, written without the program's writers.
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/scratch_folder.hpp"

namespace quorrel::test {

/// The same seed gives the same project: a few topics in folders, some without identifier, title
/// or number; contents with books, places within topics, pages that are no topics and addresses
/// elsewhere; keywords with several targets, none, and sub-keys; texts with characters that are
/// special in one of the formats.
class RandomProject {
  public:
    explicit RandomProject(unsigned seed);

    /// p/g.hhp and the files that it names, and the topics.
    void WriteHtmlHelp(const ScratchFolder& folder);
    /// p/g.hs and the files that it names, and the topics.
    void WriteJavaHelp(const ScratchFolder& folder);
    /// The same with the choice to write the texts of these files as XML.
    void WriteEscapedJavaHelp(const ScratchFolder& folder);

    [[nodiscard]] static std::string TitleOfFile(std::string_view name) {
        return "File " + std::string(name);
    }

  private:
    struct Topic {
        std::string file;   // with "/"
        std::string title;  // of the file list; empty for that of the file
        std::string id;
        std::string number;
    };
    struct Node {
        int level = 1;
        std::string text, file, id;
    };
    struct Keyword {
        std::string text;
        std::vector<int> targets;  // topics
        std::vector<Keyword> sub_keys;
    };

    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool Chance(int percent) { return Below(100) < percent; }
    std::string Word();
    Keyword MakeKeyword(int& number);
    void WriteTopics(const ScratchFolder& folder) const;
    void Write(const ScratchFolder& folder, const std::string& name, const std::string& text) const;
    std::string SitemapKeyword(const Keyword& keyword, bool is_sub_key);
    std::string IndexItem(const Keyword& keyword) const;

    std::mt19937 random_;
    std::string line_end_;
    std::vector<Topic> topics_;
    std::vector<Node> nodes_;
    std::vector<Keyword> keywords_;
};

}  // namespace quorrel::test
