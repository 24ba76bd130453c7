// What the surface hears of the typing, and what it does with it when the engine stops.
#include <algorithm>

#include "editor/preserve_source.hpp"
#include "platform/text.hpp"
#include "ui/qt_text.hpp"
#include "ui/web_surface.hpp"

namespace quorrel {
namespace {

/// Typing is heard after such a pause, and at the latest after such a time. Where hearing takes
/// long it may take this part of the time only.
constexpr qint64 kPauseMilliseconds = 500;
constexpr qint64 kUnheardMilliseconds = 3000;
constexpr qint64 kShareOfHearing = 20;

/// An engine that stops that often within a minute is not started for the same document again.
constexpr int kMostCrashes = 3;
constexpr qint64 kCrashesInARowMilliseconds = 60000;

}  // namespace

std::string WebSurface::SourceOf(const Heard& heard) const {
    if (heard.version == 0) return source_;
    if (heard.version == html_version_) return html_;
    if (preserve_) return PreserveSource(source_, heard.base, heard.html);
    // The engine knows one kind of line ends only.
    const bool has_returns = source_.find("\r\n") != npos;
    return has_returns ? ReplaceAll(heard.html, "\n", "\r\n") : heard.html;
}

void WebSurface::HearSoon() {
    if (!unheard_since_.isValid()) unheard_since_.start();
    const qint64 pause = std::max(kPauseMilliseconds, kShareOfHearing * hearing_takes_ / 4);
    const qint64 latest = std::max(kUnheardMilliseconds, kShareOfHearing * hearing_takes_);
    const qint64 left = std::max<qint64>(0, latest - unheard_since_.elapsed());
    hear_timer_.start(static_cast<int>(std::min(pause, left)));
}

DocumentCopy WebSurface::LastHeard() const {
    const bool is_composed = heard_.version == 0 || !preserve_;
    if (is_composed) return {SourceOf(heard_), {}, {}};
    return {source_, heard_.base, heard_.html};
}

void WebSurface::Hear() {
    if (!IsReady()) return;
    unheard_since_.invalidate();
    QElapsedTimer asked;
    asked.start();
    // Not waited for: it must not hold up the typing.
    calls_->Ask("copy", {heard_.version, heard_.base.empty()},
                [this, asked](const QVariant& answer, int version) {
                    const QVariantMap copy = answer.toMap();
                    hearing_takes_ = asked.elapsed();
                    if (heard_.base.empty()) heard_.base = FromQt(copy.value("base").toString());
                    if (copy.value("html").isNull()) return;
                    heard_.html = FromQt(copy.value("html").toString());
                    heard_.version = version;
                    Events events;
                    events.heard = true;
                    Raise(events);
                });
}

void WebSurface::NoteCrash() {
    const bool is_there = IsReady();
    if (!is_there && !busy_) return;  // an empty page
    const bool is_whole = !is_there || (calls_->Version() == heard_.version && !is_input_seen_);
    is_set_ = is_set_ || (is_there && heard_.version != saved_version_);
    source_ = SourceOf(heard_);
    if (last_crash_.isValid() && last_crash_.hasExpired(kCrashesInARowMilliseconds)) crashes_ = 0;
    last_crash_.start();
    const bool was_complete = is_there || is_shown_again_;
    Show();
    is_shown_again_ = was_complete;
    Events events;
    if (++crashes_ < kMostCrashes) {
        events.loss = is_whole ? EngineLoss::kNothing : EngineLoss::kLastWords;
    } else {
        load_timer_.stop();
        busy_ = false;
        ShowHint("The topic cannot be shown: the web engine stops each time. Its text is kept.");
        events.loss = EngineLoss::kView;
    }
    Raise(events);
}

}  // namespace quorrel
