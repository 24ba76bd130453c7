// What all dialogs share: room on small screens, what is typed, names for screen readers.
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include "app/form_error_log.hpp"
#include "app/form_settings.hpp"
#include "project/form_project_settings.hpp"
#include "project/new_topic.hpp"
#include "ui/appearance.hpp"
#include "ui/qt_text.hpp"
#include "ui/theme_icon.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

/// A screen of 1366 x 768 pixels at 200 %, without the frame of a window.
constexpr QSize kRoom(683 - 16, 384 - 48);

QString Text(QWidget* widget, QAccessible::Text which) {
    return QAccessible::queryAccessibleInterface(widget)->text(which);
}

void ExpectNames(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool is_field = qobject_cast<QComboBox*>(widget) != nullptr ||
                              qobject_cast<QAbstractItemView*>(widget) != nullptr ||
                              qobject_cast<QLineEdit*>(widget) != nullptr ||
                              qobject_cast<QPlainTextEdit*>(widget) != nullptr;
        // The parts of another field are not met by themselves.
        const bool is_part =
            widget->objectName().isEmpty() || widget->objectName().startsWith("qt_");
        if (!is_field || is_part) continue;
        const std::string who = FromQt(window.objectName() + "." + widget->objectName());
        EXPECT_FALSE(Text(widget, QAccessible::Name).isEmpty()) << who;
        EXPECT_FALSE(Text(widget, QAccessible::Description).contains('<')) << who;
    }
}

void ExpectRoom(QWidget& dialog) {
    const std::string who = FromQt(dialog.objectName());
    EXPECT_LE(dialog.minimumSizeHint().width(), kRoom.width()) << who;
    EXPECT_LE(dialog.minimumSizeHint().height(), kRoom.height()) << who;
    dialog.resize(kRoom);
    QCoreApplication::processEvents();
    for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (qobject_cast<QDialogButtonBox*>(button->parentWidget()) == nullptr) continue;
        const QRect place(button->mapTo(&dialog, QPoint()), button->size());
        EXPECT_TRUE(dialog.rect().contains(place)) << who << FromQt(button->text());
    }
}

class Dialogs : public WindowFixture {
  protected:
    void SetUp() override {
        StartAndOpen();
        ASSERT_TRUE(TopicShows("first body"));
    }
    /// Types into the field, tries to leave by Escape, stays, and leaves by Cancel.
    void ExpectQuestion(const char* name, const char* field, const char* cancel) {
        dialogs.Expect(name, [=, this](QWidget& dialog) {
            auto* edit = dialog.findChild<QWidget*>(field);
            edit->setFocus();
            QTest::keyClicks(edit, "ab");
            dialogs.Expect("Message", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
            QTest::keyClick(&dialog, Qt::Key_Escape);
            EXPECT_TRUE(dialog.isVisible()) << name;
            dialog.findChild<QPushButton*>(cancel)->click();
        });
    }
};

TEST_F(Dialogs, EscapeAsksBeforeTypedTextIsLost) {
    folder.Write("demo & more/htmlhelp.css", "p {}\r\n");
    ExpectQuestion("FormErrorLog", "Text1", "Command2");
    editcssfile_Click(Main());
    EXPECT_EQ(folder.Read("demo & more/htmlhelp.css"), "p {}\r\n");
    ExpectQuestion("FormNewTopic", "EditTitle", "CancelCmd");
    FileNew_Click(Main());
    ExpectQuestion("FormProjectSettings", "EditTOCFile", "cmdCancel");
    projopt_Click(Main());
    ExpectQuestion("FormSettings", "EditEditorPath", "CancelButton");
    mnuqrsettings_Click(Main());
    // Nothing typed, or taken back again: nothing to ask.
    dialogs.Expect("FormNewTopic", [](QWidget& dialog) {
        auto* title = dialog.findChild<QWidget*>("EditTitle");
        QTest::keyClicks(title, "a");
        QTest::keyClick(title, Qt::Key_Backspace);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    FileNew_Click(Main());
    EXPECT_TRUE(dialogs.IsDone());
}

TEST_F(Dialogs, HaveRoomOnASmallScreenAndNames) {
    const auto look = [](QWidget& dialog) {
        ExpectRoom(dialog);
        ExpectNames(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    };
    for (const char* name :
         {"FormNewTopic", "FormProjectSettings", "FormSettings", "FormErrorLog"}) {
        dialogs.Expect(name, look);
        if (std::string_view(name) == "FormNewTopic") FileNew_Click(Main());
        if (std::string_view(name) == "FormProjectSettings") projopt_Click(Main());
        if (std::string_view(name) == "FormSettings") mnuqrsettings_Click(Main());
        if (std::string_view(name) == "FormErrorLog") editcssfile_Click(Main());
    }
    ExpectNames(run->window);
    EXPECT_LE(run->window.minimumSizeHint().width(), kRoom.width());
    EXPECT_LE(run->window.minimumSizeHint().height(), kRoom.height());
}

TEST_F(Dialogs, TheMessagesAreShownInCourierNew) {
    dialogs.Expect("FormErrorLog", [](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QWidget*>("Text1")->font().family(), "Courier New");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    editcssfile_Click(Main());
    EXPECT_EQ(QCoreApplication::applicationName(), "Quorrel HTML Help Edition");
}

TEST_F(Dialogs, ALongMessageScrolls) {
    dialogs.Expect("Message", [](QWidget& box) {
        EXPECT_LE(box.height(), box.screen()->availableSize().height());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    std::string text;
    for (int i = 0; i < 300; ++i) text += "line " + std::to_string(i) + "\r\n";
    Main().screen.ShowMessage({text, "Long", MessageButtons::kYesNo, MessageIcon::kExclamation});
}

TEST(ThemeIcon, IsPaleWhereItsCommandIsDisabled) {
    LoadPictures();
    ChooseIconTheme(QPalette());
    const QIcon icon = ThemeIcon("document-save");
    ASSERT_FALSE(icon.isNull());
    const auto strongest = [&](QIcon::Mode mode, qreal scale) {
        const QImage image = icon.pixmap(QSize(22, 22), scale, mode).toImage();
        EXPECT_EQ(image.width(), qRound(22 * scale));
        int alpha = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) alpha = qMax(alpha, qAlpha(image.pixel(x, y)));
        }
        return alpha;
    };
    for (const qreal scale : {1.0, 2.0}) {
        EXPECT_GT(strongest(QIcon::Normal, scale), 200);
        EXPECT_LT(strongest(QIcon::Disabled, scale), 110);
    }
}

}  // namespace
}  // namespace quorrel::test
