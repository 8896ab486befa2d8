/// @file
/// Every operation on the file system with every call that it makes failing: each occurrence, once and from there on,
/// by every error that the call can have. What is to come out stands in the rules.
///
///     system_call_sweep [--full] [--matrix]
///
/// The matrix of operations and calls is made, not written: an operation is run once to see what it calls. With
/// `--matrix` it is written out. The quick form is the whole.

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/sweeps/system_call_doubles.h"
#include "tests/sweeps/system_call_errors.h"
#include "tests/sweeps/system_call_operations.h"
#include "tests/sweeps/system_call_symbols.h"
#include "tests/sweeps/system_call_tree.h"
#include "tests/sweeps/system_call_trial.h"

namespace {

using system_call::call;
using system_call::complain;
using system_call::disturbance;
using system_call::operation;
using system_call::run_result;
using system_call::swept_operation;
using system_call::total;

std::string read_to_end(int descriptor) {
  std::string text;
  char block[4096];
  for (ssize_t size; (size = ::read(descriptor, block, sizeof block)) > 0;) {
    text.append(block, static_cast<std::size_t>(size));
  }
  return text;
}

// What `work` tells in a child process. Its own figures are lost, but for the number of what is wrong.
template <typename Work>
std::string told_by_a_child(Work work) {
  int ends[2];
  if (::pipe(ends) != 0) {
    complain("child", "no pipe");
    return {};
  }
  std::fflush(nullptr);
  pid_t const child = ::fork();
  if (child == 0) {
    ::close(ends[0]);
    long const wrong = total().wrong;
    std::string const text = work();
    std::fflush(nullptr);
    bool const told = ::write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::_exit(told && total().wrong == wrong ? 0 : 1);
  }
  ::close(ends[1]);
  std::string const text = read_to_end(ends[0]);
  ::close(ends[0]);
  int status = -1;
  if (child <= 0 || ::waitpid(child, &status, 0) != child || status != 0) {
    complain("child", "did not end well");
  }
  return text;
}

// The calls of an operation when it is run for the first time in a process.
run_result first_run(operation const& row, system_call::tree const& files) {
  std::istringstream told(told_by_a_child([&] {
    std::string lines;
    run_result const first = system_call::run(row, nullptr, files);
    for (call const& made : first.seen.calls) {
      lines += made.function + '\t' + made.subject + '\t' + std::to_string(made.occurrence) + ' ' +
               std::to_string(made.occurrence_on_subject) + '\n';
    }
    return lines;
  }));
  run_result shown;
  shown.result = row.result;
  shown.left = files.drawn();
  for (call made; std::getline(told, made.function, '\t') && std::getline(told, made.subject, '\t') &&
                  told >> made.occurrence >> made.occurrence_on_subject;) {
    shown.seen.calls.push_back(made);
    told.ignore();
  }
  return shown;
}

// Each function that the operation calls, how often, and by what it is disturbed.
void print_row(operation const& row, std::vector<call> const& calls) {
  std::map<std::string, long> occurrences;
  for (call const& made : calls) {
    ++occurrences[made.function];
  }
  if (calls.empty()) {
    std::printf("%s\t%s\t-\t0\t-\n", row.name, row.signature);
  }
  for (auto const& [function, count] : occurrences) {
    std::string errors;
    for (disturbance const& what : system_call::disturbances_of(function)) {
      errors += (errors.empty() ? "" : ", ") + what.name;
    }
    std::printf("%s\t%s\t%s\t%ld\t%s\n", row.name, row.signature, function.c_str(), count, errors.c_str());
  }
}

// Whether the row is about the first temporary name of a process: each run of it takes a process of its own.
bool is_of_first_run(operation const& row) { return std::strncmp(row.name, "first ", 6) == 0; }

void disturb_each_way(swept_operation& swept, call const& made, bool in_children) {
  for (disturbance const& what : system_call::disturbances_of(made.function)) {
    for (bool const always : {false, true}) {
      if (in_children) {
        told_by_a_child([&] {
          swept.disturb(made, always, what);
          return std::string();
        });
        ++total().failures;
      } else {
        swept.disturb(made, always, what);
      }
    }
  }
}

void sweep(operation const& row, system_call::tree& files, bool matrix) {
  bool const in_children = is_of_first_run(row);
  swept_operation swept(row, files, in_children ? first_run(row, files) : system_call::run(row, nullptr, files));
  ++total().operations;
  for (call const& made : swept.calls()) {
    ++total().calls;
    if (system_call::disturbances_of(made.function).empty()) {
      complain(row.name, "calls " + made.function + ", whose errors are in no table");
    }
    disturb_each_way(swept, made, in_children);
    if (!in_children) {
      swept.check_is_right_again(std::string(row.name) + " behind " + made.function + '(' + made.subject + ')');
    }
  }
  if (in_children) {
    system_call::run(row, nullptr, files); // for all rows behind this one the first time is over
  }
  if (matrix) {
    print_row(row, swept.calls());
  }
}

void sweep_all(bool matrix) {
  // In memory where there is such a place: a disk would take most of the time.
  if (::access("/dev/shm", W_OK | X_OK) == 0) {
    ::setenv("TMPDIR", "/dev/shm", 0);
  }
  system_call::take_places();
  ::unsetenv("fio_old_simplify");
  system_call::tree files;
  std::vector<std::string> signatures;
  for (operation const& row : system_call::all_operations()) {
    signatures.emplace_back(row.signature);
    sweep(row, files, matrix);
  }
  for (std::string const& complaint : system_call::complaints_about_exports(signatures)) {
    complain("exports", complaint);
  }
  for (std::string const& complaint : system_call::complaints_about_imports()) {
    complain("imports", complaint);
  }
}

} // namespace

std::vector<operation> system_call::all_operations() {
  std::vector<operation> rows;
  for (auto const& family : {copying_operations(), primitive_operations(), removing_operations(),
                             searching_operations(), path_operations()}) {
    rows.insert(rows.end(), family.begin(), family.end());
  }
  return rows;
}

int main(int count, char** arguments) {
  bool matrix = false;
  for (int i = 1; i < count; ++i) {
    matrix = matrix || std::strcmp(arguments[i], "--matrix") == 0;
  }
  sweep_all(matrix);
  std::printf("system-call sweep: %ld operations, %ld calls, %ld injected failures, %ld wrong\n", total().operations,
              total().calls, total().failures, total().wrong);
  return total().wrong == 0 ? 0 : 1;
}
