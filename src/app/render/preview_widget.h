#pragma once
// The preview of a report document, as a document report window shows it in its surface `vp`: one
// page at a time on a grey desk, zoomed to the page width, the whole page or a percentage, with
// buttons and keys to move between pages. A new document replaces the old one and keeps the page
// shown where it still exists.

#include "app/render/page_renderer.h"
#include "reports/document.h"

#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QScrollArea;
class QSpinBox;
class QToolButton;

namespace tallymere::app::render {

class PreviewWidget : public QWidget {
    Q_OBJECT

public:
    enum class Zoom { PageWidth, WholePage, Percent };

    explicit PreviewWidget(QWidget* parent = nullptr);
    ~PreviewWidget() override;

    void setDocument(std::shared_ptr<const reports::Document> document);
    const std::shared_ptr<const reports::Document>& document() const { return document_; }

    // Pages count from 1; 0 when there is no page to show.
    int page() const { return page_; }
    int pageCount() const;
    void setPage(int page);
    void firstPage() { setPage(1); }
    void previousPage() { setPage(page_ - 1); }
    void nextPage() { setPage(page_ + 1); }
    void lastPage() { setPage(pageCount()); }

    Zoom zoom() const { return zoom_; }
    void setZoom(Zoom zoom);
    // 100 shows the page at its printed size on the screen.
    void setZoomPercent(int percent);
    int zoomPercent() const { return percent_; }
    // Device pixels per twip as the page is shown now.
    double scale() const;

signals:
    void pageChanged(int page);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Sheet;
    const reports::Page* currentPage() const;
    void relayout();
    void syncControls();

    std::shared_ptr<const reports::Document> document_;
    int page_ = 0;
    Zoom zoom_ = Zoom::PageWidth;
    int percent_ = 100;

    QToolButton* first_;
    QToolButton* previous_;
    QSpinBox* number_;
    QLabel* of_;
    QToolButton* next_;
    QToolButton* last_;
    QComboBox* zoomBox_;
    QScrollArea* scroll_;
    Sheet* sheet_;
};

}  // namespace tallymere::app::render
