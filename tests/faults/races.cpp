// What holds however a removal and another process meet. The number of rounds is fixed; how often the two really met is
// a figure of the summary.

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>

#include "ccl/fio/fio_file_sys.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/trees.h"

using namespace faults;

namespace {

constexpr int directories = 6;
constexpr int files_in_each = 4;

std::string numbered(char const* text, int number) { return text + std::to_string(number); }

// A process that does its work over and over until it is ended.
class other_process {
public:
  explicit other_process(std::function<void()> const& work) {
    int ends[2];
    CHECK_EQUAL(::pipe2(ends, O_CLOEXEC), 0);
    m_process = ::fork();
    if (m_process == 0) {
      bool const said = ::write(ends[1], "x", 1) == 1;
      while (said) {
        work();
      }
      ::_exit(0);
    }
    // The race starts when the other one runs.
    char unused;
    ::close(ends[1]);
    CHECK_EQUAL(::read(ends[0], &unused, 1), 1);
    ::close(ends[0]);
  }
  ~other_process() {
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
  }
  other_process(other_process const&) = delete;
  other_process& operator=(other_process const&) = delete;

private:
  pid_t m_process;
};

void draw_tree(scratch_tree const& tree) {
  for (int i = 0; i != directories; ++i) {
    for (int k = 0; k != files_in_each; ++k) {
      tree.make_file(numbered("tree/d", i) + '/' + numbered("f", k));
    }
  }
}

// Each directory of the tree changes places with a link that leads out of it, again and again.
void exchange_all() {
  for (int i = 0; i != directories; ++i) {
    ::renameat2(AT_FDCWD, numbered("tree/d", i).c_str(), AT_FDCWD, numbered("parked/d", i).c_str(), RENAME_EXCHANGE);
  }
}

// Whether anything that was exchanged has ended outside the tree; and nothing else may be there.
bool check_parked() {
  bool exchanged = false;
  for (std::string const& line : drawing("parked")) {
    bool const is_link = line.find(" -> ../outside") != std::string::npos;
    exchanged = exchanged || !is_link;
    CHECK(line[0] == 'd' && (is_link || line.back() == '/' || line.find("/f") != std::string::npos));
  }
  return exchanged;
}

} // namespace

void removal_in_a_race_with_links(scratch_tree const& tree) {
  int const rounds = full() ? 4000 : 150;
  int met = 0;
  for (int round = 0; round != rounds; ++round) {
    about const topic(numbered("round ", round));
    draw_tree(tree);
    tree.draw({"outside/f0", "outside/f2", "outside/other/x", "guard/f0=guard", "parked/"});
    for (int i = 0; i != directories; ++i) {
      CHECK_EQUAL(::symlink("../outside", numbered("parked/d", i).c_str()), 0);
    }
    bool told = false;
    {
      other_process const racer(exchange_all);
      told = FIO_FILE_SYSTEM::remove_recursively("tree", nullptr, nullptr);
    }
    // Said to be gone, it is. What lies beside it is never touched, and of what the links lead to only the contents.
    CHECK(!told || !stands("tree"));
    CHECK(stands("outside"));
    CHECK_EQUAL(drawing("guard"), lines{"f0=guard"});
    met += check_parked() ? 1 : 0;
    // Without the other process, what is left is an ordinary tree. A file that was missed at its path made the answer no,
    // and may have gone with its directory all the same.
    bool const left = stands("tree");
    CHECK_EQUAL(FIO_FILE_SYSTEM::remove_recursively("tree", nullptr, nullptr), left);
    CHECK(!stands("tree"));
    for (char const* const name : {"outside", "guard", "parked"}) {
      std::filesystem::remove_all(name);
    }
    CHECK_EQUAL(drawing("."), lines{});
  }
  found_so_far().figures = "; " + std::to_string(met) + " of " + std::to_string(rounds) + " removals met a race";
}

void removals_in_a_race_with_each_other(scratch_tree const& tree) {
  int const rounds = full() ? 2000 : 100;
  for (int round = 0; round != rounds; ++round) {
    about const topic(numbered("round ", round));
    draw_tree(tree);
    tree.draw({"tree/deep/er/f", "beside=x"});
    {
      other_process const racer([] { FIO_FILE_SYSTEM::remove_recursively("tree", nullptr, nullptr); });
      // Who comes late finds nothing, or fails at what the other one took first.
      FIO_FILE_SYSTEM::remove_recursively("tree", nullptr, nullptr);
    }
    CHECK_EQUAL(drawing("."), lines{"beside=x"});
  }
}
