#include "reference/section_windows.h"

#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

namespace tallymere::reference {

using common::Session;
using detail::say;

namespace {

bool exists(Session& s, const std::string& name) {
    return !store::GetRecs(s, "select * from section where name=?", {name}).empty();
}

}  // namespace

bool GroupAdd::ok() {
    return detail::trapped(s_, "Error occurred adding a section.", [&] {
        const std::string newName = common::trim(name);
        if (newName.empty()) {
            say(s_, "No section name was entered");
            return false;
        }
        if (exists(s_, newName)) {
            say(s_, "The section '" + newName + "' already exists.");
            return false;
        }
        return store::InsertRecs(s_, "insert into section (name,description) values(?,?)", {newName, description});
    });
}

groupedit::groupedit(Session& s, std::string sectionName) : s_(s), oldName_(std::move(sectionName)) {
    const auto rs = store::GetRecs(s_, "select * from section where name=?", {oldName_});
    if (rs.empty()) return;
    name = rs["name"].text();
    description = rs["description"].text();
}

bool groupedit::ok() {
    const std::string newName = common::trim(name);
    if (newName.empty()) {
        say(s_, "No section name was entered");
        return false;
    }
    // Names compare as the database compares them, without regard to case: a change of case alone
    // finds the section itself and is refused like any other taken name.
    if (newName != oldName_ && exists(s_, newName)) {
        say(s_, "Section " + newName + " already exists.");
        return false;
    }
    // The section and the entries that name it change together or not at all.
    store::Transaction tx(s_);
    if (store::UdateRecs(s_, "update section set name=?, description=? where name=?",
                         {newName, description, oldName_}) &&
        newName != oldName_) {
        for (const char* sql :
             {"update sched set section=? where section=?", "update scheddefault set section=? where section=?"})
            if (!store::UdateRecs(s_, sql, {newName, oldName_})) break;
    }
    if (!tx.commit()) return false;
    if (newName != oldName_) s_.refreshWanted = true;
    return true;
}

}  // namespace tallymere::reference
