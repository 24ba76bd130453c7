// preserve-check [--edit=NAME|--edit=all] [--places=COUNT] [--dump FOLDER] FILE|FOLDER...
//
// Edits each topic in the web engine, in its middle or one time after the other in as many
// places, and checks that its source is kept but for the edit. With --dump the texts that went in
// and came out are written to the folder.
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "platform/failure.hpp"
#include "tools/topic_check.hpp"
#include "ui/topic_scheme.hpp"

namespace quorrel::test {
namespace {

namespace fs = std::filesystem;

struct Request {
    std::vector<std::string> edits = {"word"};
    int places = 1;
    fs::path dump;
    std::vector<fs::path> topics;
};

Request RequestOf(int argc, char** argv) {
    Request request;
    for (int at = 1; at < argc; ++at) {
        const std::string_view argument = argv[at];
        if (argument.starts_with("--edit=")) {
            const std::string name(argument.substr(7));
            request.edits = name == "all" ? EditNames() : std::vector<std::string>{name};
        } else if (argument.starts_with("--places=")) {
            request.places = std::max(1, std::atoi(argv[at] + 9));
        } else if (argument == "--dump" && at + 1 < argc) {
            request.dump = argv[++at];
        } else {
            for (fs::path& topic : TopicsIn(argument)) request.topics.push_back(std::move(topic));
        }
    }
    return request;
}

void Dump(const fs::path& folder, const std::string& name, const TopicOutcome& outcome) {
    fs::create_directories(folder);
    const auto write = [&](const char* ending, const std::string& text) {
        std::ofstream(folder / (name + ending), std::ios::binary) << text;
    };
    write(".original", outcome.original);
    write(".base", outcome.base);
    write(".edited", outcome.edited);
    write(".preserved", outcome.preserved);
}

class Totals {
  public:
    void Add(const fs::path& topic, const std::string& edit, const TopicOutcome& outcome) {
        switch (outcome.result) {
            case TopicOutcome::Result::kOk:
                ++ok_;
                std::printf("ok %s %s -%zu +%zu\n", edit.c_str(), topic.c_str(),
                            outcome.removed_lines, outcome.added_lines);
                break;
            case TopicOutcome::Result::kFailed:
                ++failed_;
                std::printf("FAIL %s %s: %s\n", edit.c_str(), topic.c_str(),
                            outcome.reason.c_str());
                break;
            case TopicOutcome::Result::kSkipped:
                ++skipped_;
                std::printf("skipped %s %s: %s\n", edit.c_str(), topic.c_str(),
                            outcome.reason.c_str());
                break;
        }
        std::fflush(stdout);
    }

    int Report() const {
        std::printf("%d ok, %d failed, %d skipped\n", ok_, failed_, skipped_);
        return failed_ > 0 ? 1 : 0;
    }

  private:
    int ok_ = 0;
    int failed_ = 0;
    int skipped_ = 0;
};

int Run(const Request& request) {
    EnginePage page;
    Totals totals;
    int number = 0;
    for (const fs::path& topic : request.topics) {
        ++number;
        for (const std::string& edit : request.edits) {
            for (int place = 0; place < request.places; ++place) {
                const TopicOutcome outcome =
                    CheckTopic(page, topic, edit, (place + 0.5) / request.places);
                totals.Add(topic, edit, outcome);
                if (request.dump.empty()) continue;
                Dump(request.dump,
                     std::to_string(number) + "-" + topic.stem().string() + "-" + edit + "-" +
                         std::to_string(place),
                     outcome);
            }
        }
    }
    return totals.Report();
}

}  // namespace
}  // namespace quorrel::test

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    quorrel::RegisterTopicScheme();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    try {
        return quorrel::test::Run(quorrel::test::RequestOf(argc, argv));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "preserve-check: %s\n", error.what());
        return 2;
    }
}
