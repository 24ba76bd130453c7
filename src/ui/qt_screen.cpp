#include "ui/qt_screen.hpp"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QShortcut>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "app/form_error_log.hpp"
#include "app/form_settings.hpp"
#include "app/form_splash.hpp"
#include "app/form_startup.hpp"
#include "project/form_add_graphic.hpp"
#include "project/form_create_project.hpp"
#include "project/form_new_folder.hpp"
#include "project/form_new_topic.hpp"
#include "project/form_project_settings.hpp"
#include "project/form_recover.hpp"
#include "ui/add_graphic_dialog.hpp"
#include "ui/create_project_dialog.hpp"
#include "ui/error_log_dialog.hpp"
#include "ui/file_filter.hpp"
#include "ui/new_folder_dialog.hpp"
#include "ui/new_topic_dialog.hpp"
#include "ui/project_settings_dialog.hpp"
#include "ui/qt_text.hpp"
#include "ui/recover_dialog.hpp"
#include "ui/scrolled_dialog.hpp"
#include "ui/see_also_dialog.hpp"
#include "ui/settings_dialog.hpp"
#include "ui/splash_dialog.hpp"
#include "ui/startup_dialog.hpp"
#include "ui/window_settings.hpp"

namespace quorrel {
namespace {

constexpr const char* kLastFolder = "lastFolder";

/// Keeps the keys of somebody who types on from a message until they have rested. Keys alone:
/// the pointer is moved on purpose.
class TypedKeysFilter : public QObject {
  public:
    explicit TypedKeysFilter(QMessageBox& box) : QObject(&box) {
        last_key_.start();
        box.installEventFilter(this);
        for (QAbstractButton* button : box.buttons()) button->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        constexpr qint64 kRest = 1000;  // milliseconds; longer than between two words
        const bool is_typed_on = last_key_.elapsed() < kRest;
        last_key_.restart();
        return is_typed_on;
    }

  private:
    QElapsedTimer last_key_;
};

/// The dialog in front, else the main window.
QWidget* ParentForDialog() {
    if (QWidget* front = QApplication::activeModalWidget()) return front;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "MainForm") return window;
    }
    return nullptr;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::kNone:
            return QMessageBox::NoIcon;
        case MessageIcon::kInformation:
            return QMessageBox::Information;
        case MessageIcon::kExclamation:
            return QMessageBox::Warning;
        case MessageIcon::kCritical:
            return QMessageBox::Critical;
        case MessageIcon::kQuestion:
            return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton ButtonOf(MessageAnswer answer) {
    switch (answer) {
        case MessageAnswer::kOk:
            return QMessageBox::Ok;
        case MessageAnswer::kCancel:
            return QMessageBox::Cancel;
        case MessageAnswer::kYes:
            return QMessageBox::Yes;
        case MessageAnswer::kNo:
            return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

void SetButtons(QMessageBox& box, MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::kOk:
            box.setStandardButtons(QMessageBox::Ok);
            return;
        case MessageButtons::kYesNo:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
            box.setEscapeButton(QMessageBox::No);
            break;
        case MessageButtons::kYesNoCancel:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            box.setEscapeButton(QMessageBox::Cancel);
            break;
    }
}

template <typename View, typename Logic>
std::unique_ptr<QDialog> Make(Form& form, QWidget* parent) {
    return std::make_unique<View>(static_cast<Logic&>(form), parent);
}

struct DialogOf {
    std::string_view form;
    std::unique_ptr<QDialog> (*make)(Form& form, QWidget* parent);
};
constexpr DialogOf kDialogs[] = {
    {"FormStartup", Make<StartupDialog, FormStartup>},
    {"FormSettings", Make<SettingsDialog, FormSettings>},
    {"FormErrorLog", Make<ErrorLogDialog, FormErrorLog>},
    {"FormNewTopic", Make<NewTopicDialog, FormNewTopic>},
    {"FormNewFolder", Make<NewFolderDialog, FormNewFolder>},
    {"FormCreateProject", Make<CreateProjectDialog, FormCreateProject>},
    {"FormProjectSettings", Make<ProjectSettingsDialog, FormProjectSettings>},
    {"FormRecover", Make<RecoverDialog, FormRecover>},
    {"FormAddGraphic", Make<AddGraphicDialog, FormAddGraphic>},
};

std::unique_ptr<QDialog> MakeDialog(Form& form) {
    if (form.Name() == "frmSplash") {
        return std::make_unique<SplashDialog>(static_cast<frmSplash&>(form));
    }
    for (const DialogOf& dialog : kDialogs) {
        if (dialog.form == form.Name()) return dialog.make(form, ParentForDialog());
    }
    qFatal("no view for %s", std::string(form.Name()).c_str());
}

}  // namespace

class QtScreen::NormalPointer {
  public:
    explicit NormalPointer(int& hourglasses)
        : hourglasses_(hourglasses), behind_(std::exchange(hourglasses, 0)) {
        if (behind_ > 0) QApplication::restoreOverrideCursor();
    }
    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;
    ~NormalPointer() {
        if (behind_ > 0 && hourglasses_ == 0) QApplication::setOverrideCursor(Qt::WaitCursor);
        hourglasses_ += behind_;
    }

  private:
    int& hourglasses_;
    int behind_;
};

void QtScreen::ShowModal(Form& form) {
    {
        const NormalPointer pointer(hourglasses_);
        const std::unique_ptr<QDialog> dialog = MakeDialog(form);
        auto* help = new QShortcut(QKeySequence::HelpContents, dialog.get());
        QObject::connect(help, &QShortcut::activated, dialog.get(), [this, &form] {
            if (help_wanted) help_wanted(form.Name());
        });
        dialog->exec();
        // Two dialogs that close in one go would leave no window active.
        const bool is_front = QGuiApplication::applicationState() == Qt::ApplicationActive;
        QWidget* behind = dialog->parentWidget();
        if (is_front && behind != nullptr && behind->isVisible()) behind->activateWindow();
    }
    form.Unload();
}

void QtScreen::Show(std::unique_ptr<Form> form) {
    QWidget* parent = ParentForDialog();
    const QString name = ToQt(form->Name());
    if (auto* shown = parent == nullptr ? nullptr : parent->findChild<QWidget*>(name)) {
        shown->raise();
        return shown->activateWindow();
    }
    if (name != "FormSeeAlso") qFatal("no view for %s", name.toUtf8().constData());
    // The dialog belongs to the window and goes when it is closed.
    (new SeeAlsoDialog(std::unique_ptr<FormSeeAlso>(static_cast<FormSeeAlso*>(form.release())),
                       parent))
        ->show();
}

MessageAnswer QtScreen::ShowMessage(const Message& message) {
    const NormalPointer pointer(hourglasses_);
    QMessageBox box(ParentForDialog());
    box.setObjectName("Message");
    box.setIcon(IconOf(message.icon));
    box.setWindowTitle(ToQt(message.caption));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(message.text));
    SetButtons(box, message.buttons);
    box.setDefaultButton(ButtonOf(message.default_answer));
    ScrollLongText(box);
    if (message.unasked) new TypedKeysFilter(box);
    switch (box.exec()) {
        case QMessageBox::Ok:
            return MessageAnswer::kOk;
        case QMessageBox::Yes:
            return MessageAnswer::kYes;
        case QMessageBox::No:
            return MessageAnswer::kNo;
        default:
            return MessageAnswer::kCancel;
    }
}

QString QtScreen::StartFolder(const FileDialog& dialog) const {
    const QString wanted = ToQt(files_.NativePath(dialog.folder));
    if (!wanted.isEmpty() && QFileInfo(wanted).isDir()) return wanted;
    return WindowSettings().Text(kLastFolder);
}

std::string QtScreen::ChooseFile(const FileDialog& dialog) {
    const NormalPointer pointer(hourglasses_);
    QFileDialog box(ParentForDialog(), ToQt(dialog.title), StartFolder(dialog));
    box.setObjectName("FileDialog");
    box.setNameFilters(NameFilters(dialog.filter));
    box.setOption(QFileDialog::HideNameFilterDetails);
    box.setFileMode(dialog.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    box.setAcceptMode(dialog.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    box.setOption(QFileDialog::DontConfirmOverwrite, !dialog.asks_to_overwrite);
    if (dialog.save) box.setDefaultSuffix(FirstEnding(dialog.filter));
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return {};
    const QString chosen = box.selectedFiles().constFirst();
    WindowSettings().SetText(kLastFolder, QFileInfo(chosen).absolutePath());
    return files_.WindowsPath(FromQt(chosen));
}

void QtScreen::SetPointer(Pointer pointer) {
    // Routines that show the hourglass call others that do.
    const int before = hourglasses_;
    hourglasses_ = std::max(0, before + (pointer == Pointer::kHourglass ? 1 : -1));
    if (before == 0 && hourglasses_ == 1) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (before == 1 && hourglasses_ == 0) QApplication::restoreOverrideCursor();
}

void QtScreen::DoEvents() {
    // What the user does meanwhile waits: it must not change what the caller is working on.
    constexpr auto kKind = QEventLoop::ExcludeUserInputEvents;
    if (QAbstractEventDispatcher::instance()->processEvents(kKind)) return;
    // Nothing was pending, and the caller will ask again at once: the processor is left to the
    // page that is being waited for.
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(5);
    QAbstractEventDispatcher::instance()->processEvents(kKind | QEventLoop::WaitForMoreEvents);
}

void QtScreen::Beep() {
    QApplication::beep();
}

void QtScreen::SetClipboardText(std::string_view text) {
    QApplication::clipboard()->setText(ToQt(text));
}

}  // namespace quorrel
