#include "app/common/qt_ui.h"

#include "app/tallymere_application.h"
#include "common/session.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QSoundEffect>
#include <QStringList>
#include <QUrl>

namespace tallymere::app {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;

namespace {

QString toQt(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

std::optional<std::string> chosen(const QString& path) {
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

QMessageBox::Icon qtIcon(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::Critical: return QMessageBox::Critical;
    case MsgIcon::Question: return QMessageBox::Question;
    case MsgIcon::Exclamation: return QMessageBox::Warning;
    case MsgIcon::Information: return QMessageBox::Information;
    case MsgIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

// The buttons in the order they are shown; the first is the default, as in the system's message boxes.
std::vector<QMessageBox::StandardButton> qtButtons(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::Ok: return {QMessageBox::Ok};
    case MsgButtons::OkCancel: return {QMessageBox::Ok, QMessageBox::Cancel};
    case MsgButtons::YesNo: return {QMessageBox::Yes, QMessageBox::No};
    case MsgButtons::YesNoCancel: return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    case MsgButtons::RetryCancel: return {QMessageBox::Retry, QMessageBox::Cancel};
    case MsgButtons::AbortRetryIgnore: return {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore};
    }
    return {QMessageBox::Ok};
}

MsgAnswer answerOf(QMessageBox::StandardButton button, MsgButtons buttons) {
    switch (button) {
    case QMessageBox::Ok: return MsgAnswer::Ok;
    case QMessageBox::Cancel: return MsgAnswer::Cancel;
    case QMessageBox::Yes: return MsgAnswer::Yes;
    case QMessageBox::No: return MsgAnswer::No;
    case QMessageBox::Retry: return MsgAnswer::Retry;
    case QMessageBox::Abort: return MsgAnswer::Abort;
    case QMessageBox::Ignore: return MsgAnswer::Ignore;
    default: break;
    }
    // Closed without a button (Escape, window close): the answer that backs out.
    switch (buttons) {
    case MsgButtons::Ok: return MsgAnswer::Ok;
    case MsgButtons::YesNo: return MsgAnswer::No;
    case MsgButtons::AbortRetryIgnore: return MsgAnswer::Abort;
    default: return MsgAnswer::Cancel;
    }
}

// The program was ended inside a nested event loop (a modal window, a message, a turn given to the
// interface): the loop has returned, and the logic that opened it must not go on.
void stopIfEnding() {
    const auto* app = qobject_cast<TallymereApplication*>(QCoreApplication::instance());
    if (app && app->ending()) throw common::ProgramEnd();
}

}  // namespace

QtUi::QtUi() = default;

QtUi::~QtUi() {
    if (busy_) QApplication::restoreOverrideCursor();
}

QWidget* QtUi::parentWindow() { return QApplication::activeWindow(); }

MsgAnswer QtUi::message(std::string_view text, MsgButtons buttons, MsgIcon icon, std::string_view title) {
    QMessageBox box(parentWindow());
    box.setWindowTitle(title.empty() ? QString::fromUtf8(common::Session::kAppTitle) : toQt(title));
    // Messages carry paths and user text; none of it is markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(text));
    box.setIcon(qtIcon(icon));
    const auto standard = qtButtons(buttons);
    for (const auto b : standard) box.addButton(b);
    box.setDefaultButton(standard.front());
    // A message asked during a long operation must show the normal pointer.
    const bool wasBusy = busy_;
    if (wasBusy) setBusy(false);
    box.exec();
    stopIfEnding();
    if (wasBusy) setBusy(true);
    return answerOf(box.standardButton(box.clickedButton()), buttons);
}

void QtUi::registerModal(const std::string& windowName, ModalFactory open) { modals_[windowName] = std::move(open); }

void QtUi::showModal(std::string_view windowName) {
    const auto it = modals_.find(std::string(windowName));
    if (it == modals_.end()) return;
    // Copied: the window may register or replace factories while it is open.
    const ModalFactory open = it->second;
    open();
    stopIfEnding();
}

QString QtUi::filterString(const std::vector<common::FileFilter>& filters) {
    QStringList parts;
    for (const auto& f : filters) parts << QStringLiteral("%1 (%2)").arg(toQt(f.description), toQt(f.pattern));
    return parts.join(QStringLiteral(";;"));
}

std::optional<std::string> QtUi::chooseFolder(std::string_view title, std::string_view startFolder) {
    return chosen(QFileDialog::getExistingDirectory(parentWindow(), toQt(title), toQt(startFolder)));
}

std::optional<std::string> QtUi::chooseOpenFile(std::string_view title, std::string_view startFolder,
                                                const std::vector<common::FileFilter>& filters) {
    return chosen(QFileDialog::getOpenFileName(parentWindow(), toQt(title), toQt(startFolder), filterString(filters)));
}

std::optional<std::string> QtUi::chooseSaveFile(std::string_view title, std::string_view suggestedPath,
                                                const std::vector<common::FileFilter>& filters, bool confirmOverwrite) {
    const QFileDialog::Options options = confirmOverwrite ? QFileDialog::Options() : QFileDialog::DontConfirmOverwrite;
    return chosen(QFileDialog::getSaveFileName(parentWindow(), toQt(title), toQt(suggestedPath), filterString(filters),
                                               nullptr, options));
}

// The hourglass is a state, not a count: the logic turns it on and off without pairing the calls.
void QtUi::setBusy(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtUi::processEvents() {
    QCoreApplication::processEvents();
    stopIfEnding();
}

void QtUi::beep() { QApplication::beep(); }

// A missing sound file or audio device only means silence.
void QtUi::playSound(std::string_view path) {
    if (path.empty()) return;
    if (!sound_) sound_ = std::make_unique<QSoundEffect>();
    const QUrl source = QUrl::fromLocalFile(toQt(path));
    if (sound_->source() != source) sound_->setSource(source);
    sound_->play();
}

}  // namespace tallymere::app
