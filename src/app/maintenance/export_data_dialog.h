#pragma once
// `ExportData`: the entries of a date range of the open schedule file written to a comma-separated
// text file, for one employee or all, in the order chosen.

#include "maintenance/data_export.h"

#include <QDialog>

namespace tallymere::app {

class ExportDataDialog : public QDialog {
public:
    explicit ExportDataDialog(common::Session& session, QWidget* parent = nullptr);

    maintenance::ExportData& model() { return model_; }

private:
    maintenance::ExportData model_;
};

}  // namespace tallymere::app
