#pragma once
// What the staffing windows' lists share on the app side: preview and print through the list
// printing of the report engine, and saving the grid as shown to a CSV file.

#include "app/shell/output_window.h"
#include "common/session.h"
#include "reports/list_print.h"

#include <functional>
#include <string>

class QWidget;

namespace tallymere::app {

// Composes the list and shows it in a preview window over `parent`.
void previewList(common::Session& s, QWidget* parent, const reports::ListGrid& list, const std::string& title);
// Composes the list and sends it to the printer through the print dialog.
void printList(common::Session& s, QWidget* parent, const reports::ListGrid& list, const std::string& title);
// Asks for a file and writes the list as CSV. True when written; a failure has been told.
bool saveListCsv(common::Session& s, const reports::ListGrid& list, const std::string& suggestedName);

// A list window as the main window's output commands reach it: the same preview, print and CSV as
// its own buttons, plus RTF and PDF of the printed list.
class ListOutputWindow : public OutputWindow {
public:
    void printReport(reports::Printer& printer, const reports::ReportOutput& out) override;
    void previewReport() override;
    bool saveReportCsv() override;
    // `grid` and `title` are read when a command runs.
    void setListOutput(QWidget* view, common::Session& s, std::function<reports::ListGrid()> grid,
                       std::function<std::string()> title);

private:
    QWidget* view_ = nullptr;
    common::Session* session_ = nullptr;
    std::function<reports::ListGrid()> grid_;
    std::function<std::string()> title_;
};

}  // namespace tallymere::app
