// clean: removes temporary files by age, and directories that are empty, and prints what could not be removed and why.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <map>
#include <memory>
#include <set>
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
    throw usage_error(fmt::format("--older-than: \"{}\" is not an age such as 90s, 30m, 12h or 2d", age));
  }
  return std::stol(age.substr(0, digits)) * factor;
}

class cleaner {
public:
  explicit cleaner(clean_options const& given)
      : m_given(given), m_limit(std::time(nullptr) - seconds_of(given.older_than)),
        m_report("removed", given.dry_run, given.format) {}

  void clean_trees(std::vector<std::string> const& paths) {
    std::vector<tree_entry> roots;
    for (std::string const& path : paths) {
      roots.push_back(entry_at(without_separator(path), m_given.follow));
      m_roots.insert(roots.back().id());
    }
    std::for_each(roots.begin(), roots.end(), [this](tree_entry const& root) { clean_tree(root); });
  }

  exit_status finish() { return m_report.write(); }

private:
  void clean_tree(tree_entry const& root) {
    if (root.error != 0) {
      m_report.add(outcome::failed, root.path, std::strerror(root.error));
    } else if (root.is_link && !m_given.follow) {
      m_report.add(outcome::failed, root.path, "a symbolic link, which only --follow enters");
    } else if (!root.is_directory()) {
      m_report.add(outcome::failed, root.path, std::strerror(ENOTDIR));
    } else {
      clean_directory(root);
    }
  }

  /// Whether anything stays in it, or it stays itself. Whichever way leads to a directory again, it is cleaned once.
  bool clean_directory(tree_entry const& directory) {
    auto const [visit, is_first] = m_visits.try_emplace(directory.id(), true);
    if (!is_first) {
      if (directory.is_link) {
        m_report.add(outcome::kept, directory.path, "a symbolic link to a directory that is cleaned anyway");
      }
      return visit->second;
    }
    int error = 0;
    std::vector<tree_entry> const entries = entries_of(directory.path, m_given.follow, error);
    bool const fails = error != 0 && error != ENOENT; // somebody else may have removed it meanwhile
    bool stays = fails || m_roots.count(directory.id()) != 0;
    if (fails) {
      m_report.add(outcome::failed, directory.path, std::strerror(error));
    }
    for (tree_entry const& entry : entries) {
      stays = clean_entry(entry) || stays;
    }
    visit->second = stays;
    return stays;
  }

  /// Whether it stays.
  bool clean_entry(tree_entry const& entry) {
    if (entry.is_directory()) {
      bool const holds_something = clean_directory(entry);
      return holds_something || entry.is_link || !m_given.empty || !remove(entry);
    }
    if (m_given.temporary && FIO_FILE_SYSTEM::same_file(entry.name.c_str(), m_given.pattern.c_str())) {
      return clean_temporary(entry);
    }
    if (entry.is_link && entry_at(entry.path, true).is_directory()) {
      m_report.add(outcome::kept, entry.path, "a symbolic link, which only --follow enters");
    } else if (!entry.is_link && entry.error != 0 && entry.error != ENOENT) {
      m_report.add(outcome::failed, entry.path, std::strerror(entry.error)); // it may be a directory
    }
    return true;
  }

  bool clean_temporary(tree_entry const& file) {
    std::string const reason = file.is_link                      ? "a symbolic link"
                               : !file.is_file()                 ? "not a regular file"
                               : file.status.st_mtime >= m_limit ? "not older than " + m_given.older_than
                                                                 : "";
    if (!reason.empty()) {
      m_report.add(outcome::kept, file.path, reason);
      return true;
    }
    return !remove(file);
  }

  /// Whether it is gone. What somebody else has removed meanwhile is.
  bool remove(tree_entry const& entry) {
    int const error = m_given.dry_run                               ? change_error(entry.path)
                      : FIO_FILE_SYSTEM::remove(entry.path.c_str()) ? 0
                                                                    : errno;
    if (error == 0) {
      m_report.add(outcome::changed, entry.path);
    } else if (error != ENOENT) {
      m_report.add(outcome::failed, entry.path, std::strerror(error));
    }
    return error == 0 || error == ENOENT;
  }

  clean_options const& m_given;
  long m_limit;
  report m_report;
  std::set<file_id> m_roots;
  std::map<file_id, bool> m_visits; ///< whether anything stays in the directories so far
};

exit_status run(clean_options const& given) {
  if (!given.temporary && !given.empty) {
    throw usage_error("clean: --temporary, --empty or both are required");
  }
  cleaner work(given);
  work.clean_trees(expand_names(given.names, given.format.zero));
  return work.finish();
}

} // namespace

void add_clean(CLI::App& application, invocation& call) {
  auto const given = std::make_shared<clean_options>();
  CLI::App& clean = *application.add_subcommand("clean", "remove old temporary files and empty directories");
  auto* const temporary = clean.add_flag("-t,--temporary", given->temporary, "remove temporary files");
  clean
      .add_option("--older-than", given->older_than,
                  "remove only those older than this: 90s, 30m, 12h or 2d; the default is 1d")
      ->needs(temporary)
      ->type_name("AGE");
  clean.add_option("--pattern", given->pattern, "the names of temporary files; the default is .korvane.*.tmp")
      ->needs(temporary)
      ->type_name("PATTERN");
  clean.add_flag("-e,--empty", given->empty,
                 "remove directories that are empty or become so, except for the given ones");
  clean.add_flag("-n,--dry-run", given->dry_run, "remove nothing, and print what would be removed");
  clean.add_flag("--follow", given->follow, "enter the directories that symbolic links lead to");
  add_format_options(clean, given->format, "list every file");
  add_names(clean, "a directory to clean with all that is below it; - for standard input");
  run_with_names(clean, call, given->names, [given] { return run(*given); });
}

} // namespace tool
