#include "documents/topic_report.hpp"

#include <ctime>

#include "app/main_form.hpp"
#include "platform/profile_file.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"
#include "project/side_files.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kRow = "<tr><td bgcolor=#FFFFFF><b>";
constexpr std::string_view kRowEnd = "</td></tr>";

/// Appends the pieces as one line.
template <typename... Pieces>
void Line(std::string& out, Pieces... pieces) {
    (out.append(pieces), ...);
    out.append(kLineEnd);
}

/// Appends a field of the tab-delimited file.
void Field(std::string& out, std::string_view value) {
    out.append(value).append("\t");
}

std::string ReportFolder(const MainForm& main) {
    return std::string(BeforeLast(main.project.proj, '\\', {})) + "\\report";
}

ProfileKeys ReadStatusFile(MainForm& main) {
    std::string& file = main.project.status_file;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + ".stn";
    try {
        return ProfileSection(main.texts.Read(file), kStatusSection);
    } catch (const RuntimeError&) {
        return {};  // No topic has a status yet.
    }
}

void WriteHead(TopicReport& report, const MainForm& main, std::string_view now) {
    const std::string& title = main.project.project_title;
    const std::string topics = std::to_string(main.topics.ListTopics.Count());
    const std::string keywords = std::to_string(main.keywords.ListKeywords.Count());
    std::string& html = report.html;
    Line(html, "<HTML>");
    Line(html, "<HEAD>");
    Line(html, "<TITLE>Topic Report: ", title, "</TITLE>");
    Line(html, "<LINK REL=stylesheet TYPE=text/css HREF=report.css>");
    Line(html, "</HEAD><BODY>");
    Line(html, "<H1>Topic Report: ", title, "</H1><p>&nbsp;</p>");
    Line(html,
         "<i>To print this report, right click and choose \"Print\" from the pop-up context "
         "menu.</i><p>");
    Line(html,
         "<p><i> You can use the Contents, Topics, and Index tabs on the left to navigate within "
         "the report.</i>");
    Line(html,
         "<p><i> This HTML file and also a tab-delimited text file are available in the \\report "
         "subdirectory below your project directory.</i>");
    Line(html, "<p>&nbsp;</p><p><b>Report Date/Time:</b> ", now);
    Line(html, "<p><b>Total Number of Topics: </b>", topics);
    Line(html, "<p><b>Number of Index Entries: </b>", keywords);
    Line(html, "<p>&nbsp;</p>");
    Line(report.text, main.settings.is_javahelp_edition
                          ? "Topic Title\tMapID\tFile Path\tIndex Keywords\tStatus\tNotes"
                          : "Topic Title\tAlias\tContext Integer\tFile Path\tIndex Keywords\t"
                            "Status\tNotes");
}

/// A keyword cell for the reader: "A;B    :c;" is "A, B   : c".
std::string ShownKeys(std::string_view cell) {
    std::string keys = ReplaceAll(cell, ";", ", ");
    keys = ReplaceAll(ReplaceAll(keys, " :", ": "), "##", "#");
    if (keys.size() > 1) keys.resize(keys.size() - 2);
    return keys;
}

struct ShownStatus {
    std::string name = "Not Specified";
    std::string notes;
};

ShownStatus StatusOf(const MainForm& main, const ProfileKeys& status, std::string_view path) {
    const auto found = status.find(AfterLast(path, '\\'));
    if (found == status.end()) return {};
    const std::string_view stored = FirstCharacters(found->second, kStatusLimit);
    const std::string_view value = stored.substr(0, stored.find('\0'));
    if (value.empty()) return {};
    const StatusEntry entry = ParseStatus(value);
    const auto& names = main.window.ComboStatus.List();
    const auto index = static_cast<std::size_t>(LeadingNumber(entry.status));
    return {index < names.size() ? names[index] : std::string(),
            ReplaceAll(entry.notes, "||", " ")};
}

void WriteTopic(TopicReport& report, const MainForm& main, const ListRow& row,
                const ShownStatus& status) {
    const bool javahelp = main.settings.is_javahelp_edition;
    const std::string& path = row.SubItems(topic_cell::kFullPath);
    const std::string& id = row.SubItems(topic_cell::kMapId);
    const std::string& integer = row.SubItems(topic_cell::kInteger);
    const std::string place = MakeRelPathRel(path, main.project.proj);
    const std::string keys = ShownKeys(row.SubItems(topic_cell::kKeywords));

    std::string& html = report.html;
    Line(html, "<a name=\"", place, "\">");
    Line(html, "<table border=0 width=100% cellpadding=4 cellspacing=1 bgcolor=#808080>");
    Line(html, "<tr><td bgcolor=#D7D7D7><b>Topic Title:</b> ", row.Text(), kRowEnd);
    Line(html, kRow, javahelp ? "MapID:</b> " : "Alias:</b> ", id, kRowEnd);
    Line(html, kRow, "File Path:</b> <a href=\"", place, "\" target=_blank>", place, "</a>",
         kRowEnd);
    if (!javahelp) Line(html, kRow, "Context ID:</b> ", integer, kRowEnd);
    Line(html, kRow, "Index Keywords:</b> ", keys, kRowEnd);
    Line(html, kRow, "Status:</b> ", status.name, "<br><b>Notes: </b>", status.notes, kRowEnd);
    Line(html, "</table><br>");

    std::string& text = report.text;
    Field(text, row.Text());
    Field(text, id);
    if (!javahelp) Field(text, integer);
    Field(text, place);
    Field(text, keys);
    Field(text, status.name);
    Line(text, status.notes, " ");
}

std::string Now() {
    const std::time_t now = std::time(nullptr);
    char text[40];
    const std::size_t size =
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&now));
    return {text, size};
}

/// Runs a step whose failure leaves its result out and nothing else.
template <typename Step>
void Try(Step step) {
    try {
        step();
    } catch (const RuntimeError&) {
        // The report has no words for it.
    }
}

}  // namespace

TopicReport ComposeReport(MainForm& main, std::string_view now) {
    TopicReport report;
    const ProfileKeys status = ReadStatusFile(main);
    const ListView& topics = main.topics.ListTopics;
    WriteHead(report, main, now);
    main.window.ProgressReport.Max = topics.Count();
    for (int i = 1; i <= topics.Count(); ++i) {
        main.window.ProgressReport.Value = i;
        const ListRow& row = topics.At(i);
        WriteTopic(report, main, row, StatusOf(main, status, row.SubItems(topic_cell::kFullPath)));
    }
    Line(report.html, "</BODY></HTML>");
    return report;
}

std::string ReportPath(const MainForm& main) {
    return ReportFolder(main) + "\\report.htm";
}

void WriteReport(MainForm& main) {
    const std::string folder = ReportFolder(main);
    const TopicReport report = ComposeReport(main, Now());
    Try([&] {
        if (!main.files.FolderExists(folder)) main.files.CreateFolder(folder);
    });
    main.files.CopyFile(main.settings.Template_Dir + "\\report.css", folder + "\\report.css",
                        false);
    const auto write = [&](const std::string& file, const std::string& content) {
        main.files.DeleteFile(file);
        Try([&] { main.texts.Write(file, content); });
    };
    write(folder + "\\report.txt", report.text);
    write(ReportPath(main), report.html);
}

}  // namespace quorrel
