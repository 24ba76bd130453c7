#include "ui/topic_properties_page.hpp"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>

#include "app/main_form.hpp"
#include "contents/see_also.hpp"
#include "contents/topic_keywords.hpp"
#include "platform/text.hpp"
#include "ui/dialog_fields.hpp"
#include "ui/enter_key.hpp"
#include "ui/keys_list.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"
#include "ui/text_limit.hpp"

namespace quorrel {
namespace {

/// Below this width in characters the columns stand one below the other.
constexpr int kTwoColumns = 90;

QPushButton* MakeActionButton(const char* name, const QString& caption, Control& control,
                              MainForm& main, void (*routine)(MainForm&)) {
    QPushButton* button = MakeButton(name, caption, control);
    QObject::connect(button, &QPushButton::clicked, button, [&main, routine] { routine(main); });
    return button;
}

}  // namespace

TopicPropertiesPage::TopicPropertiesPage(MainForm& main, QWidget* parent)
    : QScrollArea(parent), main_(main), body_(new QWidget) {
    setObjectName("PictureProperties");
    setAccessibleName("Topic properties");
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    columns_ = new QBoxLayout(QBoxLayout::LeftToRight, body_);
    auto* left = new QVBoxLayout;
    left->addWidget(MakeTopicGroup());
    left->addWidget(MakeStatusGroup(), 1);
    columns_->addLayout(left, 1);
    columns_->addWidget(MakeKeywordGroup(), 1);
    setWidget(body_);
    Listen(main_.window.StatusBar1.changed, this, [this] { FollowTopic(); });
    Listen(main_.window.ListKeys.changed, this, [this] { FollowTopic(); });
    FollowTopic();
}

QWidget* TopicPropertiesPage::MakeTopicGroup() {
    WindowControls& window = main_.window;
    auto* group = new QGroupBox("Topic");
    auto* form = new QFormLayout(group);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    QLineEdit* title = MakeEdit("EditTitle", window.EditTitle);
    QLineEdit* alias = MakeEdit("EditAlias", window.EditAlias);
    QLineEdit* integer = MakeEdit("EditInteger", window.EditInteger);
    form->addRow(MakeLabel("&Title:", title), title);
    auto* name = new QLabel;
    name->setObjectName("Label3");
    name->setBuddy(alias);
    FollowControl(name, window.Label3);
    const auto show_name = [name, &window] {
        name->setText("&" + WithoutMnemonics(ToQt(window.Label3.Caption())) + ":");
    };
    show_name();
    Listen(window.Label3.changed, name, show_name);
    form->addRow(name, alias);
    QLabel* number = MakeLabel("&Context Integer:", integer);
    number->setObjectName("Label4");
    FollowControl(number, window.Label4);
    form->addRow(number, integer);
    return group;
}

QWidget* TopicPropertiesPage::MakeStatusGroup() {
    WindowControls& window = main_.window;
    auto* group = new QGroupBox("Status");
    auto* form = new QFormLayout(group);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto* status = new QComboBox;
    status->setObjectName("ComboStatus");
    FollowComboBox(status, window.ComboStatus);
    // The open topic's are stored whenever it is left or saved; that takes a question at the end.
    connect(status, &QComboBox::activated, this, [this] { main_.project.project_dirty = true; });
    auto* note = new QToolButton;
    note->setObjectName("CommandNote");
    note->setAccessibleName("There is a note");
    note->setIcon(QIcon::fromTheme("note"));
    note->setAutoRaise(true);
    FollowControl(note, window.CommandNote);
    connect(note, &QToolButton::clicked, this, [this] { notes_->setFocus(); });
    auto* row = new QHBoxLayout;
    row->addWidget(status, 1);
    row->addWidget(note);
    form->addRow(MakeLabel("Stat&us:", status), row);
    notes_ = new QPlainTextEdit;
    notes_->setObjectName("TextNotes");
    notes_->setTabChangesFocus(true);
    notes_->setPlaceholderText("What remains to be done here");
    form->addRow(MakeLabel("&Notes:", notes_), notes_);
    LimitLength(notes_, main_.window.TextNotes);
    FollowNotes();
    return group;
}

void TopicPropertiesPage::FollowNotes() {
    TextBox& model = main_.window.TextNotes;
    FollowControl(notes_, model);
    const auto show = [this, &model] {
        const QString text = ToQt(ReplaceAll(model.Text(), "\r\n", "\n"));
        if (notes_->toPlainText() == text) return;
        const QSignalBlocker quiet(notes_);
        notes_->setPlainText(text);
    };
    show();
    Listen(model.changed, notes_, show);
    connect(notes_, &QPlainTextEdit::textChanged, this, [this, &model] {
        model.Text = ReplaceAll(FromQt(notes_->toPlainText()), "\n", "\r\n");
        main_.project.project_dirty = true;
    });
}

QWidget* TopicPropertiesPage::MakeKeywordGroup() {
    // The Tab key goes through the widgets in the order in which they are made.
    auto* group = new QGroupBox("Keywords");
    auto* all = new QVBoxLayout(group);
    all->addLayout(MakeKeyFields());
    auto* keys = new KeysList(main_);
    keys->setToolTip("Keywords of the index can be dragged here.");
    auto* row = new QHBoxLayout;
    auto* list = new QVBoxLayout;
    list->addWidget(MakeLabel("Ke&ywords of this topic:", keys));
    list->addWidget(keys, 1);
    row->addLayout(list, 1);
    row->addLayout(MakeKeyButtons());
    all->addLayout(row, 1);
    return group;
}

QLayout* TopicPropertiesPage::MakeKeyFields() {
    WindowControls& window = main_.window;
    QLineEdit* key = MakeEdit("EditKeyword", window.EditKeyword);
    QLineEdit* sub = MakeEdit("EditSubKey", window.EditSubKey);
    QPushButton* add = MakeActionButton("Command1", "A&dd", window.Command1, main_, Command1_Click);
    for (QLineEdit* edit : {key, sub}) {
        new EnterKey(edit, [this] {
            if (main_.window.Command1.Enabled()) Command1_Click(main_);
        });
    }
    auto* grid = new QGridLayout;
    grid->addWidget(MakeLabel("Main &keyword:", key), 0, 0);
    grid->addWidget(key, 0, 1);
    grid->addWidget(MakeLabel("Su&b-entry:", sub), 1, 0);
    grid->addWidget(sub, 1, 1);
    grid->addWidget(add, 1, 2);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* TopicPropertiesPage::MakeKeyButtons() {
    WindowControls& window = main_.window;
    auto* column = new QVBoxLayout;
    // As far down as the list, which has its label above it.
    column->addSpacing(fontMetrics().height());
    column->addWidget(
        MakeActionButton("CommandEdit", "&Edit", window.CommandEdit, main_, CommandEdit_Click));
    column->addWidget(MakeActionButton("CommandDelete", "De&lete", window.CommandDelete, main_,
                                       CommandDelete_Click));
    QPushButton* from_index =
        MakeActionButton("CommandAddFromIndex", "Add from Inde&x", window.CommandAddFromIndex,
                         main_, CommandAddFromIndex_Click);
    from_index->setToolTip("Adds the keyword that is selected on the Index tab.");
    column->addWidget(from_index);
    QPushButton* see_also = MakeActionButton("CommandSeeAlso", "&See Also...",
                                             window.CommandSeeAlso, main_, CommandSeeAlso_Click);
    see_also->setToolTip("Adds a keyword that leads to another keyword.");
    column->addWidget(see_also);
    column->addStretch();
    return column;
}

void TopicPropertiesPage::FollowTopic() {
    body_->setEnabled(main_.topics.current_topic_index > 0);
}

void TopicPropertiesPage::resizeEvent(QResizeEvent* event) {
    const bool is_wide = width() >= kTwoColumns * fontMetrics().averageCharWidth();
    columns_->setDirection(is_wide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    QScrollArea::resizeEvent(event);
}

}  // namespace quorrel
