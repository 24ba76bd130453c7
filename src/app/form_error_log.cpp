#include "app/form_error_log.hpp"

#include "app/main_form.hpp"
#include "app/user_guide.hpp"
#include "editor/save_html.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"

namespace quorrel {
namespace {

std::string FileName(ErrorLogMode mode, bool is_javahelp_edition) {
    switch (mode) {
        case ErrorLogMode::kStyleSheet:
            return is_javahelp_edition ? "javahelp.css" : "htmlhelp.css";
        case ErrorLogMode::kScript:
            return "master.js";
        default:
            return "compiler.log";
    }
}

std::string LinesEndedByCrLf(std::string_view text) {
    std::string result;
    TextLines lines(text);
    while (!lines.AtEnd()) result.append(lines.ReadLine()).append(kLineEnd);
    return result;
}

void Show(MainForm& main, ErrorLogMode mode) {
    FormErrorLog form(main, mode);
    main.screen.ShowModal(form);
}

}  // namespace

FormErrorLog::FormErrorLog(MainForm& main, ErrorLogMode mode) : main_(main), mode_(mode) {
    Text1.Locked = true;
    Command1.Caption = std::string("Close");
    Command2.Caption = std::string("Cancel");
    Command3.Caption = std::string("Help");
    Command2.Visible = false;
    Command3.Visible = false;
    const std::string file = FileName(mode, main.settings.is_javahelp_edition);
    if (mode == ErrorLogMode::kStyleSheet) Caption = "Style Sheet File: " + file;
    if (mode == ErrorLogMode::kScript) Caption = "JavaScript File: " + file;
    if (mode != ErrorLogMode::kMessages) LetEdit();
    const std::string& proj = main.project.proj;
    if (!proj.empty()) path_ = std::string(BeforeLast(proj, '\\', {})) + "\\" + file;
    Read();
}

void FormErrorLog::LetEdit() {
    Command1.Caption = std::string("Ok");
    Command1IsDefault = false;
    Command2.Visible = true;
    Command3.Visible = true;
    Text1.Locked = false;
}

void FormErrorLog::Read() {
    if (path_.empty() || !main_.files.FileExists(path_)) return;
    const Trap trap(main_.log, "FormCaptureOutput Timer1_Timer: ");
    const bool is_read = trap([&] { Text1.Text = LinesEndedByCrLf(main_.texts.Read(path_)); });
    // An empty box must not take the place of what could not be read.
    if (!is_read) Text1.Locked = true;
}

void FormErrorLog::Command1_Click() {
    if (mode_ == ErrorLogMode::kMessages || Text1.Locked || path_.empty()) {
        closed = true;
        return;
    }
    try {
        // A toolkit may have left line feeds alone.
        const std::string text = ReplaceAll(Text1.Text(), kLineEnd, "\n");
        main_.texts.Write(path_, ReplaceAll(text, "\n", kLineEnd));
        closed = true;
    } catch (const RuntimeError& error) {
        TellSaveFailure(main_, error.Number());
    }
}

void FormErrorLog::Command3_Click() {
    ShowHelp(main_, HelpIdentifier(Name()));
}

void editcssfile_Click(MainForm& main) {
    Show(main, ErrorLogMode::kStyleSheet);
}

void editjsfile_Click(MainForm& main) {
    Show(main, ErrorLogMode::kScript);
}

}  // namespace quorrel
