// Has many processes and threads do the same to the same files at the same moment, and judges each round by what the
// library says of it: nothing fails that must not, nothing is made twice, and nothing is left over.

#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <new>
#include <set>
#include <thread>

#include "ccl/fio/fio_file_sys.h"
#include "tests/stress/contention.h"
#include "tests/stress/meeting.h"
#include "tests/stress/surroundings.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch_tree.h"

namespace {

constexpr int most_participants = 16;

/// Where the participants are.
enum site { here, one_host_one_thread_id, hosts_with_one_thread_id };

/// Who takes part.
struct form {
  char const* name;
  int processes;
  int threads; ///< in each process
  site where;
  bool inherits_identifier; ///< whether the identifier of temporary names was begun before the processes were made

  int participants() const { return processes * threads; }
  bool needs_namespaces() const { return where != here; }
};

form const forms[] = {
    {"one alone", 1, 1, here, false},
    {"16 processes", 16, 1, here, false},
    {"8 threads", 1, 8, here, false},
    {"4 processes of 2 threads", 4, 2, here, false},
    {"16 hosts, equal thread ids", 16, 1, hosts_with_one_thread_id, false},
    {"one host, equal thread ids", 16, 1, one_host_one_thread_id, false},
    // The last one: what it begins is inherited by all that follow.
    {"16 processes of one origin", 16, 1, here, true},
};

/// What the processes share.
struct shared_state {
  explicit shared_state(int participants) : start(participants + 1), end(participants + 1) {}

  stress::meeting start; ///< of the participants and of the one who judges
  stress::meeting end;
  stress::outcome outcomes[most_participants] = {};
  long thread_ids[most_participants] = {};
  char hosts[most_participants][65] = {};
};

/// The plan of one form, which participants and judge follow in step.
struct plan {
  form const& who;
  std::string place;
  int rounds;
  std::vector<stress::contention> contentions = stress::all_contentions();
};

void take_part(plan const& what, shared_state& shared, int participant) {
  shared.thread_ids[participant] = ::syscall(SYS_gettid);
  ::gethostname(shared.hosts[participant], sizeof shared.hosts[participant] - 1);
  stress::outcome& result = shared.outcomes[participant];
  for (int round = 0; round != what.rounds; ++round) {
    for (stress::contention const& one : what.contentions) {
      if (!shared.start.wait()) {
        return;
      }
      result = {};
      try {
        one.act(what.place, participant, result);
      } catch (std::exception const& error) {
        std::fprintf(stderr, "%s: %s: exception: %s\n", what.who.name, one.name, error.what());
        result.answer = -1;
      }
      shared.end.wait();
    }
  }
}

// Only an operation that hands on one error at most may write others to the debug log.
bool log_is_right() {
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    if (message.text.rfind("remove_empty_subdirectories failed", 0) != 0) {
      std::fprintf(stderr, "debug message: %s\n", message.text.c_str());
      return false;
    }
  }
  return true;
}

// One process of the form, in all its threads. Answers its exit status.
int run_process(plan const& what, shared_state& shared, int process) {
  int const descriptors = stress::open_descriptors();
  std::string const directory = FIO_FILE_SYSTEM::get_current_directory();
  int const first = process * what.who.threads;
  std::vector<std::thread> others;
  for (int participant = first + 1; participant != first + what.who.threads; ++participant) {
    others.emplace_back(take_part, std::cref(what), std::ref(shared), participant);
  }
  take_part(what, shared, first);
  for (std::thread& other : others) {
    other.join();
  }
  if (stress::open_descriptors() != descriptors || platform_double::open_streams() != 0) {
    std::fprintf(stderr, "%s: a descriptor was left open\n", what.who.name);
    return 1;
  }
  return log_is_right() && FIO_FILE_SYSTEM::get_current_directory() == directory ? 0 : 1;
}

int exit_status(pid_t child) {
  int status = -1;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Makes the present process the origin of processes that are alone on a host of their own, or of this name.
bool enter_namespaces(site where, int process) {
  if (::unshare(CLONE_NEWUSER | CLONE_NEWUTS | CLONE_NEWPID) != 0) {
    return false;
  }
  std::string const host = "stress-" + std::to_string(process);
  return where == one_host_one_thread_id || ::sethostname(host.c_str(), host.size()) == 0;
}

// Starts a process that exits with what `body` answers, and ends with this one. Not by `_exit`: a sanitizer has its say
// at the end of a program.
template <typename Body>
pid_t start_process(Body const& body) {
  pid_t const child = ::fork();
  if (child == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::exit(body()); // NOLINT(concurrency-mt-unsafe): the threads of the process have ended
  }
  return child;
}

pid_t start_participants(plan const& what, shared_state& shared, int process) {
  auto const body = [&what, &shared, process] { return run_process(what, shared, process); };
  if (!what.who.needs_namespaces()) {
    return start_process(body);
  }
  return start_process([&what, process, &body] {
    return enter_namespaces(what.who.where, process) ? exit_status(start_process(body)) : 1;
  });
}

bool namespaces_can_be_had() {
  return exit_status(start_process([] {
           auto const answer_number = [] { return static_cast<int>(::syscall(SYS_gettid)) == 1 ? 0 : 1; };
           return enter_namespaces(hosts_with_one_thread_id, 0) ? exit_status(start_process(answer_number)) : 1;
         })) == 0;
}

// Whether the participants were where the form says.
bool identities_are_right(form const& who, shared_state const& shared) {
  std::set<std::string> hosts;
  std::set<long> thread_ids;
  for (int participant = 0; participant != who.participants(); ++participant) {
    hosts.insert(shared.hosts[participant]);
    thread_ids.insert(shared.thread_ids[participant]);
  }
  auto const all = static_cast<std::size_t>(who.participants());
  return hosts.size() == (who.where == hosts_with_one_thread_id ? all : 1) &&
         thread_ids.size() == (who.where == here ? all : 1);
}

// One contention in one round, seen by the one who judges. False if the participants are not there any more.
bool judge_round(plan const& what, shared_state& shared, stress::contention const& one, int& wrong) {
  std::filesystem::create_directory(what.place);
  one.prepare(what.place);
  if (!shared.start.wait() || !shared.end.wait()) {
    std::fprintf(stderr, "%s: %s: a participant is missing\n", what.who.name, one.name);
    return false;
  }
  std::vector<stress::outcome> outcomes(shared.outcomes, shared.outcomes + what.who.participants());
  std::string const complaint = one.judge({what.place, outcomes, what.who.where == one_host_one_thread_id});
  if (!complaint.empty()) {
    std::fprintf(stderr, "%s: %s: %s\n", what.who.name, one.name, complaint.c_str());
    ++wrong;
  }
  std::filesystem::remove_all(what.place);
  return true;
}

int judge_all_rounds(plan const& what, shared_state& shared) {
  int wrong = 0;
  for (int round = 0; round != what.rounds; ++round) {
    for (stress::contention const& one : what.contentions) {
      if (!judge_round(what, shared, one, wrong)) {
        return wrong + 1;
      }
    }
  }
  return wrong;
}

// Answers how much was wrong.
int run_form(form const& who, scratch_tree const& tree, int rounds) {
  plan const what{who, tree.path("place"), rounds};
  void* const memory = ::mmap(nullptr, sizeof(shared_state), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) {
    return 1;
  }
  shared_state& shared = *new (memory) shared_state(who.participants());
  if (who.inherits_identifier) {
    (void)FIO_FILE_SYSTEM::get_tmp_path(tree.path("x").c_str());
  }
  std::vector<pid_t> processes;
  for (int process = 0; process != who.processes; ++process) {
    processes.push_back(start_participants(what, shared, process));
  }
  int wrong = judge_all_rounds(what, shared);
  for (pid_t const process : processes) {
    wrong += exit_status(process) == 0 ? 0 : 1;
  }
  if (!identities_are_right(who, shared)) {
    std::fprintf(stderr, "%s: hosts or thread ids are not as they should be\n", who.name);
    ++wrong;
  }
  ::munmap(memory, sizeof(shared_state));
  return wrong;
}

/// How long the program works.
int rounds_of(int argc, char** argv) {
  std::string const size = argc == 2 ? argv[1] : "";
  if (argc == 1) {
    return 60;
  }
  return size == "--full" ? 1000 : size == "--small" ? 15 : 0;
}

} // namespace

int main(int argc, char** argv) {
  int const rounds = rounds_of(argc, argv);
  if (rounds == 0) {
    std::fprintf(stderr, "usage: processes [--small | --full]\n");
    return 2;
  }
  bool const namespaces = namespaces_can_be_had();
  stress::prefer_memory_for_scratch();
  stress::fill_cache_of_locale();
  int const descriptors = stress::open_descriptors();
  int wrong = 0, done = 0, skipped = 0;
  {
    scratch_tree const tree;
    for (form const& who : forms) {
      if (who.needs_namespaces() && !namespaces) {
        ++skipped;
        continue;
      }
      wrong += run_form(who, tree, rounds);
      ++done;
    }
    wrong += std::filesystem::is_empty(tree.root()) ? 0 : 1;
  }
  wrong += stress::open_descriptors() == descriptors ? 0 : 1;
  std::printf("processes: %d forms of up to %d participants, %zu operations, %d rounds, %d wrong", done,
              most_participants, stress::all_contentions().size(), rounds, wrong);
  if (skipped != 0) {
    std::printf(", %d forms skipped: no user namespace", skipped);
  }
  std::printf("\n");
  return wrong == 0 ? 0 : 1;
}
