#include "app/autosched/autosched_dialogs.h"
#include "app/maintenance/export_data_dialog.h"
#include "app/render/qt_printer.h"
#include "app/schedule/copy_schedule_dialogs.h"
#include "app/schedule/daily_entry_dialog.h"
#include "app/schedule/daily_schedule_window.h"
#include "app/schedule/default_save_dialog.h"
#include "app/shell/output_window.h"
#include "reference/position_windows.h"
#include "scene.h"
#include "store/access.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTreeWidget>
#include <cstdio>
#include <tuple>

namespace tallymere::shots {

namespace {

using common::Date;
using common::DateTime;

const Date kDay = Date::fromYmd(2026, 11, 27);  // a Friday

class ScheduleShots {
public:
    explicit ScheduleShots(Scene& scene) : scene_(scene) {}

    void run() {
        fill();
        app::MainWindow& window = scene_.window();
        window.mainForm().SetupQuickBar();
        window.mainForm().mnuQuickBar_Click();
        window.resize(1280, 800);
        window.show();
        window.activeDateChanged();
        window.captionChanged();
        window.runCommand("mnudailyschedule");
        daily = dynamic_cast<app::DailyScheduleWindow*>(
            static_cast<app::AppContext&>(window).findChild(QStringLiteral("dailyflexgrid")));
        if (!daily) {
            std::fprintf(stderr, "The daily schedule did not open\n");
            return;
        }
        daily->parentWidget()->showMaximized();
        QApplication::processEvents();
        // The day as it prints, to PDF: turn it into pictures with pdftoppm to look at it.
        {
            app::render::QtPrinter printer(&window);
            reports::ReportOutput out;
            out.exportPdf = true;
            out.pdfFile = (scene_.outFolder() + QStringLiteral("/daily-print.pdf")).toStdString();
            static_cast<app::OutputWindow*>(daily)->printReport(printer, out);
        }
        auto* list = daily->findChild<QTreeWidget*>(QStringLiteral("lstlist"));
        list->setCurrentItem(list->topLevelItem(1));
        save(&scene_.window(), "daily-busy-day");

        daily->setWeekView(true);
        save(&scene_.window(), "daily-week");
        daily->setWeekView(false);

        const long schedid = static_cast<long>(
            store::GetRecs(s(), "select schedid from sched where lname='Fischer'")["schedid"].toLong());
        app::DailyAddDialog editor(s(), schedid, &scene_.window());
        if (!editor.loaded()) {
            std::fprintf(stderr, "The entry editor did not load\n");
            return;
        }
        editor.show();
        save(&editor, "dailyadd");
        editor.hide();

        newWindows();
    }

    // The week, the scheduler before and after a run over open slots, copying, the default, export.
    void newWindows() {
        app::MainWindow& window = scene_.window();
        for (int d = 1; d <= 3; ++d)
            for (const char* position : {"Cook", "Server", "Cashier"}) {
                const Date day = kDay.addDays(d);
                store::InsertRecs(
                    s(),
                    "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,section,"
                    "sname,comment) values(-1,'**Unassigned**','',?,?,?,?,'Day','Dining Room',"
                    "'Autumn 2026','')",
                    {day, DateTime::at(day, 9, 0), DateTime::at(day, 17, 0), position});
            }
        app::AppContext& context = window;
        app::LastRuns runs;
        {
            app::AutoSchedDialog dialog(context, runs, &window);
            dialog.model().WeekOption_Click();
            scene_.saveDialog(&dialog, "AutoSched");
            dialog.model().OKButton_Click();
            runs.autoFill = dialog.model().explanation();
        }
        {
            app::AutoSchedDialog dialog(context, runs, &window);
            scene_.saveDialog(&dialog, "AutoSched-after-run");
            app::AutoSchedExplanationDialog explain(s(), runs.autoFill, &window);
            explain.show();
            save(&explain, "AutoSchedExplanation");
            explain.hide();
        }
        window.runCommand("mnuweekly");
        if (QWidget* week = static_cast<app::AppContext&>(window).findChild(QStringLiteral("week"))) {
            week->parentWidget()->showMaximized();
            QApplication::processEvents();
            save(&window, "week");
        } else {
            std::fprintf(stderr, "The weekly schedule did not open\n");
        }
        app::CopyScheduleDialog copy(
            s(), [] {}, &window);
        scene_.saveDialog(&copy, "CopyNew");
        app::DefaultSaveDialog defaults(s(), &window);
        scene_.saveDialog(&defaults, "DefaultSave");
        app::ExportDataDialog exportData(s(), &window);
        scene_.saveDialog(&exportData, "ExportData");

        // Staffing and payroll: each window opened by its command, maximized, as the user sees it.
        for (const char* command : {"mnusetstaffinglevels", "mnucheckstaffinglevels", "mnuChkSchedConflict",
                                    "mnuFindAvailableEmployees", "mnupayrollestimator", "mnuPayrollwithOvertime",
                                    "mnuweeklypayroll", "MnuPayrollwithSales", "mnuemployeehoursshifts"}) {
            window.runCommand(command);
            QApplication::processEvents();
            if (QMdiSubWindow* sub = window.mdiArea()->activeSubWindow()) {
                sub->showMaximized();
                QApplication::processEvents();
                save(&window, command);
                sub->close();
            }
        }
    }

private:
    common::Session& s() { return scene_.s(); }
    void save(QWidget* w, const char* name) { scene_.save(w, QString::fromLatin1(name)); }

    long person(const char* last, const char* first, const char* position) {
        store::InsertRecs(s(),
                          "insert into person (lname,fname,primpos,active,hourlyrate,hoursperweek) "
                          "values(?,?,?,true,'12.50','32')",
                          {last, first, position});
        return static_cast<long>(
            store::GetRecs(s(), "select * from person where lname=? and fname=?", {last, first})["personid"].toLong());
    }

    void entry(long personid, const char* position, int from, int to, const char* shift, const char* section,
               const char* note = "") {
        const auto p = store::GetRecs(s(), "select * from person where personid=?", {personid});
        const std::string lname = personid < 0 ? "**Unassigned**" : p["lname"].text();
        const std::string fname = personid < 0 ? "" : p["fname"].text();
        const DateTime start = DateTime::at(kDay, from, 0);
        const DateTime end = to <= from ? DateTime::at(kDay.addDays(1), to, 0) : DateTime::at(kDay, to, 0);
        store::InsertRecs(s(),
                          "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,section,sname,"
                          "comment) values(?,?,?,?,?,?,?,?,?,?,?)",
                          {personid, lname, fname, kDay, start, end, position, shift, section, "Autumn 2026", note});
    }

    void fill() {
        s().activeDate = kDay;
        s().currentSchedule = "Autumn 2026";
        s().settings.dailyschedsort = "starttime";
        s().settings.gb_ShowLaborCostsOnDailyForm = true;
        s().settings.gb_ShowTotalHoursOnDailyForm = true;
        store::InsertRecs(s(), "insert into schedname (schedname,comment) values(?,?)", {"Autumn 2026", ""});
        const struct {
            const char* title;
            long color;
        } positions[] = {{"Cashier", reference::rgbColor(180, 210, 250)},
                         {"Cook", reference::rgbColor(250, 190, 160)},
                         {"Manager", reference::rgbColor(60, 70, 140)},
                         {"Server", reference::rgbColor(200, 240, 190)}};
        for (const auto& p : positions)
            store::InsertRecs(s(), "insert into position (title,description,baserate,color) values(?,?,?,?)",
                              {p.title, "", "$12.00", p.color});
        for (const char* section : {"Dining Room", "Drive-thru", "Kitchen"})
            store::InsertRecs(s(), "insert into section (name,description) values(?,?)", {section, ""});
        for (const auto& [name, from, to] : {std::tuple{"Early", 6, 14}, std::tuple{"Day", 9, 17},
                                             std::tuple{"Late", 14, 22}, std::tuple{"Night", 22, 6}}) {
            const auto start = DateTime::fromParts(2006, 1, 1, from);
            const auto end = to <= from ? DateTime::fromParts(2006, 1, 2, to) : DateTime::fromParts(2006, 1, 1, to);
            store::InsertRecs(s(), "insert into shift (name,strttime,endtime,description) values(?,?,?,?)",
                              {name, start, end, ""});
        }
        const long maria = person("Alvarez", "Maria", "Cook");
        const long daniel = person("Brooks", "Daniel", "Cashier");
        const long lily = person("Chen", "Lily", "Server");
        const long omar = person("Diaz", "Omar", "Cook");
        const long grace = person("Evans", "Grace", "Manager");
        const long tom = person("Fischer", "Tom", "Server");
        const long priya = person("Gupta", "Priya", "Cashier");
        const long sean = person("Hughes", "Sean", "Server");
        person("Ito", "Ken", "Cook");
        const long ana = person("Jensen", "Ana", "Server");
        person("Kowalski", "Piotr", "Cashier");
        entry(maria, "Cook", 6, 14, "Early", "Kitchen", "Opens the kitchen");
        entry(daniel, "Cashier", 6, 14, "Early", "Drive-thru");
        entry(grace, "Manager", 9, 17, "Day", "Dining Room");
        entry(lily, "Server", 9, 17, "Day", "Dining Room");
        entry(omar, "Cook", 14, 22, "Late", "Kitchen");
        entry(tom, "Server", 14, 22, "Late", "Dining Room", "Banquet at 7");
        entry(priya, "Cashier", 14, 22, "Late", "Drive-thru");
        entry(sean, "Server", 17, 23, "", "Dining Room");
        entry(-1, "Cook", 22, 6, "Night", "Kitchen", "Still open");
        entry(daniel, "Cashier", 22, 2, "Night", "Drive-thru");
        // Ana is on leave; Ken cannot work the quick bar's morning hours.
        store::InsertRecs(s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,?,?)",
                          {ana, "Jensen, Ana", "Vacation", kDay});
        const long ken =
            static_cast<long>(store::GetRecs(s(), "select * from person where lname='Ito'")["personid"].toLong());
        store::InsertRecs(s(), "insert into availability (personid,lname,fname,sday,houravail) values(?,?,?,?,?)",
                          {ken, "Ito", "Ken", "Friday", std::string(12, 'N') + std::string(12, 'Y')});
    }

    Scene& scene_;
    app::DailyScheduleWindow* daily = nullptr;
};

}  // namespace

void scheduleShots(Scene& scene) { ScheduleShots(scene).run(); }

}  // namespace tallymere::shots
