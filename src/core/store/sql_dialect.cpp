#include "store/sql_dialect.h"

#include "common/date_time.h"
#include "common/text.h"

#include <optional>
#include <vector>

namespace tallymere::store {

namespace {

using common::equalsNoCase;

enum class Kind { Space, Word, Number, String, QuotedString, Bracket, DateLiteral, Param, Comment, Punct };

struct Token {
    Kind kind;
    std::string text;  // what is written out; emptied when a token is dropped
};

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isWordStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool isWordChar(char c) { return isWordStart(c) || isDigit(c) || c == '$'; }

// Index of the character after a literal closed by `close`, where a doubled `close` stands for
// itself. An unclosed literal runs to the end; the engine then reports it.
std::size_t skipQuoted(std::string_view s, std::size_t i, char close) {
    for (++i; i < s.size(); ++i) {
        if (s[i] != close) continue;
        if (i + 1 < s.size() && s[i + 1] == close) {
            ++i;
            continue;
        }
        return i + 1;
    }
    return s.size();
}

std::vector<Token> tokenize(std::string_view s) {
    std::vector<Token> out;
    std::size_t i = 0;
    while (i < s.size()) {
        const char c = s[i];
        const std::size_t start = i;
        Kind kind = Kind::Punct;
        if (isSpace(c)) {
            while (i < s.size() && isSpace(s[i])) ++i;
            kind = Kind::Space;
        } else if (c == '\'') {
            i = skipQuoted(s, i, '\'');
            kind = Kind::String;
        } else if (c == '"') {
            i = skipQuoted(s, i, '"');
            kind = Kind::QuotedString;
        } else if (c == '[') {
            const auto end = s.find(']', i);
            i = end == std::string_view::npos ? s.size() : end + 1;
            kind = Kind::Bracket;
        } else if (c == '#') {
            const auto end = s.find('#', i + 1);
            if (end == std::string_view::npos) {
                ++i;
            } else {
                i = end + 1;
                kind = Kind::DateLiteral;
            }
        } else if (c == '-' && i + 1 < s.size() && s[i + 1] == '-') {
            const auto end = s.find('\n', i);
            i = end == std::string_view::npos ? s.size() : end;
            kind = Kind::Comment;
        } else if (c == '/' && i + 1 < s.size() && s[i + 1] == '*') {
            const auto end = s.find("*/", i + 2);
            i = end == std::string_view::npos ? s.size() : end + 2;
            kind = Kind::Comment;
        } else if (c == '?') {
            for (++i; i < s.size() && isDigit(s[i]);) ++i;
            kind = Kind::Param;
        } else if ((c == ':' || c == '@' || c == '$') && i + 1 < s.size() && isWordStart(s[i + 1])) {
            for (++i; i < s.size() && isWordChar(s[i]);) ++i;
            kind = Kind::Param;
        } else if (isDigit(c) || (c == '.' && i + 1 < s.size() && isDigit(s[i + 1]))) {
            while (i < s.size() && (isDigit(s[i]) || s[i] == '.')) ++i;
            if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
                std::size_t j = i + 1;
                if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
                if (j < s.size() && isDigit(s[j])) {
                    for (i = j; i < s.size() && isDigit(s[i]);) ++i;
                }
            }
            kind = Kind::Number;
        } else if (isWordStart(c)) {
            while (i < s.size() && isWordChar(s[i])) ++i;
            kind = Kind::Word;
        } else {
            static constexpr std::string_view twoChar[] = {"<>", "<=", ">=", "!=", "==", "||", "<<", ">>"};
            i += 1;
            for (const auto op : twoChar) {
                if (s.substr(start, 2) == op) {
                    i = start + 2;
                    break;
                }
            }
        }
        out.push_back({kind, std::string(s.substr(start, i - start))});
    }
    return out;
}

// "it's ""x""" -> 'it''s "x"'
std::string singleQuoted(std::string_view dq) {
    std::string_view body = dq.substr(1);
    if (!body.empty() && body.back() == '"') body.remove_suffix(1);
    std::string r = "'";
    for (std::size_t i = 0; i < body.size(); ++i) {
        if (body[i] == '"' && i + 1 < body.size() && body[i + 1] == '"') ++i;
        if (body[i] == '\'') r += '\'';
        r += body[i];
    }
    return r + "'";
}

// Reads an unsigned number of 1 to `maxDigits` digits at `i`.
std::optional<int> readInt(std::string_view s, std::size_t& i, std::size_t maxDigits) {
    std::size_t n = 0;
    int v = 0;
    while (i < s.size() && isDigit(s[i]) && n < maxDigits) {
        v = v * 10 + (s[i] - '0');
        ++i;
        ++n;
    }
    if (n == 0) return std::nullopt;
    return v;
}

void skipBlanks(std::string_view s, std::size_t& i) {
    while (i < s.size() && s[i] == ' ') ++i;
}

// "h:mm[:ss] [AM|PM|A|P]" at `i` up to the end of the text.
std::optional<int> parseTimeOfDay(std::string_view s, std::size_t i) {
    auto h = readInt(s, i, 2);
    if (!h || i >= s.size() || s[i] != ':') return std::nullopt;
    ++i;
    auto mi = readInt(s, i, 2);
    if (!mi || *mi > 59) return std::nullopt;
    int sec = 0;
    if (i < s.size() && s[i] == ':') {
        ++i;
        const auto ss = readInt(s, i, 2);
        if (!ss || *ss > 59) return std::nullopt;
        sec = *ss;
    }
    skipBlanks(s, i);
    const std::string rest = common::toUpper(s.substr(i));
    if (rest == "AM" || rest == "A" || rest == "PM" || rest == "P") {
        if (*h < 1 || *h > 12) return std::nullopt;
        *h %= 12;
        if (rest[0] == 'P') *h += 12;
    } else if (!rest.empty() || *h > 23) {
        return std::nullopt;
    }
    return *h * 3600 + *mi * 60 + sec;
}

// The body of a #...# literal as ISO text: month/day/year or year-month-day, with or without a time.
std::optional<std::string> isoFromDateLiteral(std::string_view body) {
    body = common::trimView(body);
    std::size_t i = 0;
    std::optional<common::Date> date;
    if (auto iso = common::Date::parseIso(body.substr(0, 10)); iso && body.size() >= 10) {
        date = iso;
        i = 10;
    } else if (auto m = readInt(body, i, 2); m && i < body.size() && body[i] == '/') {
        ++i;
        const auto d = readInt(body, i, 2);
        if (!d || i >= body.size() || body[i] != '/') return std::nullopt;
        ++i;
        const std::size_t yStart = i;
        auto y = readInt(body, i, 4);
        if (!y) return std::nullopt;
        if (i - yStart <= 2) *y += *y < 30 ? 2000 : 1900;  // the engine's two-digit year window
        if (!common::Date::isValidYmd(*y, *m, *d)) return std::nullopt;
        date = common::Date::fromYmd(*y, *m, *d);
    } else {
        i = 0;
    }
    if (date && i == body.size()) return date->toIso();
    if (date) {
        if (body[i] != ' ' && body[i] != 'T') return std::nullopt;
        skipBlanks(body, ++i);
    } else {
        date = common::Date::fromYmd(1899, 12, 30);
    }
    const auto secs = parseTimeOfDay(body, i);
    if (!secs) return std::nullopt;
    return common::DateTime::at(*date).addSeconds(*secs).toIso();
}

bool significant(const Token& t) { return t.kind != Kind::Space && t.kind != Kind::Comment && !t.text.empty(); }

// Index of the next significant token after `i`, or tokens.size().
std::size_t nextSig(const std::vector<Token>& t, std::size_t i) {
    for (++i; i < t.size(); ++i)
        if (significant(t[i])) return i;
    return t.size();
}

bool isWord(const std::vector<Token>& t, std::size_t i, std::string_view w) {
    return i < t.size() && t[i].kind == Kind::Word && equalsNoCase(t[i].text, w);
}
bool isPunct(const std::vector<Token>& t, std::size_t i, std::string_view p) {
    return i < t.size() && t[i].kind == Kind::Punct && t[i].text == p;
}
bool isName(const Token& t) { return t.kind == Kind::Word || t.kind == Kind::Bracket; }

bool isAggregate(std::string_view w) {
    static constexpr std::string_view names[] = {"count", "sum", "avg", "min", "max", "total", "group_concat",
                                                  "string_agg", "first", "last", "stdev", "stdevp", "var", "varp"};
    for (const auto n : names)
        if (equalsNoCase(w, n)) return true;
    return false;
}

// Rewrites of single tokens, and of `table!column`.
void rewriteTokens(std::vector<Token>& t) {
    static constexpr std::pair<std::string_view, std::string_view> renamed[] = {
        {"ucase", "upper"}, {"lcase", "lower"}, {"len", "length"}, {"mid", "substr"}};
    for (std::size_t i = 0; i < t.size(); ++i) {
        Token& tok = t[i];
        switch (tok.kind) {
        case Kind::QuotedString:
            tok.text = singleQuoted(tok.text);
            tok.kind = Kind::String;
            break;
        case Kind::DateLiteral:
            if (const auto iso = isoFromDateLiteral(std::string_view(tok.text).substr(1, tok.text.size() - 2))) {
                tok.text = "'" + *iso + "'";
                tok.kind = Kind::String;
            }
            break;
        case Kind::Punct:
            if (tok.text == "&") {
                tok.text = "||";
            } else if (tok.text == "!" && i > 0 && isName(t[i - 1]) && i + 1 < t.size() && isName(t[i + 1])) {
                tok.text = ".";
            }
            break;
        case Kind::Word: {
            const std::size_t prev = [&] {
                for (std::size_t j = i; j-- > 0;)
                    if (significant(t[j])) return j;
                return t.size();
            }();
            if (isPunct(t, prev, ".")) break;  // a qualified name is never a keyword
            const std::size_t next = nextSig(t, i);
            const bool call = isPunct(t, next, "(");
            if (!call && !isPunct(t, next, ".") && (equalsNoCase(tok.text, "true") || equalsNoCase(tok.text, "false"))) {
                tok.text = equalsNoCase(tok.text, "true") ? "1" : "0";
                tok.kind = Kind::Number;
            } else if (equalsNoCase(tok.text, "distinctrow")) {
                tok.text = "distinct";
            } else if (call) {
                for (const auto& [from, to] : renamed)
                    if (equalsNoCase(tok.text, from)) tok.text = to;
            }
            break;
        }
        default:
            break;
        }
    }
}

// `update t set t.col = ...`: SQLite takes no qualifier on an assignment's target.
void unqualifySetTargets(std::vector<Token>& t) {
    std::size_t i = nextSig(t, static_cast<std::size_t>(-1));
    if (!isWord(t, i, "update")) return;
    int depth = 0;
    bool inSet = false, atTarget = false;
    for (; i < t.size(); i = nextSig(t, i)) {
        if (isPunct(t, i, "(")) ++depth;
        if (isPunct(t, i, ")")) --depth;
        if (depth != 0) continue;
        if (isWord(t, i, "set")) {
            inSet = atTarget = true;
            continue;
        }
        if (isWord(t, i, "where") || isWord(t, i, "from") || isWord(t, i, "returning")) inSet = false;
        if (!inSet) continue;
        if (isPunct(t, i, ",")) {
            atTarget = true;
            continue;
        }
        if (atTarget && isName(t[i])) {
            const std::size_t dot = nextSig(t, i);
            const std::size_t column = nextSig(t, dot);
            if (isPunct(t, dot, ".") && column < t.size() && isName(t[column])) {
                t[i].text.clear();
                t[dot].text.clear();
            }
        }
        atTarget = false;
    }
}

// `select top N` -> remembered, removed; written back as a LIMIT at the end of the statement.
std::string takeTop(std::vector<Token>& t) {
    std::size_t sel = nextSig(t, static_cast<std::size_t>(-1));
    if (!isWord(t, sel, "select")) return {};
    std::size_t top = nextSig(t, sel);
    if (isWord(t, top, "distinct") || isWord(t, top, "all")) top = nextSig(t, top);
    const std::size_t n = nextSig(t, top);
    if (!isWord(t, top, "top") || n >= t.size() || t[n].kind != Kind::Number) return {};
    std::string count = t[n].text;
    t[top].text.clear();
    t[n].text.clear();
    return count;
}

// Where " order by rowid" goes, when the statement is a plain select of one table without an order;
// nullopt otherwise. The position is a token index: the text is inserted before that token.
std::optional<std::size_t> rowOrderPosition(const std::vector<Token>& t) {
    std::size_t i = nextSig(t, static_cast<std::size_t>(-1));
    if (!isWord(t, i, "select")) return std::nullopt;
    if (isWord(t, nextSig(t, i), "distinct")) return std::nullopt;
    enum class Clause { List, From, Rest } clause = Clause::List;
    int depth = 0;
    int tables = 0;
    std::optional<std::size_t> limit;
    std::size_t last = t.size();  // the last significant token of the statement
    for (i = nextSig(t, i); i < t.size(); i = nextSig(t, i)) {
        if (isPunct(t, i, ";")) break;
        last = i;
        if (clause == Clause::List && t[i].kind == Kind::Word && isAggregate(t[i].text) &&
            isPunct(t, nextSig(t, i), "("))
            return std::nullopt;
        if (isPunct(t, i, "(")) {
            if (depth == 0 && clause == Clause::From) return std::nullopt;  // a sub-select or function as a table
            ++depth;
            continue;
        }
        if (isPunct(t, i, ")")) {
            --depth;
            continue;
        }
        if (depth != 0) continue;
        const Token& tok = t[i];
        if (tok.kind == Kind::Word) {
            for (const auto w : {"order", "group", "having", "union", "intersect", "except", "join", "window"})
                if (equalsNoCase(tok.text, w)) return std::nullopt;
            if (equalsNoCase(tok.text, "from")) {
                clause = Clause::From;
                continue;
            }
            if (equalsNoCase(tok.text, "where") || equalsNoCase(tok.text, "limit")) {
                if (clause == Clause::List) return std::nullopt;
                clause = Clause::Rest;
                if (equalsNoCase(tok.text, "limit") && !limit) limit = i;
                continue;
            }
        }
        if (clause == Clause::From) {
            if (isPunct(t, i, ",")) return std::nullopt;
            if (isName(tok) && tables == 0) ++tables;
        }
    }
    if (tables != 1) return std::nullopt;
    if (limit) return *limit;
    return last + 1;
}

}  // namespace

std::string translateSql(std::string_view sql) {
    std::vector<Token> t = tokenize(sql);
    rewriteTokens(t);
    unqualifySetTargets(t);
    const std::string top = takeTop(t);
    const auto orderAt = rowOrderPosition(t);
    // A TOP becomes a LIMIT after the end of the statement proper (before trailing blanks or ';'),
    // and so after an order that is added there.
    std::optional<std::size_t> limitAt;
    if (!top.empty()) {
        limitAt = 0;
        for (std::size_t j = 0; j < t.size(); ++j)
            if (significant(t[j]) && !isPunct(t, j, ";")) limitAt = j + 1;
    }

    std::string out;
    out.reserve(sql.size() + 32);
    const auto addClause = [&](std::string_view clause, std::size_t before) {
        if (!out.empty() && !isSpace(out.back())) out += ' ';
        out += clause;
        if (before < t.size() && t[before].kind != Kind::Space && !isPunct(t, before, ";")) out += ' ';
    };
    for (std::size_t i = 0; i <= t.size(); ++i) {
        if (orderAt == i) addClause("order by rowid", i);
        if (limitAt == i) addClause("limit " + top, i);
        if (i < t.size()) out += t[i].text;
    }
    return out;
}

}  // namespace tallymere::store
