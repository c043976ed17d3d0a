#include "reference/position_windows.h"

#include "common/display_format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

namespace tallymere::reference {

using common::Session;
using detail::say;

namespace {

bool exists(Session& s, const std::string& title) {
    return !store::GetRecs(s, "select * from position where title=?", {title}).empty();
}

}  // namespace

bool BaseRateField::baserate_KeyPress(Session& s, std::string_view key) {
    if (key.size() == 1 && key[0] >= '0' && key[0] <= '9') return true;
    const std::string& decimal = s.locale.decimalSeparator;
    if (!decimal.empty() && key == decimal && baserate.find(decimal) == std::string::npos) return true;
    s.ui().beep();
    return false;
}

void BaseRateField::baserate_LostFocus(Session& s) {
    if (common::trimView(baserate).empty()) return;
    // Typed with the locale's decimal symbol; the reading of numbers wants a point.
    std::string typed = baserate;
    if (!s.locale.decimalSeparator.empty() && s.locale.decimalSeparator != ".") {
        if (!s.locale.thousandsSeparator.empty()) typed = common::replaceAll(typed, s.locale.thousandsSeparator, "");
        typed = common::replaceAll(typed, s.locale.decimalSeparator, ".");
    }
    baserate = common::formatNumber(common::toNumber(typed), "currency", s.locale);
}

bool positionadd::ok() {
    // The window has no words of its own for a failed insert: the access layer has told the user.
    const std::string newTitle = common::trim(title);
    if (newTitle.empty()) {
        say(s_, "No Position Title was entered");
        return false;
    }
    if (exists(s_, newTitle)) {
        say(s_, "Position " + newTitle + " already exists.");
        return false;
    }
    return store::InsertRecs(s_, "insert into position (title,description,baserate,color) values(?,?,?,?)",
                             {newTitle, description, baserate, color});
}

positionedit::positionedit(Session& s, std::string positionTitle) : s_(s), oldTitle_(std::move(positionTitle)) {
    detail::trapped(s_, "An error occurred loading PositionEdit.", [&] {
        const auto rs = store::GetRecs(s_, "select * from position where title=?", {oldTitle_});
        if (rs.empty()) return false;
        title = rs["title"].text();
        description = rs["description"].text();
        baserate = rs["baserate"].text();
        if (!rs["color"].isNull()) color = static_cast<long>(rs["color"].toLong());
        return true;
    });
}

bool positionedit::ok() {
    return detail::trapped(s_, "An error occurred updating the position.", [&] { return save(); });
}

bool positionedit::save() {
    const std::string newTitle = common::trim(title);
    if (newTitle.empty()) {
        say(s_, "No position name was entered");
        return false;
    }
    // Titles compare as the database compares them, without regard to case: a change of case alone
    // finds the position itself and is refused like any other taken name.
    if (newTitle != oldTitle_ && exists(s_, newTitle)) {
        say(s_, "Position " + newTitle + " already exists.");
        return false;
    }
    // The position and the rows that name it change together or not at all.
    store::Transaction tx(s_);
    if (store::UdateRecs(s_, "update position set baserate =?,title=?,description=?,color=? where title=?",
                         {baserate, newTitle, description, color, oldTitle_}) &&
        newTitle != oldTitle_) {
        // Desired shifts keep the old title on purpose.
        for (const char* sql :
             {"update sched set position=? where position=?", "update scheddefault set position=? where position=?",
              "update qualifications set position=? where position=?",
              "update staffing set position=? where position=?", "update person set primpos=? where primpos=?"})
            if (!store::UdateRecs(s_, sql, {newTitle, oldTitle_})) break;
    }
    if (!tx.commit()) return false;
    if (newTitle != oldTitle_) s_.refreshWanted = true;
    return true;
}

}  // namespace tallymere::reference
