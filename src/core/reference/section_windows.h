#pragma once
// The windows that add and edit a section of the business.

#include "common/session.h"

#include <string>

namespace tallymere::reference {

class GroupAdd {
public:
    explicit GroupAdd(common::Session& s) : s_(s) {}

    std::string name;
    std::string description;

    // True when the section was added and the window closes.
    bool ok();
    bool cancel() { return true; }

private:
    common::Session& s_;
};

class groupedit {
public:
    // Opens on the section of that name, as selected in the settings grid.
    groupedit(common::Session& s, std::string sectionName);

    std::string name;
    std::string description;

    // True when the section was saved and the window closes.
    bool ok();
    bool cancel() { return true; }

    const std::string& oldName() const { return oldName_; }

private:
    common::Session& s_;
    std::string oldName_;
};

}  // namespace tallymere::reference
