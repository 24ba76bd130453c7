// The report of all topics: "report.htm" and the tab-delimited "report.txt", row for row the same,
// in the folder "report" below the project's.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

struct TopicReport {
    std::string html;
    std::string text;
};

/// `now` is the moment that the report names. The progress bar counts the topics.
[[nodiscard]] TopicReport ComposeReport(MainForm& main, std::string_view now);

/// Composes the report and writes it, with the style sheet where there is none. Files that cannot
/// be written are left out without a word.
void WriteReport(MainForm& main);

/// The full path of the page that WriteReport writes.
[[nodiscard]] std::string ReportPath(const MainForm& main);

}  // namespace quorrel
