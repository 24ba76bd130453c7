#include <QAbstractButton>
#include <QAction>
#include <QContextMenuEvent>
#include <QDialog>
#include <QMenu>
#include <QTest>
#include <QToolBar>

#include "app/command_tables.hpp"
#include "app/commands.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class Bars : public WindowFixture {
  protected:
    /// The action that shows a command, wherever it is.
    QAction* ActionOf(std::string_view name) {
        const QString wanted = QString::fromUtf8(name.data(), static_cast<int>(name.size()));
        if (auto* action = run->window.findChild<QAction*>(wanted)) return action;
        auto* menu = run->window.findChild<QMenu*>(wanted);
        return menu == nullptr ? nullptr : menu->menuAction();
    }
    static QString Plain(QString text) { return text.remove('&'); }
};

TEST_F(Bars, EveryCommandIsThereAndStandsAsItsTabHasIt) {
    StartAndOpen();
    for (int tab = right_tab::kNormal; tab <= right_tab::kDocumentWizard; ++tab) {
        Main().window.TabStrip2.SelectedIndex = tab;
        QTest::qWait(1);
        for (const Menu& menu : Menus()) {
            for (const Command& command : menu.entries) {
                if (command.caption == kSeparator || FindMenu(command.name) != nullptr) continue;
                QAction* action = ActionOf(command.name);
                ASSERT_NE(action, nullptr) << command.name;
                const MenuEntry& model = EntryOf(Main().window, command.name);
                const QString caption = QString::fromStdString(model.Caption());
                EXPECT_EQ(Plain(action->text()), Plain(caption)) << command.name;
                const bool can_run = model.Enabled() && action->isVisible();
                EXPECT_EQ(action->isEnabled(), can_run) << command.name << tab;
                EXPECT_EQ(action->icon().isNull(), command.icon.empty()) << command.name;
                EXPECT_TRUE(IsAvailable(command.name) || !action->isEnabled()) << command.name;
            }
        }
        for (const auto& buttons : {ToolBarButtons(), FormatBarButtons()}) {
            for (const ToolButton& button : buttons) {
                QAction* action = ActionOf(button.key);
                ASSERT_NE(action, nullptr) << button.key;
                EXPECT_FALSE(action->icon().isNull()) << button.key;
                const MenuEntry& model = EntryOf(Main().window, button.key);
                EXPECT_EQ(action->isEnabled(), model.Enabled() && action->isVisible())
                    << button.key << tab;
            }
        }
    }
}

TEST_F(Bars, AMenuKeyAndARightClickOpenTheMenuOfTheItem) {
    StartAndOpen();
    auto* tree = Find<QTreeView>("Tree1");
    auto* menu = Find<QMenu>("mnutreepop");
    const QPoint place = tree->visualRect(tree->model()->index(1, 0)).center();
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QContextMenuEvent event(reason, place, tree->viewport()->mapToGlobal(place));
        QApplication::sendEvent(tree->viewport(), &event);
        EXPECT_TRUE(menu->isVisible());
        menu->close();
    }
    ClickItem(tree, tree->model()->index(0, 0));
    EXPECT_TRUE(TopicShows("first body"));
    QTest::keyClick(tree, Qt::Key_F5);
    EXPECT_EQ(Main().window.TabStrip2.SelectedIndex(), right_tab::kPreview);
    Find<QAction>("popproperties")->trigger();
    EXPECT_EQ(Main().window.TabStrip2.SelectedIndex(), right_tab::kOrganizeTOC);
}

TEST_F(Bars, TheGuideOpensBesideTheWindowAndBesideADialog) {
    folder.Write("share/Help/guide.hhp",
                 "[OPTIONS]\r\n\r\n[FILES]\r\nstart.htm\r\nstyle.htm\r\n\r\n[INFOTYPES]\r\n");
    folder.Write("share/Help/guide.ali", "IDH_FormErrorLog=style.htm\r\n");
    folder.Write("share/Help/guide.hhc",
                 "<UL>\r\n<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" "
                 "value=\"Start\">\r\n<param name=\"Local\" value=\"start.htm\">\r\n</OBJECT>\r\n"
                 "<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" "
                 "value=\"Style\">\r\n<param name=\"Local\" value=\"style.htm\">\r\n</OBJECT>\r\n"
                 "</UL>\r\n");
    folder.Write("share/Help/start.htm", "<title>Start</title>");
    folder.Write("share/Help/style.htm", "<title>Style</title>");
    StartAndOpen();
    dialogs.Expect("Message", [](QWidget& message) {
        EXPECT_TRUE(message.property("text").toString().startsWith("Cannot find file "));
        QTest::keyClick(&message, Qt::Key_Return);
    });
    Find<QAction>("helpcontents")->trigger();
    Main().settings.main_dir = folder.Windows("share") + "\\";
    Find<QAction>("helpcontents")->trigger();
    auto* window = Find<QDialog>("HelpWindow");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->findChild<QTreeView*>("guide")->currentIndex().data(), "Start");
    window->close();

    dialogs.Expect("FormErrorLog", [](QWidget& dialog) {
        dialog.findChild<QAbstractButton*>("Command3")->click();
        auto* help = dialog.findChild<QDialog*>("HelpWindow");
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(help->findChild<QTreeView*>("guide")->currentIndex().data(), "Style");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    Find<QAction>("editcssfile")->trigger();
}

}  // namespace
}  // namespace quorrel::test
