#include "tools/topic_check.hpp"

#include <algorithm>
#include <functional>
#include <map>

#include "editor/preserve_source.hpp"
#include "editor/token_diff.hpp"
#include "platform/edit_surface.hpp"
#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"

namespace quorrel::test {
namespace {

/// The word at PLACE of the body, as a text node with two offsets, and helpers for it.
const char* const kFindWord = R"(
    const isText = node => !node.parentElement.closest('script,style,textarea,title,select,svg,xmp');
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    const words = [];
    while (walker.nextNode()) {
        if (!isText(walker.currentNode)) continue;
        for (const hit of walker.currentNode.data.matchAll(/[\p{L}\p{N}]+/gu))
            words.push([walker.currentNode, hit.index, hit.index + hit[0].length]);
    }
    if (words.length === 0) return 'no word';
    const [node, begin, end] = words[Math.min(Math.floor(words.length * PLACE), words.length - 1)];
    const range = document.createRange();
    range.setStart(node, begin);
    range.setEnd(node, end);
    const command = (name, from, to) => {
        document.designMode = 'on';
        getSelection().setBaseAndExtent(node, from, node, to);
        const done = document.execCommand(name);
        document.designMode = 'off';
        return done ? '' : 'the engine refuses it';
    };
)";

struct Edit {
    std::string name;
    /// Gives why the edit cannot be done here, or nothing.
    const char* script;
    /// Whether the change of lines is small enough.
    std::function<bool(const TopicOutcome&)> is_small;
};

bool IsOneLineChanged(const TopicOutcome& outcome) {
    return outcome.removed_lines == 1 && outcome.added_lines == 1;
}
/// New lines; where the block ends within a line or formatting reaches over it, that line is cut
/// in two and tags are closed and opened again, but all of it is still there.
bool IsOnlyAdded(const TopicOutcome& outcome) {
    std::size_t kept = 0;
    for (const char c : outcome.preserved) {
        if (kept < outcome.original.size() && c == outcome.original[kept]) ++kept;
    }
    return kept == outcome.original.size() && outcome.removed_lines <= 1;
}
bool IsOnlyRemoved(const TopicOutcome& outcome) {
    return outcome.preserved.size() < outcome.original.size() && outcome.added_lines <= 1;
}
bool IsAnything(const TopicOutcome&) {
    return true;
}

const std::vector<Edit>& Edits() {
    static const std::vector<Edit> edits = {
        {"word", "node.replaceData(begin, end - begin, 'Exchanged'); return '';", IsOneLineChanged},
        {"paragraph", R"(
            const block = node.parentElement.closest('p,h1,h2,h3,h4,h5,h6,pre,ul,ol,dl,table,div');
            if (!block || block.parentElement.closest('p')) return 'no block';
            const added = document.createElement('p');
            added.textContent = 'Added & new.';
            block.after(added);
            return '';)",
         IsOnlyAdded},
        {"bold", "range.surroundContents(document.createElement('b')); return '';",
         IsOneLineChanged},
        {"attribute", R"(
            const element = node.parentElement.closest('p,h1,h2,h3,h4,li,td,th,ul,table,div,body');
            const name = element.attributes.length ? element.attributes[0].name : 'title';
            element.setAttribute(name, 'a new "value"');
            return '';)",
         IsOneLineChanged},
        {"delete", R"(
            const block = node.parentElement.closest('p,li,h1,h2,h3,h4,h5,h6');
            if (!block) return 'no block';
            block.remove();
            return '';)",
         IsOnlyRemoved},
        {"split", "return command('insertParagraph', begin, begin);", IsAnything},
        {"join", R"(
            const blocks = [...document.body.querySelectorAll('p,h1,h2,h3,h4,h5,h6,li')];
            const block = node.parentElement.closest('p,h1,h2,h3,h4,h5,h6,li');
            if (blocks.indexOf(block) < 1) return 'no block';
            document.designMode = 'on';
            getSelection().setPosition(block, 0);
            const done = document.execCommand('delete');
            document.designMode = 'off';
            return done ? '' : 'the engine refuses it';)",
         IsAnything},
        {"list", "return command('insertUnorderedList', begin, end);", IsAnything},
        {"strong", "return command('bold', begin, end);", IsOneLineChanged}};
    return edits;
}

const Edit& EditNamed(std::string_view name) {
    const auto found = std::find_if(Edits().begin(), Edits().end(),
                                    [&](const Edit& edit) { return edit.name == name; });
    if (found == Edits().end()) throw RuntimeError(5, "no such edit: " + std::string(name));
    return *found;
}

std::string Masked(std::string text) {
    for (const auto& [tag, masked] :
         {std::pair("<OBJECT", "<!OBJECT"), std::pair("</OBJECT", "<!/OBJECT"),
          std::pair("<object", "<!OBJECT"), std::pair("</object", "<!/OBJECT")}) {
        text = ReplaceAll(text, tag, masked);
    }
    return text;
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

void CountLines(TopicOutcome& outcome) {
    for (const DiffHunk& hunk : DiffOf(LineKeys(outcome.original), LineKeys(outcome.preserved))) {
        outcome.removed_lines += hunk.a_end - hunk.a_begin;
        outcome.added_lines += hunk.b_end - hunk.b_begin;
    }
}

std::string Reloaded(EnginePage& page, std::string_view text, const std::string& path) {
    return page.Load(text, path) ? page.Contents() : std::string("it does not load");
}

/// Where two texts differ, for a message.
std::string FirstDifference(const std::string& a, const std::string& b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t at = 0;
    while (at < shorter && a[at] == b[at]) ++at;
    const std::size_t from = at < 20 ? 0 : at - 20;
    return "\"" + a.substr(from, 70) + "\" for \"" + b.substr(from, 70) + "\"";
}

TopicOutcome Skipped(std::string reason) {
    TopicOutcome outcome;
    outcome.result = TopicOutcome::Result::kSkipped;
    outcome.reason = std::move(reason);
    return outcome;
}

void Fail(TopicOutcome& outcome, std::string reason) {
    outcome.result = TopicOutcome::Result::kFailed;
    outcome.reason = std::move(reason);
}

/// `wanted` is the contents of the edited document.
void Judge(TopicOutcome& outcome, EnginePage& page, const std::string& path, const Edit& edit,
           std::string wanted) {
    outcome.preserved = PreserveSource(outcome.original, outcome.base, outcome.edited);
    CountLines(outcome);
    const std::string got = Reloaded(page, outcome.preserved, path);
    if (got != wanted) {
        // What editing made may be no document that any source gives.
        wanted = Reloaded(page, outcome.edited, path);
        if (got != wanted) return Fail(outcome, "reads " + FirstDifference(got, wanted));
    }
    if (!edit.is_small(outcome)) {
        Fail(outcome, std::to_string(outcome.removed_lines) + " lines gone, " +
                          std::to_string(outcome.added_lines) + " new");
    }
}

}  // namespace

const std::vector<std::string>& EditNames() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Edit& edit : Edits()) all.push_back(edit.name);
        return all;
    }();
    return names;
}

TopicOutcome CheckTopic(EnginePage& page, const std::filesystem::path& file,
                        std::string_view edit_name, double place) {
    const Edit& edit = EditNamed(edit_name);
    NativeFileSystem files;
    const std::string path = files.WindowsPath(std::filesystem::absolute(file).string());
    TopicOutcome outcome;
    try {
        outcome.original = Masked(ReadTopicText(files.ReadFile(path), 1252).text);
    } catch (const RuntimeError& error) {
        const bool is_frameset = error.Number() == surface_error::kFrameset;
        return Skipped(is_frameset ? "frameset" : error.what());
    }
    const std::size_t refresh = FindIgnoringAsciiCase(outcome.original, "HTTP-EQUIV=\"REFRESH\"");
    if (refresh != npos) return Skipped("it goes to another page");
    if (!page.Load(outcome.original, path)) return Skipped("the engine does not load it");
    outcome.base = page.Serialised();
    const QString script = "(() => { const PLACE = " + QString::number(place) + ";" + kFindWord +
                           QString::fromUtf8(edit.script) + "})()";
    const QVariant refusal = page.Run(script);
    if (refusal.toString() != "" || !refusal.isValid()) {
        return Skipped(refusal.isValid() ? refusal.toString().toStdString() : "script error");
    }
    outcome.edited = page.Serialised();
    if (outcome.edited == outcome.base) return Skipped("nothing changed");
    Judge(outcome, page, path, edit, page.Contents());
    return outcome;
}

std::vector<std::filesystem::path> TopicsIn(const std::filesystem::path& place) {
    if (!std::filesystem::is_directory(place)) return {place};
    std::vector<std::filesystem::path> topics;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
        const std::string ending = LowerAscii(entry.path().extension().string());
        const bool is_topic = ending == ".htm" || ending == ".html";
        if (is_topic && entry.is_regular_file()) topics.push_back(entry.path());
    }
    std::sort(topics.begin(), topics.end());
    return topics;
}

}  // namespace quorrel::test
