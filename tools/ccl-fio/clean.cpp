// clean: removes temporary files by age, and directories that are empty, and says what could not go and why.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "tools/ccl-fio/command.h"
#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/report.h"
#include "tools/ccl-fio/tree.h"

namespace tool {

namespace {

struct clean_options {
  format_options format;
  std::vector<std::string> names;
  bool temporary = false;
  std::string older_than = "1d";
  std::string pattern = ".korvane.*.tmp";
  bool empty = false;
  bool follow = false;
  bool dry_run = false;
};

/// The seconds of an age such as "90", "30m" or "2d".
long seconds_of(std::string const& age) {
  std::size_t digits = age.find_first_not_of("0123456789");
  std::string const unit = digits == std::string::npos ? "s" : age.substr(digits);
  long const factor = unit == "s" ? 1 : unit == "m" ? 60 : unit == "h" ? 3600 : unit == "d" ? 86400 : 0;
  digits = digits == std::string::npos ? age.size() : digits;
  if (digits == 0 || digits > 10 || factor == 0) {
    throw usage_error(fmt::format("--older-than: \"{}\" is no age such as 90s, 30m, 12h or 2d", age));
  }
  return std::stol(age.substr(0, digits)) * factor;
}

class cleaner {
public:
  explicit cleaner(clean_options const& given)
      : m_given(given), m_limit(std::time(nullptr) - seconds_of(given.older_than)),
        m_report("removed", given.dry_run, given.format) {}

  void clean_tree(std::string const& path) {
    tree_entry const root = entry_at(without_separator(path), m_given.follow);
    if (root.error != 0) {
      m_report.add(outcome::failed, path, std::strerror(root.error));
    } else if (root.is_link && !m_given.follow) {
      m_report.add(outcome::failed, path, "a link, which only --follow enters");
    } else if (!root.is_directory()) {
      m_report.add(outcome::failed, path, std::strerror(ENOTDIR));
    } else {
      clean_directory(root);
    }
  }

  exit_status finish() { return m_report.write(); }

private:
  /// Whether anything stays in it.
  bool clean_directory(tree_entry const& directory) {
    if (!m_open.enter(directory)) {
      m_report.add(outcome::kept, directory.path, "a link to a directory that it is in");
      return true;
    }
    int error = 0;
    std::vector<tree_entry> const entries = entries_of(directory.path, m_given.follow, error);
    bool stays = error != 0;
    if (error != 0) {
      m_report.add(outcome::failed, directory.path, std::strerror(error));
    }
    for (tree_entry const& entry : entries) {
      stays = clean_entry(entry) || stays;
    }
    m_open.leave();
    return stays;
  }

  /// Whether it stays.
  bool clean_entry(tree_entry const& entry) {
    if (entry.is_directory()) {
      bool const holds_something = clean_directory(entry);
      return holds_something || entry.is_link || !m_given.empty || !remove(entry);
    }
    if (entry.is_link) {
      if (m_given.format.all_columns) {
        m_report.add(outcome::kept, entry.path, "a link");
      }
      return true;
    }
    bool const is_temporary =
        m_given.temporary && entry.is_file() && FIO_FILE_SYSTEM::same_file(entry.name.c_str(), m_given.pattern.c_str());
    if (is_temporary && entry.status.st_mtime >= m_limit && m_given.format.all_columns) {
      m_report.add(outcome::kept, entry.path, "not older than " + m_given.older_than);
    }
    return !is_temporary || entry.status.st_mtime >= m_limit || !remove(entry);
  }

  bool remove(tree_entry const& entry) {
    if (!m_given.dry_run && !FIO_FILE_SYSTEM::remove(entry.path.c_str())) {
      m_report.add(outcome::failed, entry.path, std::strerror(errno));
      return false;
    }
    m_report.add(outcome::changed, entry.path);
    return true;
  }

  clean_options const& m_given;
  long m_limit;
  report m_report;
  open_directories m_open;
};

exit_status run(clean_options const& given) {
  if (!given.temporary && !given.empty) {
    throw usage_error("clean: --temporary or --empty says what is to go");
  }
  cleaner work(given);
  for (std::string const& name : expand_names(given.names, given.format.zero)) {
    work.clean_tree(name);
  }
  return work.finish();
}

} // namespace

void add_clean(CLI::App& application, invocation& call) {
  auto const given = std::make_shared<clean_options>();
  CLI::App& clean = *application.add_subcommand("clean", "remove old temporary files and empty directories");
  auto* const temporary = clean.add_flag("-t,--temporary", given->temporary, "remove temporary files");
  clean.add_option("--older-than", given->older_than, "their least age: 90s, 30m, 12h or 2d; a day if it is not given")
      ->needs(temporary)
      ->type_name("AGE");
  clean.add_option("--pattern", given->pattern, "the names of temporary files; .korvane.*.tmp if it is not given")
      ->needs(temporary)
      ->type_name("PATTERN");
  clean.add_flag("-e,--empty", given->empty,
                 "remove directories in which nothing is left, the given ones themselves excepted");
  clean.add_flag("-n,--dry-run", given->dry_run, "remove nothing, and say what would go");
  clean.add_flag("--follow", given->follow, "enter the directories that links lead to");
  add_format_options(clean, given->format);
  add_names(clean, "a directory to clean with all that is below it; - for standard input");
  clean.callback([given, &clean, &call] {
    given->names = required_names_of(clean, call);
    call.status = run(*given);
  });
}

} // namespace tool
