#include "tests/sweeps/system_call_trial.h"

#include <fcntl.h>

#include <boost/filesystem/exception.hpp>
#include <cstdio>
#include <cstring>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "tests/support/platform_double.h"
#include "tests/sweeps/system_call_rules.h"

namespace system_call {
namespace {

int count_descriptors() {
  int count = 0;
  for (int descriptor = 0; descriptor != 64; ++descriptor) {
    count += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
  }
  return count;
}

std::string result_of(operation const& row) {
  try {
    return row.run();
  } catch (boost::filesystem::filesystem_error const& error) {
    return "throws filesystem_error " + std::to_string(error.code().value());
  } catch (std::logic_error const& error) {
    return std::string("throws logic_error ") + error.what();
  } catch (std::exception const& error) {
    return std::string("throws ") + error.what();
  } catch (platform_double::internal_error const& error) {
    return "internal error " + error.condition;
  }
}

// The path record of a text that cannot be told is the one thing that an operation may keep.
bool may_keep(std::string const& row, std::string const& held) { return row == "unc path" && held == "record file"; }

void check_nothing_is_held(std::string const& about, operation const& row, run_result const& shown) {
  for (std::string const& held : shown.held) {
    if (!may_keep(row.name, held)) {
      complain(about, "left open: " + held);
    }
  }
  if (shown.descriptors != 0 || shown.open_streams != 0) {
    complain(about, "left open: " + std::to_string(shown.descriptors) + " descriptors, " +
                        std::to_string(shown.open_streams) + " directory streams");
  }
}

void check_errno(std::string const& about, observation const& seen) {
  if (seen.errno_at_end != seen.errno_of_last_call) {
    complain(about, "errno is " + std::to_string(seen.errno_at_end) + " and was " +
                        std::to_string(seen.errno_of_last_call) + " behind the last call");
  }
}

// The text of a rule with the number of the error.
std::string filled(std::string text, int error) {
  for (std::size_t at = 0; (at = text.find("%d", at)) != std::string::npos;) {
    text.replace(at, 2, std::to_string(error));
  }
  return text;
}

std::set<std::string> words(char const* text) {
  std::istringstream stream(text);
  std::set<std::string> found;
  for (std::string word; stream >> word;) {
    found.insert(word);
  }
  return found;
}

} // namespace

figures& total() {
  static figures figures;
  return figures;
}

void complain(std::string const& about, std::string const& what) {
  // One defect shows in many ways: some of them are told for each operation.
  constexpr int enough = 20;
  static std::map<std::string, int> told;
  ++total().wrong;
  if (++told[about.substr(0, about.find(':'))] <= enough) {
    std::fprintf(stderr, "%s: %s\n", about.c_str(), what.c_str());
  }
}

run_result run(operation const& row, plan const* wanted, tree const& files) {
  platform_double::debug_messages().clear();
  int const descriptors = count_descriptors();
  int const open_streams = platform_double::open_streams();
  run_result shown;
  set_plan(wanted);
  shown.result = result_of(row);
  set_plan(nullptr);
  shown.seen = take_observation();
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    shown.result += " | " + message.text;
  }
  shown.held = take_held();
  shown.descriptors = count_descriptors() - descriptors;
  shown.open_streams = platform_double::open_streams() - open_streams;
  shown.left = files.look();
  return shown;
}

swept_operation::swept_operation(operation const& row, tree& files, run_result undisturbed)
    : m_row(row), m_files(files), m_undisturbed(std::move(undisturbed)) {
  m_files.restore(m_undisturbed.left);
  if (m_undisturbed.result != row.result) {
    complain(row.name, "undisturbed: " + m_undisturbed.result + " instead of " + row.result);
  }
  check_nothing_is_held(row.name, m_row, m_undisturbed);
  check_errno(row.name, m_undisturbed.seen);
}

void swept_operation::disturb(call const& disturbed, bool always, disturbance const& what) {
  std::string const about = std::string(m_row.name) + ": " + disturbed.function + '(' + disturbed.subject + ") #" +
                            std::to_string(disturbed.occurrence_on_subject) + (always ? " from there on " : " once ") +
                            what.name;
  plan const wanted = {disturbed.function, disturbed.occurrence, always, what};
  run_result const shown = run(m_row, &wanted, m_files);
  m_files.restore(shown.left);
  ++total().failures;
  if (shown.seen.disturbed == 0) {
    complain(about, "was never disturbed");
  }
  check_nothing_is_held(about, m_row, shown);
  check_errno(about, shown.seen);
  check_by_rule(about, disturbed, always, what, shown);
}

void swept_operation::check_is_right_again(std::string const& about) {
  run_result const shown = run(m_row, nullptr, m_files);
  m_files.restore(shown.left);
  if (shown.result != m_row.result || !(shown.left == m_undisturbed.left)) {
    complain(about, "not right again: " + shown.result);
  }
}

void swept_operation::check_by_rule(std::string const& about, call const& disturbed, bool always,
                                    disturbance const& what, run_result const& shown) const {
  rule const* const found = rule_for(m_row.name, disturbed, always, what);
  if (found == nullptr) {
    complain(about, "no rule; the result is " + shown.result);
    return;
  }
  auto const is = [found](char const* sign) { return std::strcmp(found->result, sign) == 0; };
  std::string const expected = is("=") ? m_row.result : filled(found->result, what.error);
  if (!is("?") && shown.result != expected) {
    complain(about, shown.result + " instead of " + expected);
  }
  std::string const difference = difference_of_files(found->left, shown);
  if (!difference.empty()) {
    complain(about, "the files: " + difference);
  }
}

std::string swept_operation::difference_of_files(effect wanted, run_result const& shown) const {
  snapshot const& drawn = m_files.drawn();
  std::string const found = difference(wanted, drawn, m_undisturbed.left, shown.left, words(m_row.at_stake));
  if (!found.empty() || shown.result == m_row.result) {
    return found;
  }
  for (std::string const& name : words(m_row.kept)) {
    if (shown.left.count(name) == 0 || !(shown.left.at(name) == drawn.at(name))) {
      return name + " was to be kept";
    }
  }
  return {};
}

} // namespace system_call
