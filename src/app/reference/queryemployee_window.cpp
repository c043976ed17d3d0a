#include "app/reference/queryemployee_window.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallymere::app {

QueryEmployeeWindow::QueryEmployeeWindow(AppContext& context, QWidget* parent)
    : QWidget(parent),
      model_(context.session()),
      personcombo_(new QComboBox(this)),
      schedulecombo_(new QComboBox(this)),
      startdate_(new QDateEdit(this)),
      enddate_(new QDateEdit(this)),
      heading_(new QLabel(this)),
      grid_(makeGrid(this, "grid1", columnTitles(reference::queryemployee::kColumns))) {
    setObjectName(QStringLiteral("queryemployee"));
    setWindowTitle(tr("Find Employee's Schedule Entries"));

    personcombo_->setObjectName(QStringLiteral("personcombo"));
    schedulecombo_->setObjectName(QStringLiteral("schedulecombo"));
    for (QComboBox* c : {personcombo_, schedulecombo_}) c->setMinimumWidth(200);
    startdate_->setObjectName(QStringLiteral("startdate"));
    enddate_->setObjectName(QStringLiteral("enddate"));
    for (QDateEdit* d : {startdate_, enddate_}) {
        d->setCalendarPopup(true);
        d->setDisplayFormat(QStringLiteral("MMM dd, yyyy"));
    }
    auto* search = makeButton(this, "searchbutton", tr("&Search"));
    search->setDefault(true);
    heading_->setObjectName(QStringLiteral("heading"));
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);

    auto* criteria = new QGridLayout;
    criteria->addWidget(makeLabel(this, tr("&Employee:"), personcombo_), 0, 0);
    criteria->addWidget(personcombo_, 0, 1);
    criteria->addWidget(makeLabel(this, tr("S&chedule:"), schedulecombo_), 1, 0);
    criteria->addWidget(schedulecombo_, 1, 1);
    criteria->addWidget(makeLabel(this, tr("&From:"), startdate_), 0, 2);
    criteria->addWidget(startdate_, 0, 3);
    criteria->addWidget(makeLabel(this, tr("&To:"), enddate_), 1, 2);
    criteria->addWidget(enddate_, 1, 3);
    criteria->addWidget(search, 0, 4);
    criteria->setColumnStretch(5, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(criteria);
    layout->addWidget(heading_);
    layout->addWidget(grid_, 1);

    connect(personcombo_, &QComboBox::activated, this, [this](int i) { model_.personcombo.ListIndex = i; });
    connect(schedulecombo_, &QComboBox::activated, this, [this](int i) { model_.schedulecombo.ListIndex = i; });
    connect(startdate_, &QDateEdit::dateChanged, this, [this](const QDate& d) { model_.startdate = fromQDate(d); });
    connect(enddate_, &QDateEdit::dateChanged, this, [this](const QDate& d) { model_.enddate = fromQDate(d); });
    connect(search, &QPushButton::clicked, this, [this] {
        model_.searchbutton();
        display();
    });

    model_.Load();
    display();
}

void QueryEmployeeWindow::display() {
    showChoices(personcombo_, model_.personcombo);
    showChoices(schedulecombo_, model_.schedulecombo);
    for (auto [edit, date] : {std::pair{startdate_, model_.startdate}, std::pair{enddate_, model_.enddate}}) {
        const QSignalBlocker quiet(edit);
        if (date) edit->setDate(toQDate(*date));
    }
    heading_->setText(qs(model_.heading));
    std::vector<std::vector<std::string>> rows;
    for (const auto& r : model_.grid1)
        rows.push_back({r.Date, r.StartTime, r.EndTime, r.Shift, r.Position, r.Section, r.Schedule});
    fillGrid(grid_, rows, -1);
}

}  // namespace tallymere::app
