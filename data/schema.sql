-- The tables of a Tallymere database. Text compares without regard to case, as every statement of the
-- program expects; dates are ISO text ('2026-11-23', '2026-11-23 22:00:00'); yes/no is 1/0; numbers
-- that the user types are kept as typed, in text columns.

CREATE TABLE person (
    personid      INTEGER PRIMARY KEY AUTOINCREMENT,
    lname         TEXT COLLATE NOCASE,
    fname         TEXT COLLATE NOCASE,
    primpos       TEXT COLLATE NOCASE,
    active        INTEGER DEFAULT 1,
    addr          TEXT COLLATE NOCASE,
    addr2         TEXT COLLATE NOCASE,
    city          TEXT COLLATE NOCASE,
    state         TEXT COLLATE NOCASE,
    zip           TEXT COLLATE NOCASE,
    phone         TEXT COLLATE NOCASE,
    cellphone     TEXT COLLATE NOCASE,
    pager         TEXT COLLATE NOCASE,
    email         TEXT COLLATE NOCASE,
    lnote         TEXT COLLATE NOCASE,
    dob           TEXT COLLATE NOCASE,
    doh           TEXT COLLATE NOCASE,
    enddate       TEXT COLLATE NOCASE,
    hourlyrate    TEXT COLLATE NOCASE,
    hoursperweek  TEXT COLLATE NOCASE,
    shiftsperweek TEXT COLLATE NOCASE,
    skilllevel    INTEGER,
    empid         TEXT COLLATE NOCASE,
    ssn           TEXT COLLATE NOCASE,
    license       TEXT COLLATE NOCASE,
    picfile       TEXT COLLATE NOCASE
);
CREATE INDEX person_name ON person (lname, fname);

CREATE TABLE shift (
    name        TEXT COLLATE NOCASE,
    strttime    DATETIME,
    endtime     DATETIME,
    description TEXT COLLATE NOCASE
);

CREATE TABLE position (
    title       TEXT COLLATE NOCASE,
    description TEXT COLLATE NOCASE,
    baserate    TEXT COLLATE NOCASE,
    color       INTEGER
);

CREATE TABLE section (
    name        TEXT COLLATE NOCASE,
    description TEXT COLLATE NOCASE
);

CREATE TABLE schedname (
    id        INTEGER PRIMARY KEY AUTOINCREMENT,
    schedname TEXT COLLATE NOCASE,
    comment   TEXT COLLATE NOCASE
);

CREATE TABLE sched (
    schedid  INTEGER PRIMARY KEY AUTOINCREMENT,
    personid INTEGER,
    lname    TEXT COLLATE NOCASE,
    fname    TEXT COLLATE NOCASE,
    sday     DATE,
    strttime DATETIME,
    endtime  DATETIME,
    position TEXT COLLATE NOCASE,
    shift    TEXT COLLATE NOCASE,
    section  TEXT COLLATE NOCASE,
    comment  TEXT COLLATE NOCASE,
    sname    TEXT COLLATE NOCASE
);
-- The day of a schedule file, an employee's days, and a day in every file (the daily window's marks
-- when conflicts count across all schedules).
CREATE INDEX sched_day ON sched (sname, sday);
CREATE INDEX sched_person ON sched (personid, sday);
CREATE INDEX sched_date ON sched (sday);

CREATE TABLE scheddefault (
    personid  INTEGER,
    lname     TEXT COLLATE NOCASE,
    fname     TEXT COLLATE NOCASE,
    sdayname  TEXT COLLATE NOCASE,
    strttime  DATETIME,
    endtime   DATETIME,
    position  TEXT COLLATE NOCASE,
    shift     TEXT COLLATE NOCASE,
    section   TEXT COLLATE NOCASE,
    comment   TEXT COLLATE NOCASE,
    daynum    INTEGER
);

CREATE TABLE schedpaste (
    lname    TEXT COLLATE NOCASE,
    fname    TEXT COLLATE NOCASE,
    personid INTEGER,
    sday     DATE,
    strttime DATETIME,
    endtime  DATETIME,
    position TEXT COLLATE NOCASE,
    shift    TEXT COLLATE NOCASE,
    section  TEXT COLLATE NOCASE,
    comment  TEXT COLLATE NOCASE,
    sname    TEXT COLLATE NOCASE,
    savedid  INTEGER,
    undo     TEXT COLLATE NOCASE
);

CREATE TABLE availability (
    personid  INTEGER,
    lname     TEXT COLLATE NOCASE,
    fname     TEXT COLLATE NOCASE,
    sday      TEXT COLLATE NOCASE,
    houravail TEXT COLLATE NOCASE
);
CREATE INDEX availability_person_day ON availability (personid, sday);

CREATE TABLE desiredshift (
    id         INTEGER PRIMARY KEY AUTOINCREMENT,
    personid   INTEGER,
    sday       INTEGER,
    shift      TEXT COLLATE NOCASE,
    preference INTEGER,
    position   TEXT(50) COLLATE NOCASE
);
CREATE INDEX desiredshift_person ON desiredshift (personid);

CREATE TABLE employeeleave (
    id          INTEGER PRIMARY KEY AUTOINCREMENT,
    personid    INTEGER,
    fullname    TEXT COLLATE NOCASE,
    typeofleave TEXT COLLATE NOCASE,
    sday        DATE
);
CREATE INDEX employeeleave_person ON employeeleave (personid, sday);
CREATE INDEX employeeleave_day ON employeeleave (sday);

CREATE TABLE leavetypes (
    type TEXT COLLATE NOCASE
);

CREATE TABLE qualifications (
    qualid     INTEGER PRIMARY KEY AUTOINCREMENT,
    personid   INTEGER,
    lname      TEXT COLLATE NOCASE,
    fname      TEXT COLLATE NOCASE,
    position   TEXT COLLATE NOCASE,
    hourlyrate TEXT COLLATE NOCASE,
    slevel     INTEGER
);
CREATE INDEX qualifications_person ON qualifications (personid);

CREATE TABLE staffing (
    sday     INTEGER,
    shift    TEXT COLLATE NOCASE,
    position TEXT COLLATE NOCASE,
    sname    TEXT COLLATE NOCASE,
    numreq   INTEGER
);

CREATE TABLE daynote (
    sday       DATE,
    dailysales REAL,
    sname      TEXT(255) COLLATE NOCASE
);

CREATE TABLE options (
    optionname  TEXT COLLATE NOCASE,
    optionvalue TEXT COLLATE NOCASE
);
CREATE INDEX options_name ON options (optionname);

-- Work tables of the add-employee window.
CREATE TABLE qualificationstemp (
    qualid     INTEGER PRIMARY KEY AUTOINCREMENT,
    personid   INTEGER,
    lname      TEXT COLLATE NOCASE,
    fname      TEXT COLLATE NOCASE,
    position   TEXT COLLATE NOCASE,
    hourlyrate TEXT COLLATE NOCASE,
    slevel     INTEGER
);

CREATE TABLE desiredshifttemp (
    id         INTEGER PRIMARY KEY AUTOINCREMENT,
    personid   INTEGER,
    sday       INTEGER,
    shift      TEXT COLLATE NOCASE,
    preference INTEGER,
    position   TEXT(50) COLLATE NOCASE
);

CREATE TABLE employeeleavetemp (
    id          INTEGER PRIMARY KEY AUTOINCREMENT,
    personid    INTEGER,
    fullname    TEXT COLLATE NOCASE,
    typeofleave TEXT COLLATE NOCASE,
    sday        DATE
);

CREATE TABLE persontemp (
    personid INTEGER,
    lname    TEXT COLLATE NOCASE,
    fname    TEXT COLLATE NOCASE
);

CREATE TABLE availabilitytemp (
    personid  INTEGER,
    sday      TEXT COLLATE NOCASE,
    houravail TEXT COLLATE NOCASE
);

CREATE TABLE staffingtemp (
    sday     INTEGER,
    shift    TEXT COLLATE NOCASE,
    position TEXT COLLATE NOCASE,
    sname    TEXT COLLATE NOCASE,
    numreq   INTEGER
);
