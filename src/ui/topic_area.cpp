#include "ui/topic_area.hpp"

#include <QLabel>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "app/main_form.hpp"
#include "ui/listen.hpp"
#include "ui/preview_pane.hpp"
#include "ui/qt_text.hpp"
#include "ui/source_view.hpp"
#include "ui/web_surface.hpp"

namespace quorrel {
namespace {

/// The views that can be shown; the others have their tabs already and wait for their panes.
bool HasPane(int tab) {
    return tab == right_tab::kNormal || tab == right_tab::kSource || tab == right_tab::kPreview;
}

}  // namespace

TopicArea::TopicArea(MainForm& main, WebSurface& surface, SourceView& source, PreviewPane& preview)
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
    AddPane("DHTMLEdit1", surface.Widget());
    AddPane("Source1", source.Widget());
    AddPane("WebBrowser1", preview.Widget());
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
        tabs_->setTabEnabled(i - 1, HasPane(i));
        if (!HasPane(i)) tabs_->setTabToolTip(i - 1, "Not available yet.");
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

void TopicArea::AddPane(const char* name, QWidget* pane) {
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
