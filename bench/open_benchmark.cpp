// How long it takes to open a project, as a whole and by its parts.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "formats/htmlhelp/hhk.hpp"
#include "formats/htmlhelp/hhp.hpp"
#include "formats/htmlhelp/map_files.hpp"
#include "platform/native_file_system.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "platform/text.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "project/tag_value.hpp"
#include "project/topic_title.hpp"
#include "project_generator.hpp"

namespace quorrel::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kSeed = 1;
constexpr std::size_t kMegabyte = 1024 * 1024;

/// Holds the projects on disk until the end of the run, each made once.
class ProjectsOnDisk {
  public:
    ProjectsOnDisk() {
        std::string pattern = (fs::temp_directory_path() / "quorrel-bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        folder_ = pattern;
    }
    ProjectsOnDisk(const ProjectsOnDisk&) = delete;
    ProjectsOnDisk& operator=(const ProjectsOnDisk&) = delete;
    ~ProjectsOnDisk() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    [[nodiscard]] const fs::path& Folder() const { return folder_; }
    const fs::path& WithTopics(int topics) {
        fs::path& project = projects_[topics];
        if (project.empty())
            project = WriteProject(folder_ / std::to_string(topics), topics, kSeed);
        return project;
    }

  private:
    fs::path folder_;
    std::map<int, fs::path> projects_;
};

ProjectsOnDisk& Projects() {
    static ProjectsOnDisk projects;
    return projects;
}

/// A project of the size and what the readers take with it, made once for each size.
struct Sample {
    GeneratedProject generated;
    ProjectTexts texts;
};

const Sample& SampleOf(benchmark::State& state) {
    static std::map<std::int64_t, Sample> samples;
    Sample& sample = samples[state.range(0)];
    if (sample.generated.ListTopics.Count() == 0) {
        Generate(sample.generated, static_cast<int>(state.range(0)), kSeed);
        sample.texts = TextsOf(sample.generated);
    }
    state.SetComplexityN(state.range(0));
    return sample;
}

void CountBytes(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

/// The readers' trap; an error would mean that the sample is no good.
class StrictLog {
  public:
    [[nodiscard]] const Trap& AsTrap() const { return trap_; }

  private:
    ErrorLog log_{[](std::string_view line) { throw std::logic_error(std::string(line)); }};
    Trap trap_{log_, ""};
};

void ListTopicsOf(const Sample& sample, ListView& ListTopics) {
    const StrictLog log;
    const TitleOfFile no_title = [](const std::string&) { return std::nullopt; };
    ReadFileList(sample.texts.hhp, sample.generated.project.proj_path, ListTopics, no_title,
                 log.AsTrap());
}

/// Opens the project and does with it what `work` does.
template <typename Work>
void WithProject(const fs::path& project, std::string_view edition, Work work) {
    NativeFileSystem files;
    SilentScreen screen;
    PlainSurface surface(files);
    PlainSource source;
    SilentBrowser browser;
    SilentShell shell;
    const std::string settings = (Projects().Folder() / "settings").string();
    MainForm main({files, screen, surface, source, browser, shell}, files.WindowsPath(settings),
                  MachineCodePage{});
    LoadSettings(main, edition);
    main.project.recent_proj = files.WindowsPath(project.string());
    OpenProject_Click(main);
    work(main);
}

void OpenRepeatedly(benchmark::State& state, const fs::path& project, std::string_view edition) {
    for (auto _ : state) {
        WithProject(project, edition, [&](const MainForm& main) {
            if (main.topics.ListTopics.Count() != state.range(0)) {
                state.SkipWithError("not all topics");
            }
        });
    }
    state.SetComplexityN(state.range(0));
}

void OpenWholeProject(benchmark::State& state) {
    OpenRepeatedly(state, Projects().WithTopics(static_cast<int>(state.range(0))), "html");
}

/// The same project, converted.
fs::path JavaHelpTwin(benchmark::State& state) {
    fs::path project = Projects().WithTopics(static_cast<int>(state.range(0)));
    const fs::path twin = fs::path(project).replace_extension(".hs");
    if (!fs::exists(twin)) WithProject(project, "", [](MainForm& main) { FileSave_Click(main); });
    return twin;
}

void OpenWholeJavaHelpProject(benchmark::State& state) {
    OpenRepeatedly(state, JavaHelpTwin(state), "");
}

/// What a JavaHelp project needs beyond its own files: the titles of the topics.
void TitlesOfTopics(benchmark::State& state) {
    std::vector<std::string> paths;
    WithProject(JavaHelpTwin(state), "", [&](const MainForm& main) {
        for (int i = 1; i <= main.topics.ListTopics.Count(); ++i) {
            paths.push_back(main.topics.ListTopics.At(i).SubItems(topic_cell::kFullPath));
        }
    });
    for (auto _ : state) {
        NativeFileSystem files;
        for (const std::string& path : paths) {
            benchmark::DoNotOptimize(
                ReadTopicTitle(files, path, kWesternCodePage, TitlePieces::kTrimmed));
        }
    }
    state.SetComplexityN(state.range(0));
}

void FileList(benchmark::State& state) {
    const Sample& sample = SampleOf(state);
    for (auto _ : state) {
        TopicTables tables;
        ListTopicsOf(sample, tables.ListTopics);
        benchmark::DoNotOptimize(tables.ListTopics.Count());
    }
    CountBytes(state, sample.texts.hhp);
}

void MapFiles(benchmark::State& state) {
    const Sample& sample = SampleOf(state);
    TopicTables tables;
    ListTopicsOf(sample, tables.ListTopics);
    std::int64_t next_integer = 0;
    for (auto _ : state) {
        ReadAliases(sample.texts.ali, sample.generated.project.proj, tables.ListTopics);
        ReadMapHeader(sample.texts.h, tables.ListTopics, next_integer);
    }
    CountBytes(state, sample.texts.ali + sample.texts.h);
}

void Contents(benchmark::State& state) {
    const Sample& sample = SampleOf(state);
    const StrictLog log;
    TopicTables tables;
    ListTopicsOf(sample, tables.ListTopics);
    const ContentsSource source{sample.generated.project.hhcfile, false, tables.ListTopics,
                                tables.ListAliases, log.AsTrap()};
    for (auto _ : state) {
        TreeView tree;
        std::string site_properties;
        ReadContents(sample.texts.hhc, source, tree, site_properties);
        benchmark::DoNotOptimize(tree.Count());
    }
    CountBytes(state, sample.texts.hhc);
}

void Keywords(benchmark::State& state) {
    const Sample& sample = SampleOf(state);
    const StrictLog log;
    for (auto _ : state) {
        state.PauseTiming();
        auto tables = std::make_unique<TopicTables>();
        ListTopicsOf(sample, tables->ListTopics);
        auto keywords = std::make_unique<KeywordState>();
        state.ResumeTiming();
        ReadKeywords(sample.texts.hhk, sample.generated.project.proj_path, *keywords,
                     tables->ListTopics, log.AsTrap());
        // The rows are sorted when the first of them is asked for.
        benchmark::DoNotOptimize(keywords->ListKeywords.At(1).Text().size());
        state.PauseTiming();
        keywords.reset();
        tables.reset();
        state.ResumeTiming();
    }
    CountBytes(state, sample.texts.hhk);
}

/// Every tag of one text, which is what makes a reader slow that looks at the whole text for
/// each of them.
void TagByTag(benchmark::State& state) {
    GeneratedProject generated;
    Generate(generated, 10'000, kSeed);
    std::string text = TextsOf(generated).hhk;
    text.resize(std::min(text.size(), static_cast<std::size_t>(state.range(0)) * kMegabyte));
    for (auto _ : state) {
        std::size_t found = 0;
        for (std::size_t at = text.find('<'); at != npos; at = text.find('<', at + 1)) {
            found += TagValue(text, at + 1, "VALUE", "", TagMode::kRead).size();
        }
        benchmark::DoNotOptimize(found);
    }
    CountBytes(state, text);
    state.SetComplexityN(state.range(0));
}

void ProjectSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000);
    benchmark->Unit(benchmark::kMillisecond)->Complexity();
}

BENCHMARK(OpenWholeProject)->Apply(ProjectSizes);
BENCHMARK(OpenWholeJavaHelpProject)->Apply(ProjectSizes);
BENCHMARK(TitlesOfTopics)->Apply(ProjectSizes);
BENCHMARK(FileList)->Apply(ProjectSizes);
BENCHMARK(MapFiles)->Apply(ProjectSizes);
BENCHMARK(Contents)->Apply(ProjectSizes);
BENCHMARK(Keywords)->Apply(ProjectSizes);
BENCHMARK(TagByTag)->DenseRange(1, 5)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace quorrel::bench
