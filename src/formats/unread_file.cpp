#include "formats/unread_file.hpp"

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"

namespace quorrel {

void NoteUnreadFile(MainForm& main, const std::string& file, std::string_view mark) {
    if (!main.files.FileExists(file)) return;
    const Trap trap(main.log, "MainForm OpenProject Click: ");
    std::string text;
    if (!trap([&] { text = main.texts.Read(file); })) return;
    LeftBehind lines{"lines of a file that the project does not include"};
    TextLines reader(text);
    while (!reader.AtEnd()) {
        const std::string_view line = reader.ReadLine();
        const bool is_blank = TrimBlanksAndTabs(line).empty();
        if (!is_blank && ContainsIgnoringAsciiCase(line, mark)) ++lines.count;
    }
    main.texts.NoteLeftBehind(file, std::move(lines));
}

}  // namespace quorrel
