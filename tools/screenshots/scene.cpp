#include "scene.h"

#include "app/shell/app_context.h"
#include "store/access.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMdiArea>
#include <QWidget>
#include <cstdio>

namespace tallymere::shots {

common::MsgAnswer QuietUi::message(std::string_view text, common::MsgButtons buttons, common::MsgIcon,
                                   std::string_view) {
    std::fprintf(stderr, "message: %.*s\n", static_cast<int>(text.size()), text.data());
    switch (buttons) {
    case common::MsgButtons::YesNo:
    case common::MsgButtons::YesNoCancel: return common::MsgAnswer::Yes;
    default: return common::MsgAnswer::Ok;
    }
}

Scene::Scene(const QString& outFolder, const QString& templatePath)
    : out_(outFolder), clock_(common::DateTime::fromParts(2026, 11, 23, 9, 0)) {
    session_ = std::make_unique<common::Session>(ui_, userSettings_, clock_);
    if (!data_.isValid()) {
        std::fprintf(stderr, "Cannot make a temporary folder\n");
        return;
    }
    session_->setDataFolder(data_.path().toStdString());
    session_->programFolder = QFileInfo(templatePath).absolutePath().toStdString();
    if (!QFile::copy(templatePath, QString::fromStdString(session_->DatabasePath()))) {
        std::fprintf(stderr, "Cannot copy the template %s\n", qPrintable(templatePath));
        return;
    }
    // The copy keeps the template's read-only bits where it was installed so.
    QFile::setPermissions(QString::fromStdString(session_->DatabasePath()),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    ready_ = store::ConnectDB(*session_);
}

Scene::~Scene() {
    // The child windows close first, as they do when the program ends.
    if (window_) {
        if (auto* mdi = window_->QObject::findChild<QMdiArea*>()) mdi->closeAllSubWindows();
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    window_.reset();
    store::CloseDB(*session_);
}

app::MainWindow& Scene::window() {
    if (!window_) {
        window_ = std::make_unique<app::MainWindow>(*session_, qtUi_);
        app::registerAllWindows(*window_);
    }
    return *window_;
}

void Scene::save(QWidget* w, const QString& name) {
    QApplication::processEvents();
    saveImage(w->grab().toImage(), name);
}

void Scene::saveImage(const QImage& image, const QString& name) {
    const QString file = out_ + QLatin1Char('/') + name + QStringLiteral(".png");
    if (image.save(file)) return;
    std::fprintf(stderr, "Cannot write %s\n", qPrintable(file));
    ++failures_;
}

void Scene::saveChild(QWidget* child, const QString& name) {
    QWidget* frame = child->parentWidget();
    if (auto* c = dynamic_cast<app::ChildWindow*>(child); c && c->defaultSize().isValid())
        frame->resize(c->defaultSize());
    save(frame, name);
}

void Scene::saveDialog(QWidget* dialog, const QString& name) {
    dialog->show();
    dialog->adjustSize();
    save(dialog, name);
    dialog->hide();
}

}  // namespace tallymere::shots
