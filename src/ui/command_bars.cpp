#include "ui/command_bars.hpp"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QToolBar>

#include "app/command_tables.hpp"
#include "app/commands.hpp"
#include "app/main_form.hpp"
#include "app/tool_bar.hpp"
#include "editor/formatting.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"
#include "ui/theme_icon.hpp"

namespace quorrel {
namespace {

/// The first "&" marks the letter of the entry, any other one belongs to the text.
QString MenuText(const std::string& caption) {
    const std::size_t mark = caption.find('&');
    if (mark == std::string::npos) return ToQt(caption);
    const std::string_view text = caption;
    return WithoutMnemonics(ToQt(text.substr(0, mark))) + "&" +
           WithoutMnemonics(ToQt(text.substr(mark + 1)));
}

/// Whether the key with Alt is that of a menu of the bar.
bool IsLetterOf(const Menu& menu, const QKeyEvent& key) {
    return key.modifiers() == Qt::AltModifier &&
           QKeySequence::mnemonic(MenuText(std::string(menu.caption))) ==
               QKeySequence(key.keyCombination());
}

/// A tip with the key that does the same.
QString TipWithKey(const QString& tip, std::string_view shortcut) {
    if (shortcut.empty()) return tip;
    const QKeySequence key = QKeySequence::fromString(ToQt(shortcut));
    return tip + " (" + key.toString(QKeySequence::NativeText) + ")";
}

/// A list that shows a combo box model and runs `work` when the user chooses.
template <typename Work>
QComboBox* MakeList(const char* name, const QString& title, ComboBox& model, Work work) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    list->setToolTip(title);
    list->setAccessibleName(title);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    list->setFocusPolicy(Qt::ClickFocus);
    const auto follow = [list, &model] {
        const QSignalBlocker silent(list);
        QStringList texts;
        for (const std::string& text : model.List()) texts << ToQt(text);
        QStringList shown;
        for (int i = 0; i < list->count(); ++i) shown << list->itemText(i);
        if (texts != shown) {
            list->clear();
            list->addItems(texts);
        }
        list->setCurrentIndex(model.ListIndex());
        list->setEnabled(model.Enabled());
        list->setVisible(model.Visible());
    };
    follow();
    Listen(model.changed, list, follow);
    QObject::connect(list, &QComboBox::activated, list, [&model, work](int index) {
        model.ListIndex = index;
        work();
    });
    return list;
}

}  // namespace

CommandBars::CommandBars(MainForm& main, QMainWindow* window)
    : QObject(window), main_(main), window_(window) {
    for (const Menu& menu : Menus()) {
        if (menu.place != MenuPlace::kSubmenu) MakeMenu(menu);
    }
    QToolBar* tools = MakeToolBar("tbToolBar", "Main Tool Bar");
    for (const ToolButton& button : ToolBarButtons()) AddButton(tools, button, false);
    window_->addToolBarBreak();
    QToolBar* format = MakeToolBar("Toolbar1", "Formatting Tool Bar");
    AddLists(format);
    for (const ToolButton& button : FormatBarButtons()) AddButton(format, button, true);
    ShowIcons();
}

QMenu* CommandBars::ContextMenu(const QString& name) const {
    return window_->findChild<QMenu*>(name);
}

void CommandBars::ShowIcons() {
    for (const Icon& icon : icons_) icon.action->setIcon(ThemeIcon(icon.name));
}

void CommandBars::MakeMenu(const Menu& menu) {
    switch (menu.place) {
        case MenuPlace::kBar: {
            QMenu* made = window_->menuBar()->addMenu(MenuText(std::string(menu.caption)));
            Fill(made, menu);
            MenuEntry& model = EntryOf(main_.window, menu.name);
            const QString text = MenuText(std::string(menu.caption));
            const auto follow = [made, &model, text] {
                // The bar takes the letter of a disabled menu too, and does nothing with it.
                QString shown = text;
                made->menuAction()->setText(model.Enabled() ? text : shown.remove('&'));
                made->menuAction()->setEnabled(model.Enabled());
                made->menuAction()->setVisible(model.Visible());
            };
            follow();
            Listen(model.changed, made, follow);
            return;
        }
        case MenuPlace::kContext:
            return Fill(new QMenu(window_), menu);
        case MenuPlace::kKeys:
            for (const Command& command : menu.entries) {
                auto* action = new QAction(window_);
                Follow(action, command);
                window_->addAction(action);
            }
            return;
        case MenuPlace::kSubmenu:
            return;
    }
}

void CommandBars::Fill(QMenu* made, const Menu& menu) {
    made->setObjectName(ToQt(menu.name));
    made->setToolTipsVisible(false);
    for (const Command& command : menu.entries) AddEntry(made, command);
    connect(made, &QMenu::aboutToShow, this, [this, &menu] { OpenMenu(main_, menu); });
    // Later: the chosen entry runs after the menu has gone.
    connect(
        made, &QMenu::aboutToHide, this, [this, &menu] { CloseMenu(main_, menu); },
        Qt::QueuedConnection);
}

QAction* CommandBars::AddEntry(QMenu* made, const Command& command) {
    const Menu* submenu = FindMenu(command.name);
    if (submenu != nullptr && submenu->place == MenuPlace::kSubmenu) {
        QMenu* inner = made->addMenu(MenuText(std::string(command.caption)));
        Fill(inner, *submenu);
        return inner->menuAction();
    }
    QAction* action =
        command.caption == kSeparator ? made->addSeparator() : made->addAction(QString());
    Follow(action, command);
    return action;
}

void CommandBars::Follow(QAction* action, const Command& command) {
    action->setObjectName(ToQt(command.name));
    MenuEntry& model = EntryOf(main_.window, command.name);
    const bool is_separator = command.caption == kSeparator;
    action->setCheckable(command.is_checkable);
    action->setStatusTip(ToQt(StatusTip(command)));
    if (!command.shortcut.empty()) {
        action->setShortcut(QKeySequence::fromString(ToQt(command.shortcut)));
    }
    if (!command.icon.empty()) icons_.push_back({action, ToQt(command.icon)});
    const auto follow = [action, &model, is_separator] {
        const std::string& caption = model.Caption;
        if (!is_separator) action->setText(MenuText(caption));
        action->setEnabled(model.Enabled());
        action->setVisible(model.Visible() && (is_separator || !caption.empty()));
        action->setChecked(model.Checked());
    };
    follow();
    Listen(model.changed, action, follow);
    connect(action, &QAction::triggered, this, [this, name = command.name, follow] {
        if (!RunCommand(main_, name)) Tell(WhyNot(main_, name));
        follow();
    });
    if (command.name == "fileexit") action->setMenuRole(QAction::QuitRole);
}

void CommandBars::Tell(const std::string& text) {
    constexpr int kMilliseconds = 5000;
    window_->statusBar()->showMessage(ToQt(text), kMilliseconds);
}

bool CommandBars::TellWhyNot(const QKeyEvent& key) {
    const QKeySequence pressed(key.keyCombination());
    const auto tell = [&](std::string_view name, std::string_view shortcut) {
        const bool is_it = !shortcut.empty() && QKeySequence::fromString(ToQt(shortcut)) == pressed;
        if (is_it) Tell(WhyNot(main_, name));
        return is_it;
    };
    for (const Menu& menu : Menus()) {
        if (menu.place == MenuPlace::kBar && IsLetterOf(menu, key)) {
            Tell(WhyNot(main_, menu.name));
            return true;
        }
        for (const Command& command : menu.entries) {
            if (tell(command.name, command.shortcut)) return true;
        }
    }
    for (const auto buttons : {ToolBarButtons(), FormatBarButtons()}) {
        for (const ToolButton& button : buttons) {
            if (tell(button.key, button.shortcut)) return true;
        }
    }
    return false;
}

QToolBar* CommandBars::MakeToolBar(const char* name, const QString& title) {
    QToolBar* bar = window_->addToolBar(title);
    bar->setObjectName(name);
    bar->setAccessibleName(title);
    bar->setMovable(false);
    bar->toggleViewAction()->setVisible(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    return bar;
}

void CommandBars::AddButton(QToolBar* bar, const ToolButton& button, bool is_format) {
    const QString key = ToQt(button.key);
    QAction* action = bar->addAction(key);
    action->setObjectName(key);
    action->setCheckable(button.is_checkable);
    if (!button.shortcut.empty()) {
        action->setShortcut(QKeySequence::fromString(ToQt(button.shortcut)));
    }
    icons_.push_back({action, ToQt(button.icon)});
    MenuEntry& model = EntryOf(main_.window, button.key);
    // The tips of the main bar are worded in full.
    const std::string_view shown_key = is_format ? button.shortcut : std::string_view{};
    const auto follow = [action, &model, shortcut = shown_key] {
        const QString tip = ToQt(model.ToolTipText());
        action->setText(tip);
        action->setToolTip(TipWithKey(tip, shortcut));
        action->setStatusTip(tip);
        action->setEnabled(model.Enabled());
        action->setVisible(model.Visible());
        action->setChecked(model.Checked());
    };
    follow();
    Listen(model.changed, action, follow);
    connect(action, &QAction::triggered, this, [this, is_format, key = button.key, follow] {
        if (is_format) {
            Toolbar1_ButtonClick(main_, key);
        } else {
            tbToolBar_ButtonClick(main_, key);
        }
        follow();
    });
}

void CommandBars::AddLists(QToolBar* bar) {
    WindowControls& window = main_.window;
    bar->addWidget(
        MakeList("ComboStyle", "Style", window.ComboStyle, [this] { ComboStyle_Click(main_); }));
    bar->addWidget(
        MakeList("FontCombo", "Font", window.FontCombo, [this] { FontCombo_Click(main_); }));
    bar->addWidget(MakeList("FontSizeCombo", "Font Size", window.FontSizeCombo,
                            [this] { FontSizeCombo_Click(main_); }));
    bar->addSeparator();
}

}  // namespace quorrel
