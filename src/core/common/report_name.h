#pragma once
// Employee names as reports, lists and messages print them.

#include <string>
#include <string_view>

namespace tallymere::common {

// The name in one of the five forms of the name format setting: "Smith, John", "Smith, J",
// "J. Smith", "John Smith", "Smith". An empty or unknown format counts as "Smith, John"; an empty
// first name gives the last name alone in every form, which is how an unassigned entry prints.
std::string FormatReportName(std::string_view firstName, std::string_view lastName, std::string_view nameFormat);

}  // namespace tallymere::common
