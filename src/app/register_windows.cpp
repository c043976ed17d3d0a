// The one list of every subsystem's windows, so that the program and its pictures run with the same.

#include "app/shell/app_context.h"

namespace tallymere::app {

void registerAllWindows(AppContext& context) {
    registerMaintenanceWindows(context);
    registerReferenceWindows(context);
    registerScheduleWindows(context);
    registerAutoschedWindows(context);
    registerStaffingWindows(context);
    registerPayrollWindows(context);
}

}  // namespace tallymere::app
