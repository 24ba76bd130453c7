// How long it takes to make, rename and remove one topic of a large project.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "platform/native_file_system.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "project/form_new_topic.hpp"
#include "project/open_project.hpp"
#include "project/topic_properties.hpp"
#include "project/topic_rows.hpp"
#include "project_generator.hpp"

namespace quorrel::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kKeywords = "bench;bench    :topic;";

/// An open project in a folder that goes with it.
class OpenedProject {
  public:
    explicit OpenedProject(int topics) {
        std::string pattern = (fs::temp_directory_path() / "quorrel-bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        folder_ = pattern;
        const fs::path project = WriteProject(folder_ / "project", topics, 1);
        main_ = std::make_unique<MainForm>(
            Services{files_, screen_, surface_, source_, browser_, shell_},
            files_.WindowsPath((folder_ / "settings").string()), MachineCodePage{});
        LoadSettings(*main_, "html");
        main_->settings.Template_Dir = files_.WindowsPath((folder_ / "templates").string());
        main_->project.recent_proj = files_.WindowsPath(project.string());
        OpenProject_Click(*main_);
        Add();
    }
    OpenedProject(const OpenedProject&) = delete;
    OpenedProject& operator=(const OpenedProject&) = delete;
    ~OpenedProject() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    MainForm& Main() { return *main_; }
    ListRow& Add() {
        return AddTopic(*main_, "A topic of the benchmark",
                        main_->project.proj_path + "\\benchmark.htm", kKeywords, "benchmark", "1");
    }
    void Remove() {
        ListView& topics = main_->topics.ListTopics;
        topics.Select(topics.FirstWith(topic_cell::kMapId, "benchmark"));
        RemoveTopic(*main_, false);
    }

  private:
    fs::path folder_;
    NativeFileSystem files_;
    SilentScreen screen_;
    PlainSurface surface_{files_};
    PlainSource source_;
    SilentBrowser browser_;
    SilentShell shell_;
    std::unique_ptr<MainForm> main_;
};

OpenedProject MakeProject(benchmark::State& state) {
    state.SetComplexityN(state.range(0));
    return OpenedProject(static_cast<int>(state.range(0)));
}

void AddAndRemoveTopic(benchmark::State& state) {
    OpenedProject project = MakeProject(state);
    for (auto _ : state) {
        project.Remove();
        project.Add();
    }
}

/// The whole dialog: names, checks, the file, the row, the surface.
void NewTopicByDialog(benchmark::State& state) {
    OpenedProject project = MakeProject(state);
    MainForm& main = project.Main();
    for (auto _ : state) {
        FormNewTopic form(main);
        form.EditTitle.Text = std::string("From the dialog");
        form.Command1_Click();
        form.OkCmd_Click();
        state.PauseTiming();
        if (!form.closed) state.SkipWithError("refused");
        RemoveTopic(main, true);
        state.ResumeTiming();
    }
}

void RenameOpenTopic(benchmark::State& state) {
    OpenedProject project = MakeProject(state);
    MainForm& main = project.Main();
    LoadTopicProperties(main);
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        main.window.EditTitle.Text = (turn % 2 == 0 ? "A title " : "Zebra ") + std::to_string(turn);
        SaveTopicProperties(main);
    }
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(AddAndRemoveTopic)->Apply(Sizes);
BENCHMARK(NewTopicByDialog)->Apply(Sizes);
BENCHMARK(RenameOpenTopic)->Apply(Sizes);

}  // namespace
}  // namespace quorrel::bench
