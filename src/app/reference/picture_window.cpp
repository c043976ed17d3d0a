#include "app/reference/picture_window.h"

#include "app/common/widget_support.h"
#include "reference/employee_form.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace tallymere::app {

PictureWindow::PictureWindow(const QString& file, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("picturewindow"));
    const QPixmap picture(file);
    setWindowTitle(qs(reference::picturewindowCaption(ss(file), !picture.isNull())));

    auto* image = new QLabel(this);
    image->setObjectName(QStringLiteral("Image1"));
    image->setAlignment(Qt::AlignCenter);
    if (picture.isNull())
        image->setText(tr("The picture cannot be shown."));
    else
        image->setPixmap(picture);

    // Large pictures scroll rather than outgrow the screen.
    auto* area = new QScrollArea(this);
    area->setWidget(image);
    area->setWidgetResizable(true);
    area->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);

    const QSize screen =
        QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->availableSize() : QSize(1024, 768);
    const QSize wanted = picture.isNull() ? QSize(320, 120) : picture.size() + QSize(8, 8);
    resize(wanted.boundedTo(screen * 0.8).expandedTo(QSize(240, 120)));
}

}  // namespace tallymere::app
