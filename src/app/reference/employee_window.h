#pragma once
// What the two full employee windows (`EditStaff`, `EditStaffnew`) show alike: the tabs of `SSTab1`
// (general, employment, pay, availability, desired shifts, qualifications, leave, picture) bound to
// the model's fields, grids and buttons. Each window adds its own list and buttons around them.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "reference/employee_form.h"

#include <QDialog>
#include <array>

class QButtonGroup;
class QLabel;
class QRadioButton;
class QTabWidget;
class QTableWidget;

namespace tallymere::app {

class AvailabilityDayGrid;

class EmployeeWindow : public QDialog {
public:
    // False when the model could not load its employee; the window is then not shown.
    bool loaded() const { return loaded_; }

protected:
    EmployeeWindow(AppContext& context, QWidget* parent);

    // Builds the tabs on the model, once the derived window has made it.
    QTabWidget* buildTabs(reference::EmployeeForm& form);
    // Model -> widgets: fields, grids, availability, picture, the caption and the tab in front.
    virtual void display();
    // Leaving the window: true when it may close. Escape and the window's close button come here too.
    virtual bool queryUnload() = 0;
    void reject() override;

    AppContext& context_;
    bool loaded_ = false;

private:
    QWidget* generalTab();
    QWidget* employmentTab();
    QWidget* payTab();
    QWidget* availabilityTab();
    QWidget* desiredShiftTab();
    QWidget* qualificationTab();
    QWidget* leaveTab();
    QWidget* pictureTab();
    QLineEdit* field(QWidget* parent, const char* control, std::string& value);
    void addDesiredShift();
    void addQualification();
    void addLeave();
    void showPicture();

    reference::EmployeeForm* form_ = nullptr;
    Binder binder_;
    QTabWidget* tabs_ = nullptr;
    std::vector<QWidget*> payFields_;
    QLabel* noPayrollRight_ = nullptr;
    std::array<AvailabilityDayGrid*, 7> days_{};
    QRadioButton* availableOption_ = nullptr;
    QRadioButton* unavailableOption_ = nullptr;
    QTableWidget* desiredshiftgrid_ = nullptr;
    QTableWidget* qualificationsGrid_ = nullptr;
    QTableWidget* leavegrid_ = nullptr;
    QLabel* picture_ = nullptr;
};

}  // namespace tallymere::app
