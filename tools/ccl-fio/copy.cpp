// copy: copies files and trees with their times, and prints what was skipped and why.

#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tools/ccl-fio/command.h"
#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/report.h"
#include "tools/ccl-fio/tree.h"

namespace tool {

namespace {

struct copy_options {
  format_options format;
  std::vector<std::string> names;
  std::string target;
  bool overwrite = false;
  bool no_times = false;
  bool follow = false;
  bool dry_run = false;
};

/// Whether a path, which need not exist, lies in a directory, whatever links lead there.
bool lies_in(std::string const& directory, std::string const& path) {
  std::error_code error;
  std::filesystem::path const outer = std::filesystem::canonical(directory, error);
  std::filesystem::path const inner = error ? outer : std::filesystem::weakly_canonical(path, error);
  return !error && std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first == outer.end();
}

class copier {
public:
  explicit copier(copy_options const& given) : m_given(given), m_report("copied", given.dry_run, given.format) {}

  /// What stands in a directory is copied into the target, and of anything else itself.
  void copy_source(std::string const& path) {
    tree_entry const source = entry_at(without_separator(path), m_given.follow);
    std::string const target = without_separator(m_given.target);
    if (source.error == 0 && source.is_directory()) {
      if (lies_in(source.path, target)) {
        throw usage_error(fmt::format("copy: the target \"{}\" lies in \"{}\"", target, path));
      }
      copy_contents(source, target);
    } else if (source.error != 0 || has_directory(target)) {
      copy_entry(source, target + '/' + source.name);
    }
  }

  exit_status finish() { return m_report.write(); }

private:
  /// What stands at a target, or would stand there behind the steps of a dry run.
  tree_entry target_at(std::string const& path, bool follow) const {
    tree_entry entry = entry_at(path, follow);
    auto const planned = m_planned.find(path);
    if (entry.error == ENOENT && planned != m_planned.end()) {
      entry.error = 0;
      entry.status.st_mode = planned->second;
    }
    return entry;
  }

  /// Whether there is a directory, made now or not.
  bool has_directory(std::string const& path) {
    tree_entry const there = target_at(path, m_given.follow || path == without_separator(m_given.target));
    std::string const fault = there.is_directory()    ? ""
                              : there.error == ENOENT ? fault_of_making(path)
                              : there.is_link         ? "a symbolic link, which only --follow enters"
                                                      : std::strerror(ENOTDIR);
    if (!fault.empty()) {
      m_report.add(outcome::failed, path, fault);
    }
    return fault.empty();
  }

  /// Makes a directory. Why that fails, or an empty string.
  std::string fault_of_making(std::string const& path) {
    if (m_given.dry_run) {
      int const error = change_error(path);
      if (error == 0) {
        m_planned.emplace(path, S_IFDIR);
      }
      return error == 0 ? "" : std::strerror(error);
    }
    if (path != without_separator(m_given.target)) {
      return FIO_FILE_SYSTEM::mkdir(path.c_str()) == 0 ? "" : std::strerror(errno);
    }
    if (FIO_FILE_SYSTEM::create(path)) {
      return "";
    }
    // `create` leaves no cause behind; the standard library does, where it fails as well.
    std::error_code why;
    std::filesystem::create_directories(path, why);
    return why ? why.message() : "cannot be made";
  }

  void copy_contents(tree_entry const& directory, std::string const& target) {
    if (directory.is_link && lies_in(directory.path, m_given.target)) {
      m_report.add(outcome::skipped, directory.path, "a symbolic link to a directory that the target is in");
      return;
    }
    if (!m_open.enter(directory)) {
      m_report.add(outcome::skipped, directory.path, "a symbolic link to a directory that it is in");
      return;
    }
    int error = 0;
    std::vector<tree_entry> const entries = entries_of(directory.path, m_given.follow, error);
    if (error != 0) {
      m_report.add(outcome::failed, directory.path, std::strerror(error));
    } else if (has_directory(target)) {
      for (tree_entry const& entry : entries) {
        copy_entry(entry, target + '/' + entry.name);
      }
    }
    m_open.leave();
  }

  void copy_entry(tree_entry const& entry, std::string const& target) {
    if (entry.error != 0) {
      m_report.add(outcome::failed, entry.path, std::strerror(entry.error));
    } else if (entry.is_directory()) {
      copy_contents(entry, target);
    } else if (entry.is_link && !m_given.follow) {
      m_report.add(outcome::skipped, entry.path, "a symbolic link, which only --follow reads");
    } else if (!entry.is_file()) {
      m_report.add(outcome::skipped, entry.path, "neither a regular file nor a directory");
    } else {
      copy_file(entry, target);
    }
  }

  void copy_file(tree_entry const& file, std::string const& target) {
    std::string const& source = file.path;
    if (!FIO_PATH(source).is_legal_length() || !FIO_PATH(target).is_legal_length()) {
      m_report.add(outcome::failed, source, "too long for a path");
      return;
    }
    // The library takes a name with one of these for a pattern.
    if ((source + target).find_first_of("*?") != std::string::npos) {
      m_report.add(outcome::skipped, source, "a name with a wildcard");
      return;
    }
    tree_entry const there = target_at(target, false);
    if (there.error != ENOENT && (there.is_directory() || !m_given.overwrite)) {
      m_report.add(there.is_directory() ? outcome::failed : outcome::kept, target,
                   there.is_directory() ? std::strerror(EISDIR) : "exists already");
      return;
    }
    // The target would be removed first.
    if (there.error == 0 && there.id() == file.id()) {
      m_report.add(outcome::failed, source, "the source and the target are the same file");
      return;
    }
    int const error = m_given.dry_run ? plan_file(source, target) : copy_data(source, target, there.error == ENOENT);
    if (error != 0) {
      m_report.add(outcome::failed, source, error > 0 ? std::strerror(error) : "cannot be copied");
    } else {
      m_report.add(outcome::changed, target);
    }
  }

  /// Why a file cannot be copied, or 0.
  int plan_file(std::string const& source, std::string const& target) {
    m_planned.emplace(target, S_IFREG);
    return ::access(source.c_str(), R_OK) != 0 ? errno : change_error(target);
  }

  /// The cause of a failure, -1 for one that is not known, or 0.
  int copy_data(std::string const& source, std::string const& target, bool is_new) {
    errno = 0;
    if (FIO_FILE_SYSTEM::copy(source, target, m_given.overwrite, !m_given.no_times)) {
      return 0;
    }
    int const error = errno;
    // What is left of a file that was not there would be kept by the next copy.
    if (is_new) {
      FIO_FILE_SYSTEM::remove(target.c_str());
    }
    return error != 0 ? error : -1;
  }

  copy_options const& m_given;
  report m_report;
  open_directories m_open;
  std::map<std::string, mode_t> m_planned; ///< what a dry run would have made
};

/// The files that a name stands for: itself, or those that match it if there is no such file.
std::vector<std::string> matches_of(std::string const& name) {
  if (name.find_first_of("*?") == std::string::npos || entry_at(without_separator(name), false).error == 0) {
    return {name};
  }
  std::vector<std::string> matches;
  std::string const directory = FIO_PATH(name).directory();
  _finddata_t entry;
  long const walk = FIO_FILE_SYSTEM::findfirst(name.c_str(), &entry);
  if (walk != -1) {
    do {
      if (!FIO_PATH::is_dot_directory(entry.name)) {
        matches.push_back(directory + entry.name);
      }
    } while (FIO_FILE_SYSTEM::findnext(walk, &entry) == 0);
  }
  FIO_FILE_SYSTEM::findclose(walk);
  if (matches.empty()) {
    throw usage_error(fmt::format("copy: nothing matches \"{}\"", name));
  }
  std::sort(matches.begin(), matches.end());
  return matches;
}

exit_status run(copy_options const& given) {
  if (given.target.empty()) {
    throw usage_error("copy: --to: the name of the directory is empty");
  }
  std::vector<std::string> sources;
  for (std::string const& name : expand_names(given.names, given.format.zero)) {
    std::vector<std::string> const matches = matches_of(name);
    sources.insert(sources.end(), matches.begin(), matches.end());
  }
  copier work(given);
  for (std::string const& source : sources) {
    work.copy_source(source);
  }
  return work.finish();
}

} // namespace

void add_copy(CLI::App& application, invocation& call) {
  auto const given = std::make_shared<copy_options>();
  CLI::App& copy = *application.add_subcommand("copy", "copy files and trees with their times");
  copy.add_option("-t,--to", given->target, "the directory to copy into, which is made if it is missing")
      ->required()
      ->type_name("DIR");
  copy.add_flag("--overwrite", given->overwrite, "replace existing files");
  copy.add_flag("--no-times", given->no_times, "do not preserve the times of the files");
  copy.add_flag("-n,--dry-run", given->dry_run, "copy nothing, and print what would be copied");
  copy.add_flag("--follow", given->follow, "follow symbolic links to files and directories");
  add_format_options(copy, given->format, "list every file");
  add_names(copy, "a file, a directory whose contents are copied, or a pattern of files; - for standard input");
  run_with_names(copy, call, given->names, [given] { return run(*given); });
}

} // namespace tool
