#pragma once
// The daily schedule on paper: `DailySchedulePrint`, the active day's entries of the open schedule
// file one per line for the main window's print command, and `dailyflexgridprint`, the daily window's
// small preview with its own fixed layout.

#include "common/session.h"
#include "reports/report_frame.h"
#include "reports/surface.h"

#include <string>
#include <string_view>

namespace tallymere::reports {

// The order of the daily schedule's entries for its sort word; empty for an unknown word.
std::string dailySortClause(std::string_view sortWord);

// Composes the active day on `vpmain`, in the grid printing font, with the title at the right of the
// page header (between two rules when exported). Throws ReportError when it cannot be composed.
void DailySchedulePrint(Session& s, Surface& vpmain, const ReportOutput& out);

// Composes the daily window's preview on `vp`. Throws ReportError when it cannot be composed.
void dailyflexgridprint(Session& s, Surface& vp);

}  // namespace tallymere::reports
