#pragma once
// The date navigator `Picture2`: the date control `tooldate` between the buttons that step the
// active date back (`SSCommand4` year, `SSCommand2` month, `SSCommand3` week, `SSCommand1` day) and
// forward (`dayPlus`, `weekplus`, `monthplus`, `yearplus`). It shows what the main window's model
// says and reports what the user did; the steps themselves are the model's.

#include <QDate>
#include <QWidget>

class QDateEdit;
class QMenu;

namespace tallymere::app {

class DateNavigator : public QWidget {
    Q_OBJECT

public:
    explicit DateNavigator(QWidget* parent = nullptr);

    // Shows the date in the display format, without reporting a change.
    void display(const QDate& date, const QString& displayFormat);
    // The menu a right click on the date opens.
    void setContextMenu(QMenu* menu) { contextMenu_ = menu; }
    QDateEdit* dateControl() const { return tooldate_; }

signals:
    // A step button was pressed; `button` is its name.
    void stepClicked(const QString& button);
    // The user picked or typed another date.
    void dateEdited(const QDate& date);

private:
    QDateEdit* tooldate_;
    QMenu* contextMenu_ = nullptr;
};

}  // namespace tallymere::app
