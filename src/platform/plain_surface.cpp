#include "platform/plain_surface.hpp"

#include <utility>

#include "platform/code_page.hpp"
#include "platform/failure.hpp"
#include "platform/plain_surface/plain_commands.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kControls =
    "IMG TABLE OBJECT APPLET INPUT BUTTON HR SELECT TEXTAREA EMBED IFRAME MARQUEE";

}  // namespace

PlainSurface::PlainSurface(FileSystem& files)
    : code_page([] { return CodePageOfMachine().number; }),
      files_(files),
      document_(std::make_shared<PlainDocument>(std::string())),
      encoding_{TextEncoding::Form::kUtf8, kUtf8CodePage} {}

void PlainSurface::Show(std::string html, bool is_dirty) {
    document_ = std::make_shared<PlainDocument>(std::move(html), is_dirty);
    base_url_.clear();
}

void PlainSurface::LoadDocument(std::string_view path) {
    TopicText topic = ReadTopicText(files_.ReadFile(path), code_page());
    encoding_ = topic.encoding;
    path_ = path;
    Show(std::move(topic.text), false);
    if (DocumentComplete) DocumentComplete();
}

void PlainSurface::SaveDocument(std::string_view path) {
    files_.WriteFile(path, TopicBytes(document_->Html(), encoding_));
    DocumentSaved(path);
}

void PlainSurface::DocumentSaved(std::string_view path) {
    path_ = path;
    document_->dirty = false;
}

void PlainSurface::NewDocument(std::string_view) {
    Show({}, false);
    path_.clear();
    encoding_ = {TextEncoding::Form::kUtf8, kUtf8CodePage};
}

void PlainSurface::SetDocumentHTML(std::string_view html) {
    Show(std::string(html), true);
    if (DocumentComplete) DocumentComplete();
}

CommandValue PlainSurface::ExecCommand(int command, CommandOption, const CommandValue& value) {
    return RunPlainCommand(*document_, clipboard, command, value);
}

int PlainSurface::QueryStatus(int command) {
    return PlainCommandStatus(*document_, clipboard, command);
}

void PlainSurface::SelectText(std::size_t from_byte, std::size_t to_byte) {
    document_->SelectText(from_byte, to_byte);
}

void PlainSurface::SelectControl(std::size_t tag_byte) {
    const HtmlOutline& outline = document_->Outline();
    const int index = outline.ElementAt(tag_byte);
    if (index < 0) throw RuntimeError(run_time_error::kInvalidArgument);
    document_->SelectElement(outline.Elements()[static_cast<std::size_t>(index)]);
}

void PlainSurface::SelectFirst(std::string_view source) {
    const HtmlOutline& outline = document_->Outline();
    const auto in_markup = [&](std::size_t offset) {
        const HtmlToken* token = outline.TokenOver(offset);
        return token != nullptr && token->kind != HtmlTokenKind::kText;
    };
    std::size_t begin = document_->Html().find(source, outline.Body().open_end);
    while (begin != npos && in_markup(begin)) begin = document_->Html().find(source, begin + 1);
    if (begin == npos) throw RuntimeError(run_time_error::kInvalidArgument);
    const std::size_t end = begin + source.size();
    const int index = outline.ElementAt(begin);
    if (index >= 0) {
        const HtmlElement& element = outline.Elements()[static_cast<std::size_t>(index)];
        const bool is_whole = element.open_end == end || element.close_end == end;
        if (is_whole && HasWord(kControls, element.name)) return SelectControl(begin);
    }
    SelectText(begin, end);
}

}  // namespace quorrel
