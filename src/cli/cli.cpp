#include "cli/cli.h"

#include "cli/stop.h"
#include "common/text.h"
#include "maintenance/enterpassword.h"
#include "shell/main_form.h"
#include "store/access.h"
#include "store/options.h"
#include "store/schema_upgrade.h"

#include <filesystem>

namespace tallymere::cli {

namespace fs = std::filesystem;
using common::Session;

namespace {

constexpr const char* kPrefix = "tallymere-cli: ";

// The data folder the program would open: the one named in the user's settings, or the default one
// on a machine where the program has not yet chosen one. Nothing is made here.
std::string userDataFolder(Environment& env) {
    if (std::string stored = common::trim(env.userSettings.get("datalocation")); !stored.empty()) return stored;
    return shell::DefaultDataFolder(env.platform);
}

// The database's name in the folder, compared without regard to case as the program's start does
// (the exact name first); empty when there is none.
std::string databaseInFolder(const fs::path& folder) {
    std::error_code ec;
    std::string found;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name == Session::kDatabaseFileName) return name;
        if (found.empty() && common::equalsNoCase(name, Session::kDatabaseFileName) && it->is_regular_file(ec))
            found = name;
    }
    return found;
}

void openDatabase(Session& s, const std::optional<std::string>& db, Environment& env) {
    std::error_code ec;
    fs::path folder;
    if (db) {
        const fs::path given = fs::absolute(fs::path(*db), ec);
        if (fs::is_directory(given, ec)) {
            folder = given;
        } else if (!common::equalsNoCase(given.filename().string(), Session::kDatabaseFileName)) {
            // Backup, restore and the start's copy all go by the file's name, so the session keeps it.
            if (fs::exists(given, ec))
                throw Stop(kCannotOpen, "--db " + *db + ": the database file must be named " +
                                            Session::kDatabaseFileName + " (or give its folder).");
            throw Stop(kCannotOpen, "The Tallymere database " + given.string() + " was not found.");
        } else {
            folder = given.parent_path();
        }
    } else {
        folder = userDataFolder(env);
        if (folder.empty())
            throw Stop(kCannotOpen,
                       "No data folder is known on this machine: start Tallymere once, or give --db FILE.");
    }
    s.setDataFolder(folder.string());
    const std::string name = databaseInFolder(folder);
    if (name.empty()) throw Stop(kCannotOpen, "The Tallymere database " + s.DatabasePath() + " was not found.");
    s.setDatabaseFileName(name);
    if (!store::ConnectDB(s) || s.ExitNow)
        throw Stop(kCannotOpen, "Unable to open the Tallymere database " + s.DatabasePath() + ".");
}

// The password prompt of the start, answered from the command line.
void unlock(Session& s, const std::optional<std::string>& password) {
    const store::Recordset rs =
        store::GetRecs(s, "select optionvalue from options where optionname=?", {"passwordowner"});
    if (!rs.isOpen()) throw Stop(kCannotOpen, "");
    if (rs.eof() || common::trim(rs["optionvalue"].text()).empty()) return;
    if (!password)
        throw usage("The database is protected by a password: give it with --password or in TALLYMERE_PASSWORD.");
    maintenance::enterpassword prompt(s);
    prompt.password = *password;
    if (!prompt.OK()) throw Stop(kCannotOpen, "");
}

// The file's settings, read as the start reads them. The start also counts itself and fills in
// missing rows while reading; a command line run is not a start of the program, so those writes are
// undone and the file keeps only what the command itself changes.
void loadSettings(Session& s) {
    bool reportOptions = false;
    {
        store::Transaction readOnly(s);
        store::getoptions(s);
        reportOptions = store::getreportoptions(s);
    }
    if (!reportOptions) throw Stop(kCannotOpen, "");
    // A file of an older release gets the columns the commands read, as the program's start gives them.
    store::UpgradeSchema(s);
}

}  // namespace

int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, Environment& env) {
    return run(args, out, err, env, allCommands());
}

int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, Environment& env,
        const std::vector<Command>& commands) {
    bool opened = false;
    try {
        CommandLine cl = parseCommandLine(args, commands);
        if (!cl.command) {
            out << helpText(commands, cl.helpTopic);
            return kDone;
        }
        ConsoleUi ui(err, cl.global.answer);
        Session s(ui, env.userSettings, env.clock);
        s.setPlatform(env.platform);
        s.programFolder = env.programFolder;
        s.locale = env.locale;

        openDatabase(s, cl.global.db, env);
        unlock(s, cl.global.password ? cl.global.password : env.password);
        loadSettings(s);
        applySettingOverrides(s.settings, cl.global.settings);
        opened = true;

        Run r(s, ui, out, cl.global.format, cl.options);
        const int status = cl.command->run(r);
        out.flush();
        store::CloseDB(s);
        return status;
    } catch (const Stop& e) {
        if (!e.message().empty()) err << kPrefix << e.message() << '\n';
        return e.status();
    } catch (const common::ProgramEnd&) {
        // The access layer has said why it gave up on the file.
        return opened ? kRefused : kCannotOpen;
    } catch (const std::exception& e) {
        err << kPrefix << "failed: " << e.what() << '\n';
        return opened ? kRefused : kCannotOpen;
    }
}

}  // namespace tallymere::cli
