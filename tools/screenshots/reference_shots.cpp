#include "app/reference/add_staff_window.h"
#include "app/reference/desired_shift_window.h"
#include "app/reference/edit_staff_new_window.h"
#include "app/reference/edit_staff_window.h"
#include "app/reference/leave_window.h"
#include "app/reference/picture_window.h"
#include "app/reference/position_windows.h"
#include "app/reference/qualification_window.h"
#include "app/reference/queryemployee_window.h"
#include "app/reference/reference_windows.h"
#include "app/reference/schedule_file_windows.h"
#include "app/reference/section_windows.h"
#include "app/reference/settings_window.h"
#include "app/reference/shift_windows.h"
#include "reference/position_windows.h"
#include "scene.h"
#include "store/access.h"

#include <QComboBox>
#include <QDateEdit>
#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QTabWidget>
#include <cstdio>

namespace tallymere::shots {

namespace {

using common::DateTime;

class ReferenceShots {
public:
    explicit ReferenceShots(Scene& scene) : scene_(scene), c_(scene.window()) {}

    void run() {
        fill();
        scene_.window().resize(1200, 800);
        scene_.window().show();
        const char* tabNames[] = {"shifts", "positions", "sections"};
        for (int tab = 0; tab < 3; ++tab) {
            QWidget* settings = app::openSettings(c_, tab);
            saveChild(settings, QStringLiteral("settings-%1").arg(QLatin1String(tabNames[tab])));
        }
        c_.findChild(QStringLiteral("settings"))->parentWidget()->close();

        {
            app::ShiftAddWindow add(s(), c_.mainWindow());
            saveDialog(add, "shiftadd");
            app::EditShiftWindow edit(s(), "Night", c_.mainWindow());
            saveDialog(edit, "EditShift");
            app::PositionEditWindow position(s(), "Cook", c_.mainWindow());
            saveDialog(position, "positionedit");
            app::GroupAddWindow section(s(), c_.mainWindow());
            saveDialog(section, "GroupAdd");
        }

        saveChild(app::openPersonList(c_), "PersonListFrm");
        {
            app::AddStaffWindow add(s(), c_.mainWindow());
            saveDialog(add, "AddStaff");
        }

        const char* employeeTabs[] = {"general", "employment",     "pay",   "availability",
                                      "desired", "qualifications", "leave", "picture"};
        {
            app::EditStaffWindow edit(c_, c_.mainWindow());
            if (!edit.loaded()) {
                std::fprintf(stderr, "The employee window did not load\n");
                return;
            }
            edit.show();
            edit.adjustSize();
            auto* tabs = edit.findChild<QTabWidget*>("SSTab1");
            for (int tab = 0; tab < tabs->count(); ++tab) {
                tabs->setCurrentIndex(tab);
                save(&edit, QStringLiteral("EditStaff-%1").arg(QLatin1String(employeeTabs[tab])));
            }
            // The small windows of the tabs.
            reference::EmployeeRef employee{maria, "Alvarez", "Maria", "Cook"};
            auto desired = std::make_unique<reference::adddesiredshift>(s(), employee);
            desired->Load();
            app::DesiredShiftWindow desiredWindow(std::move(desired), &edit);
            saveDialog(desiredWindow, "adddesiredshift");
            auto qualification = std::make_unique<reference::addqualifications>(s(), employee);
            qualification->Load();
            app::QualificationWindow qualificationWindow(std::move(qualification), &edit);
            saveDialog(qualificationWindow, "addqualifications");
            auto leave = std::make_unique<reference::employeeleaveedit>(s(), employee);
            leave->Load();
            app::LeaveWindow leaveWindow(std::move(leave), &edit);
            saveDialog(leaveWindow, "employeeleaveedit");
            app::PictureWindow picture(QString::fromStdString(edit.model().picturePath()), &edit);
            picture.show();
            save(&picture, "picturewindow");
            edit.hide();
        }
        {
            app::EditStaffNewWindow add(c_, c_.mainWindow());
            add.show();
            add.adjustSize();
            save(&add, "EditStaffnew");
            add.hide();
        }

        QWidget* calendar = app::openLeaveCalendar(c_);
        if (auto* month = calendar->findChild<QDateEdit*>("leavecaldate")) month->setDate(QDate(2026, 12, 1));
        saveChild(calendar, "leavecal");

        QWidget* query = app::openQueryEmployee(c_);
        auto* person = query->findChild<QComboBox*>("personcombo");
        person->setCurrentIndex(0);
        emit person->activated(0);
        query->findChild<QDateEdit*>("startdate")->setDate(QDate(2026, 11, 1));
        query->findChild<QPushButton*>("searchbutton")->click();
        saveChild(query, "queryemployee");

        {
            app::OpenScheduleWindow open(c_, c_.mainWindow());
            open.findChild<QListWidget*>("List1")->setCurrentRow(0);
            saveDialog(open, "Openfrm");
            app::ScheduleNameWindow rename(c_, open.model().List1[0].id, c_.mainWindow());
            saveDialog(rename, "opennew-rename");
            app::SaveAsWindow saveAs(c_, c_.mainWindow());
            saveDialog(saveAs, "SaveAs");
            app::DeleteScheduleWindow remove(c_, c_.mainWindow());
            remove.findChild<QListWidget*>("List1")->setCurrentRow(0);
            saveDialog(remove, "deletesched");
        }
    }

private:
    common::Session& s() { return scene_.s(); }
    void save(QWidget* w, const QString& name) { scene_.save(w, name); }
    void saveChild(QWidget* w, const QString& name) { scene_.saveChild(w, name); }
    void saveDialog(QWidget& w, const QString& name) { scene_.saveDialog(&w, name); }

    void shift(const char* name, int from, int to, const char* description) {
        const auto start = DateTime::fromParts(2006, 1, 1, from);
        const auto end = to <= from ? DateTime::fromParts(2006, 1, 2, to) : DateTime::fromParts(2006, 1, 1, to);
        store::InsertRecs(s(), "insert into shift (name,strttime,endtime,description) values(?,?,?,?)",
                          {name, start, end, description});
    }

    long person(const char* last, const char* first, const char* position, const char* rate) {
        store::InsertRecs(s(),
                          "insert into person (lname,fname,primpos,active,addr,city,state,zip,phone,hourlyrate,"
                          "hoursperweek,shiftsperweek,skilllevel,doh) values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                          {last, first, position, true, "12 Elm Street", "Springfield", "IL", "62704", "555-0142", rate,
                           "32", "4", 6, "03/15/2024"});
        return static_cast<long>(
            store::GetRecs(s(), "select * from person where lname=? and fname=?", {last, first})["personid"].toLong());
    }

    void fill() {
        shift("Early", 6, 14, "Opening and breakfast");
        shift("Day", 9, 17, "");
        shift("Late", 14, 22, "Dinner rush and closing");
        shift("Night", 22, 6, "Overnight drive-thru");
        const struct {
            const char* title;
            const char* rate;
            long color;
        } positions[] = {{"Cashier", "$11.00", reference::rgbColor(180, 210, 250)},
                         {"Cook", "$14.50", reference::rgbColor(250, 190, 160)},
                         {"Manager", "$21.00", reference::rgbColor(60, 70, 140)},
                         {"Server", "$9.75", reference::rgbColor(200, 240, 190)}};
        for (const auto& p : positions)
            store::InsertRecs(s(), "insert into position (title,description,baserate,color) values(?,?,?,?)",
                              {p.title, "", p.rate, p.color});
        for (const char* section : {"Dining Room", "Drive-thru", "Kitchen"})
            store::InsertRecs(s(), "insert into section (name,description) values(?,?)", {section, "Ground floor"});

        maria = person("Alvarez", "Maria", "Cook", "15.25");
        person("Brooks", "Daniel", "Cashier", "11.00");
        person("Chen", "Lily", "Server", "9.75");
        s().currentEmployee = maria;

        const std::string days = "YYYYYYNNNNNNNNNNNNNNNYYY";
        for (const char* day : {"Monday", "Wednesday"})
            store::InsertRecs(s(), "insert into availability (personid,lname,fname,sday,houravail) values(?,?,?,?,?)",
                              {maria, "Alvarez", "Maria", day, std::string(days)});
        store::InsertRecs(s(), "insert into availability (personid,lname,fname,sday,houravail) values(?,?,?,?,?)",
                          {maria, "Alvarez", "Maria", "Sunday", std::string(24, 'N')});
        store::InsertRecs(s(), "Insert into desiredshift (personid,sday,shift,position) values(?,?,?,?)",
                          {maria, 2, "Early", "Cook"});
        store::InsertRecs(s(), "Insert into desiredshift (personid,sday,shift,position) values(?,?,?,?)",
                          {maria, 6, "Late", "Server"});
        store::InsertRecs(s(),
                          "Insert into qualifications (personid,lname,fname,position,hourlyrate,slevel) "
                          "values(?,?,?,?,?,?)",
                          {maria, "Alvarez", "Maria", "Server", "$10.50", 7});
        for (int d = 14; d <= 18; ++d)
            store::InsertRecs(s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,?,?)",
                              {maria, "Alvarez, Maria", "Vacation", common::Date::fromYmd(2026, 12, d)});
        store::InsertRecs(s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,?,?)",
                          {maria, "Alvarez, Maria", "Sick", common::Date::fromYmd(2026, 11, 5)});

        // A picture of sorts, so that the picture tab shows one.
        QImage picture(300, 360, QImage::Format_RGB32);
        picture.fill(QColor(220, 230, 240));
        QPainter p(&picture);
        p.setBrush(QColor(120, 140, 170));
        p.setPen(Qt::NoPen);
        p.drawEllipse(90, 60, 120, 140);
        p.drawRoundedRect(50, 210, 200, 150, 60, 60);
        p.end();
        const QString file = scene_.dataFolder() + QStringLiteral("/maria.bmp");
        picture.save(file);
        store::UdateRecs(s(), "update person set picfile=? where personid=?", {file.toStdString(), maria});

        for (const char* name : {"Autumn 2026", "Holidays"})
            store::InsertRecs(s(), "insert into schedname (schedname,comment) values(?,?)", {name, "Main location"});
        for (int day : {2, 3, 4, 9})
            store::InsertRecs(
                s(),
                "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,section,"
                "sname) values(?,?,?,?,?,?,?,?,?,?)",
                {maria, "Alvarez", "Maria", common::Date::fromYmd(2026, 11, day), DateTime::fromParts(2026, 11, day, 6),
                 DateTime::fromParts(2026, 11, day, 14), "Cook", "Early", "Kitchen", "Autumn 2026"});
        s().currentSchedule = "Autumn 2026";
    }

    Scene& scene_;
    app::AppContext& c_;
    long maria = 0;
};

}  // namespace

void referenceShots(Scene& scene) { ReferenceShots(scene).run(); }

}  // namespace tallymere::shots
