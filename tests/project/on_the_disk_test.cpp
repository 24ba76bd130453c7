// What has been saved is on the disk, and a disk that says no is believed.
#include <gtest/gtest.h>

#include <set>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "editor/load_file.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "project/new_topic_file.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel {
namespace {

/// Follows which bytes and names the disk has been waited for.
class WatchedFileSystem : public NativeFileSystem {
  public:
    WatchedFileSystem() { flush_to_disk = false; }

    void WriteFile(std::string_view path, std::string_view bytes) override {
        NativeFileSystem::WriteFile(path, bytes);
        in_memory_.emplace(path);
    }
    void FlushFile(std::string_view path) override {
        if (disk_fails) throw RuntimeError(run_time_error::kDeviceError);
        in_memory_.erase(std::string(path));
    }
    void FlushNames() override {
        if (disk_fails) throw RuntimeError(run_time_error::kDeviceError);
        ++waits_for_names;
        has_new_name = false;
    }
    bool ReplaceFile(std::string_view from, std::string_view to) override {
        EXPECT_FALSE(in_memory_.contains(std::string(from))) << to << " got bytes in memory only";
        has_new_name = true;
        return NativeFileSystem::ReplaceFile(from, to);
    }

    bool disk_fails = false;
    bool has_new_name = false;
    int waits_for_names = 0;

  private:
    std::set<std::string> in_memory_;
};

class OnTheDisk : public testing::Test {
  protected:
    /// A project of so many topics.
    void OpenProject(int topics) {
        std::string list;
        for (int i = 0; i < topics; ++i) {
            list += Topic(i) + "\r\n;Title=T\r\n";
            folder.Write("p/" + Topic(i), "<title>T</title><body>the old text</body>");
        }
        folder.Write("p/guide.hhp", "[OPTIONS]\r\nTitle=Guide\r\n[FILES]\r\n" + list);
        LoadSettings(main, "html");
        main.project.recent_proj = folder.Windows("p/guide.hhp");
        OpenProject_Click(main);
    }
    static std::string Topic(int i) { return "t" + std::to_string(i) + ".htm"; }
    void EditTopic(int i) {
        main.editor.new_main_path = folder.Windows("p/" + Topic(i));
        LoadFile(main);
        surface.SetDocumentHTML(kNew);
    }
    static constexpr const char* kNew = "<title>T</title><body>the new text, a little longer";

    test::ScratchFolder folder;
    WatchedFileSystem files;
    PlainSurface surface{files};
    SilentScreen screen;
    PlainSource source;
    SilentBrowser browser;
    SilentShell shell;
    MainForm main{{files, screen, surface, source, browser, shell},
                  folder.Windows("settings"),
                  MachineCodePage{}};
};

TEST_F(OnTheDisk, WhateverIsKeptIsThereWithItsName) {
    OpenProject(2);
    EditTopic(0);
    EditTopic(1);
    EXPECT_TRUE(folder.Exists("p/t0.htm.tmp.htm"));
    EXPECT_FALSE(files.has_new_name) << "of the working copy";
    WriteNewTopic(main, folder.Windows("p/new/new.htm"), "New", {});
    EXPECT_FALSE(files.has_new_name) << "of the new topic";
    EXPECT_TRUE(FileSave_Click(main));
    EXPECT_FALSE(files.has_new_name) << "of the project's files";
    Form_Unload(main);
    EXPECT_FALSE(files.has_new_name) << "of the settings";
}

TEST_F(OnTheDisk, ASaveWaitsForTheNamesOfAllTopicsTogether) {
    constexpr int kTopics = 12;
    OpenProject(kTopics);
    for (int i = 0; i < kTopics; ++i) EditTopic(i);
    files.waits_for_names = 0;
    EXPECT_TRUE(FileSave_Click(main));
    EXPECT_EQ(folder.Read("p/t3.htm"), kNew);
    EXPECT_LT(files.waits_for_names, 5);
}

TEST_F(OnTheDisk, ADiskThatTakesNothingFailsTheSave) {
    OpenProject(2);
    EditTopic(0);
    EditTopic(1);
    files.disk_fails = true;
    const std::string old_project = folder.Read("p/guide.hhp");
    EXPECT_FALSE(FileSave_Click(main));
    EXPECT_EQ(folder.Read("p/t0.htm"), "<title>T</title><body>the old text</body>");
    EXPECT_EQ(folder.Read("p/guide.hhp"), old_project);
    for (const char* file : {"guide.hhp.tmp", "guide.hhk.tmp", "guide.ali.tmp", "guide.h.tmp"}) {
        EXPECT_FALSE(folder.Exists(std::string("p/") + file)) << file;
    }
    files.disk_fails = false;
    EXPECT_TRUE(FileSave_Click(main));
    EXPECT_EQ(folder.Read("p/t0.htm") + folder.Read("p/t1.htm"), std::string(kNew) + kNew);
}

}  // namespace
}  // namespace quorrel
