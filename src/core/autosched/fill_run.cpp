#include "autosched/fill_run.h"

#include "common/text.h"
#include "schedule/entry_rules.h"

#include <map>

namespace tallymere::autosched {

bool OvertimeAllows(const common::Session& s, double hours, double entryhours) {
    const double threshold = s.settings.gi_OvertimeThreshold;
    if (s.settings.gb_RestrictOvertime && hours >= threshold) return false;
    if (s.settings.gb_NoOvertime && hours + entryhours > threshold) return false;
    return true;
}

bool WeeklyHoursAllows(const common::Session& s, double target, double hours) {
    return !s.settings.gb_AutoEnforceWeeklyHrs || hours < target;
}

FillRun::FillRun(common::Session& s, SchedulerFacts& facts, RunKind kind, const RunRange& range, ProgressBar& bar,
                 const RunHooks& hooks, Explanation& explanation)
    : s_(s), facts_(facts), kind_(kind), range_(range), bar_(bar), hooks_(hooks), explanation_(explanation) {}

void FillRun::turn() {
    if (hooks_.progressChanged) hooks_.progressChanged();
    s_.ui().processEvents();
}

long FillRun::recount() { return facts_.countUnassigned(range_.fillstart, range_.fillend); }

RunCounts FillRun::run() {
    bar_.Value = 0;
    bool allowdouble = false;
    long last = recount();
    if (stopped() || last == 0) return {};
    const long total = last;

    if (s_.settings.gb_AutoDesiredShiftsFirst) FillDesiredShifts();
    // The first turn of phase 1 compares with the count from before the desired shifts, so that what
    // they filled counts as progress and earns a further pass.
    if (!stopped() && last > 0) last = repeatWhileProgress(Pass::Balanced, Phase::Balanced, allowdouble, last);

    // Second entries on a day are only a fallback. Without the option the phase still runs.
    if (s_.settings.gb_AutoAllowDblShifts) allowdouble = true;
    if (!stopped()) {
        last = recount();
        if (last > 0) last = repeatWhileProgress(Pass::Balanced, Phase::DoubleShifts, allowdouble, last);
    }
    // The first fit picks up what balance left behind.
    if (!stopped()) {
        last = recount();
        if (last > 0) last = repeatWhileProgress(Pass::FirstFit, Phase::FirstFit, allowdouble, last);
    }
    return {total, last};
}

long FillRun::repeatWhileProgress(Pass pass, Phase phase, bool allowdouble, long last) {
    long before = 0;
    do {
        if (pass == Pass::FirstFit) turn();
        before = last;
        fillPass(pass, phase, allowdouble, range_.fillstart, range_.fillend);
        if (stopped()) return last;
        last = recount();
    } while (last < before && last != 0);
    return last;
}

void FillRun::FillDesiredShifts() {
    // Entries a wish matched but could not have, while no wish has them yet.
    std::map<long, EntryStory> refused;
    for (const DesiredShift& wish : facts_.desiredShifts()) {
        if (stopped()) return;
        // Not a pass of the bar, but a long list of wishes must not freeze the window either.
        turn();
        const std::vector<OpenEntry>& entries = facts_.unassigned(range_.fillstart, range_.fillend);
        if (entries.empty()) break;
        const std::optional<Person> person = facts_.person(wish.personid);
        // `active` is not looked at: an inactive employee's wish is served.
        if (!person) continue;
        std::string wanted = common::trim(wish.position);
        if (wanted.empty()) wanted = common::trim(person->primpos);

        for (const OpenEntry& e : entries) {
            if (!e.sday || !e.strttime || !e.endtime) continue;
            if (e.sday->weekdayNumber() != wish.sday || wanted != e.position || wish.shift != e.shift) continue;
            // Only availability, leave, conflicts and the weekly hours stand between a wish and its entry.
            Reason why = Reason::Assigned;
            switch (facts_.freedom(person->personid, *e.sday, *e.strttime, *e.endtime)) {
            case Freedom::Conflict: why = Reason::Conflict; break;
            case Freedom::NotAvailable: why = Reason::NotAvailable; break;
            case Freedom::OnLeave: why = Reason::OnLeave; break;
            case Freedom::Free:
                if (s_.settings.gb_AutoEnforceWeeklyHrs &&
                    !(facts_.hoursInRange(person->personid, range_.weekstart, range_.weekend) < person->hoursperweek))
                    why = Reason::WeeklyHours;
                break;
            }
            EntryStory& story = refused[e.schedid];
            story.entry = e;
            story.phase = Phase::DesiredShifts;
            story.verdicts.push_back({person->personid, why});
            explanation_.noteName(*person);
            if (why != Reason::Assigned) continue;
            if (!assign(e, *person)) return;
            story.winner = person->personid;
            explanation_.record(std::move(story));
            refused.erase(e.schedid);
            break;  // a wish gets one entry at most
        }
    }
    for (auto& [id, story] : refused) explanation_.record(std::move(story));
}

void FillRun::FillBalanced(bool allowdouble, Date start, Date end) {
    fillPass(Pass::Balanced, allowdouble ? Phase::DoubleShifts : Phase::Balanced, allowdouble, start, end);
}

void FillRun::FillFirstFit(bool allowdouble, Date start, Date end) {
    fillPass(Pass::FirstFit, Phase::FirstFit, allowdouble, start, end);
}

Reason FillRun::threeTests(const OpenEntry& e, const Person& p, double hours, double thisshift) {
    switch (facts_.freedom(p.personid, *e.sday, *e.strttime, *e.endtime)) {
    case Freedom::Conflict: return Reason::Conflict;
    case Freedom::NotAvailable: return Reason::NotAvailable;
    case Freedom::OnLeave: return Reason::OnLeave;
    case Freedom::Free: break;
    }
    if (!OvertimeAllows(s_, hours, thisshift)) return Reason::Overtime;
    if (!WeeklyHoursAllows(s_, p.hoursperweek, hours)) return Reason::WeeklyHours;
    return Reason::Assigned;
}

bool FillRun::worksThatDay(const Person& p, Date day) {
    // The day's hours are rounded half to even, so an entry of under half an hour does not count.
    return schedule::alertHours(facts_.hoursInRange(p.personid, day, day)) != 0;
}

bool FillRun::assign(const OpenEntry& e, const Person& p) {
    if (!facts_.assign(e, p)) return false;
    if (hooks_.entryFilled) hooks_.entryFilled(e.schedid);
    return true;
}

void FillRun::fillPass(Pass pass, Phase phase, bool allowdouble, Date start, Date end) {
    const std::vector<OpenEntry>& entries = facts_.unassigned(start, end);
    if (entries.empty()) return;
    bar_.Min = 0;
    bar_.Max = static_cast<int>(entries.size());
    // Rebuild and the first fit always count the hours in the open schedule file.
    const bool openFileOnly =
        pass == Pass::FirstFit || kind_ == RunKind::Rebuild || !s_.settings.gb_CheckConflictAllSchedules;
    const CandidateStatement statement =
        pass == Pass::Balanced ? CandidateStatement::Balanced : CandidateStatement::FirstFit;
    double thisshift = 0;

    for (std::size_t j = 0; j < entries.size(); ++j) {
        if (stopped()) return;
        bar_.Value = static_cast<int>(j);
        turn();
        const OpenEntry& e = entries[j];
        EntryStory story{e, phase, {}, 0};
        const std::vector<Person>& candidates = facts_.candidates(e.position, statement);
        if (candidates.empty()) {
            explanation_.record(std::move(story));
            continue;
        }
        // Afresh for every entry, so that each assignment counts at the very next entry.
        std::vector<double> hours;
        hours.reserve(candidates.size());
        for (const Person& c : candidates) hours.push_back(facts_.weekHours(c.personid, openFileOnly));
        // A length that cannot be read leaves the previous entry's.
        if (const auto length = facts_.entryHours(e.schedid)) thisshift = *length;
        // An entry without its day and times cannot be tested against anybody; it stays as it is.
        if (!e.sday || !e.strttime || !e.endtime) continue;

        std::vector<Reason> verdict(candidates.size(), Reason::LostBalanceTie);
        std::optional<std::size_t> chosen;
        bool atOnce = false;
        if (pass == Pass::Balanced) {
            // Fewest hours in the week wins, strictly: on equal hours the earlier candidate stays. One
            // with no hours at all is compared with nobody: the first who passes takes the entry.
            double besthours = 0;
            for (std::size_t i = 0; i < candidates.size(); ++i) {
                if (hours[i] == 0) {
                    const Reason r = threeTests(e, candidates[i], hours[i], thisshift);
                    if (r == Reason::Assigned) {
                        chosen = i;
                        atOnce = true;
                        break;
                    }
                    verdict[i] = r;
                    continue;
                }
                if (hours[i] >= besthours && besthours != 0) continue;  // lost the balance before any test
                const Reason r = threeTests(e, candidates[i], hours[i], thisshift);
                if (r != Reason::Assigned) {
                    verdict[i] = r;
                    continue;
                }
                besthours = hours[i];
                chosen = i;
            }
        } else {
            // The first in row order who passes; hours are compared with nothing.
            for (std::size_t i = 0; i < candidates.size(); ++i) {
                const Reason r = threeTests(e, candidates[i], hours[i], thisshift);
                if (r == Reason::Assigned) {
                    chosen = i;
                    break;
                }
                verdict[i] = r;
            }
        }

        if (chosen && candidates[*chosen].personid != 0) {
            const Person& best = candidates[*chosen];
            // With no hours in the week the employee has none that day either: the same-day test is
            // skipped. Otherwise a choice who works that day leaves the entry for this pass, and no
            // second-best candidate is tried.
            if (!atOnce && !allowdouble && worksThatDay(best, *e.sday)) {
                verdict[*chosen] = Reason::DoubleShift;
            } else {
                if (!assign(e, best)) return;
                verdict[*chosen] = Reason::Assigned;
                story.winner = best.personid;
            }
        }
        story.verdicts.reserve(candidates.size());
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            story.verdicts.push_back({candidates[i].personid, verdict[i]});
            explanation_.noteName(candidates[i]);
        }
        explanation_.record(std::move(story));
    }
}

}  // namespace tallymere::autosched
