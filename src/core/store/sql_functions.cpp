#include "store/sql_dialect.h"

#include "common/date_time.h"
#include "common/text.h"
#include "store/access.h"

#include <sqlite3.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace tallymere::store {

namespace {

using common::DateTime;

// ---- UTF-8 ------------------------------------------------------------------------------------

// The code point at `i`, advancing `i`. A byte that starts no valid sequence stands for itself, so
// damaged text still matches byte for byte.
char32_t nextCodePoint(std::string_view s, std::size_t& i) {
    const auto b = static_cast<unsigned char>(s[i]);
    const int len = b < 0x80 ? 1 : (b >> 5) == 0x6 ? 2 : (b >> 4) == 0xE ? 3 : (b >> 3) == 0x1E ? 4 : 0;
    if (len <= 1 || i + len > s.size()) {
        ++i;
        return b;
    }
    char32_t cp = b & (0x7F >> len);
    for (int k = 1; k < len; ++k) {
        const auto c = static_cast<unsigned char>(s[i + k]);
        if ((c & 0xC0) != 0x80) {
            ++i;
            return b;
        }
        cp = (cp << 6) | (c & 0x3F);
    }
    i += len;
    return cp;
}

std::vector<char32_t> codePoints(std::string_view s) {
    std::vector<char32_t> r;
    r.reserve(s.size());
    for (std::size_t i = 0; i < s.size();) r.push_back(nextCodePoint(s, i));
    return r;
}

char32_t lowerAscii(char32_t c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; }
char32_t upperAscii(char32_t c) { return c >= 'a' && c <= 'z' ? c - 32 : c; }

// ---- LIKE ---------------------------------------------------------------------------------------

struct PatternItem {
    enum class Type { Literal, One, Digit, Set, Any } type = Type::Literal;
    char32_t ch = 0;
    bool negate = false;
    std::vector<std::pair<char32_t, char32_t>> ranges;

    bool matches(char32_t c) const {
        switch (type) {
        case Type::One:
            return true;
        case Type::Digit:
            return c >= '0' && c <= '9';
        case Type::Literal:
            return lowerAscii(c) == lowerAscii(ch);
        case Type::Set: {
            bool in = false;
            for (const auto& [lo, hi] : ranges)
                for (const char32_t v : {c, lowerAscii(c), upperAscii(c)})
                    in = in || (v >= lo && v <= hi);
            return in != negate;
        }
        case Type::Any:
            break;
        }
        return false;
    }
};

std::vector<PatternItem> compilePattern(const std::vector<char32_t>& p, char32_t escape) {
    using Type = PatternItem::Type;
    const auto item = [](Type type, char32_t ch = 0) {
        PatternItem it;
        it.type = type;
        it.ch = ch;
        return it;
    };
    std::vector<PatternItem> items;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const char32_t c = p[i];
        if (escape != 0 && c == escape) {
            items.push_back(item(Type::Literal, i + 1 < p.size() ? p[++i] : c));
        } else if (c == '*') {
            if (items.empty() || items.back().type != Type::Any) items.push_back(item(Type::Any));
        } else if (c == '?') {
            items.push_back(item(Type::One));
        } else if (c == '#') {
            items.push_back(item(Type::Digit));
        } else if (c == '[') {
            std::size_t close = i + 1;
            while (close < p.size() && p[close] != ']') ++close;
            if (close == p.size()) {  // no closing bracket: a plain '['
                items.push_back(item(Type::Literal, c));
                continue;
            }
            std::size_t j = i + 1;
            PatternItem set = item(Type::Set);
            if (close > j + 1 && p[j] == '!') {
                set.negate = true;
                ++j;
            }
            for (; j < close; ++j) {
                if (j + 2 < close && p[j + 1] == '-') {
                    set.ranges.emplace_back(p[j], p[j + 2]);
                    j += 2;
                } else {
                    set.ranges.emplace_back(p[j], p[j]);
                }
            }
            if (!set.ranges.empty()) items.push_back(std::move(set));  // "[]" matches the empty text
            i = close;
        } else {
            items.push_back(item(Type::Literal, c));
        }
    }
    return items;
}

}  // namespace

bool jetLike(std::string_view pattern, std::string_view text, char32_t escape) {
    const auto items = compilePattern(codePoints(pattern), escape);
    const auto s = codePoints(text);
    // Every item but `*` takes exactly one character, so remembering the last `*` is enough.
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t p = 0, k = 0, starItem = none, starText = 0;
    while (k < s.size()) {
        if (p < items.size() && items[p].type == PatternItem::Type::Any) {
            starItem = ++p;
            starText = k;
        } else if (p < items.size() && items[p].matches(s[k])) {
            ++p;
            ++k;
        } else if (starItem != none) {
            p = starItem;
            k = ++starText;
        } else {
            return false;
        }
    }
    while (p < items.size() && items[p].type == PatternItem::Type::Any) ++p;
    return p == items.size();
}

namespace {

// ---- argument helpers ---------------------------------------------------------------------------

bool anyNull(int argc, sqlite3_value** argv) {
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL) return true;
    return false;
}

std::string_view textOf(sqlite3_value* v) {
    const auto* p = reinterpret_cast<const char*>(sqlite3_value_text(v));
    return p ? std::string_view(p, static_cast<std::size_t>(sqlite3_value_bytes(v))) : std::string_view();
}

std::optional<DateTime> dateTimeOf(sqlite3_value* v) {
    if (sqlite3_value_type(v) != SQLITE_TEXT) return std::nullopt;
    return DateTime::parseIso(textOf(v));
}

void resultText(sqlite3_context* ctx, const std::string& s) {
    sqlite3_result_text(ctx, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
}

void invalidCall(sqlite3_context* ctx, const char* function) {
    const std::string msg = std::string("Invalid procedure call or argument in ") + function + ".";
    sqlite3_result_error(ctx, msg.c_str(), -1);
}

// ---- dates --------------------------------------------------------------------------------------

// Week of the year, weeks starting on Sunday, the week of January 1 being week 1.
int weekOfYear(common::Date d) {
    const common::Date jan1 = common::Date::fromYmd(d.year(), 1, 1);
    const auto dayOfYear = static_cast<int>(common::daysBetween(jan1, d));
    return (dayOfYear + jan1.weekdayNumber() - 1) / 7 + 1;
}

std::optional<std::int64_t> datePart(std::string_view interval, DateTime t) {
    const std::string iv = common::toLower(common::trimView(interval));
    const common::Date d = t.date();
    if (iv == "yyyy") return d.year();
    if (iv == "q") return (d.month() - 1) / 3 + 1;
    if (iv == "m") return d.month();
    if (iv == "y") return common::daysBetween(common::Date::fromYmd(d.year(), 1, 1), d) + 1;
    if (iv == "d") return d.day();
    if (iv == "w") return d.weekdayNumber();
    if (iv == "ww") return weekOfYear(d);
    if (iv == "h") return t.hour();
    if (iv == "n") return t.minute();
    if (iv == "s") return t.second();
    return std::nullopt;
}

// The date and time patterns of the formatting language: d dd ddd dddd, m mm mmm mmmm (minutes after
// an hour or before seconds), y yy yyyy, h hh, n nn, s ss, w ww, q, AM/PM am/pm A/P a/p AMPM,
// \x and "..." for literal text. Letters it does not know are written as they are.
std::string formatPattern(DateTime t, std::string_view pat) {
    const std::string lower = common::toLower(pat);
    const bool twelveHour = lower.find("am/pm") != std::string::npos || lower.find("a/p") != std::string::npos ||
                            lower.find("ampm") != std::string::npos;
    const common::Date d = t.date();
    std::string out;
    const auto num = [&](int v, int width) {
        char buf[16];
        std::snprintf(buf, sizeof buf, "%0*d", width, v);
        out += buf;
    };
    bool afterHour = false;
    for (std::size_t i = 0; i < pat.size();) {
        const char c = pat[i];
        const char lc = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (c == '\\' && i + 1 < pat.size()) {
            out += pat[i + 1];
            i += 2;
            continue;
        }
        if (c == '"') {
            const auto end = pat.find('"', i + 1);
            out += pat.substr(i + 1, (end == std::string_view::npos ? pat.size() : end) - i - 1);
            i = end == std::string_view::npos ? pat.size() : end + 1;
            continue;
        }
        const bool pm = t.hour() >= 12;
        const bool upper = std::isupper(static_cast<unsigned char>(c)) != 0;
        if (lower.compare(i, 5, "am/pm") == 0) {
            out += upper ? (pm ? "PM" : "AM") : (pm ? "pm" : "am");
            i += 5;
            continue;
        }
        if (lower.compare(i, 3, "a/p") == 0) {
            out += upper ? (pm ? "P" : "A") : (pm ? "p" : "a");
            i += 3;
            continue;
        }
        if (lower.compare(i, 4, "ampm") == 0) {
            out += pm ? "PM" : "AM";
            i += 4;
            continue;
        }
        std::size_t run = 1;
        while (i + run < pat.size() && std::tolower(static_cast<unsigned char>(pat[i + run])) == lc) ++run;
        bool wasHour = false;
        switch (lc) {
        case 'y':
            if (run >= 3) num(d.year(), 4);
            else if (run == 2) num(d.year() % 100, 2);
            else num(static_cast<int>(*datePart("y", t)), 1);
            break;
        case 'd':
            if (run >= 4) out += common::weekdayName(d.weekdayNumber());
            else if (run == 3) out += common::weekdayName(d.weekdayNumber(), true);
            else num(d.day(), static_cast<int>(run));
            break;
        case 'm': {
            std::size_t next = i + run;
            while (next < pat.size() && !std::isalpha(static_cast<unsigned char>(pat[next]))) ++next;
            const bool minutes = run <= 2 && (afterHour || (next < pat.size() && std::tolower(static_cast<unsigned char>(pat[next])) == 's'));
            if (minutes) num(t.minute(), static_cast<int>(run));
            else if (run >= 4) out += common::monthName(d.month());
            else if (run == 3) out += common::monthName(d.month(), true);
            else num(d.month(), static_cast<int>(run));
            break;
        }
        case 'h': {
            const int h = twelveHour ? (t.hour() % 12 == 0 ? 12 : t.hour() % 12) : t.hour();
            num(h, run >= 2 ? 2 : 1);
            wasHour = true;
            break;
        }
        case 'n':
            num(t.minute(), run >= 2 ? 2 : 1);
            break;
        case 's':
            num(t.second(), run >= 2 ? 2 : 1);
            break;
        case 'w':
            num(run >= 2 ? weekOfYear(d) : d.weekdayNumber(), 1);
            break;
        case 'q':
            num(static_cast<int>(*datePart("q", t)), 1);
            break;
        default:
            out.append(pat.substr(i, run));
            i += run;
            continue;  // a separator keeps "hh:mm" reading mm as minutes
        }
        afterHour = wasHour;
        i += run;
    }
    return out;
}

// ---- the SQL functions --------------------------------------------------------------------------

void likeFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    char32_t escape = 0;
    if (argc == 3) {
        const auto e = codePoints(textOf(argv[2]));
        if (e.size() != 1) return sqlite3_result_error(ctx, "ESCAPE expression must be a single character", -1);
        escape = e[0];
    }
    sqlite3_result_int(ctx, jetLike(textOf(argv[0]), textOf(argv[1]), escape) ? 1 : 0);
}

void dateDiffFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const auto a = dateTimeOf(argv[1]), b = dateTimeOf(argv[2]);
    if (!a || !b) return sqlite3_result_null(ctx);
    const auto diff = common::dateDiff(textOf(argv[0]), *a, *b);
    if (!diff) return invalidCall(ctx, "DateDiff");
    // Real, so that a division by 60 keeps the fraction of an hour.
    sqlite3_result_double(ctx, static_cast<double>(*diff));
}

void dateAddFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const std::string interval = common::toLower(common::trimView(textOf(argv[0])));
    const auto n = static_cast<std::int64_t>(std::trunc(sqlite3_value_double(argv[1])));
    const auto t = dateTimeOf(argv[2]);
    if (!t) return sqlite3_result_null(ctx);
    const auto r = common::dateAdd(interval, n, *t);
    if (!r) return invalidCall(ctx, "DateAdd");
    const bool dateOnly = common::trimView(textOf(argv[2])).size() == 10;
    const bool timeUnit = interval == "h" || interval == "n" || interval == "s";
    resultText(ctx, dateOnly && !timeUnit ? r->date().toIso() : r->toIso());
}

void datePartFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const auto t = dateTimeOf(argv[1]);
    if (!t) return sqlite3_result_null(ctx);
    const auto part = datePart(textOf(argv[0]), *t);
    if (!part) return invalidCall(ctx, "DatePart");
    sqlite3_result_int64(ctx, *part);
}

// year(), month(), ... : DatePart with a fixed interval, carried as the function's user data.
void partOfFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
    const auto t = dateTimeOf(argv[0]);
    if (!t) return sqlite3_result_null(ctx);
    sqlite3_result_int64(ctx, *datePart(static_cast<const char*>(sqlite3_user_data(ctx)), *t));
}

void formatFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
    const auto t = dateTimeOf(argv[0]);
    if (!t || sqlite3_value_type(argv[1]) == SQLITE_NULL) return sqlite3_result_value(ctx, argv[0]);
    resultText(ctx, formatPattern(*t, textOf(argv[1])));
}

void weekdayNameFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const auto n = sqlite3_value_int64(argv[0]);
    const bool abbreviate = argc >= 2 && sqlite3_value_int64(argv[1]) != 0;
    auto first = argc >= 3 ? sqlite3_value_int64(argv[2]) : 1;
    if (first == 0) first = 1;  // "the system's first day": Sunday here
    if (n < 1 || n > 7 || first < 1 || first > 7) return invalidCall(ctx, "WeekdayName");
    resultText(ctx, common::weekdayName(static_cast<int>((n - 1 + first - 1) % 7 + 1), abbreviate));
}

void chkfldFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    Value v;
    switch (sqlite3_value_type(argv[0])) {
    case SQLITE_NULL:
        break;
    case SQLITE_INTEGER:
        v = Value(static_cast<long long>(sqlite3_value_int64(argv[0])));
        break;
    case SQLITE_FLOAT:
        v = Value(sqlite3_value_double(argv[0]));
        break;
    default:
        v = Value(textOf(argv[0]));
        break;
    }
    resultText(ctx, chkfld(v));
}

void nzFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) != SQLITE_NULL) return sqlite3_result_value(ctx, argv[0]);
    if (argc == 2) return sqlite3_result_value(ctx, argv[1]);
    sqlite3_result_text(ctx, "", 0, SQLITE_STATIC);
}

}  // namespace

bool registerSqlFunctions(sqlite3* db) {
    using Fn = void (*)(sqlite3_context*, int, sqlite3_value**);
    struct Entry {
        const char* name;
        int argc;
        Fn fn;
        const char* data = nullptr;
    };
    static const Entry entries[] = {
        {"like", 2, likeFn},
        {"like", 3, likeFn},
        {"datediff", 3, dateDiffFn},
        {"dateadd", 3, dateAddFn},
        {"datepart", 2, datePartFn},
        {"year", 1, partOfFn, "yyyy"},
        {"month", 1, partOfFn, "m"},
        {"day", 1, partOfFn, "d"},
        {"hour", 1, partOfFn, "h"},
        {"minute", 1, partOfFn, "n"},
        {"second", 1, partOfFn, "s"},
        {"weekday", 1, partOfFn, "w"},
        {"format", 2, formatFn},
        {"weekdayname", 1, weekdayNameFn},
        {"weekdayname", 2, weekdayNameFn},
        {"weekdayname", 3, weekdayNameFn},
        {"chkfld", 1, chkfldFn},
        {"nz", 1, nzFn},
        {"nz", 2, nzFn},
    };
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const Entry& e : entries) {
        void* data = const_cast<char*>(e.data);
        if (sqlite3_create_function_v2(db, e.name, e.argc, flags, data, e.fn, nullptr, nullptr, nullptr) != SQLITE_OK)
            return false;
    }
    return true;
}

}  // namespace tallymere::store
