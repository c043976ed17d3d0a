#pragma once
// The windows that choose the data folder: `SetDataLocation` moves a running program to another
// folder; `SetDataLocationStart` is the same window for a start that has no folder.

#include "maintenance/set_data_location.h"

#include <QDialog>
#include <memory>

class QLineEdit;

namespace tallymere::app {

class DataLocationDialog : public QDialog {
    Q_OBJECT

public:
    enum class Kind { Running, Start };

    // `defaultFolder`: what "Set to Default" offers.
    DataLocationDialog(Kind kind, common::Session& session, const std::string& defaultFolder,
                       QWidget* parent = nullptr);
    ~DataLocationDialog() override;

    void reject() override;

private:
    void setLocation();
    void showPath();

    Kind kind_;
    std::unique_ptr<maintenance::DataLocationWindow> model_;
    QLineEdit* txtPath_;
};

}  // namespace tallymere::app
