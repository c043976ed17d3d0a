#pragma once
// `PersonListFrm`: the child window with the list of all employees, from which they are added,
// edited and deleted.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "reference/person_list.h"

#include <QWidget>

class QTableWidget;

namespace tallymere::app {

class PersonListWindow : public QWidget, public ChildWindow {
public:
    explicit PersonListWindow(AppContext& context, QWidget* parent = nullptr);

    reference::PersonListFrm& model() { return model_; }

    void refreshWindow() override;
    QSize defaultSize() const override { return {560, 440}; }
    // Opened at the size it is made for, whatever the window around it does with a hint.
    QSize sizeHint() const override { return defaultSize(); }

private:
    void add();
    void quickAdd();
    void edit();
    void display();

    AppContext& context_;
    reference::PersonListFrm model_;
    QTableWidget* grid_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app
