#include "cli/command_line.h"

#include "cli/stop.h"
#include "common/text.h"

#include <algorithm>
#include <cctype>

namespace tallymere::cli {

namespace {

constexpr const char* kProgram = "tallymere-cli";

struct GlobalSpec {
    const char* name;
    const char* value;  // empty for a switch
    const char* help;
};

constexpr GlobalSpec kGlobalOptions[] = {
    {"--db", "FILE",
     "the database: a Tallymere.db file or the data folder that holds it. Without it, the database of the data "
     "folder Tallymere uses"},
    {"--yes", "", "answer Yes (or OK) to every question the command asks"},
    {"--no", "", "answer No (or Cancel) to every question the command asks"},
    {"--format", "csv|tsv", "how lists are written to standard output: comma-separated (the default) or tab-separated"},
    {"--set", "KEY=VALUE",
     "change a setting of the file for this run only, e.g. --set gb_NoOvertime=True; may be given more than once"},
    {"--password", "TEXT",
     "the owner or user password of a protected file; the variable TALLYMERE_PASSWORD does the same"},
};

bool allDigits(std::string_view s) {
    return !s.empty() && std::all_of(s.begin(), s.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

std::string seeHelp(std::string_view topic = {}) {
    return std::string(kProgram) + " help" + (topic.empty() ? "" : " " + std::string(topic)) +
           (topic.empty() ? " lists the commands." : " lists its options.");
}

// One word of the line, with the value written into it ("--date=2026-11-23") split off.
struct Word {
    std::string text;
    std::optional<std::string> inlineValue;
};

Word splitWord(const std::string& arg) {
    if (arg.rfind("--", 0) == 0) {
        if (const std::size_t eq = arg.find('='); eq != std::string::npos)
            return {arg.substr(0, eq), arg.substr(eq + 1)};
    }
    return {arg, std::nullopt};
}

bool isOption(const std::string& word) { return word.size() > 1 && word[0] == '-'; }

// The option's value: written into the word, or the next word.
std::string takeValue(const Word& w, const std::vector<std::string>& args, std::size_t& i, const std::string& shape) {
    if (w.inlineValue) return *w.inlineValue;
    if (i + 1 >= args.size()) throw usage(w.text + " needs a value: " + shape + ".");
    return args[++i];
}

std::string checkedValue(const OptionSpec& option, const std::string& value) {
    switch (option.kind) {
    case ValueKind::Date:
        if (!parseDateArgument(value))
            throw usage(option.name + " " + value + " is not a date: write it as YYYY-MM-DD, e.g. 2026-11-23.");
        return value;
    case ValueKind::WholeNumber: {
        const std::string_view digits = !value.empty() && value[0] == '-' ? std::string_view(value).substr(1) : value;
        if (!allDigits(digits) || digits.size() > 9) throw usage(option.name + " " + value + " is not a whole number.");
        return value;
    }
    case ValueKind::Choice:
        for (const std::string& c : option.choices)
            if (common::equalsNoCase(c, value)) return c;
        {
            std::string list;
            for (std::size_t k = 0; k < option.choices.size(); ++k)
                list += (k == 0 ? "" : k + 1 == option.choices.size() ? " or " : ", ") + option.choices[k];
            throw usage(option.name + " " + value + ": choose " + list + ".");
        }
    case ValueKind::Text:
    case ValueKind::None: break;
    }
    return value;
}

const Command* findCommand(const std::vector<Command>& commands, std::string_view name) {
    for (const Command& c : commands)
        if (c.name == name) return &c;
    return nullptr;
}

// The subcommands of a command word ("save", "apply" of "default"); empty for a plain command.
std::vector<std::string> subcommandsOf(const std::vector<Command>& commands, std::string_view word) {
    std::vector<std::string> subs;
    const std::string prefix = std::string(word) + " ";
    for (const Command& c : commands)
        if (c.name.rfind(prefix, 0) == 0) subs.push_back(c.name.substr(prefix.size()));
    return subs;
}

std::string joinOr(const std::vector<std::string>& words) {
    std::string out;
    for (std::size_t k = 0; k < words.size(); ++k)
        out += (k == 0 ? "" : k + 1 == words.size() ? " or " : ", ") + words[k];
    return out;
}

std::string usageLine(const Command& c) {
    std::string line = std::string(kProgram) + " [options] " + c.name;
    for (const OptionSpec& o : c.options) {
        std::string part = o.name;
        if (o.kind != ValueKind::None) part += " " + o.valueName();
        line += o.required ? " " + part : " [" + part + "]";
    }
    return line;
}

constexpr std::size_t kHelpWidth = 100;

// Words of `text` in lines of at most `width` characters (a longer word stands alone).
std::vector<std::string> wrap(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find(' ', start);
        if (end == std::string_view::npos) end = text.size();
        const std::string_view word = text.substr(start, end - start);
        if (!lines.back().empty() && lines.back().size() + 1 + word.size() > width) lines.emplace_back();
        if (!lines.back().empty()) lines.back() += ' ';
        lines.back() += word;
        start = end + 1;
    }
    return lines;
}

std::string wrapped(std::string_view paragraph) {
    std::string out;
    for (const std::string& l : wrap(paragraph, kHelpWidth)) out += l + "\n";
    return out;
}

void appendOptionLines(std::string& out, const std::vector<std::pair<std::string, std::string>>& rows) {
    std::size_t width = 0;
    for (const auto& [left, right] : rows) width = std::max(width, left.size());
    const std::size_t indent = width + 4;
    for (const auto& [left, right] : rows) {
        const std::vector<std::string> lines = wrap(right, indent + 30 < kHelpWidth ? kHelpWidth - indent : 30);
        out += "  " + left + std::string(width - left.size() + 2, ' ') + lines.front() + "\n";
        for (std::size_t k = 1; k < lines.size(); ++k) out += std::string(indent, ' ') + lines[k] + "\n";
    }
}

}  // namespace

std::string OptionSpec::valueName() const {
    if (!placeholder.empty()) return placeholder;
    switch (kind) {
    case ValueKind::Date: return "YYYY-MM-DD";
    case ValueKind::WholeNumber: return "N";
    case ValueKind::Choice: {
        std::string s;
        for (const std::string& c : choices) s += (s.empty() ? "" : "|") + c;
        return s;
    }
    case ValueKind::Text: return "TEXT";
    case ValueKind::None: break;
    }
    return {};
}

std::string Options::text(std::string_view name) const {
    const auto it = values_.find(std::string(name));
    return it == values_.end() ? std::string() : it->second;
}

std::optional<common::Date> Options::date(std::string_view name) const {
    return has(name) ? parseDateArgument(text(name)) : std::nullopt;
}

std::optional<long> Options::number(std::string_view name) const {
    if (!has(name)) return std::nullopt;
    return std::stol(text(name));
}

std::optional<common::Date> parseDateArgument(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    if (!allDigits(text.substr(0, 4)) || !allDigits(text.substr(5, 2)) || !allDigits(text.substr(8, 2)))
        return std::nullopt;
    const int y = std::stoi(std::string(text.substr(0, 4)));
    const int m = std::stoi(std::string(text.substr(5, 2)));
    const int d = std::stoi(std::string(text.substr(8, 2)));
    if (!common::Date::isValidYmd(y, m, d)) return std::nullopt;
    return common::Date::fromYmd(y, m, d);
}

CommandLine parseCommandLine(const std::vector<std::string>& args, const std::vector<Command>& commands) {
    CommandLine cl;
    bool helpAsked = false;
    bool yes = false, no = false;
    std::vector<std::string> rest;

    // The options of every command may stand anywhere on the line.
    for (std::size_t i = 0; i < args.size(); ++i) {
        const Word w = splitWord(args[i]);
        if (w.text == "--db") {
            cl.global.db = takeValue(w, args, i, "FILE");
        } else if (w.text == "--yes" || w.text == "--no") {
            if (w.inlineValue) throw usage(w.text + " takes no value.");
            (w.text == "--yes" ? yes : no) = true;
        } else if (w.text == "--format") {
            const std::string f = common::toLower(takeValue(w, args, i, "csv or tsv"));
            if (f != "csv" && f != "tsv") throw usage("--format " + f + ": choose csv or tsv.");
            cl.global.format = f == "tsv" ? common::Delimited::Tsv : common::Delimited::Csv;
        } else if (w.text == "--set") {
            cl.global.settings.push_back(parseSettingOverride(takeValue(w, args, i, "KEY=VALUE")));
        } else if (w.text == "--password") {
            cl.global.password = takeValue(w, args, i, "TEXT");
        } else if (w.text == "--help" || w.text == "-h") {
            helpAsked = true;
        } else {
            rest.push_back(args[i]);
        }
    }
    if (yes && no) throw usage("--yes and --no cannot both be given.");
    cl.global.answer = yes ? Answer::Yes : no ? Answer::No : Answer::None;

    std::size_t i = 0;
    if (rest.empty()) {
        if (helpAsked) return cl;
        throw usage("No command given. " + seeHelp());
    }
    if (isOption(rest[0])) throw usage("Unknown option " + splitWord(rest[0]).text + ". " + seeHelp());

    std::string name = rest[i++];
    if (name == "help") {
        for (; i < rest.size(); ++i) {
            if (isOption(rest[i])) throw usage("help takes a command's name, not " + rest[i] + ".");
            cl.helpTopic += (cl.helpTopic.empty() ? "" : " ") + rest[i];
        }
        return cl;
    }
    if (!findCommand(commands, name)) {
        const std::vector<std::string> subs = subcommandsOf(commands, name);
        if (subs.empty()) throw usage("Unknown command '" + name + "'. " + seeHelp());
        if (i >= rest.size() || isOption(rest[i])) {
            if (helpAsked) {
                cl.helpTopic = name;
                return cl;
            }
            throw usage(name + " needs one of: " + joinOr(subs) + ".");
        }
        const std::string sub = rest[i++];
        if (!findCommand(commands, name + " " + sub))
            throw usage("Unknown command '" + name + " " + sub + "': " + name + " takes " + joinOr(subs) + ".");
        name += " " + sub;
    }
    cl.command = findCommand(commands, name);
    if (helpAsked) {
        cl.helpTopic = name;
        cl.command = nullptr;
        return cl;
    }

    for (; i < rest.size(); ++i) {
        const Word w = splitWord(rest[i]);
        if (!isOption(w.text)) throw usage(name + " does not take '" + rest[i] + "'. " + seeHelp(name));
        const auto option = std::find_if(cl.command->options.begin(), cl.command->options.end(),
                                         [&](const OptionSpec& o) { return o.name == w.text; });
        if (option == cl.command->options.end())
            throw usage("Unknown option " + w.text + " for " + name + ". " + seeHelp(name));
        if (option->kind == ValueKind::None) {
            if (w.inlineValue) throw usage(w.text + " takes no value.");
            cl.options.set(option->name, "");
        } else {
            cl.options.set(option->name, checkedValue(*option, takeValue(w, rest, i, option->valueName())));
        }
    }
    for (const OptionSpec& o : cl.command->options)
        if (o.required && !cl.options.has(o.name))
            throw usage(name + " needs " + o.name + " " + o.valueName() + ". " + seeHelp(name));
    return cl;
}

std::string helpText(const std::vector<Command>& commands, std::string_view topic) {
    std::string out;
    if (topic.empty()) {
        out += "Usage: " + std::string(kProgram) + " [options] COMMAND [ARGS]\n\n";
        out += "Runs one command of Tallymere on a schedule database, without windows.\n\nCommands:\n";
        std::vector<std::pair<std::string, std::string>> rows;
        for (const Command& c : commands) rows.emplace_back(c.name, c.summary);
        rows.emplace_back("help [COMMAND]", "list the commands, or the options of one");
        appendOptionLines(out, rows);
        out += "\nOptions for every command:\n";
        rows.clear();
        for (const GlobalSpec& g : kGlobalOptions)
            rows.emplace_back(std::string(g.name) + (*g.value ? std::string(" ") + g.value : ""), g.help);
        appendOptionLines(out, rows);
        out +=
            "\nExit status: 0 done; 1 the command refused or failed (its message is printed);\n"
            "2 bad usage or a question without --yes or --no; 3 the database could not be opened.\n"
            "Messages go to standard error; lists go to standard output.\n";
        return out;
    }
    std::vector<const Command*> matched;
    for (const Command& c : commands)
        if (c.name == topic || c.name.rfind(std::string(topic) + " ", 0) == 0) matched.push_back(&c);
    if (matched.empty()) throw usage("Unknown command '" + std::string(topic) + "'. " + seeHelp());
    for (const Command* c : matched) {
        if (!out.empty()) out += "\n";
        std::string summary = c->summary;
        if (!summary.empty()) summary[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(summary[0])));
        out += "Usage: " + usageLine(*c) + "\n\n" + wrapped(summary + ".");
        if (!c->details.empty()) {
            out += "\n";
            for (const std::string& paragraph : common::split(c->details, '\n')) out += wrapped(paragraph);
        }
        if (!c->options.empty()) {
            out += "\nOptions:\n";
            std::vector<std::pair<std::string, std::string>> rows;
            for (const OptionSpec& o : c->options)
                rows.emplace_back(o.name + (o.kind == ValueKind::None ? "" : " " + o.valueName()), o.help);
            appendOptionLines(out, rows);
        }
    }
    out += "\n" + std::string(kProgram) + " help lists the options for every command.\n";
    return out;
}

}  // namespace tallymere::cli
