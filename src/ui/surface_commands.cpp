// The commands of the web engine's surface.
#include "platform/failure.hpp"
#include "ui/qt_text.hpp"
#include "ui/topic_view.hpp"
#include "ui/web_surface.hpp"

namespace quorrel {
namespace {

constexpr int kFirst = surface_command::DECMD_BOLD;
constexpr int kLast = surface_command::DECMD_UNORDERLIST;

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
    using namespace surface_command;
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

}  // namespace

CommandValue WebSurface::ExecCommand(int command, CommandOption, const CommandValue& value) {
    if (command < kFirst || command > kLast) throw RuntimeError(run_time_error::kInvalidArgument);
    if (!IsReady()) throw RuntimeError(445, "The command is not available.");
    return FromPage(command, calls_->Call("command", {command, std::visit(ToJson{}, value)}));
}

QVariantMap WebSurface::Statuses() {
    return calls_->Call("statuses").toMap();
}

int WebSurface::QueryStatus(int command) {
    if (command < kFirst || command > kLast) return command_status::kNotSupported;
    if (!IsReady()) return command_status::kDisabled;
    const QVariant status = Statuses().value(QString::number(command));
    return status.isValid() ? status.toInt() : command_status::kNotSupported;
}

void WebSurface::Print() {}

}  // namespace quorrel
