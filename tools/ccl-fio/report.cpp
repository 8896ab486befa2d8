#include "tools/ccl-fio/report.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "tools/ccl-fio/json.h"

namespace tool {

report::report(std::string action, bool dry_run, format_options const& format)
    : m_action(std::move(action)), m_dry_run(dry_run), m_format(format), m_on_terminal(::isatty(STDERR_FILENO) == 1),
      m_next(std::chrono::steady_clock::now() + std::chrono::seconds(1)) {}

report::~report() { clear_progress(); }

void report::add(outcome what, std::string path, std::string reason) {
  m_steps.push_back({what, std::move(path), std::move(reason)});
  if (m_on_terminal) {
    show_progress();
  }
}

void report::show_progress() {
  auto const now = std::chrono::steady_clock::now();
  if (now < m_next) {
    return;
  }
  m_next = now + std::chrono::milliseconds(100);
  m_shown = true;
  std::fputs(fmt::format("\r\033[K{} {}", count(outcome::changed), word_of(outcome::changed)).c_str(), stderr);
}

void report::clear_progress() {
  if (m_shown) {
    std::fputs("\r\033[K", stderr);
    m_shown = false;
  }
}

std::string report::word_of(outcome what) const {
  switch (what) {
  case outcome::changed:
    return m_dry_run ? "would be " + m_action : m_action;
  case outcome::kept:
    return "kept";
  case outcome::skipped:
    return "skipped";
  case outcome::failed:
    break;
  }
  return "failed";
}

std::size_t report::count(outcome what) const {
  return static_cast<std::size_t>(
      std::count_if(m_steps.begin(), m_steps.end(), [what](step const& one) { return one.what == what; }));
}

void report::write_for_people() const {
  constexpr style looks[] = {style::good, style::faint, style::bad, style::bad};
  table contents = {{{"what"}, {"path"}, {"why", true}}, 3, {}};
  for (step const& one : m_steps) {
    bool const is_missing = one.what == outcome::skipped || one.what == outcome::failed;
    if (is_missing || m_dry_run || m_format.all_columns) {
      contents.rows.push_back(
          {{contents.keep(word_of(one.what)), looks[static_cast<int>(one.what)]}, {one.path}, {one.reason}});
    }
  }
  write_table(contents, true);
  std::string summary = fmt::format("{} {}", count(outcome::changed), word_of(outcome::changed));
  for (outcome const what : {outcome::kept, outcome::skipped, outcome::failed}) {
    if (std::size_t const number = count(what)) {
      summary += fmt::format(", {} {}", number, word_of(what));
    }
  }
  tool::write(summary + '\n');
}

exit_status report::write() {
  clear_progress();
  if (m_format.json) {
    json list = json::array();
    for (step const& one : m_steps) {
      list.push_back(
          {{"what", word_of(one.what)}, {"path", name_to_json(one.path)}, {"reason", name_or_null(one.reason)}});
    }
    write_json({{"dry_run", m_dry_run}, {"steps", list}});
  } else if (m_format.zero) {
    for (step const& one : m_steps) {
      if (one.what == outcome::changed) {
        write_record(one.path);
      } else if (one.what != outcome::kept) {
        complain("", fmt::format("{}: {}", one.path, one.reason));
      }
    }
  } else {
    write_for_people();
  }
  return count(outcome::skipped) + count(outcome::failed) == 0 ? done : not_all;
}

} // namespace tool
