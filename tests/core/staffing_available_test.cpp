#include "staffing/report_available.h"
#include "staffing_fixture.h"

namespace tallymere::testing {
namespace {

using staffing::ReportAvailable;

class FindAvailable : public StaffingTest {
protected:
    void times(ReportAvailable& w, std::string sh, std::string sm, std::string sap, std::string eh, std::string em,
               std::string eap) {
        w.startTime = reference::TimeEntry(std::move(sh), std::move(sm), std::move(sap));
        w.endTime = reference::TimeEntry(std::move(eh), std::move(em), std::move(eap));
    }
    const staffing::AvailableRow& row(const ReportAvailable& w, long personid) {
        for (const auto& r : w.bblistview1)
            if (r.personid == personid) return r;
        static staffing::AvailableRow none;
        ADD_FAILURE() << "not listed: " << personid;
        return none;
    }
};

TEST_F(FindAvailable, StatusComesFromConflictAvailabilityAndLeaveNotFromHours) {
    const long busy = addPerson("Busy", "Bea");
    const long off = addPerson("Off", "Ollie");
    const long away = addPerson("Away", "Al");
    const long gone = addPerson("Gone", "Gil");
    ASSERT_TRUE(store::UdateRecs(s(), "update person set active=0 where personid=?", {gone}));
    addEntry(kSam, at(23, 6), at(23, 10, 30));                                // hours, no clash with 11-3
    addEntry(busy, at(23, 13), at(23, 18));                                   // clash
    setAvailability(off, kDay, std::string(12, 'Y') + std::string(12, 'N'));  // nothing after noon
    addLeave(away, kDay, "Sick");

    ReportAvailable w(s());
    times(w, "11", "", "AM", "3", "0", "PM");
    ASSERT_TRUE(w.refreshbutton_Click());
    EXPECT_EQ(w.endTime.TeTxtMin, "00");
    ASSERT_EQ(w.bblistview1.size(), 4u);           // the inactive employee never shows
    EXPECT_EQ(w.bblistview1[0].name, "Away, Al");  // by last name

    EXPECT_EQ(row(w, kSam).status, "Available");
    EXPECT_EQ(row(w, kSam).hours, "4.50 hrs");
    EXPECT_EQ(row(w, kSam).phone, "555-0100");
    EXPECT_EQ(row(w, kSam).picture, 4);
    EXPECT_EQ(row(w, busy).conflict, "Yes");
    EXPECT_EQ(row(w, busy).status, "Unavailable");
    EXPECT_EQ(row(w, busy).picture, 9);
    EXPECT_EQ(row(w, off).reqoff, "Off");
    EXPECT_EQ(row(w, off).status, "Unavailable");
    EXPECT_EQ(row(w, away).leave, "Sick");
    EXPECT_EQ(row(w, away).status, "Unavailable");
    EXPECT_TRUE(ui.messages.empty());

    // Boundaries: ending exactly when the busy entry starts is no clash, and ending exactly when the
    // unavailable hours begin is within the availability; a minute more is not.
    times(w, "11", "00", "AM", "12", "00", "PM");
    ASSERT_TRUE(w.refreshbutton_Click());
    EXPECT_EQ(row(w, off).status, "Available");
    times(w, "11", "00", "AM", "12", "01", "PM");
    ASSERT_TRUE(w.refreshbutton_Click());
    EXPECT_EQ(row(w, off).reqoff, "Off");
    times(w, "11", "00", "AM", "1", "00", "PM");
    ASSERT_TRUE(w.refreshbutton_Click());
    EXPECT_EQ(row(w, busy).status, "Available");
}

TEST_F(FindAvailable, AvailabilityAndLeaveFollowTheActiveDateWhileConflictAndHoursFollowTheChosenDay) {
    addLeave(kSam, kDay);
    addEntry(kSam, at(24, 9), at(24, 17));
    ReportAvailable w(s());
    times(w, "9", "00", "AM", "5", "00", "PM");
    w.dtdate_Change(kDay.addDays(1));
    const auto& r = row(w, kSam);
    EXPECT_EQ(r.leave, "Vacation");
    EXPECT_EQ(r.conflict, "Yes");
    EXPECT_EQ(r.hours, "8.00 hrs");
}

TEST_F(FindAvailable, TimesAreCheckedInOrderAndMidnightSpansAsked) {
    ReportAvailable w(s());
    struct Case {
        std::vector<std::string> f;
        const char* message;
    } cases[] = {
        {{"", "00", "AM", "5", "00", "PM"}, "Please enter the start and end times."},
        {{"x", "00", "AM", "5", "00", "PM"}, "Hour value for Start Time is not valid."},
        {{"13", "00", "AM", "5", "00", "PM"}, "Hour value must be between 0 and 12."},
        {{"9", "6a", "AM", "5", "00", "PM"}, "Minute value for Start Time is not valid."},
        {{"9", "60", "AM", "5", "00", "PM"}, "Minute value must be between 0 and 59."},
        {{"9", "00", "AM", "-5", "00", "PM"}, "Hour value for End Time is not valid."},
        {{"9", "00", "AM", "23", "00", "PM"}, "Hour value for End Time must be between 0 and 12."},
        {{"9", "00", "AM", "5", "x", "PM"}, "Minute value for End Time is not valid."},
        {{"9", "00", "AM", "5", "75", "PM"}, "The End Time minute value must be between 0 and 59."},
    };
    for (const auto& c : cases) {
        ui.clear();
        times(w, c.f[0], c.f[1], c.f[2], c.f[3], c.f[4], c.f[5]);
        EXPECT_FALSE(w.refreshbutton_Click()) << c.message;
        ASSERT_EQ(ui.messages.size(), 1u) << c.message;
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_EQ(ui.messages[0].title, "Find Available Employees");
    }
    const std::string note =
        "Note: 12:00 AM is 12 midnight not 12 noon. You've just entered a time longer than 12 hours, is this correct?";
    ui.clear();
    ui.answer(MsgAnswer::No);
    times(w, "12", "00", "AM", "1", "00", "PM");  // 13 hours from midnight
    EXPECT_FALSE(w.refreshbutton_Click());
    EXPECT_EQ(ui.texts(), std::vector<std::string>{note});
    EXPECT_TRUE(w.bblistview1.empty());

    ui.clear();
    times(w, "12", "00", "AM", "12", "00", "PM");  // exactly 12 hours: not asked
    EXPECT_TRUE(w.refreshbutton_Click());
    times(w, "6", "00", "AM", "8", "00", "PM");  // long, but not from midnight
    EXPECT_TRUE(w.refreshbutton_Click());
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(FindAvailable, ShiftFillsTheTimesAndHeadersSort) {
    ReportAvailable w(s());
    w.shiftCombo_Click(1);  // Night
    EXPECT_EQ(w.startTime.TETxtHr + ":" + w.startTime.TeTxtMin + " " + w.startTime.TEAmPm, "10:00 PM");
    EXPECT_EQ(w.endTime.TETxtHr + ":" + w.endTime.TeTxtMin + " " + w.endTime.TEAmPm, "6:00 AM");
    addPerson("Zed", "Zoe");
    addPerson("Abel", "Ann");
    ASSERT_TRUE(w.refreshbutton_Click());
    EXPECT_EQ(w.bblistview1.front().name, "Abel, Ann");
    w.ColumnClick(0);
    w.ColumnClick(0);
    EXPECT_EQ(w.bblistview1.front().name, "Zed, Zoe");
    EXPECT_EQ(w.printTitle(), "Employee Status - Monday Nov 23, 2026");
}

}  // namespace
}  // namespace tallymere::testing
