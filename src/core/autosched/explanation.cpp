#include "autosched/explanation.h"

#include "common/report_name.h"

#include <cstdio>

namespace tallymere::autosched {

std::string_view phaseText(Phase p) {
    switch (p) {
    case Phase::DesiredShifts: return "desired shifts";
    case Phase::Balanced: return "balanced";
    case Phase::DoubleShifts: return "balanced, double shifts if allowed";
    case Phase::FirstFit: return "first fit";
    }
    return {};
}

std::string_view reasonText(Reason r) {
    switch (r) {
    case Reason::Assigned: return "assigned";
    case Reason::NotQualified: return "not qualified";
    case Reason::Conflict: return "conflict";
    case Reason::NotAvailable: return "not available";
    case Reason::OnLeave: return "on leave";
    case Reason::Overtime: return "overtime";
    case Reason::WeeklyHours: return "weekly hours";
    case Reason::DoubleShift: return "double shift";
    case Reason::LostBalanceTie: return "lost the balance tie";
    }
    return {};
}

void Explanation::record(EntryStory story) {
    const long id = story.entry.schedid;
    if (story.winner != 0) {
        open_.erase(id);
        filled_.push_back(std::move(story));
    } else {
        open_.insert_or_assign(id, std::move(story));
    }
}

void Explanation::clear() {
    filled_.clear();
    open_.clear();
    names_.clear();
}

std::string Explanation::nameOf(long personid) const {
    const auto it = names_.find(personid);
    if (it == names_.end()) return {};
    return common::FormatReportName(it->second.second, it->second.first, nameFormat_);
}

void Explanation::addRows(const EntryStory& story, std::vector<ExplainRow>& out) const {
    ExplainRow base;
    base.schedid = story.entry.schedid;
    base.day = story.entry.sday;
    base.start = story.entry.strttime;
    base.end = story.entry.endtime;
    base.shift = story.entry.shift;
    base.position = story.entry.position;
    base.phase = story.phase;
    if (story.winner != 0) {
        base.assignedId = story.winner;
        base.assigned = nameOf(story.winner);
    }
    if (story.verdicts.empty()) {
        out.push_back(base);  // no candidate: not qualified
        return;
    }
    for (const auto& v : story.verdicts) {
        ExplainRow row = base;
        row.candidateId = v.personid;
        row.candidate = nameOf(v.personid);
        row.reason = v.reason;
        out.push_back(std::move(row));
    }
}

std::vector<ExplainRow> Explanation::rows() const {
    std::vector<ExplainRow> out;
    for (const auto& story : filled_) addRows(story, out);
    for (const auto& [id, story] : open_) addRows(story, out);
    return out;
}

namespace {

void csvField(std::ostream& out, std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        out << text;
        return;
    }
    out << '"';
    for (const char c : text) {
        if (c == '"') out << '"';
        out << c;
    }
    out << '"';
}

std::string clock(const std::optional<DateTime>& t) {
    if (!t) return {};
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02d:%02d", t->hour(), t->minute());
    return buf;
}

}  // namespace

void writeExplanationCsv(std::ostream& out, const std::vector<ExplainRow>& rows) {
    out << "date,start,end,shift,position,assigned,phase,candidate,reason\r\n";
    for (const auto& r : rows) {
        out << (r.day ? r.day->toIso() : std::string()) << ',' << clock(r.start) << ',' << clock(r.end) << ',';
        csvField(out, r.shift);
        out << ',';
        csvField(out, r.position);
        out << ',';
        csvField(out, r.assigned);
        out << ',' << static_cast<int>(r.phase) << ',';
        csvField(out, r.candidate);
        out << ',' << reasonText(r.reason) << "\r\n";
    }
}

}  // namespace tallymere::autosched
