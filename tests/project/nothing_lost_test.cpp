// A save that is broken off anywhere leaves every text on the disk, old or new, and the next run
// finds it.
#include <gtest/gtest.h>

#include <algorithm>

#include "contents/keyword_store.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "project/save_project.hpp"
#include "support/project_session.hpp"

namespace quorrel {
namespace {

using test::Fault;

constexpr int kTopics = 3;

std::string TopicName(int i) {
    return "topic" + std::to_string(i) + ".htm";
}
std::string TopicText(int i, std::string_view state) {
    return "<html><title>T" + std::to_string(i) + "</title><body>" + std::string(state) +
           " text that is long enough</body></html>";
}

enum class Family { kHtmlHelp, kJavaHelp };

/// One session of the program on the project in `folder`.
class Session : public test::ProjectSession {
  public:
    Session(const test::ScratchFolder& folder, Family family)
        : ProjectSession(folder, family == Family::kHtmlHelp ? "p/guide.hhp" : "p/guide.hs",
                         family == Family::kHtmlHelp ? "html" : "") {}

    /// Changes everything that a save writes.
    void ChangeAll() {
        for (int i = 1; i <= kTopics; ++i) {
            const std::string path = main.project.proj_path + "\\" + TopicName(i);
            Open(path);
            // A topic that cannot be put away stays open.
            if (main.editor.main_path == path) surface.SetDocumentHTML(TopicText(i, "new"));
        }
        main.contents.Tree1.At(1).Text = "new entry";
        main.contents.toc_dirty = true;
        AddToIndex(main, "T1", main.editor.main_path, "new key;");
        main.outline.TreeDoc.At(1).Text = "new heading";
        main.outline.doc_dirty = true;
        if (main.project.help_mode == 1) {
            // Not that of a topic in the contents, which are in another file than the map.
            main.topics.ListTopics.At(kTopics).SetSubItem(topic_cell::kMapId, "NEW");
        } else {
            ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kMapId, "topic1");
            row->SetSubItem(topic_cell::kMapId, "NEW");
            row->SetSubItem(topic_cell::kInteger, "77");
        }
        main.project.project_title = "new title";
    }

    /// Each of the project's tables and texts as one text.
    std::vector<std::string> State() {
        std::vector<std::string> state = {
            WriteContents(main.contents.Tree1, "", main.project.proj),
            WriteContents(main.outline.TreeDoc, "", main.project.proj), main.project.project_title};
        std::string keys, ids, numbers;
        const ListView& store = main.keywords.ListKeywords;
        for (int i = 1; i <= store.Count(); ++i) keys += store.At(i).Text() + ";";
        for (int i = 1; i <= kTopics; ++i) {
            const std::string path = main.project.proj_path + "\\" + TopicName(i);
            const ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, path);
            if (row != nullptr) {
                ids += row->SubItems(topic_cell::kMapId) + ";";
                numbers += row->SubItems(topic_cell::kInteger) + ";";
            }
            state.push_back(Open(path));
        }
        state.insert(state.end(), {keys, ids, numbers});
        return state;
    }
};

struct Case {
    Fault fault;
    Family family;
};

class NothingLost : public testing::TestWithParam<Case> {
  protected:
    static std::string Entry(const std::string& name, const std::string& local) {
        return "<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"" + name +
               "\">\r\n<param name=\"Local\" value=\"" + local + "\">\r\n</OBJECT>\r\n";
    }
    static void WriteProject(const test::ScratchFolder& folder) {
        std::string list, map;
        for (int i = 1; i <= kTopics; ++i) {
            list += TopicName(i) + "\r\n;Title=T" + std::to_string(i) + "\r\n";
            map +=
                "<mapID target=\"topic" + std::to_string(i) + "\" url=\"" + TopicName(i) + "\"/>\n";
            folder.Write("p/" + TopicName(i), TopicText(i, "old"));
        }
        folder.Write("p/guide.out", "<UL>\r\n" + Entry("old heading", "topic1.htm") + "</UL>\r\n");
        if (GetParam().family == Family::kJavaHelp) {
            folder.Write(
                "p/guide.hs",
                "<title>old title</title><mapref location=\"guide.jhm\"/>\n"
                "<view><data>guideTOC.xml</data><type>javax.help.TOCView</type></view>\n"
                "<view><data>guideIndex.xml</data><type>javax.help.IndexView</type></view>\n");
            folder.Write("p/guide.jhm", map);
            folder.Write("p/guideTOC.xml", "<tocitem text=\"old entry\" target=\"topic1\"/>\n");
            folder.Write("p/guideIndex.xml", "<indexitem text=\"old key\" target=\"topic1\"/>\n");
            folder.Write("share/javahelp.css", "style");
            return;
        }
        folder.Write("p/guide.hhp",
                     "[OPTIONS]\r\nTitle=old title\r\n\r\n[FILES]\r\n" + list +
                         "\r\n[ALIAS]\r\n#include guide.ali\r\n\r\n[MAP]\r\n#include guide.h\r\n");
        folder.Write("p/guide.ali", "topic1=topic1.htm\r\ntopic2=topic2.htm\r\n");
        folder.Write("p/guide.h", "#define topic1 5\r\n");
        folder.Write("p/guide.hhc", "<UL>\r\n" + Entry("old entry", "topic1.htm") + "</UL>\r\n");
        folder.Write("p/guide.hhk", "<UL>\r\n" + Entry("old key", "topic1.htm") + "</UL>\r\n");
        folder.Write("share/master.js", "script");
    }
    /// What a save without a fault makes of the old state.
    static std::vector<std::string> NewState() {
        const test::ScratchFolder folder;
        WriteProject(folder);
        {
            Session run(folder, GetParam().family);
            run.ChangeAll();
            FileSave_Click(run.main);
        }
        return Session(folder, GetParam().family).State();
    }
    static std::vector<std::string> OldState() {
        const test::ScratchFolder folder;
        WriteProject(folder);
        return Session(folder, GetParam().family).State();
    }
};

constexpr std::size_t kNumbers = 3 + kTopics + 2;  // in the state

/// One of the two files with the identifiers is from before a change of these, since the other one
/// alone could be written. Nothing of them is lost, but a number has no topic.
bool IsOneBehindTheOther(const test::ScratchFolder& folder, std::size_t place,
                         const std::string& numbers) {
    if (place != kNumbers || numbers != ";;;" || !folder.Exists("p/guide.h")) return false;
    const bool has_new_alias = folder.Read("p/guide.ali").starts_with("NEW=");
    return folder.Read("p/guide.h") ==
           (has_new_alias ? "#define topic1 5\r\n" : "#define NEW 77\r\n");
}

TEST_P(NothingLost, WhereverTheSaveBreaksOff) {
    const auto old_state = OldState();
    const auto new_state = NewState();
    int points = 0;
    int files_behind = 0;
    for (const bool can_link : {true, false}) {
        for (int number = 1;; ++number) {
            const test::ScratchFolder folder;
            WriteProject(folder);
            bool reached = false;
            {
                Session run(folder, GetParam().family);
                run.files.can_link = can_link;
                run.files.FailAt(number, GetParam().fault);
                try {
                    run.ChangeAll();
                    FileSave_Click(run.main);
                    reached = run.files.Operations() >= number;
                } catch (const test::Killed&) {
                    reached = true;
                }
                run.files.Heal();
            }
            if (!reached) break;
            ++points;
            const auto state = Session(folder, GetParam().family).State();
            ASSERT_EQ(state.size(), kNumbers + 1);
            for (std::size_t i = 0; i < state.size(); ++i) {
                if (state[i] == old_state[i] || state[i] == new_state[i]) continue;
                EXPECT_TRUE(IsOneBehindTheOther(folder, i, state[i]))
                    << "operation " << number << ": " << state[i];
                ++files_behind;
            }
        }
    }
    RecordProperty("points", points);
    EXPECT_GT(points, 60);
    EXPECT_LE(files_behind, GetParam().family == Family::kHtmlHelp ? 8 : 0);
}

/// The faults after which the program goes on.
class AfterAFault : public NothingLost {};

TEST_P(AfterAFault, ASecondSaveBringsTheRest) {
    const auto new_state = NewState();
    for (int number = 1;; ++number) {
        const test::ScratchFolder folder;
        WriteProject(folder);
        Session run(folder, GetParam().family);
        run.ChangeAll();
        run.files.FailAt(number, GetParam().fault);
        const bool is_saved = FileSave_Click(run.main);
        if (run.files.Operations() < number) break;
        run.files.Heal();
        EXPECT_NE(is_saved, run.main.project.project_dirty);
        if (is_saved) {
            EXPECT_EQ(Session(folder, GetParam().family).State(), new_state);
        }
        // A topic whose file could not be replaced has its new text beside it.
        FileSave_Click(run.main);
        std::vector<std::string> beside;
        for (int topic = 1; topic <= kTopics; ++topic) {
            const std::string copy = "p/" + TopicName(topic) + ".tmp.htm";
            if (folder.Exists(copy)) beside.push_back(folder.Read(copy));
        }
        const auto state = Session(folder, GetParam().family).State();
        for (std::size_t i = 0; i < state.size(); ++i) {
            if (state[i] == new_state[i]) continue;
            EXPECT_NE(std::find(beside.begin(), beside.end(), new_state[i]), beside.end())
                << "operation " << number << ": " << state[i];
        }
    }
}

std::string NameOf(const testing::TestParamInfo<Case>& info) {
    const std::string family = info.param.family == Family::kHtmlHelp ? "Html" : "Java";
    switch (info.param.fault) {
        case Fault::kNoPermission:
            return family + "NoPermission";
        case Fault::kDiskFull:
            return family + "DiskFull";
        case Fault::kKilledBefore:
            return family + "KilledBefore";
        case Fault::kKilledHalfway:
            return family + "KilledHalfway";
        default:
            return family + "None";
    }
}

std::vector<Case> InBothFamilies(const std::vector<Fault>& faults) {
    std::vector<Case> cases;
    for (const Fault fault : faults) {
        cases.push_back({fault, Family::kHtmlHelp});
        cases.push_back({fault, Family::kJavaHelp});
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Faults, NothingLost,
                         testing::ValuesIn(InBothFamilies({Fault::kNoPermission, Fault::kDiskFull,
                                                           Fault::kKilledBefore,
                                                           Fault::kKilledHalfway})),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(
    Faults, AfterAFault,
    testing::ValuesIn(InBothFamilies({Fault::kNoPermission, Fault::kDiskFull})), NameOf);

}  // namespace
}  // namespace quorrel
