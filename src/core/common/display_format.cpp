#include "common/display_format.h"

#include "common/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <vector>

namespace tallymere::common {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

std::string padded(int value, int width) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%0*d", width, value);
    return buf;
}

// ---------------------------------------------------------------------------------------------
// Dates and times

enum class DateTok { Literal, Day, Weekday, Month, Minute, Year, Hour, Second, Quarter, AmPm, GeneralDate, LongTime };

struct DateToken {
    DateTok kind;
    int count = 0;     // letters of the token: d = 1 ... dddddd = 6
    std::string text;  // literal text, or the AM/PM marker as written
};

// Splits a pattern into tokens; letters are read without regard to case, and a run of one letter is
// taken in the longest tokens it allows ("ddddddd" = "dddddd" + "d").
std::vector<DateToken> tokenizeDate(std::string_view f) {
    std::vector<DateToken> out;
    const auto literal = [&out](std::string_view t) {
        if (!out.empty() && out.back().kind == DateTok::Literal) {
            out.back().text += t;
        } else {
            out.push_back({DateTok::Literal, 0, std::string(t)});
        }
    };
    std::size_t i = 0;
    while (i < f.size()) {
        const char c = f[i];
        const char lc = lower(c);
        if (c == '\\') {
            if (i + 1 < f.size()) literal(f.substr(i + 1, 1));
            i += 2;
            continue;
        }
        if (c == '"') {
            std::size_t close = f.find('"', i + 1);
            if (close == std::string_view::npos) close = f.size();
            literal(f.substr(i + 1, close - i - 1));
            i = close + 1;
            continue;
        }
        if (lc == 'a') {
            const std::string_view rest = f.substr(i);
            std::size_t len = 0;
            if (startsWithNoCase(rest, "am/pm")) {
                len = 5;
            } else if (startsWithNoCase(rest, "ampm")) {
                len = 4;
            } else if (startsWithNoCase(rest, "a/p")) {
                len = 3;
            }
            if (len == 0) {
                literal(f.substr(i, 1));
                ++i;
            } else {
                out.push_back({DateTok::AmPm, static_cast<int>(len), std::string(rest.substr(0, len))});
                i += len;
            }
            continue;
        }
        std::size_t run = 1;
        while (i + run < f.size() && lower(f[i + run]) == lc) ++run;
        const auto greedy = [&](DateTok kind, std::initializer_list<int> sizes) {
            int left = static_cast<int>(run);
            while (left > 0) {
                for (const int size : sizes) {
                    if (size <= left) {
                        out.push_back({kind, size, {}});
                        left -= size;
                        break;
                    }
                }
            }
        };
        switch (lc) {
            case 'd': greedy(DateTok::Day, {6, 5, 4, 3, 2, 1}); break;
            case 'm': greedy(DateTok::Month, {4, 3, 2, 1}); break;
            case 'y': greedy(DateTok::Year, {4, 2, 1}); break;
            case 'h': greedy(DateTok::Hour, {2, 1}); break;
            case 'n': greedy(DateTok::Minute, {2, 1}); break;
            case 's': greedy(DateTok::Second, {2, 1}); break;
            case 'w': greedy(DateTok::Weekday, {2, 1}); break;
            case 'q': greedy(DateTok::Quarter, {1}); break;
            case 'c': greedy(DateTok::GeneralDate, {1}); break;
            case 't':
                if (run >= 5) {
                    out.push_back({DateTok::LongTime, 5, {}});
                    if (run > 5) literal(f.substr(i + 5, run - 5));
                } else {
                    literal(f.substr(i, run));
                }
                break;
            default: literal(f.substr(i, run)); break;
        }
        i += run;
    }

    // "m" and "mm" are minutes next to an hour or before seconds ("hh:mm", "mm:ss"), months otherwise.
    for (std::size_t k = 0; k < out.size(); ++k) {
        if (out[k].kind != DateTok::Month || out[k].count > 2) continue;
        std::size_t prev = k;
        while (prev > 0 && out[prev - 1].kind == DateTok::Literal) --prev;
        std::size_t next = k + 1;
        while (next < out.size() && out[next].kind == DateTok::Literal) ++next;
        if ((prev > 0 && out[prev - 1].kind == DateTok::Hour) ||
            (next < out.size() && out[next].kind == DateTok::Second)) {
            out[k].kind = DateTok::Minute;
        }
    }
    return out;
}

int dayOfYear(Date d) { return static_cast<int>(daysBetween(Date::fromYmd(d.year(), 1, 1), d)) + 1; }

// Week 1 is the one holding January 1; weeks begin on Sunday.
int weekOfYear(Date d) {
    const Date jan1 = Date::fromYmd(d.year(), 1, 1);
    return (dayOfYear(d) - 1 + jan1.weekdayNumber() - 1) / 7 + 1;
}

std::string renderDate(DateTime value, std::string_view pattern, const FormatLocale& locale, int depth);

std::string generalDate(DateTime value, const FormatLocale& locale, int depth) {
    // A time without a date lies on the engine's day zero and shows alone; midnight shows the date alone.
    if (value.date() == Date::fromYmd(1899, 12, 30)) return renderDate(value, locale.longTimePattern, locale, depth);
    if (value.secondsOfDay() == 0) return renderDate(value, locale.shortDatePattern, locale, depth);
    return renderDate(value, locale.shortDatePattern, locale, depth) + " " +
           renderDate(value, locale.longTimePattern, locale, depth);
}

std::string renderDate(DateTime value, std::string_view pattern, const FormatLocale& locale, int depth) {
    // A locale pattern that names itself ("ddddd" as the short date) must not recurse for ever.
    if (depth > 4) return {};
    const std::vector<DateToken> tokens = tokenizeDate(pattern);
    bool twelveHour = false;
    for (const DateToken& t : tokens) twelveHour = twelveHour || t.kind == DateTok::AmPm;

    const Date date = value.date();
    const bool pm = value.hour() >= 12;
    std::string out;
    for (const DateToken& t : tokens) {
        switch (t.kind) {
            case DateTok::Literal: out += t.text; break;
            case DateTok::Day:
                switch (t.count) {
                    case 1: out += std::to_string(date.day()); break;
                    case 2: out += padded(date.day(), 2); break;
                    case 3: out += weekdayName(date.weekdayNumber(), true); break;
                    case 4: out += weekdayName(date.weekdayNumber()); break;
                    case 5: out += renderDate(value, locale.shortDatePattern, locale, depth + 1); break;
                    default: out += renderDate(value, locale.longDatePattern, locale, depth + 1); break;
                }
                break;
            case DateTok::Weekday:
                out += std::to_string(t.count == 1 ? date.weekdayNumber() : weekOfYear(date));
                break;
            case DateTok::Month:
                switch (t.count) {
                    case 1: out += std::to_string(date.month()); break;
                    case 2: out += padded(date.month(), 2); break;
                    case 3: out += monthName(date.month(), true); break;
                    default: out += monthName(date.month()); break;
                }
                break;
            case DateTok::Minute: out += padded(value.minute(), t.count); break;
            case DateTok::Second: out += padded(value.second(), t.count); break;
            case DateTok::Hour: {
                int h = value.hour();
                if (twelveHour) h = h % 12 == 0 ? 12 : h % 12;
                out += padded(h, t.count);
                break;
            }
            case DateTok::Year:
                switch (t.count) {
                    case 1: out += std::to_string(dayOfYear(date)); break;
                    case 2: out += padded(date.year() % 100, 2); break;
                    default: out += padded(date.year(), 4); break;
                }
                break;
            case DateTok::Quarter: out += std::to_string((date.month() - 1) / 3 + 1); break;
            case DateTok::AmPm:
                // "AM/PM" and "A/P" print the half as the marker writes it; "AMPM" the locale's words.
                if (t.count == 5) {
                    out += t.text.substr(pm ? 3 : 0, 2);
                } else if (t.count == 3) {
                    out += t.text[pm ? 2 : 0];
                } else {
                    out += pm ? locale.pmDesignator : locale.amDesignator;
                }
                break;
            case DateTok::GeneralDate: out += generalDate(value, locale, depth + 1); break;
            case DateTok::LongTime: out += renderDate(value, locale.longTimePattern, locale, depth + 1); break;
        }
    }
    return out;
}

// ---------------------------------------------------------------------------------------------
// Numbers

// |value| in decimal: 0.digits x 10^exponent, digits without trailing zeros, empty for zero.
// Digits are the 15 significant ones the system shows of a double, so display rounding is decided on
// the decimal number the user sees (1.005 is 1.00500000000000 and shows as 1.01 in "0.00"), not on the
// binary value just below it.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal toDecimal(double magnitude) {
    Decimal d;
    if (magnitude == 0) return d;
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific, 14);
    const std::string_view s(buf, static_cast<std::size_t>(res.ptr - buf));  // "d.dddddddddddddde+XX"
    const std::size_t e = s.find('e');
    d.digits = std::string(1, s[0]) + std::string(s.substr(2, e - 2));
    int exp = 0;
    const std::string_view expText = s.substr(e + 1);
    std::from_chars(expText.data() + (expText[0] == '+' ? 1 : 0), expText.data() + expText.size(), exp);
    d.exponent = exp + 1;
    while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
    return d;
}

struct Fixed {
    std::string whole;     // no leading zeros; empty for zero
    std::string fraction;  // exactly the decimals asked for
    bool isZero() const { return whole.empty() && fraction.find_first_not_of('0') == std::string::npos; }
};

// Rounds to `decimals` places, a half away from zero.
Fixed toFixed(const Decimal& d, int decimals) {
    Fixed r;
    const int n = static_cast<int>(d.digits.size());
    if (n == 0) {
    } else if (d.exponent <= 0) {
        r.fraction = std::string(static_cast<std::size_t>(-d.exponent), '0') + d.digits;
    } else if (d.exponent >= n) {
        r.whole = d.digits + std::string(static_cast<std::size_t>(d.exponent - n), '0');
    } else {
        r.whole = d.digits.substr(0, static_cast<std::size_t>(d.exponent));
        r.fraction = d.digits.substr(static_cast<std::size_t>(d.exponent));
    }
    const auto dec = static_cast<std::size_t>(decimals);
    bool up = false;
    if (r.fraction.size() > dec) {
        up = r.fraction[dec] >= '5';
        r.fraction.resize(dec);
    } else {
        r.fraction.append(dec - r.fraction.size(), '0');
    }
    if (up) {
        std::string all = r.whole + r.fraction;
        std::size_t i = all.size();
        while (i > 0 && all[i - 1] == '9') all[--i] = '0';
        if (i == 0) {
            all.insert(all.begin(), '1');
        } else {
            ++all[i - 1];
        }
        r.whole = all.substr(0, all.size() - dec);
        r.fraction = all.substr(all.size() - dec);
    }
    const std::size_t firstNonZero = r.whole.find_first_not_of('0');
    r.whole.erase(0, firstNonZero == std::string::npos ? r.whole.size() : firstNonZero);
    return r;
}

enum class NumItem { Zero, Hash, Point, Percent, Literal };

struct NumSection {
    std::vector<std::pair<NumItem, std::string>> items;
    int wholeSlots = 0;
    int fractionSlots = 0;
    int percents = 0;
    int thousandsScale = 0;  // each "," right after the last whole digit divides by 1000
    bool grouping = false;
};

NumSection parseSection(std::string_view f) {
    NumSection s;
    std::vector<int> commas;  // whole-digit slots before each "," of the whole part
    bool point = false;
    const auto literal = [&s](std::string_view t) { s.items.emplace_back(NumItem::Literal, std::string(t)); };
    for (std::size_t i = 0; i < f.size(); ++i) {
        const char c = f[i];
        if (c == '\\') {
            if (i + 1 < f.size()) literal(f.substr(++i, 1));
        } else if (c == '"') {
            std::size_t close = f.find('"', i + 1);
            if (close == std::string_view::npos) close = f.size();
            literal(f.substr(i + 1, close - i - 1));
            i = close;
        } else if (c == '0' || c == '#') {
            s.items.emplace_back(c == '0' ? NumItem::Zero : NumItem::Hash, std::string());
            ++(point ? s.fractionSlots : s.wholeSlots);
        } else if (c == '.' && !point) {
            s.items.emplace_back(NumItem::Point, std::string());
            point = true;
        } else if (c == '%') {
            s.items.emplace_back(NumItem::Percent, std::string());
            ++s.percents;
        } else if (c == ',') {
            if (!point) commas.push_back(s.wholeSlots);
        } else {
            literal(f.substr(i, 1));
        }
    }
    for (const int before : commas) {
        if (before > 0 && before < s.wholeSlots) {
            s.grouping = true;
        } else if (before > 0) {
            ++s.thousandsScale;
        }
    }
    return s;
}

std::vector<std::string_view> splitSections(std::string_view f) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < f.size(); ++i) {
        if (f[i] == '"') {
            quoted = !quoted;
        } else if (f[i] == '\\' && !quoted) {
            ++i;
        } else if (f[i] == ';' && !quoted) {
            parts.push_back(f.substr(start, i - start));
            start = i + 1;
        }
    }
    parts.push_back(f.substr(start));
    return parts;
}

// The digits of |value| laid into a section; `isZero` tells whether they all came out as zeros.
std::string renderSection(double magnitude, const NumSection& s, const FormatLocale& locale, bool& isZero) {
    Decimal d = toDecimal(magnitude);
    if (!d.digits.empty()) d.exponent += 2 * s.percents - 3 * s.thousandsScale;
    const Fixed r = toFixed(d, s.fractionSlots);
    isZero = r.isZero();

    // Optional fraction digits ("#") at the end drop their zeros.
    std::vector<NumItem> fractionKinds;
    bool afterPoint = false;
    for (const auto& [kind, text] : s.items) {
        if (kind == NumItem::Point) afterPoint = true;
        if (afterPoint && (kind == NumItem::Zero || kind == NumItem::Hash)) fractionKinds.push_back(kind);
    }
    std::size_t keep = fractionKinds.size();
    while (keep > 0 && fractionKinds[keep - 1] == NumItem::Hash && r.fraction[keep - 1] == '0') --keep;

    // Whole digits: those beyond the slots go at the first slot; missing ones are "0" for a "0" slot and
    // nothing for a "#" slot.
    const int slots = s.wholeSlots;
    const int have = static_cast<int>(r.whole.size());
    int total = have;
    {
        int slot = 0;
        for (const auto& [kind, text] : s.items) {
            if (kind == NumItem::Point) break;
            if (kind != NumItem::Zero && kind != NumItem::Hash) continue;
            if (slot - (slots - have) < 0 && kind == NumItem::Zero) ++total;
            ++slot;
        }
    }

    std::string out;
    int emitted = 0;
    const auto digit = [&](char c) {
        out += c;
        const int remaining = total - ++emitted;
        if (s.grouping && remaining > 0 && remaining % 3 == 0) out += locale.thousandsSeparator;
    };
    bool excessDone = false;
    const auto excess = [&] {
        if (excessDone) return;
        excessDone = true;
        for (int k = 0; k < have - slots; ++k) digit(r.whole[static_cast<std::size_t>(k)]);
    };
    int slot = 0;
    std::size_t fractionSlot = 0;
    afterPoint = false;
    for (const auto& [kind, text] : s.items) {
        switch (kind) {
            case NumItem::Zero:
            case NumItem::Hash:
                if (afterPoint) {
                    if (fractionSlot < keep) out += r.fraction[fractionSlot];
                    ++fractionSlot;
                } else {
                    excess();
                    const int k = slot - (slots - have);
                    if (k >= 0) {
                        digit(r.whole[static_cast<std::size_t>(k)]);
                    } else if (kind == NumItem::Zero) {
                        digit('0');
                    }
                    ++slot;
                }
                break;
            case NumItem::Point:
                excess();
                afterPoint = true;
                out += locale.decimalSeparator;
                break;
            case NumItem::Percent: out += '%'; break;
            case NumItem::Literal: out += text; break;
        }
    }
    return out;
}

std::string formatPattern(double value, std::string_view pattern, const FormatLocale& locale) {
    const std::vector<std::string_view> sections = splitSections(pattern);
    bool isZero = false;
    if (value < 0 && sections.size() >= 2 && !sections[1].empty()) {
        return renderSection(-value, parseSection(sections[1]), locale, isZero);
    }
    if (value == 0 && sections.size() >= 3 && !sections[2].empty()) {
        return renderSection(0, parseSection(sections[2]), locale, isZero);
    }
    std::string out = renderSection(std::fabs(value), parseSection(sections[0]), locale, isZero);
    // A negative that rounds to nothing shows as zero, not "-0.00".
    if (value < 0 && !isZero) out.insert(0, "-");
    return out;
}

std::string generalNumber(double value, const FormatLocale& locale) {
    const Decimal d = toDecimal(std::fabs(value));
    if (d.digits.empty()) return "0";
    std::string out = value < 0 ? "-" : "";
    const int sciExponent = d.exponent - 1;
    if (sciExponent >= 15 || sciExponent < -4) {
        out += d.digits.substr(0, 1);
        if (d.digits.size() > 1) out += locale.decimalSeparator + d.digits.substr(1);
        out += sciExponent < 0 ? "E-" : "E+";
        out += padded(std::abs(sciExponent), 2);
        return out;
    }
    const int decimals = std::max(0, static_cast<int>(d.digits.size()) - d.exponent);
    const Fixed r = toFixed(d, decimals);
    out += r.whole.empty() ? "0" : r.whole;
    if (!r.fraction.empty()) out += locale.decimalSeparator + r.fraction;
    return out;
}

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        out += '\\';
        out += c;
    }
    return out;
}

std::string currencyPattern(const FormatLocale& locale) {
    std::string number = "#,##0";
    if (locale.currencyDecimals > 0) number += "." + std::string(static_cast<std::size_t>(locale.currencyDecimals), '0');
    const std::string symbol = escaped(locale.currencySymbol);
    const std::string positive = locale.currencySymbolFirst ? symbol + number : number + "\\ " + symbol;
    const std::string negative = locale.negativeCurrencyInParentheses ? "\\(" + positive + "\\)" : "\\-" + positive;
    return positive + ";" + negative;
}

}  // namespace

std::string formatDateTime(DateTime value, std::string_view format, const FormatLocale& locale) {
    const std::string named = toLower(trimView(format));
    if (named.empty() || named == "general date") return generalDate(value, locale, 0);
    if (named == "long date") return renderDate(value, locale.longDatePattern, locale, 0);
    if (named == "medium date") return renderDate(value, "dd-mmm-yy", locale, 0);
    if (named == "short date") return renderDate(value, locale.shortDatePattern, locale, 0);
    if (named == "long time") return renderDate(value, locale.longTimePattern, locale, 0);
    if (named == "medium time") return renderDate(value, "hh:nn ampm", locale, 0);
    if (named == "short time") return renderDate(value, "hh:nn", locale, 0);
    return renderDate(value, format, locale, 0);
}

std::string formatNumber(double value, std::string_view format, const FormatLocale& locale) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
    const std::string named = toLower(trimView(format));
    if (named.empty() || named == "general number") return generalNumber(value, locale);
    if (named == "currency") return formatPattern(value, currencyPattern(locale), locale);
    if (named == "fixed") return formatPattern(value, "0.00", locale);
    if (named == "standard") return formatPattern(value, "#,##0.00", locale);
    if (named == "percent") return formatPattern(value, "0.00%", locale);
    return formatPattern(value, format, locale);
}

}  // namespace tallymere::common
