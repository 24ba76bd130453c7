// Edits topics in the real engine and looks at what becomes of their source.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "editor/object_mask.hpp"
#include "editor/preserve_source.hpp"
#include "editor/token_diff.hpp"
#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"
#include "support/preserve_cases.hpp"
#include "ui/engine_page.hpp"

namespace quorrel::test {
namespace {

/// A source, what the engine makes of it before and after an edit, and the source put together
/// again, with its lines that are gone and that are new; a changed one is both.
struct Edited {
    std::string original, base, edited, preserved;
    std::size_t removed_lines = 0;
    std::size_t added_lines = 0;
};

struct Edit {
    const char* name;
    /// Gives true if the edit is done, and false where it cannot be.
    const char* script;
    /// Whether the change of lines is small enough; none if any is.
    bool (*is_small)(const Edited&);
};

/// The word in the middle of the body, as a text node with two offsets, and helpers for it.
const char* const kFindWord = R"(
    const isText = node => !node.parentElement.closest('script,style,textarea,title,select,svg,xmp');
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    const words = [];
    while (walker.nextNode()) {
        if (!isText(walker.currentNode)) continue;
        for (const hit of walker.currentNode.data.matchAll(/[\p{L}\p{N}]+/gu))
            words.push([walker.currentNode, hit.index, hit.index + hit[0].length]);
    }
    if (words.length === 0) return false;
    const [node, begin, end] = words[Math.floor(words.length / 2)];
    const command = (name, from, to) => {
        document.designMode = 'on';
        getSelection().setBaseAndExtent(node, from, node, to);
        const done = document.execCommand(name);
        document.designMode = 'off';
        return done;
    };
)";

bool IsOneLineChanged(const Edited& topic) {
    return topic.removed_lines == 1 && topic.added_lines == 1;
}
/// New lines; where the block ends within a line or formatting reaches over it, that line is cut
/// in two and tags are closed and opened again, but all of it is still there.
bool IsOnlyAdded(const Edited& topic) {
    std::size_t kept = 0;
    for (const char c : topic.preserved) {
        if (kept < topic.original.size() && c == topic.original[kept]) ++kept;
    }
    return kept == topic.original.size() && topic.removed_lines <= 1;
}
bool IsOnlyRemoved(const Edited& topic) {
    return topic.preserved.size() < topic.original.size() && topic.added_lines <= 1;
}

std::vector<std::uint64_t> LineKeys(std::string_view text) {
    std::vector<std::uint64_t> keys;
    while (!text.empty()) {
        std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if (text.substr(end).starts_with("\r\n")) ++end;
        end = std::min(end + 1, text.size());
        keys.push_back(std::hash<std::string_view>()(text.substr(0, end)));
        text.remove_prefix(end);
    }
    return keys;
}

const Edit kEdits[] = {
    {"word", "node.replaceData(begin, end - begin, 'Exchanged'); return true;", IsOneLineChanged},
    {"paragraph", R"(
            const block = node.parentElement.closest('p,h1,h2,h3,h4,h5,h6,pre,ul,ol,dl,table,div');
            if (!block || block.parentElement.closest('p')) return false;
            const added = document.createElement('p');
            added.textContent = 'Added & new.';
            block.after(added);
            return true;)",
     IsOnlyAdded},
    {"attribute", R"(
            const element = node.parentElement.closest('p,h1,h2,h3,h4,li,td,th,ul,table,div,body');
            const name = element.attributes.length ? element.attributes[0].name : 'title';
            element.setAttribute(name, 'a new "value"');
            return true;)",
     IsOneLineChanged},
    {"delete", R"(
            const block = node.parentElement.closest('p,li,h1,h2,h3,h4,h5,h6');
            if (!block) return false;
            block.remove();
            return true;)",
     IsOnlyRemoved},
    {"split", "return command('insertParagraph', begin, begin);", nullptr},
    {"join", R"(
            const blocks = [...document.body.querySelectorAll('p,h1,h2,h3,h4,h5,h6,li')];
            const block = node.parentElement.closest('p,h1,h2,h3,h4,h5,h6,li');
            if (blocks.indexOf(block) < 1) return false;
            document.designMode = 'on';
            getSelection().setPosition(block, 0);
            const done = document.execCommand('delete');
            document.designMode = 'off';
            return done;)",
     nullptr},
    {"list", "return command('insertUnorderedList', begin, end);", nullptr},
    {"strong", "return command('bold', begin, end);", IsOneLineChanged}};

/// The topic is loaded as the editor does it, with its OBJECT tags masked, edited at the word in
/// its middle, and its source put together again: the engine has to read that as the edited
/// document, and no more lines may change than need to. False if the edit cannot be done here.
bool CheckTopic(EnginePage& page, const std::filesystem::path& file, const Edit& edit) {
    NativeFileSystem files;
    const std::string path = files.WindowsPath(std::filesystem::absolute(file).string());
    Edited topic;
    try {
        topic.original = MaskObjects(ReadTopicText(files.ReadFile(path), 1252).text);
    } catch (const RuntimeError&) {
        return false;  // a frameset
    }
    const auto contents_of = [&](const std::string& text) {
        return page.Load(text, path) ? page.Contents() : "it does not load";
    };
    if (!page.Load(topic.original, path)) return false;
    topic.base = page.Serialised();
    const QString script = QString("(() => {") + kFindWord + edit.script + "})()";
    if (!page.Run(script).toBool()) return false;
    topic.edited = page.Serialised();
    if (topic.edited == topic.base) return false;
    std::string wanted = page.Contents();
    topic.preserved = PreserveSource(topic.original, topic.base, topic.edited);
    const std::string got = contents_of(topic.preserved);
    // What editing made may be no document that any source gives.
    if (got != wanted) wanted = contents_of(topic.edited);
    EXPECT_EQ(got, wanted);
    for (const DiffHunk& hunk : DiffOf(LineKeys(topic.original), LineKeys(topic.preserved))) {
        topic.removed_lines += hunk.a_end - hunk.a_begin;
        topic.added_lines += hunk.b_end - hunk.b_begin;
    }
    EXPECT_TRUE(edit.is_small == nullptr || edit.is_small(topic))
        << topic.removed_lines << " lines gone, " << topic.added_lines << " new";
    return true;
}

/// The HTML files in a folder and below, in order.
std::vector<std::filesystem::path> TopicsIn(const std::filesystem::path& place) {
    std::vector<std::filesystem::path> topics;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
        const std::string ending = LowerAscii(entry.path().extension().string());
        const bool is_topic = ending == ".htm" || ending == ".html";
        if (is_topic && entry.is_regular_file()) topics.push_back(entry.path());
    }
    std::sort(topics.begin(), topics.end());
    return topics;
}

TEST(PreserveInTheEngine, TheCasesAreWhatTheEngineMakes) {
    EnginePage page;
    for (const PreserveCase& it : PreserveCases()) {
        // The mark is the loader's.
        const bool has_mark = it.original.starts_with("\xEF\xBB\xBF");
        ASSERT_TRUE(page.Load(it.original.substr(has_mark ? 3 : 0), "Z:\\a.htm"));
        EXPECT_EQ(page.Serialised(), it.base) << it.name;
        ASSERT_TRUE(page.Load(it.edited, "Z:\\a.htm"));
        const std::string wanted = page.Contents();
        ASSERT_TRUE(page.Load(it.expected.substr(has_mark ? 3 : 0), "Z:\\a.htm"));
        EXPECT_EQ(page.Contents(), wanted) << it.name;
    }
}

/// The topics of the sample, or of the folder that QUORREL_TOPICS names.
TEST(PreserveInTheEngine, TopicsKeepTheirSource) {
    EnginePage page;
    const char* chosen = std::getenv("QUORREL_TOPICS");
    const auto topics = TopicsIn(chosen == nullptr ? QUORREL_SAMPLES : chosen);
    ASSERT_FALSE(topics.empty());
    std::size_t edited = 0;
    for (const std::filesystem::path& topic : topics) {
        for (const Edit& edit : kEdits) {
            SCOPED_TRACE(edit.name + (" in " + topic.string()));
            if (CheckTopic(page, topic, edit)) ++edited;
        }
    }
    EXPECT_GE(edited, topics.size() / 2);
}

}  // namespace
}  // namespace quorrel::test
