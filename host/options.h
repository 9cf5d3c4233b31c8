// The command line, taken apart. What the options mean is said where they are used.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wbhost {

enum class Command {
  kImport,
  kList,
  kInfo,
  kDrivers,
  kRender,
  kDiff,
  kCompareReadings,
  kLint,
  kDialects
};

// Where to connect to. At most one of connect, connect_env, connect_stdin, dsn, sqlite, sample and
// replay is given.
struct ConnectionOptions {
  std::optional<std::string> connect;
  bool connect_in_arguments = false;  // where the process list shows it
  std::optional<std::string> connect_env;
  bool connect_stdin = false;
  std::optional<std::string> dsn;
  std::optional<std::string> user;
  std::optional<std::string> sqlite;
  std::optional<std::string> sample;
  std::optional<std::string> replay;  // a recording in place of a server
  std::optional<std::string> password_env;
  bool password_stdin = false;
  int login_timeout = 15;                    // seconds; 0: none
  int timeout = 300;                         // of one call
  std::optional<std::uint64_t> result_rows;  // of one result at most; 0: any number
  std::optional<std::uint64_t> result_bytes;
};

struct ChoiceOptions {
  std::optional<std::string> request;
  std::vector<std::string> items;
  std::optional<std::string> owner;
  std::optional<std::string> catalog;
  std::optional<bool> system;
  std::optional<bool> keys;
  std::optional<bool> foreign_keys;
  std::vector<std::string> select_owner;
  std::vector<std::string> select_table;
  std::vector<std::string> select_view;
  std::vector<std::string> select_synonym;
  std::vector<std::string> exclude;
  std::optional<std::string> table;
  std::optional<int> dbms_type;
  bool generic = false;
  bool unsafe_names = false;
  std::optional<std::string> reading;  // exact, compatible or auto
  std::optional<std::string> dialect;  // a dialect file

  bool operator==(const ChoiceOptions&) const = default;
};

struct OutputOptions {
  std::optional<std::string> format;
  std::string file;  // empty: standard output
  std::optional<std::string> around;
  int distance = 1;
  std::optional<std::string> detail;  // full, keys or names
  std::string dialect_out;            // empty: that of the server that was read
  bool whole = false;
  bool all_functions = false;
  bool compact = false;
  std::optional<std::string> title;  // of the database; empty: what the workbook file says
  bool stamp = false;                // of an import: the time is part of the workbook
  bool system = false;               // of render; an import goes by its choices
};

struct ReportOptions {
  std::optional<std::string> progress;  // one of kProgressModes; empty: auto
  std::optional<std::string> trace;
  std::optional<std::string> errors;
  std::optional<std::string> log;
  std::optional<std::string> record;
  std::optional<std::string> record_names;  // "plain" or "hashed"; empty: plain
  std::optional<std::string> messages;      // folder of the message library
  bool quiet = false;
};

// Of `diff`, beside the choices of its import.
struct DiffOptions {
  std::string old_file;
  std::optional<std::string> new_file;  // empty: the schema comes from the connection
  std::vector<std::string> renames;     // OLD=NEW
  std::vector<std::string> ignore;
  std::optional<std::string> fail_on;  // breaking, careful or any; empty: any
  bool no_guess = false;
  bool server_names = false;
  bool spellings = false;
};

// Of `lint`, beside the choices of its import. Rules by id or name.
struct LintOptions {
  std::optional<std::string> file;     // empty: the schema comes from the connection
  std::vector<std::string> only;       // empty: those that are on without being asked for
  std::vector<std::string> more;       // these too
  std::vector<std::string> without;    // not these
  std::optional<std::string> fail_on;  // error, warning or any; empty: any
};

struct Options {
  Command command = Command::kImport;
  ConnectionOptions connection;
  ChoiceOptions choices;
  OutputOptions output;
  ReportOptions report;
  std::string list_kind;
  std::string render_file;
  DiffOptions diff;
  LintOptions lint;
  std::string dialect_action = "list";  // list, show or check
  std::string dialect_operand;          // a name to show, a file to check
  std::string config_file;              // that was read; empty: none
};

// The options; or, when there is nothing left to do (help, version), an exit code of 0 after the
// answer went to standard output. Throws a Failure for wrong usage.
struct ParsedCommandLine {
  Options options;
  std::optional<int> exit_code;
};
[[nodiscard]] ParsedCommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace wbhost
