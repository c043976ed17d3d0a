#include "common/session.h"

namespace tallymere::common {

Session::Session(Ui& ui, UserSettings& userSettings, const Clock& clock)
    : activeDate(clock.today()), ui_(ui), userSettings_(userSettings), clock_(clock) {}

Session::~Session() = default;

void Session::setDataFolder(const std::string& folder) {
    dataFolder_ = folder;
    while (dataFolder_.size() > 1 && dataFolder_.back() == '/') dataFolder_.pop_back();
    databasePath_ = dataFolder_.empty() ? std::string() : dataFolder_ + "/" + kDatabaseFileName;
}

void Session::endProgram() {
    ExitNow = true;
    endRequested_ = true;
    ui_.setBusy(false);
    throw ProgramEnd();
}

}  // namespace tallymere::common
