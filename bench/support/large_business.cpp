#include "support/large_business.h"

#include "store/access.h"

#include <random>
#include <stdexcept>
#include <unistd.h>

namespace tallymere::bench {

namespace fs = std::filesystem;
using common::Date;
using common::DateTime;

namespace {
const char* const kPositions[] = {"Cashier", "Cook", "Server", "Host", "Dishwasher", "Manager", "Stock", "Driver"};
const char* const kSections[] = {"Front", "Kitchen", "Bar", "Patio"};
struct ShiftDef {
    const char* name;
    int start;  // hour
    int hours;
};
const ShiftDef kShifts[] = {{"Open", 6, 8}, {"Day", 9, 8}, {"Mid", 11, 6}, {"Swing", 14, 8}, {"Close", 17, 8}, {"Night", 22, 8}};
}  // namespace

LargeBusiness::LargeBusiness(LargeBusinessSize size)
    : clock_(DateTime::fromParts(2026, 11, 23, 9, 0)), firstDay_(Date::fromYmd(2026, 1, 1)), size_(size) {
    if (size_.years > 0) size_.days = static_cast<int>(common::daysBetween(firstDay_, firstDay_.addYears(size_.years)));
    folder_ = fs::temp_directory_path() / ("tallymere-bench-" + std::to_string(::getpid()));
    fs::create_directories(folder_);
    session_ = std::make_unique<common::Session>(ui_, settings_, clock_);
    session_->setDataFolder(folder_.string());
    fs::copy_file(TALLYMERE_TEMPLATE_PATH, session_->DatabasePath(), fs::copy_options::overwrite_existing);
    auto& s = *session_;
    if (!store::ConnectDB(s)) throw std::runtime_error("cannot open the benchmark database");
    s.currentSchedule = kScheduleName;

    std::mt19937 rng(42);
    // One transaction for the whole load; the program itself commits statement by statement.
    store::InsertRecs(s, "begin");
    for (const auto* p : kPositions)
        store::InsertRecs(s, "insert into position (title, baserate, color) values (?, ?, ?)", {p, "11.50", 0xC0C0FF});
    for (const auto* sec : kSections) store::InsertRecs(s, "insert into section (name) values (?)", {sec});
    for (const auto& sh : kShifts) {
        const DateTime start = DateTime::fromParts(2006, 1, 1, sh.start);
        store::InsertRecs(s, "insert into shift (name, strttime, endtime) values (?, ?, ?)",
                          {sh.name, start, start.addHours(sh.hours)});
    }
    store::InsertRecs(s, "insert into schedname (schedname) values (?)", {kScheduleName});
    for (int e = 1; e <= size.employees; ++e) {
        store::InsertRecs(s,
                          "insert into person (lname, fname, primpos, active, hourlyrate, hoursperweek) values (?, ?, ?, "
                          "true, ?, ?)",
                          {"Employee" + std::to_string(e), "First" + std::to_string(e), kPositions[e % 8],
                           std::to_string(10 + e % 15) + ".25", "40"});
    }
    for (int d = 0; d < size_.days; ++d) {
        const Date day = firstDay_.addDays(d);
        for (int i = 0; i < size.entriesPerDay; ++i) {
            const int person = static_cast<int>(rng() % static_cast<unsigned>(size.employees)) + 2;  // 1 is the sample
            const ShiftDef& sh = kShifts[rng() % 6];
            const DateTime start = DateTime::at(day, sh.start);
            store::InsertRecs(s,
                              "insert into sched (personid, lname, fname, sday, strttime, endtime, position, shift, "
                              "section, sname) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                              {person, "Employee" + std::to_string(person - 1), "First" + std::to_string(person - 1),
                               day, start, start.addHours(sh.hours), kPositions[person % 8], sh.name,
                               kSections[i % 4], kScheduleName});
        }
    }
    store::InsertRecs(s, "commit");
}

LargeBusiness::~LargeBusiness() {
    session_.reset();
    std::error_code ec;
    fs::remove_all(folder_, ec);
}

}  // namespace tallymere::bench
