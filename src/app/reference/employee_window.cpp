#include "app/reference/employee_window.h"

#include "app/reference/availability_grid.h"
#include "app/reference/desired_shift_window.h"
#include "app/reference/leave_window.h"
#include "app/reference/picture_window.h"
#include "app/reference/qualification_window.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallymere::app {

using reference::EmployeeForm;

namespace {

QHBoxLayout* gridWithButtons(QTableWidget* grid, std::initializer_list<QPushButton*> buttons) {
    auto* column = new QVBoxLayout;
    for (QPushButton* b : buttons) column->addWidget(b);
    column->addStretch();
    auto* row = new QHBoxLayout;
    row->addWidget(grid, 1);
    row->addLayout(column);
    return row;
}

QLabel* swatch(QWidget* parent, const char* name, const QColor& color) {
    auto* s = new QLabel(parent);
    s->setObjectName(QString::fromUtf8(name));
    s->setFixedSize(18, 18);
    s->setFrameShape(QFrame::Box);
    s->setAutoFillBackground(true);
    QPalette p = s->palette();
    p.setColor(QPalette::Window, color);
    s->setPalette(p);
    return s;
}

}  // namespace

EmployeeWindow::EmployeeWindow(AppContext& context, QWidget* parent) : QDialog(parent), context_(context) {}

void EmployeeWindow::reject() {
    if (queryUnload()) QDialog::reject();
}

QLineEdit* EmployeeWindow::field(QWidget* parent, const char* control, std::string& value) {
    auto* w = new QLineEdit(parent);
    w->setObjectName(QString::fromUtf8(control));
    const std::string name(control);
    binder_.line(w, value, [this, name] { form_->fieldChanged(name); });
    return w;
}

QTabWidget* EmployeeWindow::buildTabs(EmployeeForm& form) {
    form_ = &form;
    tabs_ = new QTabWidget(this);
    tabs_->setObjectName(QStringLiteral("SSTab1"));
    // All eight tabs in sight: the window is as wide as they need.
    tabs_->setUsesScrollButtons(false);
    // In the order of the model's tab numbers.
    tabs_->addTab(generalTab(), tr("&General"));
    tabs_->addTab(employmentTab(), tr("E&mployment"));
    tabs_->addTab(payTab(), tr("&Pay"));
    tabs_->addTab(availabilityTab(), tr("&Availability"));
    tabs_->addTab(desiredShiftTab(), tr("&Desired Shifts"));
    tabs_->addTab(qualificationTab(), tr("&Qualifications"));
    tabs_->addTab(leaveTab(), tr("&Leave"));
    tabs_->addTab(pictureTab(), tr("P&icture"));
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) { form_->SSTab1 = index; });
    return tabs_;
}

QWidget* EmployeeWindow::generalTab() {
    auto* page = new QWidget(this);
    auto* left = new QFormLayout;
    left->addRow(tr("First Name:"), field(page, "fname", form_->fname));
    left->addRow(tr("Last Name:"), field(page, "LName", form_->LName));
    left->addRow(tr("Address:"), field(page, "address", form_->address));
    left->addRow(tr("Address 2:"), field(page, "Addr2", form_->Addr2));
    left->addRow(tr("City:"), field(page, "city", form_->city));
    auto* state = field(page, "state", form_->state);
    state->setMaximumWidth(80);
    left->addRow(tr("State:"), state);
    auto* zip = field(page, "zip", form_->zip);
    zip->setMaximumWidth(120);
    left->addRow(tr("Zip:"), zip);

    auto* right = new QFormLayout;
    right->addRow(tr("Phone:"), field(page, "phone", form_->phone));
    right->addRow(tr("Pager:"), field(page, "pager", form_->pager));
    right->addRow(tr("Cell Phone:"), field(page, "cellphone", form_->cellphone));
    right->addRow(tr("E-mail:"), field(page, "email", form_->email));

    auto* note = new QPlainTextEdit(page);
    note->setObjectName(QStringLiteral("note"));
    note->setTabChangesFocus(true);
    binder_.text(note, form_->note, [this] { form_->fieldChanged("note"); });
    right->addRow(tr("Note:"), note);

    auto* layout = new QHBoxLayout(page);
    layout->addLayout(left, 1);
    layout->addSpacing(12);
    layout->addLayout(right, 1);
    return page;
}

QWidget* EmployeeWindow::employmentTab() {
    auto* page = new QWidget(this);
    auto* position = new QComboBox(page);
    position->setObjectName(QStringLiteral("PositionCombo"));
    position->setMinimumWidth(200);
    binder_.combo(position, form_->PositionCombo, [this] { form_->fieldChanged("PositionCombo"); });

    const auto date = [&](const char* control, std::string& value) {
        QLineEdit* w = field(page, control, value);
        w->setPlaceholderText(tr("mm/dd/yyyy"));
        w->setMaximumWidth(140);
        return w;
    };
    auto* inactive = new QCheckBox(tr("Inactive"), page);
    inactive->setObjectName(QStringLiteral("inactivecheck"));
    binder_.check(inactive, form_->inactivecheck, [this] { form_->fieldChanged("inactivecheck"); });

    auto* form = new QFormLayout;
    form->addRow(tr("Primary Position:"), position);
    form->addRow(tr("Date of Hire:"), date("doh", form_->doh));
    form->addRow(tr("Date of Birth:"), date("dob", form_->dob));
    form->addRow(tr("End Date:"), date("empenddate", form_->empenddate));
    form->addRow(tr("Employee ID:"), field(page, "empid", form_->empid));
    form->addRow(tr("SSN:"), field(page, "ssn", form_->ssn));
    form->addRow(tr("License:"), field(page, "license", form_->license));
    form->addRow(QString(), inactive);

    auto* layout = new QHBoxLayout(page);
    layout->addLayout(form, 1);
    layout->addStretch(1);
    return page;
}

QWidget* EmployeeWindow::payTab() {
    auto* page = new QWidget(this);
    auto* form = new QFormLayout;
    const auto add = [&](const QString& label, const char* control, std::string& value) {
        QLineEdit* w = field(page, control, value);
        w->setMaximumWidth(140);
        auto* l = makeLabel(page, label, w);
        form->addRow(l, w);
        payFields_.push_back(l);
        payFields_.push_back(w);
    };
    add(tr("Hourly Rate:"), "hourlyrate", form_->hourlyrate);
    add(tr("Hours per Week:"), "hoursperweek", form_->hoursperweek);
    add(tr("Shifts per Week:"), "shiftsperweek", form_->shiftsperweek);
    add(tr("Skill Level:"), "primaryskill", form_->primaryskill);

    noPayrollRight_ = new QLabel(QString::fromUtf8(EmployeeForm::kNoPayrollRight), page);
    noPayrollRight_->setObjectName(QStringLiteral("nopayrollright"));
    noPayrollRight_->setWordWrap(true);

    auto* layout = new QVBoxLayout(page);
    layout->addLayout(form);
    layout->addWidget(noPayrollRight_);
    layout->addStretch();
    return page;
}

QWidget* EmployeeWindow::availabilityTab() {
    auto* page = new QWidget(this);
    auto& tab = form_->availabilityTab;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(3);
    grid->addWidget(new AvailabilityHours(page), 0, 1);
    // The seven buttons and grids repeat their names; the property "index" is the day, 0 = Sunday.
    for (int day = 0; day < 7; ++day) {
        auto* button = makeButton(page, "daybutton", qs(common::weekdayName(day + 1)));
        button->setProperty("index", day);
        days_[static_cast<std::size_t>(day)] = new AvailabilityDayGrid(tab, day, page);
        grid->addWidget(button, day + 1, 0);
        grid->addWidget(days_[static_cast<std::size_t>(day)], day + 1, 1);
        connect(button, &QPushButton::clicked, this, [this, day] {
            form_->availabilityTab.daybutton(day);
            days_[static_cast<std::size_t>(day)]->update();
        });
    }

    availableOption_ = new QRadioButton(qs(reference::AvailabilityTab::kAvailableCaption), page);
    availableOption_->setObjectName(QStringLiteral("availableoption"));
    unavailableOption_ = new QRadioButton(qs(reference::AvailabilityTab::kUnavailableCaption), page);
    unavailableOption_->setObjectName(QStringLiteral("unavailableoption"));
    auto* brushes = new QButtonGroup(page);
    brushes->addButton(availableOption_);
    brushes->addButton(unavailableOption_);
    connect(availableOption_, &QRadioButton::clicked, this, [this] { form_->availabilityTab.availableoptionClick(); });
    connect(unavailableOption_, &QRadioButton::clicked, this,
            [this] { form_->availabilityTab.unavailableoptionClick(); });
    binder_.custom([this] {
        const QSignalBlocker a(availableOption_), u(unavailableOption_);
        availableOption_->setChecked(form_->availabilityTab.availableoption);
        unavailableOption_->setChecked(form_->availabilityTab.unavailableoption);
        for (auto* d : days_) d->update();
    });

    auto* options = new QHBoxLayout;
    options->addWidget(swatch(page, "availablecolor", availableColor()));
    options->addWidget(availableOption_);
    options->addSpacing(24);
    options->addWidget(swatch(page, "unavailablecolor", unavailableColor()));
    options->addWidget(unavailableOption_);
    options->addStretch();

    auto* hint = new QLabel(qs(reference::AvailabilityTab::kHint), page);
    hint->setObjectName(QStringLiteral("hint"));

    auto* layout = new QVBoxLayout(page);
    layout->addLayout(grid);
    layout->addSpacing(8);
    layout->addLayout(options);
    layout->addWidget(hint);
    layout->addStretch();
    return page;
}

QWidget* EmployeeWindow::desiredShiftTab() {
    auto* page = new QWidget(this);
    desiredshiftgrid_ = makeGrid(page, "desiredshiftgrid", columnTitles(reference::DesiredShiftTab::kColumns));
    bindGridRow(desiredshiftgrid_, form_->desiredShiftTab.row);
    auto* add = makeButton(page, "adddesiredshiftbutton", tr("&Add..."));
    auto* remove = makeButton(page, "deletedesiredshiftbutton", tr("&Delete"));
    connect(add, &QPushButton::clicked, this, [this] { addDesiredShift(); });
    connect(remove, &QPushButton::clicked, this, [this] {
        form_->deletedesiredshiftbutton();
        display();
    });
    binder_.custom([this] {
        std::vector<std::vector<std::string>> rows;
        for (const auto& r : form_->desiredShiftTab.desiredshiftgrid) rows.push_back({r.Day, r.Shift, r.Position});
        fillGrid(desiredshiftgrid_, rows, form_->desiredShiftTab.row);
    });
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(gridWithButtons(desiredshiftgrid_, {add, remove}));
    return page;
}

QWidget* EmployeeWindow::qualificationTab() {
    auto* page = new QWidget(this);
    qualificationsGrid_ = makeGrid(page, "qualificationsGrid", columnTitles(reference::QualificationTab::kColumns));
    bindGridRow(qualificationsGrid_, form_->qualificationTab.row);
    auto* add = makeButton(page, "addqualificationbutton", tr("&Add..."));
    auto* remove = makeButton(page, "deletequalificationbutton", tr("&Delete"));
    connect(add, &QPushButton::clicked, this, [this] { addQualification(); });
    connect(remove, &QPushButton::clicked, this, [this] {
        form_->deletequalificationbutton();
        display();
    });
    binder_.custom([this] {
        std::vector<std::vector<std::string>> rows;
        for (const auto& r : form_->qualificationTab.qualificationsGrid)
            rows.push_back({r.Position, r.HourlyRate, r.SkillLevel});
        fillGrid(qualificationsGrid_, rows, form_->qualificationTab.row);
    });
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(gridWithButtons(qualificationsGrid_, {add, remove}));
    return page;
}

QWidget* EmployeeWindow::leaveTab() {
    auto* page = new QWidget(this);
    leavegrid_ = makeGrid(page, "leavegrid", columnTitles(reference::LeaveTab::kColumns));
    bindGridRow(leavegrid_, form_->leaveTab.row);
    auto* add = makeButton(page, "addleavebutton", tr("&Add..."));
    auto* edit = makeButton(page, "editleavebutton", tr("&Edit..."));
    auto* remove = makeButton(page, "deleteleavebutton", tr("&Delete"));
    auto* removeAll = makeButton(page, "deleteallbutton", tr("Delete A&ll"));
    connect(add, &QPushButton::clicked, this, [this] { addLeave(); });
    connect(edit, &QPushButton::clicked, this, [this] { form_->editleavebutton(); });
    connect(remove, &QPushButton::clicked, this, [this] {
        form_->deleteleavebutton();
        display();
    });
    connect(removeAll, &QPushButton::clicked, this, [this] {
        form_->deleteallbutton();
        display();
    });
    binder_.custom([this] {
        std::vector<std::vector<std::string>> rows;
        for (const auto& r : form_->leaveTab.leavegrid) rows.push_back({r.Date, r.TypeOfLeave});
        fillGrid(leavegrid_, rows, form_->leaveTab.row);
    });
    auto* note = new QLabel(qs(reference::LeaveTab::kNote), page);
    note->setObjectName(QStringLiteral("leavenote"));
    note->setWordWrap(true);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(gridWithButtons(leavegrid_, {add, edit, remove, removeAll}));
    layout->addWidget(note);
    return page;
}

QWidget* EmployeeWindow::pictureTab() {
    auto* page = new QWidget(this);
    picture_ = new QLabel(page);
    picture_->setObjectName(QStringLiteral("picture"));
    picture_->setFixedSize(220, 260);
    picture_->setFrameShape(QFrame::StyledPanel);
    picture_->setAlignment(Qt::AlignCenter);
    picture_->setToolTip(tr("Double-click to see the picture large."));
    onDoubleClick(picture_, [this] { showPicture(); });
    auto* choose = makeButton(page, "picturebutton", tr("&Choose Picture..."));
    auto* clear = makeButton(page, "clearbutton", tr("C&lear Picture"));
    connect(choose, &QPushButton::clicked, this, [this] {
        form_->picturebutton();
        display();
    });
    connect(clear, &QPushButton::clicked, this, [this] {
        form_->clearbutton();
        display();
    });
    binder_.custom([this] {
        const QPixmap pixmap(qs(form_->picturePath()));
        if (pixmap.isNull()) {
            picture_->setPixmap(QPixmap());
            picture_->setText(tr("No picture"));
        } else {
            picture_->setPixmap(
                pixmap.scaled(picture_->size() - QSize(8, 8), Qt::KeepAspectRatio, Qt::SmoothTransformation));
        }
    });
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(choose);
    buttons->addWidget(clear);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(page);
    layout->addWidget(picture_, 0, Qt::AlignTop);
    layout->addLayout(buttons);
    layout->addStretch();
    return page;
}

void EmployeeWindow::display() {
    binder_.show();
    for (QWidget* w : payFields_) w->setVisible(form_->payFieldsVisible);
    noPayrollRight_->setVisible(!form_->payFieldsVisible);
    setWindowTitle(qs(form_->Caption));
    const QSignalBlocker quiet(tabs_);
    tabs_->setCurrentIndex(form_->SSTab1);
}

void EmployeeWindow::addDesiredShift() {
    auto model = form_->adddesiredshiftbutton();
    if (!model) return;
    DesiredShiftWindow window(std::move(model), this);
    if (window.exec() != QDialog::Accepted) return;
    form_->RefreshTabs();
    display();
}

void EmployeeWindow::addQualification() {
    auto model = form_->addqualificationbutton();
    if (!model) return;
    QualificationWindow window(std::move(model), this);
    if (window.exec() != QDialog::Accepted) return;
    form_->RefreshTabs();
    display();
}

void EmployeeWindow::addLeave() {
    auto model = form_->addleavebutton();
    if (!model) return;
    LeaveWindow window(std::move(model), this);
    if (window.exec() != QDialog::Accepted) return;
    form_->RefreshTabs();
    display();
}

void EmployeeWindow::showPicture() {
    PictureWindow window(qs(form_->picturePath()), this);
    window.exec();
}

}  // namespace tallymere::app
