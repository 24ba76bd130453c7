// An editing surface with the real engine, worked by keys and clicks.
#pragma once

#include <gtest/gtest.h>

#include <QPointer>
#include <QTest>
#include <QWebEngineView>

#include <memory>
#include <string>

#include "platform/failure.hpp"
#include "platform/native_file_system.hpp"
#include "support/scratch_folder.hpp"
#include "ui/engine_page.hpp"
#include "ui/web_surface.hpp"

namespace quorrel::test {

/// The number of the run-time error that the call raises; 0 for none.
template <typename Call>
int NumberRaisedBy(Call call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

class SurfaceFixture : public testing::Test {
  protected:
    SurfaceFixture();
    ~SurfaceFixture() override;

    /// Loads a topic with this text, and waits until it is there.
    void Open(const std::string& html);
    /// The same, with `body` between the body's tags.
    void OpenBody(const std::string& body);
    void WaitUntilThere();

    /// What stands between the body's tags now.
    std::string Body();
    /// The same with "[" and "]" where the selection begins and ends, "^" for a caret. It is a
    /// trial of the marker too: it must leave no trace.
    std::string BodyWithSelection();

    /// Selects the first stretch of the text that reads `text`.
    void Select(const std::string& text);
    /// Places the caret behind it.
    void CaretAfter(const std::string& text);
    void Type(const QString& text);
    void Key(Qt::Key key, Qt::KeyboardModifiers held = {});
    void Click(const QPoint& place, Qt::KeyboardModifiers held = {});
    /// Where the first element that the CSS selector names is on the view.
    QRect PlaceOf(const QString& selector);
    /// Waits until what the user did has reached the surface.
    bool BodyBecomes(const std::string& body);

    std::unique_ptr<TextRange> Range() { return surface.DOM().selection().createRange(); }
    void Do(int command, const CommandValue& value = {}) {
        surface.ExecCommand(command, CommandOption::kDontPromptUser, value);
    }
    bool Can(int command) { return surface.QueryStatus(command) >= command_status::kEnabled; }
    QWidget* Input() { return surface.View()->focusProxy(); }

    ScratchFolder folder;
    NativeFileSystem files;
    WebSurface surface;
};

}  // namespace quorrel::test
