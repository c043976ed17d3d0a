#include "app/render/preview_widget.h"

#include "reports/page_setup.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace tallymere::app::render {

namespace {
constexpr int kDeskMargin = 12;  // pixels of desk around the page
const int kPercents[] = {25, 50, 75, 100, 125, 150, 200, 300};
}  // namespace

// The page itself, sized to the zoom inside the scroll area.
class PreviewWidget::Sheet : public QWidget {
public:
    explicit Sheet(PreviewWidget& owner) : QWidget(nullptr), owner_(owner) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setObjectName(QStringLiteral("vpPage"));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Dark));
        const reports::Page* page = owner_.currentPage();
        if (!page) return;
        const double s = owner_.scale();
        const QRectF paper(kDeskMargin, kDeskMargin, page->width * s, page->height * s);
        painter.fillRect(paper.translated(3, 3), QColor(0, 0, 0, 80));
        painter.fillRect(paper, Qt::white);
        renderer_.paint(painter, *page, paper);
    }

private:
    PreviewWidget& owner_;
    PageRenderer renderer_;
};

PreviewWidget::PreviewWidget(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("vp"));
    setFocusPolicy(Qt::StrongFocus);

    auto button = [this](const char* name, QStyle::StandardPixmap icon, const QString& tip) {
        auto* b = new QToolButton(this);
        b->setObjectName(QString::fromLatin1(name));
        b->setIcon(style()->standardIcon(icon));
        b->setToolTip(tip);
        b->setAutoRaise(true);
        return b;
    };
    first_ = button("vpFirstPage", QStyle::SP_MediaSkipBackward, tr("First page"));
    previous_ = button("vpPreviousPage", QStyle::SP_MediaSeekBackward, tr("Previous page"));
    next_ = button("vpNextPage", QStyle::SP_MediaSeekForward, tr("Next page"));
    last_ = button("vpLastPage", QStyle::SP_MediaSkipForward, tr("Last page"));
    number_ = new QSpinBox(this);
    number_->setObjectName(QStringLiteral("vpPageNumber"));
    number_->setRange(0, 0);
    of_ = new QLabel(this);
    zoomBox_ = new QComboBox(this);
    zoomBox_->setObjectName(QStringLiteral("vpZoom"));
    zoomBox_->addItem(tr("Page Width"));
    zoomBox_->addItem(tr("Whole Page"));
    for (int p : kPercents) zoomBox_->addItem(QStringLiteral("%1%").arg(p), p);

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(2, 2, 2, 2);
    for (QWidget* w : std::initializer_list<QWidget*>{first_, previous_, number_, of_, next_, last_}) bar->addWidget(w);
    bar->addSpacing(12);
    bar->addWidget(zoomBox_);
    bar->addStretch(1);

    scroll_ = new QScrollArea(this);
    scroll_->setObjectName(QStringLiteral("vpScroll"));
    scroll_->setBackgroundRole(QPalette::Dark);
    scroll_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    // A scroll bar that came and went would change the width that "page width" fits to.
    scroll_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    sheet_ = new Sheet(*this);
    scroll_->setWidget(sheet_);
    scroll_->viewport()->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(scroll_, 1);

    connect(first_, &QToolButton::clicked, this, [this] { firstPage(); });
    connect(previous_, &QToolButton::clicked, this, [this] { previousPage(); });
    connect(next_, &QToolButton::clicked, this, [this] { nextPage(); });
    connect(last_, &QToolButton::clicked, this, [this] { lastPage(); });
    connect(number_, &QSpinBox::valueChanged, this, [this](int n) { setPage(n); });
    connect(zoomBox_, &QComboBox::activated, this, [this](int index) {
        if (index == 0)
            setZoom(Zoom::PageWidth);
        else if (index == 1)
            setZoom(Zoom::WholePage);
        else
            setZoomPercent(zoomBox_->itemData(index).toInt());
    });
    syncControls();
}

PreviewWidget::~PreviewWidget() = default;

int PreviewWidget::pageCount() const { return document_ ? document_->PageCount() : 0; }

const reports::Page* PreviewWidget::currentPage() const {
    if (page_ < 1 || page_ > pageCount()) return nullptr;
    return &document_->pages[static_cast<std::size_t>(page_) - 1];
}

void PreviewWidget::setDocument(std::shared_ptr<const reports::Document> document) {
    document_ = std::move(document);
    const int count = pageCount();
    page_ = count == 0 ? 0 : std::clamp(page_, 1, count);
    relayout();
    syncControls();
    emit pageChanged(page_);
}

void PreviewWidget::setPage(int page) {
    const int count = pageCount();
    if (count == 0) return;
    page = std::clamp(page, 1, count);
    if (page == page_) return;
    page_ = page;
    relayout();
    syncControls();
    scroll_->verticalScrollBar()->setValue(0);
    emit pageChanged(page_);
}

void PreviewWidget::setZoom(Zoom zoom) {
    zoom_ = zoom;
    relayout();
    syncControls();
}

void PreviewWidget::setZoomPercent(int percent) {
    percent_ = std::clamp(percent, 10, 800);
    zoom_ = Zoom::Percent;
    relayout();
    syncControls();
}

double PreviewWidget::scale() const {
    const reports::Page* page = currentPage();
    const double atHundred = logicalDpiX() / double(reports::kTwipsPerInch);
    if (!page || page->width <= 0 || page->height <= 0) return atHundred;
    const QSize room = scroll_->viewport()->size() - QSize(2 * kDeskMargin + 4, 2 * kDeskMargin + 4);
    switch (zoom_) {
    case Zoom::PageWidth: return std::max(0.005, room.width() / double(page->width));
    case Zoom::WholePage:
        return std::max(0.005, std::min(room.width() / double(page->width), room.height() / double(page->height)));
    case Zoom::Percent: break;
    }
    return atHundred * percent_ / 100.0;
}

void PreviewWidget::relayout() {
    const reports::Page* page = currentPage();
    if (!page) {
        sheet_->resize(scroll_->viewport()->size());
    } else {
        const double s = scale();
        sheet_->resize(static_cast<int>(std::ceil(page->width * s)) + 2 * kDeskMargin + 4,
                       static_cast<int>(std::ceil(page->height * s)) + 2 * kDeskMargin + 4);
    }
    sheet_->update();
}

void PreviewWidget::syncControls() {
    const int count = pageCount();
    const QSignalBlocker blockNumber(number_);
    number_->setRange(count == 0 ? 0 : 1, count);
    number_->setValue(page_);
    of_->setText(tr("of %1").arg(count));
    first_->setEnabled(page_ > 1);
    previous_->setEnabled(page_ > 1);
    next_->setEnabled(page_ < count);
    last_->setEnabled(page_ < count);
    const QSignalBlocker blockZoom(zoomBox_);
    if (zoom_ == Zoom::PageWidth)
        zoomBox_->setCurrentIndex(0);
    else if (zoom_ == Zoom::WholePage)
        zoomBox_->setCurrentIndex(1);
    else if (const int i = zoomBox_->findData(percent_); i >= 0)
        zoomBox_->setCurrentIndex(i);
}

void PreviewWidget::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_PageDown: nextPage(); break;
    case Qt::Key_PageUp: previousPage(); break;
    case Qt::Key_Home:
        if (event->modifiers() & Qt::ControlModifier) firstPage();
        break;
    case Qt::Key_End:
        if (event->modifiers() & Qt::ControlModifier) lastPage();
        break;
    default: QWidget::keyPressEvent(event); return;
    }
}

void PreviewWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    relayout();
}

// Ctrl and the wheel zoom, as in other viewers.
bool PreviewWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == scroll_->viewport() && event->type() == QEvent::Wheel) {
        auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers() & Qt::ControlModifier) {
            const int percent = static_cast<int>(std::lround(scale() / (logicalDpiX() / 1440.0) * 100));
            setZoomPercent(wheel->angleDelta().y() > 0 ? percent * 5 / 4 : percent * 4 / 5);
            return true;
        }
    }
    if (watched == scroll_->viewport() && event->type() == QEvent::Resize) relayout();
    return QWidget::eventFilter(watched, event);
}

}  // namespace tallymere::app::render
