#include "app/shell/shell_icons.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

namespace tallymere::app {

namespace {

struct ToolbarImage {
    std::string_view key;
    const char* theme;
    QStyle::StandardPixmap fallback;
};

constexpr ToolbarImage kImages[] = {
    {"new", "document-new", QStyle::SP_FileIcon},
    {"open", "document-open", QStyle::SP_DialogOpenButton},
    {"people", "system-users", QStyle::SP_DirHomeIcon},
    {"position", "preferences-desktop", QStyle::SP_FileDialogListView},
    {"shift", "x-office-calendar", QStyle::SP_FileDialogDetailedView},
    {"edit", "document-properties", QStyle::SP_FileDialogInfoView},
    {"delete", "edit-delete", QStyle::SP_TrashIcon},
    {"auto", "system-run", QStyle::SP_MediaPlay},
    {"refresh", "view-refresh", QStyle::SP_BrowserReload},
    {"copy", "edit-copy", QStyle::SP_FileLinkIcon},
    {"search", "edit-find", QStyle::SP_FileDialogContentsView},
    {"report", "document-print", QStyle::SP_FileDialogDetailedView},
    {"backup", "document-save", QStyle::SP_DialogSaveButton},
    {"key", "dialog-password", QStyle::SP_MessageBoxWarning},
    {"help", "help-contents", QStyle::SP_DialogHelpButton},
};

const QColor kInk(0x1f, 0x4e, 0x79);

void paintCalendar(QPainter& p, const QRectF& r) {
    p.setRenderHint(QPainter::Antialiasing);
    const qreal u = r.width() / 16.0;
    p.setPen(QPen(kInk, u * 0.8));
    p.setBrush(Qt::white);
    p.drawRoundedRect(r.adjusted(u, 2 * u, -u, -u), u, u);
    p.setBrush(kInk);
    p.drawRect(QRectF(r.left() + u, r.top() + 2 * u, r.width() - 2 * u, 3 * u));
    // A tally of four strokes and a bar across.
    p.setPen(QPen(QColor(0xc0, 0x39, 0x2b), u * 1.1, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 4; ++i) {
        const qreal x = r.left() + (4.5 + 2 * i) * u;
        p.drawLine(QPointF(x, r.top() + 7 * u), QPointF(x, r.top() + 13 * u));
    }
    p.drawLine(QPointF(r.left() + 3.5 * u, r.top() + 12 * u), QPointF(r.left() + 12.5 * u, r.top() + 8 * u));
}

}  // namespace

QIcon toolbarIcon(std::string_view key) {
    for (const ToolbarImage& image : kImages)
        if (image.key == key)
            return QIcon::fromTheme(QString::fromLatin1(image.theme),
                                    QApplication::style()->standardIcon(image.fallback));
    return {};
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        paintCalendar(p, QRectF(0, 0, size, size));
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QPixmap splashPixmap(const QString& version) {
    QPixmap pixmap(440, 240);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient background(0, 0, 0, pixmap.height());
    background.setColorAt(0, QColor(0xf4, 0xf8, 0xfc));
    background.setColorAt(1, QColor(0xd6, 0xe4, 0xf0));
    p.fillRect(pixmap.rect(), background);
    p.setPen(QPen(kInk, 2));
    p.drawRect(pixmap.rect().adjusted(1, 1, -2, -2));

    paintCalendar(p, QRectF(28, 40, 96, 96));

    QFont title = p.font();
    title.setPointSize(28);
    title.setBold(true);
    p.setFont(title);
    p.setPen(kInk);
    p.drawText(QRect(140, 52, 290, 50), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Tallymere"));

    QFont line = p.font();
    line.setPointSize(10);
    line.setBold(false);
    p.setFont(line);
    p.setPen(QColor(0x33, 0x33, 0x33));
    p.drawText(QRect(142, 104, 290, 40), Qt::AlignLeft | Qt::TextWordWrap,
               QStringLiteral("Work schedules for small businesses"));
    p.drawText(QRect(142, 140, 290, 20), Qt::AlignLeft, QStringLiteral("Version %1").arg(version));
    p.setPen(QColor(0x66, 0x66, 0x66));
    p.drawText(QRect(0, 200, 430, 24), Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("Quillbrook  "));
    return pixmap;
}

}  // namespace tallymere::app
