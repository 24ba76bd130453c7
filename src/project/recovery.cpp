#include "project/recovery.hpp"

#include <algorithm>
#include <map>
#include <set>

#include "app/main_form.hpp"
#include "editor/foreign_change.hpp"
#include "editor/object_mask.hpp"
#include "editor/preserve_source.hpp"
#include "editor/save_html.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"
#include "platform/unicode.hpp"
#include "project/form_recover.hpp"
#include "project/private_files.hpp"
#include "project/project_lists.hpp"
#include "project/unsaved_work.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

constexpr const char* kLabel = "MainForm OfferUnsavedWork: ";

/// The lists that the author has not decided about yet.
constexpr std::string_view kLeftLists = "lists.left";

/// Stands for a record of another run, so that it is written anew or removed.
constexpr std::size_t kNoHash = 0;

std::string ReadPrivate(MainForm& main, std::string_view file) {
    const std::string path = PrivateFile(main, main.project.proj, file);
    return main.files.FileExists(path) ? main.files.ReadFile(path) : std::string();
}

std::string TextOf(const KeptTopic& topic) {
    const DocumentCopy& copy = topic.document;
    const std::string html =
        copy.edited.empty() ? copy.source : PreserveSource(copy.source, copy.base, copy.edited);
    return TopicBytes(UnmaskObjects(RepairLocalLinks(html, topic.path)), topic.encoding);
}

void TellWhereItIs(MainForm& main, const std::string& page, const std::string& copy) {
    main.screen.ShowMessage(
        {main.files.NativePath(page) +
             " was edited and not saved when the program ended the last time.\r\n\r\nIts text is "
             "in " +
             main.files.NativePath(copy) + ".",
         main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
}

/// The text of the topic that was open becomes its working copy, as if the topic had been left; an
/// older copy there is put aside. A page that is no topic is not offered, so its place is told.
void PutBesideTopic(MainForm& main, const KeptTopic& topic) {
    const std::string bytes = TextOf(topic);
    const std::string copy = WorkingCopyOf(topic.path);
    if (main.files.FileExists(topic.path) && main.files.ReadFile(topic.path) == bytes) return;
    if (main.files.FileExists(copy) && main.files.ReadFile(copy) != bytes) {
        PutAside(main.files, copy);
    }
    WriteWhole(main.files, copy, bytes);
    if (topic.started_from)
        main.unsaved.left_copies[topic.path] = {topic.path, topic.when, *topic.started_from};
    const ListView& topics = main.topics.ListTopics;
    if (topics.FirstWith(topic_cell::kFullPath, topic.path) == nullptr) {
        TellWhereItIs(main, topic.path, copy);
    }
}

void TakeOverOpenTopic(MainForm& main, const Trap& trap) {
    const std::string file = PrivateFile(main, main.project.proj, kTopicFile);
    std::optional<KeptTopic> topic;
    trap([&] { topic = ReadKeptTopic(ReadPrivate(main, kTopicFile)); });
    if (!topic) return;
    if (trap([&] { PutBesideTopic(main, *topic); })) {
        main.files.DeleteFile(file);
        return;
    }
    // The folder takes no file, say. The text must not go with the next one that is kept.
    const std::string aside = PutAside(main.files, file);
    trap([&] { main.files.WriteFile(aside + ".htm", TextOf(*topic)); });
    TellWhereItIs(main, topic->path, aside + ".htm");
}

bool IsChangedSince(MainForm& main, const std::string& topic, const KeptCopy* known) {
    const auto stamp = main.files.Stamp(topic);
    if (!stamp) return false;
    if (known == nullptr) {
        // Nothing but the times can tell.
        const auto copy = main.files.Stamp(WorkingCopyOf(topic));
        return copy && stamp->modified > copy->modified;
    }
    if (*stamp == known->started_from.stamp) return false;
    return std::hash<std::string>{}(main.files.ReadFile(topic)) != known->started_from.hash;
}

/// The paths of the topics that have a working copy beside them which says something else.
std::vector<std::string> TopicsWithCopies(MainForm& main) {
    const ListView& topics = main.topics.ListTopics;
    std::map<std::string, std::set<std::string>> copies;  // by folder, in upper case
    std::vector<std::string> found;
    for (int i = 1; i <= topics.Count(); ++i) {
        const std::string& path = topics.At(i).SubItems(topic_cell::kFullPath);
        const std::string folder(BeforeLast(path, '\\', {}));
        const auto [at, is_new] = copies.try_emplace(folder);
        if (is_new) {
            for (const std::string& name : main.files.FileNames(folder)) {
                if (name.ends_with(kWorkingCopy)) at->second.insert(UpperUnicode(name));
            }
        }
        if (at->second.empty()) continue;
        const std::string name = std::string(AfterLast(path, '\\')) + std::string(kWorkingCopy);
        if (at->second.contains(UpperUnicode(name)) && SaysMoreThanTopic(main, path)) {
            found.push_back(path);
        }
    }
    return found;
}

/// One offer: what the author sees, and what happens if he takes it or not.
struct Offer {
    LeftWork work;
    std::string topic;                  // a topic's path, or
    const ProjectList* list = nullptr;  // one of the project's lists with
    std::string text;
};

Offer OfferOfTopic(MainForm& main, const std::string& path) {
    const auto& copies = main.unsaved.left_copies;
    const auto known = copies.find(path);
    Offer offer;
    offer.topic = path;
    offer.work.name = main.files.NativePath(path);
    if (known != copies.end()) offer.work.when = known->second.when;
    if (IsChangedSince(main, path, known == copies.end() ? nullptr : &known->second)) {
        offer.work.note = "Changed since by another program; saving asks.";
    }
    return offer;
}

void TakeOverLists(MainForm& main) {
    const auto path = [&](std::string_view file) {
        return PrivateFile(main, main.project.proj, file);
    };
    if (!main.files.FileExists(path(kListsFile))) return;
    if (main.files.FileExists(path(kLeftLists))) PutAside(main.files, path(kLeftLists));
    main.files.MoveFile(path(kListsFile), path(kLeftLists));
}

void AddLists(MainForm& main, std::vector<Offer>& offers) {
    const auto kept = ReadKeptLists(ReadPrivate(main, kLeftLists));
    if (!kept) return;
    const std::size_t offers_before = offers.size();
    for (const ProjectList& list : ProjectLists()) {
        const auto found = std::find_if(kept->lists.begin(), kept->lists.end(),
                                        [&](const KeptList& one) { return one.name == list.name; });
        if (found == kept->lists.end() || found->text == list.text(main)) continue;
        Offer offer;
        offer.list = &list;
        offer.text = found->text;
        offer.work.name = list.caption;
        offer.work.when = kept->when;
        offers.push_back(std::move(offer));
    }
    if (offers.size() > offers_before) return;
    // The project says all of it. Once it is edited the record would look like work again.
    main.files.DeleteFile(PrivateFile(main, main.project.proj, kLeftLists));
}

void Decide(MainForm& main, const std::vector<Offer>& offers, const FormRecover& form) {
    bool are_lists_taken = true;
    // First the lists: topics that were new then get their rows.
    for (const bool lists : {true, false}) {
        for (std::size_t i = 0; i < offers.size(); ++i) {
            const Offer& offer = offers[i];
            if ((offer.list != nullptr) != lists) continue;
            const bool is_wanted = form.works[i].is_wanted;
            if (lists && !is_wanted) are_lists_taken = false;
            if (!lists && !is_wanted) PutAside(main.files, WorkingCopyOf(offer.topic));
            if (!is_wanted) continue;
            if (!lists) {
                ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, offer.topic);
                if (row != nullptr) TakeBackTopic(main, *row);
                continue;
            }
            offer.list->take(main, offer.text);
            main.unsaved.taken_lists.push_back(std::string(offer.list->name));
            main.unsaved.taken_back = true;
        }
    }
    const std::string left = PrivateFile(main, main.project.proj, kLeftLists);
    if (!main.files.FileExists(left)) return;
    if (!are_lists_taken) {
        PutAside(main.files, left);
        return;
    }
    // This run has not kept them yet, and may end badly as well: until then the record stays.
    main.files.MoveFile(left, PrivateFile(main, main.project.proj, kListsFile));
    main.unsaved.written[std::string(kListsFile)] = kNoHash;
}

/// Nothing is known of another project's work.
void Reset(UnsavedWork& unsaved) {
    unsaved.written.clear();
    unsaved.saved_lists.clear();
    unsaved.copies.clear();
    unsaved.left_copies.clear();
    unsaved.taken_lists.clear();
    unsaved.taken_back = false;
}

std::vector<Offer> FindOffers(MainForm& main, const Trap& trap) {
    std::vector<Offer> offers;
    trap([&] {
        const std::string record = ReadPrivate(main, kCopiesFile);
        if (!record.empty()) main.unsaved.written[std::string(kCopiesFile)] = kNoHash;
        for (KeptCopy& copy : ReadKeptCopies(record)) {
            std::string path = copy.path;
            main.unsaved.left_copies[std::move(path)] = std::move(copy);
        }
    });
    TakeOverOpenTopic(main, trap);
    trap([&] {
        for (const std::string& path : TopicsWithCopies(main)) {
            offers.push_back(OfferOfTopic(main, path));
        }
    });
    TakeOverLists(main);
    trap([&] { AddLists(main, offers); });
    return offers;
}

}  // namespace

void TakeBackTopic(MainForm& main, ListRow& row) {
    const std::string& path = row.SubItems(topic_cell::kFullPath);
    const auto known = main.unsaved.left_copies.find(path);
    if (known != main.unsaved.left_copies.end()) {
        main.editor.loaded[path] = known->second.started_from;
    } else if (IsChangedSince(main, path, nullptr)) {
        main.editor.loaded[path] = {};  // as no file is: the save asks
    } else {
        NoteTopicFile(main, path);
    }
    row.SetSubItem(topic_cell::kModified, "1");
    main.project.project_dirty = true;
    main.unsaved.taken_back = true;
}

void OfferUnsavedWork(MainForm& main) {
    if (!main.unsaved.is_on) return;
    Reset(main.unsaved);
    NoteSavedLists(main);
    const Trap trap(main.log, kLabel);
    const std::vector<Offer> offers = FindOffers(main, trap);
    if (offers.empty()) return;
    std::vector<LeftWork> works;
    for (const Offer& offer : offers) works.push_back(offer.work);
    FormRecover form(std::move(works));
    main.screen.ShowModal(form);
    // Otherwise each topic asks when it is opened, and the lists are offered the next time.
    if (form.is_decided) trap([&] { Decide(main, offers, form); });
}

void StartUnsavedWork(MainForm& main) {
    if (!main.unsaved.is_on) return;
    Reset(main.unsaved);
    for (const std::string_view file : {kTopicFile, kListsFile, kLeftLists, kCopiesFile}) {
        const std::string path = PrivateFile(main, main.project.proj, file);
        if (main.files.FileExists(path)) PutAside(main.files, path);
    }
    main.unsaved.is_open = true;
}

void MarkTakenBackWork(MainForm& main) {
    main.unsaved.is_open = true;
    if (!main.unsaved.taken_back) return;
    main.unsaved.taken_back = false;
    for (const std::string& name : main.unsaved.taken_lists) {
        if (name == "contents") main.contents.toc_dirty = true;
        if (name == "index") main.keywords.index_dirty = true;
        if (name == "outline") main.outline.doc_dirty = true;
    }
    main.project.project_dirty = true;
    main.unsaved.lists_changed = true;
    main.unsaved.changed.Emit();
}

}  // namespace quorrel
