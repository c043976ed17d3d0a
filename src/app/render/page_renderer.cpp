#include "app/render/page_renderer.h"

#include <QPainter>
#include <QPen>
#include <variant>

namespace tallymere::app::render {

namespace {

QColor qtColor(const reports::Color& c) { return QColor(c.r, c.g, c.b); }

Qt::PenStyle qtPenStyle(reports::PenStyle s) {
    switch (s) {
    case reports::PenStyle::Dash: return Qt::DashLine;
    case reports::PenStyle::Dot: return Qt::DotLine;
    case reports::PenStyle::DashDot: return Qt::DashDotLine;
    case reports::PenStyle::DashDotDot: return Qt::DashDotDotLine;
    case reports::PenStyle::Transparent: return Qt::NoPen;
    case reports::PenStyle::Solid: break;
    }
    return Qt::SolidLine;
}

}  // namespace

void PageRenderer::paint(QPainter& painter, const reports::Page& page) {
    painter.save();
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    // A line thinner than a device pixel is drawn one pixel wide, so rules never vanish on screen.
    const double deviceScale = painter.transform().m11();
    for (const auto& item : page.items) {
        if (const auto* r = std::get_if<reports::RectItem>(&item)) {
            painter.fillRect(QRectF(r->x, r->y, r->width, r->height), qtColor(r->fill));
        } else if (const auto* l = std::get_if<reports::LineItem>(&item)) {
            QPen pen(qtColor(l->color));
            pen.setStyle(qtPenStyle(l->style));
            if (l->width * deviceScale < 1.0) {
                pen.setCosmetic(true);
                pen.setWidth(1);
            } else {
                pen.setWidthF(l->width);
            }
            pen.setCapStyle(Qt::FlatCap);
            painter.setPen(pen);
            painter.drawLine(QPointF(l->x1, l->y1), QPointF(l->x2, l->y2));
        } else if (const auto* t = std::get_if<reports::TextItem>(&item)) {
            painter.setFont(fonts_.font(t->font));
            painter.setPen(qtColor(t->color));
            const double ascent = fonts_.metrics(t->font).ascent();
            painter.drawText(QPointF(t->x, t->y + ascent),
                             QString::fromUtf8(t->text.data(), static_cast<qsizetype>(t->text.size())));
        }
    }
    painter.restore();
}

void PageRenderer::paint(QPainter& painter, const reports::Page& page, const QRectF& target) {
    if (page.width <= 0 || page.height <= 0) return;
    painter.save();
    painter.translate(target.topLeft());
    painter.scale(target.width() / page.width, target.height() / page.height);
    painter.setClipRect(QRectF(0, 0, page.width, page.height));
    paint(painter, page);
    painter.restore();
}

}  // namespace tallymere::app::render
