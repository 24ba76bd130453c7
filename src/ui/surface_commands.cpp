// The commands of the web engine's surface.
#include <QClipboard>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMimeData>

#include "platform/failure.hpp"
#include "ui/find_bar.hpp"
#include "ui/font_dialog.hpp"
#include "ui/print_view.hpp"
#include "ui/qt_text.hpp"
#include "ui/surface_clipboard.hpp"
#include "ui/topic_view.hpp"
#include "ui/web_surface.hpp"

namespace quorrel {
namespace {

using namespace surface_command;

constexpr int kFirst = DECMD_BOLD;
constexpr int kLast = DECMD_UNORDERLIST;
constexpr int kNotAvailable = 445;
constexpr std::int64_t kWholeDocument = 1'000'000'000;
constexpr int kWholeWords = 2;
constexpr int kMatchCase = 4;

struct ToJson {
    QJsonValue operator()(std::monostate) const { return {}; }
    QJsonValue operator()(const std::string& text) const { return ToQt(text); }
    QJsonValue operator()(std::int64_t number) const { return static_cast<qint64>(number); }
    QJsonValue operator()(const std::vector<std::string>&) const {
        throw RuntimeError(run_time_error::kInvalidArgument);
    }
    QJsonValue operator()(const InsertTableParam& table) const {
        return QJsonObject{{"rows", table.num_rows},
                           {"columns", table.num_cols},
                           {"tableAttributes", ToQt(table.table_attrs)},
                           {"cellAttributes", ToQt(table.cell_attrs)}};
    }
};

CommandValue FromPage(int command, const QVariant& result) {
    switch (command) {
        case DECMD_GETBACKCOLOR:
        case DECMD_GETBLOCKFMT:
        case DECMD_GETFONTNAME:
        case DECMD_GETFORECOLOR:
            return FromQt(result.toString());
        case DECMD_GETFONTSIZE:
            return static_cast<std::int64_t>(result.toInt());
        case DECMD_GETBLOCKFMTNAMES: {
            std::vector<std::string> names;
            for (const QString& name : result.toStringList()) names.push_back(FromQt(name));
            return names;
        }
        default:
            return {};
    }
}

FontChoice FontFrom(const QVariantMap& font) {
    return {font["name"].toString(), font["size"].toInt(),    QColor(font["color"].toString()),
            font["bold"].toBool(),   font["italic"].toBool(), font["underline"].toBool()};
}

QJsonObject JsonOf(const FontChoice& font) {
    return {{"name", font.name}, {"size", font.size},     {"color", font.color.name().toUpper()},
            {"bold", font.bold}, {"italic", font.italic}, {"underline", font.underline}};
}

}  // namespace

CommandValue WebSurface::ExecCommand(int command, CommandOption option, const CommandValue& value) {
    if (command < kFirst || command > kLast) throw RuntimeError(run_time_error::kInvalidArgument);
    const int status = QueryStatus(command);
    if (status == command_status::kNotSupported) {
        throw RuntimeError(run_time_error::kInvalidArgument);
    }
    if (status < command_status::kEnabled) {
        throw RuntimeError(kNotAvailable, "The command is not available.");
    }
    QJsonValue argument = std::visit(ToJson{}, value);
    switch (command) {
        case DECMD_FINDTEXT:
            OpenFindBar();
            return {};
        case DECMD_PASTE:
            calls_->Call("paste", {PasteData(*QGuiApplication::clipboard()->mimeData())});
            return {};
        case DECMD_COPY:
        case DECMD_CUT:
            SetClipboard(calls_->Call("command", {command, argument}).toMap());
            return {};
        default:
            break;
    }
    if (option == CommandOption::kPromptUser) {
        const std::optional<QJsonValue> chosen = Ask(command, argument);
        if (!chosen) return {};
        argument = *chosen;
    }
    return FromPage(command, calls_->Call("command", {command, argument}));
}

std::optional<QJsonValue> WebSurface::Ask(int command, const QJsonValue& given) {
    if (command == DECMD_FONT) {
        FontDialog dialog(FontFrom(calls_->Call("font").toMap()), view_);
        if (dialog.exec() != QDialog::Accepted) return std::nullopt;
        return JsonOf(dialog.Choice());
    }
    if (command == DECMD_HYPERLINK || command == DECMD_IMAGE) {
        const bool is_link = command == DECMD_HYPERLINK;
        const QString start =
            is_link && given.isNull() ? calls_->Call("link").toString() : given.toString();
        QInputDialog dialog(view_);
        dialog.setObjectName(is_link ? "HyperlinkAddress" : "GraphicAddress");
        dialog.setWindowTitle(is_link ? "Hyperlink" : "Graphic");
        dialog.setLabelText("Address:");
        dialog.setTextValue(start);
        if (dialog.exec() != QDialog::Accepted || dialog.textValue().isEmpty()) return std::nullopt;
        return dialog.textValue();
    }
    return given;
}

QVariantMap WebSurface::Statuses() {
    if (is_input_seen_ || statuses_.isEmpty() || statuses_at_ != calls_->Count()) {
        is_input_seen_ = false;
        statuses_ = calls_->Call("statuses").toMap();
        statuses_at_ = calls_->Count();
    }
    return statuses_;
}

int WebSurface::QueryStatus(int command) {
    if (command < kFirst || command > kLast) return command_status::kNotSupported;
    if (!IsReady()) return command_status::kDisabled;
    if (command == DECMD_FINDTEXT) return command_status::kEnabled;
    if (command == DECMD_PASTE) {
        const bool is_there = CanPaste(QGuiApplication::clipboard()->mimeData());
        return is_there && !look_.browse ? command_status::kEnabled : command_status::kDisabled;
    }
    const QVariant status = Statuses().value(QString::number(command));
    return status.isValid() ? status.toInt() : command_status::kNotSupported;
}

// ---- Finding

void WebSurface::OpenFindBar() {
    const auto range = document_.selection().createRange();
    const QString text = range == nullptr ? QString() : ToQt(range->Text());
    find_bar_->Open(text);
}

void WebSurface::Search(FindBar::Step step) {
    find_bar_->ShowMessage({});
    const std::string text = FromQt(find_bar_->Text());
    if (text.empty() || !IsReady()) return;
    const bool is_up = step == FindBar::Step::kPrevious;
    const std::int64_t count = is_up ? -kWholeDocument : kWholeDocument;
    const int flags =
        (find_bar_->WholeWords() ? kWholeWords : 0) | (find_bar_->MatchCase() ? kMatchCase : 0);
    auto range = document_.selection().createRange();
    const auto body = document_.body();
    if (body == nullptr) return;
    if (range == nullptr) range = body->createTextRange();
    range->collapse(is_up || step == FindBar::Step::kHere);
    if (!range->findText(text, count, flags)) {
        // From the other end on.
        range = body->createTextRange();
        range->collapse(!is_up);
        const bool is_found = range->findText(text, count, flags);
        find_bar_->ShowMessage(is_found ? FindBar::WrappedMessage(step)
                                        : FindBar::NotFoundMessage());
        if (!is_found) return;
    }
    range->Select();
    range->scrollIntoView();
}

// ---- Printing

void WebSurface::Print() {
    if (IsReady()) PrintView(*view_);
}

}  // namespace quorrel
