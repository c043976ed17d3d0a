#pragma once
// Which child windows the main window's output commands reach: print, preview, RTF and PDF go to
// the active window when its name is among the routed ones, and "Save As CSV..." to the list windows.

#include <string_view>
#include <vector>

namespace tallymere::shell {

// The windows that print, preview and export through the main window, in the order they are tried.
const std::vector<std::string_view>& outputRouteWindows();
bool routesOutput(std::string_view windowName);

// The list windows whose grid the main window's "Save As CSV..." saves.
const std::vector<std::string_view>& listCsvWindows();
bool savesListCsv(std::string_view windowName);

}  // namespace tallymere::shell
