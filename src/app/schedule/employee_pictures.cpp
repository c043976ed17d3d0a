#include "app/schedule/employee_pictures.h"

#include "schedule/daily_schedule.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>

namespace tallymere::app {

namespace {

constexpr int kSize = 16;

QPixmap canvas() {
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

// A green disc with a white tick: the employee already works that day.
QPixmap scheduled() {
    QPixmap pixmap = canvas();
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x2e, 0x9d, 0x4a));
    p.drawEllipse(QRectF(1, 1, 14, 14));
    QPen tick(Qt::white, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(tick);
    p.drawPolyline(QPolygonF({QPointF(4.5, 8.5), QPointF(7, 11), QPointF(11.5, 5.5)}));
    return pixmap;
}

// An amber square with a white "L": the employee is on leave.
QPixmap onLeave() {
    QPixmap pixmap = canvas();
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xe8, 0x8e, 0x12));
    p.drawRoundedRect(QRectF(1, 1, 14, 14), 3, 3);
    QPen stroke(Qt::white, 2.2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    p.setPen(stroke);
    p.drawPolyline(QPolygonF({QPointF(6, 4), QPointF(6, 11.5), QPointF(11, 11.5)}));
    return pixmap;
}

// A red ring with a bar: the employee is not available for those times.
QPixmap notAvailable() {
    QPixmap pixmap = canvas();
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0xc6, 0x28, 0x28), 2.2));
    p.setBrush(Qt::white);
    p.drawEllipse(QRectF(2, 2, 12, 12));
    p.drawLine(QPointF(4.5, 11.5), QPointF(11.5, 4.5));
    return pixmap;
}

}  // namespace

QIcon employeePicture(int picture) {
    static const std::array<QIcon, 4> icons{QIcon(canvas()), QIcon(scheduled()), QIcon(onLeave()),
                                            QIcon(notAvailable())};
    if (picture < schedule::kPictureNone || picture > schedule::kPictureNotAvailable) return icons[0];
    return icons[static_cast<std::size_t>(picture - 1)];
}

QString employeePictureText(int picture) {
    switch (picture) {
    case schedule::kPictureScheduled: return QCoreApplication::translate("employeePicture", "Scheduled today");
    case schedule::kPictureOnLeave: return QCoreApplication::translate("employeePicture", "On leave today");
    case schedule::kPictureNotAvailable:
        return QCoreApplication::translate("employeePicture", "Not available for the quick bar's times");
    default: return {};
    }
}

}  // namespace tallymere::app
