/// @file
/// Ten million operations in one process, drawn at random over everything that the library exports: memory, descriptors
/// and speed are at the end what they were at the beginning.
///
/// Half of the operations are those of the allocation sweep, which covers every exported function; each result is the
/// one of its first call. The other half are the random steps of the model, which checks their results.

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/model/duel.h"
#include "tests/model/program.h"
#include "tests/model/random_texts.h"
#include "tests/stress/surroundings.h"
#include "tests/support/platform_double.h"
#include "tests/sweeps/allocation_counter.h"
#include "tests/sweeps/allocation_operation.h"
#include "tests/sweeps/allocation_workspace.h"

namespace {

constexpr std::uint64_t quick_count = 5'000;
constexpr std::uint64_t full_count = 10'000'000;
constexpr std::size_t parts = 10;

// What the heap and the process may grow by between the first part and the last, in bytes: a few operations ask for more
// than the others, and the heap is not always cut at the same page.
constexpr long slack = 256 * 1024;

// How much slower the last parts may be on a machine that does other things too.
constexpr double slowest = 1.25;

struct measure {
  long blocks;   // allocated and not released
  long heap;     // bytes that the allocator has from the system
  long resident; // bytes
  int descriptors;
  double seconds; // processor time of the part
};

double processor_seconds() {
  rusage used = {};
  ::getrusage(RUSAGE_SELF, &used);
  auto const seconds = [](timeval time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

long heap_bytes() {
  struct mallinfo2 const statistics = ::mallinfo2();
  return static_cast<long>(statistics.arena + statistics.hblkhd);
}

long resident_bytes() {
  std::FILE* const file = std::fopen("/proc/self/statm", "r");
  long size = 0;
  long resident = 0;
  if (file == nullptr || std::fscanf(file, "%ld %ld", &size, &resident) != 2) {
    std::perror("/proc/self/statm");
  }
  std::fclose(file);
  return resident * ::sysconf(_SC_PAGESIZE);
}

class life {
public:
  explicit life(std::uint64_t seed) : m_engine(seed), m_steps(seed) {
    for (swept_operation const& each : m_table.operations()) {
      m_expected.push_back(result_of(each));
    }
    platform_double::reset();
  }

  void live_part(std::uint64_t count) {
    for (std::uint64_t end = m_done + count; m_done < end;) {
      if (m_engine() % 2 == 0) {
        play_steps();
      } else {
        // About as many as a sequence of steps has.
        for (int i = 0; i != 20; ++i) {
          call_one();
        }
      }
    }
    // What the program itself keeps is the same after each part.
    drawn_tree const last("nothing");
    platform_double::debug_messages() = {};
  }

  std::size_t operations() const { return m_expected.size(); }
  std::uint64_t done() const { return m_done; }
  std::uint64_t wrong() const { return m_wrong; }

private:
  static std::string result_of(swept_operation const& called) {
    std::unique_ptr<trial> const subject = called.prepare();
    subject->run();
    return subject->answer() + '\n' + subject->state();
  }

  void call_one() {
    std::size_t const index = m_engine() % m_expected.size();
    std::string const result = result_of(m_table.operations()[index]);
    platform_double::debug_messages().clear();
    ++m_done;
    if (result != m_expected[index]) {
      complain(m_table.operations()[index].covers.front() + "\n  is: " + result + "\n  was: " + m_expected[index]);
    }
  }

  void play_steps() {
    std::vector<step> const steps = m_steps.sequence();
    m_done += steps.size();
    if (auto const found = play(steps, looks::never)) {
      complain(text_of(steps, *found));
    }
    real_side::set_old_simplify(false);
    platform_double::reset();
  }

  void complain(std::string const& what) {
    if (++m_wrong <= 5) {
      std::fprintf(stderr, "operation %llu: %.2000s\n", static_cast<unsigned long long>(m_done), what.c_str());
    }
  }

  workspace m_workspace;
  operation_table m_table = all_operations();
  std::mt19937_64 m_engine;
  step_source m_steps;
  std::vector<std::string> m_expected;
  std::uint64_t m_done = 0;
  std::uint64_t m_wrong = 0;
};

using measures = std::array<measure, parts>;

measures live(life& one, std::uint64_t count) {
  measures all = {};
  double before = processor_seconds();
  for (measure& each : all) {
    one.live_part(count / parts);
    double const now = processor_seconds();
    each = {live_blocks(), heap_bytes(), resident_bytes(), stress::open_descriptors(), now - before};
    before = now;
  }
  return all;
}

double middle_of_three(measures::const_iterator first) {
  std::array<double, 3> seconds = {first[0].seconds, first[1].seconds, first[2].seconds};
  std::sort(seconds.begin(), seconds.end());
  return seconds[1];
}

void show(measures const& all) {
  for (measure const& each : all) {
    std::printf("%ld blocks, %ld KiB of heap, %ld KiB resident, %d descriptors, %.2f s\n", each.blocks,
                each.heap / 1024, each.resident / 1024, each.descriptors, each.seconds);
  }
}

} // namespace

int main(int argument_count, char** arguments) {
  program_options const options = read_options(argument_count, arguments);
  stress::prefer_memory_for_scratch();
  life one(options.seed);
  measures const all = live(one, options.rounds.value_or(options.full ? full_count : quick_count));
  show(all);
  measure const& first = all.front();
  measure const& last = all.back();
  double const slower = middle_of_three(all.end() - 3) / middle_of_three(all.begin());
  bool const same = first.blocks == last.blocks && last.heap <= first.heap + slack &&
                    last.resident <= first.resident + slack && first.descriptors == last.descriptors &&
                    (!options.full || slower <= slowest);
  std::printf("long life: %s operations, %zu kinds and random steps, %llu wrong; from the first tenth to the last %+ld "
              "blocks, %+ld KiB of heap, %+ld KiB resident, %+d descriptors, time x%.2f\n",
              grouped(one.done()).c_str(), one.operations(), static_cast<unsigned long long>(one.wrong()),
              last.blocks - first.blocks, (last.heap - first.heap) / 1024, (last.resident - first.resident) / 1024,
              last.descriptors - first.descriptors, slower);
  return same && one.wrong() == 0 ? 0 : 1;
}
