#include "project/new_topic_file.hpp"

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"
#include "project/topic_title.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kPlainTopic =
    "<HTML><TITLE>[TITLE]</TITLE><BODY>[TITLE]<P></BODY></HTML>";

/// The bytes of the template; those of a plain page where there is none.
std::string TemplateBytes(MainForm& main, const std::string& path) {
    if (!main.files.FileExists(path)) return std::string(kPlainTopic);
    std::string bytes;
    const Trap trap(main.log, "FormNewTopic OkCmd_Click: ");
    trap([&] { bytes = main.files.ReadFile(path); });
    return bytes;
}

}  // namespace

void WriteNewTopic(MainForm& main, std::string_view path, std::string_view title,
                   const std::string& template_path) {
    const std::string bytes = TemplateBytes(main, template_path);
    const TextEncoding encoding = TopicEncoding(bytes, main.texts.CodePageNumber());
    const std::string text =
        ReplaceAll(DecodeText(bytes, encoding), kTitleMark, TitleInHtml(title));
    MakeFolder(main.files, BeforeLast(path, '\\', {}));
    WriteWhole(main.files, path, TopicBytes(text, encoding));
}

void CopyTopicSupport(MainForm& main, std::string_view topic_path) {
    const auto copy = [&](const std::string& file, std::string_view folder) {
        main.files.CopyFile(main.settings.Template_Dir + "\\" + file,
                            std::string(folder) + "\\" + file, false);
    };
    if (main.settings.is_javahelp_edition) {
        // A template can be made while no project is open.
        if (!main.project.proj.empty()) {
            copy("javahelp.css", BeforeLast(main.project.proj, '\\', {}));
        }
        return;
    }
    for (const char* file : {"master.js", "htmlhelp.css"}) {
        copy(file, BeforeLast(topic_path, '\\', {}));
    }
}

}  // namespace quorrel
