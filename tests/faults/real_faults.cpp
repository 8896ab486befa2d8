// Faults that the system really has: full and read-only disks, directories that go or change under a walk, names and
// trees of every shape. Each case runs in a process of its own, as a fault may outlast it.
//
//     real_faults [--full] [--here] [--except CASE]... [CASE]...
//
// runs the cases named, or all but those excepted; with --here on the file system of the temporary directory, where a
// case would otherwise get one in memory.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iterator>
#include <string>
#include <vector>

#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/namespaces.h"
#include "tests/faults/trees.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch_tree.h"

namespace {

using faults::fault_case;
using faults::needs;

fault_case const cases[] = {
    {"copies to a full disk", needs::mounts, copies_to_a_full_disk},
    {"targets on a full disk", needs::mounts, targets_on_a_full_disk},
    {"many files to a full disk", needs::mounts, many_files_to_a_full_disk},
    {"other work on a full disk", needs::mounts, other_work_on_a_full_disk},
    {"no inode left", needs::mounts, no_inode_left},
    {"few inodes left", needs::mounts, few_inodes_left},
    {"temporary files without an inode left", needs::mounts, temporary_files_without_an_inode_left},
    {"read-only disk", needs::mounts, read_only_disk},
    {"copies to a read-only disk", needs::mounts, copies_to_a_read_only_disk},
    {"disk that becomes read-only during a walk", needs::mounts, disk_that_becomes_read_only_during_a_walk},
    {"renaming across devices", needs::mounts, renaming_across_devices},
    {"renaming across mounts of one device", needs::mounts, renaming_across_mounts_of_one_device},
    {"renaming on an overlay", needs::mounts, renaming_on_an_overlay},
    {"removing on an overlay", needs::mounts, removing_on_an_overlay},
    {"paths in a removed directory", needs::folder, paths_in_a_removed_directory},
    {"work in a removed directory", needs::folder, work_in_a_removed_directory},
    {"search in a removed directory", needs::folder, search_in_a_removed_directory},
    {"removal of a directory that became a link", needs::folder, removal_of_a_directory_that_became_a_link},
    {"removal of a directory that becomes a link", needs::folder, removal_of_a_directory_that_becomes_a_link},
    {"removal of a directory that became a link upwards", needs::folder, removal_of_a_link_upwards},
    {"walks of a directory that became a link", needs::folder, walks_of_a_directory_that_became_a_link},
    {"copy of a directory that became a link", needs::folder, copy_of_a_directory_that_became_a_link},
    {"other removals of a directory that became a link", needs::folder, other_removals_of_what_became_a_link},
    {"removal in a race with links", needs::folder, removal_in_a_race_with_links},
    {"removals in a race with each other", needs::folder, removals_in_a_race_with_each_other},
    {"walks over many names", needs::mounts, walks_over_many_names},
    {"removal of many names", needs::mounts, removal_of_many_names},
    {"directories of the longest path", needs::folder, directories_of_the_longest_path},
    {"files of the longest path", needs::folder, files_of_the_longest_path},
    {"walks at the longest path", needs::folder, walks_at_the_longest_path},
    {"removal at the longest path", needs::folder, removal_at_the_longest_path},
    {"removal of a tree beyond the longest path", needs::folder, removal_beyond_the_longest_path},
    {"iteration beyond the longest path", needs::folder, iteration_beyond_the_longest_path},
    {"copy of a tree at the longest path", needs::folder, copy_at_the_longest_path},
    {"current directory of the longest path", needs::folder, current_directory_of_the_longest_path},
    {"every byte in the name of a file", needs::folder, every_byte_in_the_name_of_a_file},
    {"every byte in a name to be made", needs::folder, every_byte_in_a_name_to_be_made},
    {"every byte in a name that is searched", needs::folder, every_byte_in_a_name_that_is_searched},
    {"every byte in the name of a directory", needs::folder, every_byte_in_the_name_of_a_directory},
    {"every byte in a search path", needs::folder, every_byte_in_a_search_path},
    {"directory stream without types", needs::folder, directory_stream_without_types},
    {"file system without types", needs::devices, file_system_without_types},
    {"pipes and sockets", needs::folder, pipes_and_sockets},
    {"copies of pipes and sockets", needs::folder, copies_of_pipes_and_sockets},
    {"device nodes", needs::devices, device_nodes},
    {"directories without permissions", needs::ordinary_user, directories_without_permissions},
    {"removal without permissions", needs::ordinary_user, removal_without_permissions},
    {"files without permissions", needs::ordinary_user, files_without_permissions},
    {"source that changes during a copy", needs::folder, source_that_changes_during_a_copy},
    {"source that shrinks in a race", needs::folder, source_that_shrinks_in_a_race},
    {"source that cannot be read", needs::folder, source_that_cannot_be_read},
    {"files of limited size", needs::folder, files_of_limited_size},
    {"no descriptor left", needs::folder, no_descriptor_left},
    {"few descriptors left", needs::folder, few_descriptors_left},
};

// What the process of a case tells the program; it fits into a pipe at one go.
struct report {
  long checks;
  long wrong;
  char skipped[240];
  char figures[240];
};

void keep_text(char (&field)[240], std::string const& text) { field[text.copy(field, sizeof field - 1)] = '\0'; }

// What the command line chooses.
struct {
  bool here = false;
  std::vector<std::string> only;
  std::vector<std::string> except;
} wanted;

bool is_wanted(fault_case const& one) {
  auto const names = [&one](std::string const& name) { return name == one.name; };
  return std::none_of(wanted.except.begin(), wanted.except.end(), names) &&
         (wanted.only.empty() || std::any_of(wanted.only.begin(), wanted.only.end(), names));
}

bool is_name_of_case(std::string const& name) {
  return std::any_of(std::begin(cases), std::end(cases), [&name](fault_case const& one) { return name == one.name; });
}

bool read_arguments(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    std::string const argument = arguments[i];
    if (argument == "--full") {
      faults::want_full();
    } else if (argument == "--here") {
      wanted.here = true;
    } else {
      bool const excepted = argument == "--except" && i + 1 < count;
      std::string const name = excepted ? arguments[++i] : argument;
      if (!is_name_of_case(name)) {
        std::fprintf(stderr, "no case is called \"%s\"\n", name.c_str());
        return false;
      }
      (excepted ? wanted.except : wanted.only).push_back(name);
    }
  }
  return true;
}

// Gives the case what it cannot do without, and a file system in memory over its folder where that is possible and the
// command line does not say otherwise.
void prepare(needs need, scratch_tree const& tree) {
  bool const privileged = ::geteuid() == 0;
  if (need == needs::devices && !privileged) {
    throw faults::skipped{"device nodes need root"};
  }
  // A user who enters a user namespace is no ordinary one there.
  if (need != needs::ordinary_user || privileged) {
    std::string const refusal = faults::enter_private_mounts();
    if (refusal.empty() && !wanted.here) {
      faults::mount_memory(tree.root(), "mode=755");
    } else if (!refusal.empty() && need == needs::mounts) {
      throw faults::skipped{refusal};
    }
  }
  if (need == needs::ordinary_user) {
    faults::become_ordinary_user(tree.root());
  }
}

void run_prepared(fault_case const& one, scratch_tree const& tree) {
  ::umask(022);
  prepare(one.need, tree);
  if (::chdir(tree.root().c_str()) != 0) {
    throw faults::skipped{"no folder"};
  }
  faults::about const topic(one.name);
  int const descriptors = faults::open_descriptors();
  int const streams = platform_double::open_streams();
  one.run(tree);
  platform_double::reset();
  CHECK_EQUAL(faults::open_descriptors(), descriptors);
  CHECK_EQUAL(platform_double::open_streams(), streams);
}

[[noreturn]] void run_in_child(fault_case const& one, scratch_tree const& tree, int answer) {
  // A case that waits for what never comes is ended by the signal.
  ::alarm(faults::full() ? 1200 : 300);
  report told = {};
  try {
    run_prepared(one, tree);
  } catch (faults::skipped const& skip) {
    keep_text(told.skipped, skip.reason);
  } catch (std::exception const& thrown) {
    faults::note_check(false, one.name, 0, std::string("thrown: ") + thrown.what());
  }
  told.checks = faults::found_so_far().checks;
  told.wrong = faults::found_so_far().wrong;
  keep_text(told.figures, faults::found_so_far().figures);
  bool const sent = ::write(answer, &told, sizeof told) == static_cast<ssize_t>(sizeof told);
  ::_exit(sent ? 0 : 1);
}

report run_case(fault_case const& one) {
  report told = {};
  int ends[2];
  scratch_tree const tree;
  if (::pipe2(ends, O_CLOEXEC) != 0) {
    return {0, 1, "", ""};
  }
  pid_t const child = ::fork();
  if (child == 0) {
    ::close(ends[0]);
    run_in_child(one, tree, ends[1]);
  }
  ::close(ends[1]);
  bool const answered = ::read(ends[0], &told, sizeof told) == static_cast<ssize_t>(sizeof told);
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  if (!answered || status != 0) {
    std::fprintf(stderr, "%s: ended early, with the status %#x\n", one.name, static_cast<unsigned>(status));
    return {0, 1, "", ""};
  }
  return told;
}

std::string grouped(long number) {
  std::string text = std::to_string(number);
  for (std::size_t end = text.size(); end > 3; end -= 3) {
    text.insert(end - 3, ",");
  }
  return text;
}

// The same reason is said once.
void add_reason(std::string& reasons, std::string const& reason) {
  if (reasons.find(reason) == std::string::npos) {
    reasons += (reasons.empty() ? "" : "; ") + reason;
  }
}

} // namespace

int main(int argument_count, char** arguments) {
  if (!read_arguments(argument_count, arguments)) {
    return 2;
  }
  long ran = 0;
  long checks = 0;
  long wrong = 0;
  long skipped = 0;
  std::string reasons;
  std::string figures;
  for (fault_case const& one : cases) {
    if (!is_wanted(one)) {
      continue;
    }
    report const told = run_case(one);
    ran += told.skipped[0] == '\0' ? 1 : 0;
    checks += told.checks;
    wrong += told.wrong;
    if (told.skipped[0] != '\0') {
      ++skipped;
      add_reason(reasons, told.skipped);
      std::fprintf(stderr, "SKIPPED: %s: %s\n", one.name, told.skipped);
    }
    figures += told.figures;
  }
  std::printf("real faults: %s cases, %s checks, %s skipped%s, %s wrong%s\n", grouped(ran).c_str(),
              grouped(checks).c_str(), grouped(skipped).c_str(), skipped != 0 ? (" (" + reasons + ')').c_str() : "",
              grouped(wrong).c_str(), figures.c_str());
  return wrong == 0 ? 0 : 1;
}
