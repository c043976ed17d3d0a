#pragma once
// Paints the pages of a report document with QPainter: the one renderer behind the preview, the
// printer and PDF. Pages are in twips; the painter's transform takes them to the device.

#include "app/render/render_fonts.h"
#include "reports/document.h"

#include <QRectF>

class QPainter;

namespace tallymere::app::render {

class PageRenderer {
public:
    // Paints with the painter's coordinates in twips from the paper's top left corner.
    void paint(QPainter& painter, const reports::Page& page);
    // Paints the whole page into `target`, a rectangle in the painter's current coordinates.
    void paint(QPainter& painter, const reports::Page& page, const QRectF& target);

private:
    FontCache fonts_;
};

}  // namespace tallymere::app::render
