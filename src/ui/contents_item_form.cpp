#include "ui/contents_item_form.hpp"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include "app/main_form.hpp"
#include "contents/contents_tree.hpp"
#include "platform/text.hpp"
#include "ui/dialog_fields.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

/// The pictures of HTML Help's own contents list that have a plain meaning; each has a variant
/// with a star, one number higher.
struct StockIcon {
    const char* caption;
    int number;
};
constexpr StockIcon kStockIcons[] = {
    {"Closed book", 1}, {"Open book", 2}, {"Closed folder", 5}, {"Open folder", 6},
    {"Question", 9},    {"Page", 11},     {"Remote page", 13},
};

QLineEdit* MakeNarrowEdit(const char* name, TextBox& control, int characters) {
    QLineEdit* edit = MakeEdit(name, control);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * characters);
    return edit;
}

QCheckBox* MakeCheckBox(const char* name, const QString& caption, CheckBox& control) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    FollowCheckBox(box, control);
    return box;
}

}  // namespace

ContentsItemForm::ContentsItemForm(MainForm& main, QWidget* parent)
    : QScrollArea(parent), main_(main), fields_(new QWidget), title_(new QLabel) {
    setObjectName("PictureTOCEdit");
    setAccessibleName("Contents item");
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(MakeForm());
    Listen(main_.contents.toc_item_changed, this, [this] { FollowItem(); });
    Listen(main_.contents.Tree1.changed, this, [this] { FollowTree(); });
    FollowItem();
}

QWidget* ContentsItemForm::MakeForm() {
    WindowControls& window = main_.window;
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    auto* grid = new QGridLayout(fields_);
    grid->setContentsMargins(0, 0, 0, 0);
    QLineEdit* text = MakeEdit("EditTOCText", window.EditTOCText);
    KeepCaption(text);
    grid->addWidget(MakeLabel("Te&xt:", text), 0, 0);
    grid->addWidget(text, 0, 1, 1, 5);
    AddPlace(grid);
    AddIcon(grid);
    grid->addLayout(MakeMarks(), 3, 1, 1, 5);
    for (const int column : {1, 3, 5}) grid->setColumnStretch(column, 1);
    auto* form = new QWidget;
    auto* all = new QVBoxLayout(form);
    all->addWidget(title_);
    all->addWidget(fields_);
    all->addStretch();
    return form;
}

void ContentsItemForm::KeepCaption(QLineEdit* text) {
    TextBox& model = main_.window.EditTOCText;
    Listen(model.changed, text, [this, &model] {
        if (!model.Text().empty()) caption_ = model.Text();
    });
    // It may be empty on the way to another one, not for good.
    connect(text, &QLineEdit::editingFinished, this, [this, &model] {
        if (model.Text().empty() && main_.contents.toc_item_node != nullptr) model.Text = caption_;
    });
}

void ContentsItemForm::AddPlace(QGridLayout* grid) {
    WindowControls& window = main_.window;
    // A typed location may have either kind of slash.
    QLineEdit* location =
        MakePathEdit("EditTOCLocation", window.EditTOCLocation,
                     {[](std::string_view path) {
                          return ReplaceAll(path, "\\", FromQt(QString(QDir::separator())));
                      },
                      [](std::string_view typed) { return std::string(typed); }});
    location->setPlaceholderText("A topic of the project, or an address");
    QComboBox* bookmark = MakeTextCombo("ComboBookmark", window.ComboBookmark);
    bookmark->setToolTip("A place in the topic");
    grid->addWidget(MakeLabel("&Location:", location), 1, 0);
    grid->addWidget(location, 1, 1, 1, 3);
    grid->addWidget(MakeLabel("Book&mark:", bookmark), 1, 4);
    grid->addWidget(bookmark, 1, 5);
}

void ContentsItemForm::AddIcon(QGridLayout* grid) {
    WindowControls& window = main_.window;
    QLineEdit* number = MakeNarrowEdit("EditIcon", window.EditIcon, 6);
    auto* name = new QComboBox;
    name->setObjectName("ComboIcon");
    name->setAccessibleName("Icon");
    FollowComboBox(name, window.ComboIcon);
    auto* row = new QHBoxLayout;
    row->addWidget(name, 1);
    row->addWidget(number, 1);
    row->addWidget(MakeIconList());
    const bool javahelp = window.ComboIcon.Visible;
    QLabel* label = MakeLabel("Ico&n:", javahelp ? static_cast<QWidget*>(name) : number);
    Listen(window.ComboIcon.changed, label, [label, name, number, &window] {
        label->setBuddy(window.ComboIcon.Visible() ? static_cast<QWidget*>(name) : number);
    });
    grid->addWidget(label, 2, 0);
    grid->addLayout(row, 2, 1);
    QLineEdit* frame = MakeNarrowEdit("EditFrame", window.EditFrame, 8);
    QLineEdit* other = MakeNarrowEdit("EditWindow", window.EditWindow, 8);
    QLabel* frame_label = MakeLabel("F&rame:", frame);
    QLabel* window_label = MakeLabel("&Window:", other);
    frame_label->setObjectName("Label8");
    window_label->setObjectName("Label9");
    FollowControl(frame_label, window.Label8);
    FollowControl(window_label, window.Label9);
    grid->addWidget(frame_label, 2, 2);
    grid->addWidget(frame, 2, 3);
    grid->addWidget(window_label, 2, 4);
    grid->addWidget(other, 2, 5);
}

QWidget* ContentsItemForm::MakeIconList() {
    auto* button = new QToolButton;
    button->setObjectName("CommandIconList");
    button->setAccessibleName("Choose an icon");
    button->setToolTip("Choose an icon");
    button->setText("...");
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button);
    const auto offer = [this, menu](const QString& caption, int number) {
        const QString value = number == 0 ? QString() : QString::number(number);
        menu->addAction(caption + (value.isEmpty() ? "" : "\t" + value), this,
                        [this, value] { main_.window.EditIcon.Text = FromQt(value); });
    };
    offer("By its place in the contents", 0);
    menu->addSeparator();
    for (const StockIcon& icon : kStockIcons) {
        offer(icon.caption, icon.number);
        offer(QString(icon.caption) + ", new", icon.number + (icon.number < 9 ? 2 : 1));
    }
    button->setMenu(menu);
    FollowControl(button, main_.window.CommandIconList);
    return button;
}

QLayout* ContentsItemForm::MakeMarks() {
    auto* row = new QHBoxLayout;
    row->addWidget(MakeCheckBox("CheckTOCIsBook", "This is a &book", main_.window.CheckTOCIsBook));
    row->addWidget(MakeCheckBox("CheckMarkNew", "Mar&k as new", main_.window.CheckMarkNew));
    row->addStretch();
    return row;
}

void ContentsItemForm::FollowItem() {
    const bool has_item = main_.contents.toc_item_node != nullptr;
    fields_->setEnabled(has_item);
    title_->setText(has_item ? "Contents item" : "Contents item: none is selected");
}

void ContentsItemForm::FollowTree() {
    const ContentsState& contents = main_.contents;
    if (follows_ || !isVisible() || contents.Tree1.SelectedItem() == contents.toc_item_node) return;
    follows_ = true;
    // Not from within: whoever selects may be about to do more with the tree.
    QMetaObject::invokeMethod(
        this,
        [this] {
            follows_ = false;
            const ContentsState& now = main_.contents;
            const bool is_idle = now.drag_source == drag_kind::kNone;
            if (is_idle && now.Tree1.SelectedItem() != now.toc_item_node) TreeNodeChanged(main_);
        },
        Qt::QueuedConnection);
}

}  // namespace quorrel
