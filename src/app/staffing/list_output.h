#pragma once
// What the staffing windows' lists share on the app side: preview and print through the list
// printing of the report engine, and saving the grid as shown to a CSV file.

#include "common/session.h"
#include "reports/list_print.h"

#include <string>

class QWidget;

namespace tallymere::app {

// Composes the list and shows it in a preview window over `parent`.
void previewList(common::Session& s, QWidget* parent, const reports::ListGrid& list, const std::string& title);
// Composes the list and sends it to the printer through the print dialog.
void printList(common::Session& s, QWidget* parent, const reports::ListGrid& list, const std::string& title);
// Asks for a file and writes the list as CSV. True when written; a failure has been told.
bool saveListCsv(common::Session& s, const reports::ListGrid& list, const std::string& suggestedName);

}  // namespace tallymere::app
