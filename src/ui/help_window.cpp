#include "ui/help_window.hpp"

#include <QBoxLayout>
#include <QDesktopServices>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "project/project_files.hpp"
#include "ui/enter_key.hpp"
#include "ui/qt_text.hpp"
#include "ui/scrolled_dialog.hpp"
#include "ui/theme_icon.hpp"
#include "ui/tree_view_model.hpp"

namespace quorrel {
namespace {

constexpr const char* kName = "HelpWindow";
constexpr const char* kSplit = "HelpWindow/left";
constexpr int kLeftWidth = 260;

/// The file of a contents node; a book may lead nowhere.
std::string LocationOf(const TreeNode& node) {
    return UnpackNodeData(node.Tag).location;
}

/// The first node, from the top down, that leads to the file.
const TreeNode* FindNode(const TreeView& tree, std::string_view path) {
    for (int i = 1; i <= tree.Count(); ++i) {
        if (LocationOf(tree.At(i)) == path) return &tree.At(i);
    }
    return nullptr;
}

}  // namespace

HelpWindow::HelpWindow(MainForm& main, QWidget* parent)
    : QDialog(parent, Qt::Window),
      page_(main.files),
      contents_(new QTreeView),
      split_(new QSplitter) {
    setObjectName(kName);
    setWindowTitle("Quorrel Help");
    ReadUserGuide(main, guide_);
    model_ = new TreeViewModel(guide_.contents, this);
    page_.code_page = [&main] { return main.machine_texts.CodePageNumber(); };
    page_.belongs = [&main](const std::string& path) {
        return LiesBelow(main.files, path, GuideFolder(main));
    };
    page_.open_external = [](const QUrl& address) { QDesktopServices::openUrl(address); };
    MakeContents();
    split_->addWidget(contents_);
    split_->addWidget(page_.Widget());
    split_->setStretchFactor(1, 1);
    split_->setChildrenCollapsible(false);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(MakeButtons());
    all->addWidget(split_, 1);
    if (!settings_.RestoreGeometry(kName, this)) resize(FittingSize(*this, {900, 640}));
    const int left = settings_.Number(kSplit, kLeftWidth);
    split_->setSizes({left, qMax(1, width() - left)});
    contents_->setFocus();
}

HelpWindow::~HelpWindow() {
    settings_.SaveGeometry(kName, this);
    settings_.SetNumber(kSplit, split_->sizes().constFirst());
}

void HelpWindow::MakeContents() {
    contents_->setObjectName("guide");
    contents_->setAccessibleName("Contents of the guide");
    contents_->setHeaderHidden(true);
    contents_->setUniformRowHeights(true);
    contents_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    contents_->setModel(model_);
    for (auto [signal, is_open] :
         {std::pair(&QTreeView::expanded, true), std::pair(&QTreeView::collapsed, false)}) {
        connect(contents_, signal, model_, [this, is_open = is_open](const QModelIndex& index) {
            model_->SetExpanded(index, is_open);
        });
    }
    connect(contents_, &QAbstractItemView::clicked, this, &HelpWindow::OpenNode);
    new EnterKey(contents_, [this] { OpenNode(contents_->currentIndex()); });
}

QWidget* HelpWindow::MakeButtons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(4, 4, 4, 4);
    const auto add = [&](const char* name, const QString& text, const char* icon,
                         const QString& key, auto work) {
        auto* button = new QToolButton;
        button->setObjectName(name);
        button->setIcon(ThemeIcon(icon));
        button->setText(text);
        button->setToolTip(text + " (" + key + ")");
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this, work);
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, work);
        layout->addWidget(button);
    };
    add("back", "Back", "go-previous", "Alt+Left", [this] { page_.GoBack(); });
    add("start", "Start", "go-home", "Alt+Home", [this] { ShowTopic({}); });
    layout->addStretch();
    return row;
}

void HelpWindow::ShowTopic(std::string_view identifier) {
    Open(guide_.PathOf(identifier));
}

void HelpWindow::Open(const std::string& path) {
    if (path.empty()) return;
    page_.Navigate(path);
    const QModelIndex shown = model_->IndexOf(FindNode(guide_.contents, path));
    if (!shown.isValid()) return;
    contents_->setCurrentIndex(shown);
    contents_->setExpanded(shown, true);
    contents_->scrollTo(shown);
}

void HelpWindow::OpenNode(const QModelIndex& index) {
    const TreeNode* node = model_->NodeAt(index);
    if (node == nullptr) return;
    const std::string path = LocationOf(*node);
    if (!path.empty()) page_.Navigate(path);
}

}  // namespace quorrel
