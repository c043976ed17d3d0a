-- Rows every new database starts with: the kinds of leave and one sample employee, whom the welcome
-- window introduces on the first run.

INSERT INTO leavetypes (type) VALUES ('Vacation');
INSERT INTO leavetypes (type) VALUES ('Sick');
INSERT INTO leavetypes (type) VALUES ('Personal');
INSERT INTO leavetypes (type) VALUES ('Holiday');
INSERT INTO leavetypes (type) VALUES ('Bereavement');
INSERT INTO leavetypes (type) VALUES ('Jury Duty');
INSERT INTO leavetypes (type) VALUES ('Unpaid');
INSERT INTO leavetypes (type) VALUES ('Other');

INSERT INTO person (lname, fname, primpos, active, addr, city, state, zip, phone, email, lnote,
                    doh, hourlyrate, hoursperweek, shiftsperweek, skilllevel, empid)
VALUES ('Sample', 'Sam', '', 1, '100 Main Street', 'Springfield', 'IL', '62701', '555-0100',
        'sam.sample@example.com', 'A sample employee. Edit or delete this record once you have added your own staff.',
        '01/02/2026', '12.50', '40', '5', 5, '1001');
