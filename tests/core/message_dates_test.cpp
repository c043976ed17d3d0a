// Dates in messages show in the user's display format, "short date" unless changed, whatever format
// the reports use.

#include "schedule/clipboard.h"
#include "schedule/entry_rules.h"

#include "support/schedule_test.h"

namespace tallymere::testing {
namespace {

using common::DateTime;

class MessageDatesTest : public ScheduleTest {
protected:
    void SetUp() override {
        ScheduleTest::SetUp();
        s().settings.reportdateformat = "dddd mmmm d, yyyy";
    }
};

TEST_F(MessageDatesTest, ConflictAndDeleteDayNameTheDayInTheDisplayFormat) {
    addEntry(kSam, DateTime::at(kDay.addDays(-1), 22, 0), DateTime::at(kDay, 6, 0));
    DateTime start = DateTime::at(kDay, 5, 0), end = DateTime::at(kDay, 9, 0);
    EXPECT_TRUE(schedule::CheckEntryConflict(s(), kSam, kDay, start, end, "Sample", "Sam"));
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(schedule::mnudeleteday(s()));
    EXPECT_EQ(ui.texts(), (std::vector<std::string>{"Sample, Sam is scheduled for a conflicting time on 11/22/2026.",
                                                    "Remove all schedule records for 11/23/2026?"}));

    ui.clear();
    s().displayDateFormat = "dd-mmm-yyyy";
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(schedule::mnudeleteday(s()));
    EXPECT_EQ(ui.texts(), std::vector<std::string>{"Remove all schedule records for 23-Nov-2026?"});
}

}  // namespace
}  // namespace tallymere::testing
