#pragma once
// A failure while composing or writing a report: an export file that cannot be written, a table cell
// that does not exist. Report routines catch it and show their own word followed by what().

#include <stdexcept>

namespace tallymere::reports {

class ReportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace tallymere::reports
