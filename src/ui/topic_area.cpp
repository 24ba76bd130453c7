#include "ui/topic_area.hpp"

#include <QLabel>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "app/main_form.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

TopicArea::TopicArea(MainForm& main, const TopicPanes& panes)
    : main_(main), tabs_(new QTabBar), panes_(new QStackedWidget), external_(new QLabel) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tabs_);
    layout->addWidget(panes_, 1);
    external_->setObjectName("LabelExtEditor");
    external_->setText("Using External Editor");
    external_->setAlignment(Qt::AlignCenter);
    panes_->addWidget(external_);
    AddPane(right_tab::kNormal, "DHTMLEdit1", panes.surface);
    AddPane(right_tab::kSource, "Source1", panes.source);
    AddPane(right_tab::kPreview, "WebBrowser1", panes.preview);
    MakeTabs();
    Listen(main_.window.TabStrip2.changed, this, [this] { FollowTabs(); });
    Listen(main_.window.LabelExtEditor.changed, this, [this] { FollowExternalEditor(); });
    FollowTabs();
    FollowExternalEditor();
}

void TopicArea::MakeTabs() {
    tabs_->setObjectName("TabStrip2");
    tabs_->setAccessibleName("Views of the topic");
    tabs_->setDocumentMode(true);
    tabs_->setExpanding(false);
    tabs_->setDrawBase(false);
    tabs_->setElideMode(Qt::ElideRight);
    tabs_->setUsesScrollButtons(true);
    const TabStrip& strip = main_.window.TabStrip2;
    for (int i = 1; i <= strip.Count(); ++i) {
        tabs_->addTab(WithoutMnemonics(ToQt(strip.TabCaption(i))));
        if (shown_tabs_.contains(i)) continue;
        tabs_->setTabEnabled(i - 1, false);
        tabs_->setTabToolTip(i - 1, "Not available yet.");
    }
    connect(tabs_, &QTabBar::currentChanged, this,
            [this](int tab) { main_.window.TabStrip2.SelectedIndex = tab + 1; });
    const auto step = [this](int direction) {
        int tab = tabs_->currentIndex();
        do {
            tab = (tab + direction + tabs_->count()) % tabs_->count();
        } while (!tabs_->isTabEnabled(tab));
        tabs_->setCurrentIndex(tab);
    };
    connect(new QShortcut(QKeySequence("Ctrl+Tab"), this), &QShortcut::activated, this,
            [step] { step(1); });
    connect(new QShortcut(QKeySequence("Ctrl+Shift+Tab"), this), &QShortcut::activated, this,
            [step] { step(-1); });
}

void TopicArea::AddPane(int tab, const char* name, QWidget* pane) {
    if (pane == nullptr) return;
    shown_tabs_.insert(tab);
    panes_->addWidget(pane);
    Control& control = main_.window.Named(name);
    const auto follow = [this, pane, &control] {
        if (control.Visible() && !main_.window.LabelExtEditor.Visible()) {
            panes_->setCurrentWidget(pane);
        }
    };
    Listen(control.changed, pane, follow);
}

void TopicArea::FollowTabs() {
    tabs_->setCurrentIndex(main_.window.TabStrip2.SelectedIndex() - 1);
}

void TopicArea::FollowExternalEditor() {
    if (main_.window.LabelExtEditor.Visible()) {
        panes_->setCurrentWidget(external_);
    } else if (panes_->currentWidget() == external_) {
        panes_->setCurrentIndex(1);
    }
}

}  // namespace quorrel
