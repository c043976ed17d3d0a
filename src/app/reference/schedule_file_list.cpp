#include "app/reference/schedule_file_list.h"

#include "app/common/widget_support.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

namespace tallymere::app {

namespace {

// A list row is the name, two tabs and the comment: the comments line up in a column of their own
// after the longest name, rather than wherever the tab stops happen to fall.
class NameCommentDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    int column = 0;

    void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem o(option);
        initStyleOption(&o, index);
        const QString text = o.text;
        const qsizetype tab = text.indexOf(QLatin1String("\t\t"));
        o.text = tab < 0 ? text : text.left(tab);
        const QWidget* w = o.widget;
        QStyle* style = w ? w->style() : nullptr;
        if (!style) return QStyledItemDelegate::paint(p, option, index);
        style->drawControl(QStyle::CE_ItemViewItem, &o, p, w);
        if (tab < 0) return;
        const QRect r = o.rect.adjusted(column, 0, -4, 0);
        p->save();
        p->setPen(o.palette.color(o.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
        p->drawText(r, Qt::AlignVCenter | Qt::AlignLeft,
                    o.fontMetrics.elidedText(text.mid(tab + 2), Qt::ElideRight, r.width()));
        p->restore();
    }
};

}  // namespace

ScheduleFileListView::ScheduleFileListView(QWidget* parent, reference::ScheduleFileList& model,
                                           std::function<void(int)> select)
    : model_(model),
      list_(new QListWidget(parent)),
      firstdate_(new QLineEdit(parent)),
      lastdate_(new QLineEdit(parent)),
      label4_(new QLabel(parent)),
      layout_(new QGridLayout) {
    list_->setObjectName(QStringLiteral("List1"));
    list_->setMinimumSize(340, 220);
    firstdate_->setObjectName(QStringLiteral("firstdate"));
    lastdate_->setObjectName(QStringLiteral("lastdate"));
    for (QLineEdit* d : {firstdate_, lastdate_}) {
        d->setReadOnly(true);
        d->setFocusPolicy(Qt::NoFocus);
        d->setMaximumWidth(140);
    }
    label4_->setObjectName(QStringLiteral("Label4"));
    list_->setItemDelegate(new NameCommentDelegate(list_));

    layout_->addWidget(list_, 0, 0, 1, 4);
    layout_->addWidget(makeLabel(parent, QObject::tr("First Date:")), 1, 0);
    layout_->addWidget(firstdate_, 1, 1);
    layout_->addWidget(makeLabel(parent, QObject::tr("Last Date:")), 1, 2);
    layout_->addWidget(lastdate_, 1, 3);
    layout_->addWidget(label4_, 2, 0, 1, 4);
    layout_->setColumnStretch(3, 1);

    // The model acts on the selected row. The current row alone is no choice: Qt makes the first row
    // current, unselected, when the list merely takes the focus.
    QObject::connect(list_, &QListWidget::itemSelectionChanged, list_,
                     [list = list_, select = std::move(select)] { select(selectedRow(list)); });
}

void ScheduleFileListView::display() {
    {
        const QSignalBlocker quiet(list_);
        bool same = list_->count() == static_cast<int>(model_.List1.size());
        for (int i = 0; same && i < list_->count(); ++i)
            same = list_->item(i)->text() == qs(model_.List1[static_cast<std::size_t>(i)].text);
        if (!same) {
            list_->clear();
            int widest = 0;
            for (const auto& item : model_.List1) {
                const QString text = qs(item.text);
                list_->addItem(text);
                widest =
                    std::max(widest, list_->fontMetrics().horizontalAdvance(text.section(QLatin1Char('\t'), 0, 0)));
            }
            static_cast<NameCommentDelegate*>(list_->itemDelegate())->column = widest + 32;
        }
        list_->setCurrentRow(model_.ListIndex);
    }
    firstdate_->setText(qs(model_.firstdate));
    lastdate_->setText(qs(model_.lastdate));
    label4_->setText(qs(model_.Label4));
}

}  // namespace tallymere::app
