// An author at work: dialogs filled in by typing and clicking.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QTest>

#include <functional>

#include "ui/window_fixture.hpp"

namespace quorrel::test {

class AuthoringFixture : public WindowFixture {
  protected:
    /// Names an installation with two templates, and no project.
    void Install(const std::string& family) {
        folder.Write("config/quorrel/qrrl_hj.ini",
                     "[Locations]\r\nmain dir=" + folder.Windows("inst") + "\\\r\n");
        const std::string templates = "inst/Topic Templates/" + family + "/";
        folder.Write(templates + "Blank.htm", "<title>[TITLE]</title><body><h1>[TITLE]</h1>");
        folder.Write(templates + "Steps.htm", "<title>[TITLE]</title><body><ol><li>[TITLE]</ol>");
    }

    static void Type(QWidget& dialog, const char* name, const QString& text) {
        auto* edit = dialog.findChild<QLineEdit*>(name);
        ASSERT_NE(edit, nullptr) << name;
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    static void Click(QWidget& dialog, const char* name) {
        auto* button = dialog.findChild<QAbstractButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    /// Where the keyboard goes when the dialog is in front.
    static QString FocusOf(const QWidget& dialog) {
        return dialog.focusWidget() == nullptr ? QString() : dialog.focusWidget()->objectName();
    }
    void Trigger(const char* command) {
        auto* action = run->window.findChild<QAction*>(command);
        ASSERT_NE(action, nullptr) << command;
        action->trigger();
    }
    /// Runs a command and `work` in the dialog that it opens.
    void Run(const char* command, const char* dialog, std::function<void(QWidget&)> work) {
        dialogs.Expect(dialog, std::move(work));
        Trigger(command);
        EXPECT_TRUE(dialogs.IsDone()) << command;
    }
};

}  // namespace quorrel::test
