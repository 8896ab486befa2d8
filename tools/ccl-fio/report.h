/// @file
/// What a subcommand that changes files has done, and what it could not do and why.

#ifndef CCL_TOOLS_REPORT_H
#define CCL_TOOLS_REPORT_H

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "tools/ccl-fio/command.h"
#include "tools/ccl-fio/output.h"

namespace tool {

/// What became of a file.
enum class outcome {
  changed, ///< copied, made or removed, or to be so
  kept,    ///< left as it is, for a reason that is no failure
  skipped, ///< not done, so that something is missing
  failed,  ///< could not be done
};

/// Collects the steps, and shows on a terminal how many there are when they last more than a second.
class report {
public:
  /// @param action what becomes of a file that is changed, as in "removed"
  report(std::string action, bool dry_run, format_options const& format);

  /// Takes the line of the progress away.
  ~report();

  report(report const&) = delete;
  report& operator=(report const&) = delete;

  void add(outcome what, std::string path, std::string reason = "");

  /// Writes what was done: for people what is missing and a summary, with all steps in a dry run or if they want all.
  ///
  /// @return `not_all` if anything was skipped or failed
  exit_status write();

private:
  struct step {
    outcome what;
    std::string path;
    std::string reason;
  };

  std::string word_of(outcome what) const;
  std::size_t count(outcome what) const;
  void show_progress();
  void clear_progress();
  void write_for_people() const;

  std::string m_action;
  bool m_dry_run;
  format_options m_format;
  std::vector<step> m_steps;
  bool m_on_terminal;
  bool m_shown = false;
  std::chrono::steady_clock::time_point m_next;
};

} // namespace tool

#endif
