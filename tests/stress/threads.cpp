// Does what the headers say may be done in several threads, in several threads. A build for ThreadSanitizer proves that
// nothing in the library is written where another thread looks; in every build all threads come to the same results as
// one thread that is alone.

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <thread>

#include "tests/stress/first_identifiers.h"
#include "tests/stress/meeting.h"
#include "tests/stress/statements.h"
#include "tests/stress/surroundings.h"
#include "tests/support/text.h"

namespace {

constexpr int thread_count = 8;
// The work that is done alone has a directory whose name is as long as those of the threads.
constexpr int alone = thread_count;

std::string own_name(int worker) { return "worker" + std::to_string(worker); }

std::vector<stress::statement> all_statements() {
  std::vector<stress::statement> all;
  for (auto const& part : {stress::path_statements(), stress::file_statements(), stress::search_statements(),
                           stress::vocabulary_statements(), stress::error_statements(), stress::binary_statements()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

// Each worker's own directory has one name in all transcripts.
std::string without_own_name(std::string text, std::string const& name) {
  for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
    text.replace(at, name.size(), "worker");
  }
  return text;
}

class stress_run {
public:
  explicit stress_run(int rounds) : m_rounds(rounds) {
    for (int worker = 0; worker <= alone; ++worker) {
      m_tree.make_directory(own_name(worker));
    }
  }

  std::size_t statements() const { return m_statements.size(); }

  // All threads lean on the same statement, and then each on another one. Answers how many results were wrong.
  int run() {
    int wrong = 0;
    for (int round = 0; round != m_rounds; ++round) {
      for (std::size_t i = 0; i != m_statements.size(); ++i) {
        wrong += run_at_once("all" + std::to_string(round), [i](int) { return i; });
      }
      for (std::size_t i = 0; i != m_statements.size(); ++i) {
        wrong += run_at_once("mixed" + std::to_string(round) + '_' + std::to_string(i), [this, i](int worker) {
          return (i + static_cast<std::size_t>(worker) * 3) % m_statements.size();
        });
      }
    }
    return wrong;
  }

private:
  std::string work(std::size_t index, int worker, std::string const& round) const {
    stress::transcript out;
    try {
      m_statements[index].work({m_shared, m_tree.path(own_name(worker)) + '/', round}, out);
    } catch (std::exception const& error) {
      out << "exception" << error.what();
    }
    return without_own_name(out.text(), own_name(worker));
  }

  // What one thread comes to. Found out behind the first work of the threads: that one is to find everything new.
  std::string const& expected(std::size_t index) {
    if (m_expected[index].empty()) {
      m_expected[index] = work(index, alone, "alone");
    }
    return m_expected[index];
  }

  template <typename Choice>
  int run_at_once(std::string const& round, Choice const& choice) {
    stress::meeting start(thread_count);
    std::vector<std::string> results(thread_count);
    std::vector<std::thread> threads;
    for (int worker = 0; worker != thread_count; ++worker) {
      threads.emplace_back([&, worker] {
        start.wait();
        results[static_cast<std::size_t>(worker)] = work(choice(worker), worker, round);
      });
    }
    int wrong = 0;
    for (int worker = 0; worker != thread_count; ++worker) {
      threads[static_cast<std::size_t>(worker)].join();
    }
    for (int worker = 0; worker != thread_count; ++worker) {
      wrong += is_right(choice(worker), results[static_cast<std::size_t>(worker)]) ? 0 : 1;
    }
    return wrong;
  }

  bool is_right(std::size_t index, std::string const& result) {
    std::string const& right = expected(index);
    if (result == right) {
      return true;
    }
    std::size_t at = 0;
    while (at != std::min(result.size(), right.size()) && result[at] == right[at]) {
      ++at;
    }
    std::fprintf(stderr, "%s: \"%s\": %s:\nalone: %.200s\nnot alone: %.200s\n", m_statements[index].header,
                 m_statements[index].words, m_statements[index].exercised, right.c_str() + at, result.c_str() + at);
    return false;
  }

  int m_rounds;
  scratch_tree m_tree;
  stress::shared_objects m_shared{m_tree};
  std::vector<stress::statement> m_statements = all_statements();
  std::vector<std::string> m_expected{m_statements.size()};
};

} // namespace

stress::shared_objects::shared_objects(scratch_tree const& tree)
    : files(tree.path("files/")), common(tree.path("common/")),
      error(make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>(std::string("/tmp/x"))) {
  tree.draw({"files/alu.v=module", "files/core.sv", "files/core/fpu.sv=fpu", "files/core/alu.v", "files/readme",
             "files/include/defs.vh", "files/link -> core", "files/empty/", "common/"});
  for (char const* text : {"", "/a/./b/../c.tar.gz", "../x/y.v", "a/b/", "/a/c.tar.gz"}) {
    paths.emplace_back(text);
  }
  paths.push_back(FIO_PATH("a\\b").path_separator('\\'));
  paths.push_back(FIO_PATH("long").base(repeated(1100)));
  search_list = {FIO_PATH(files), FIO_PATH(files + "core/"), FIO_PATH(files + "missing/")};
}

int main(int argc, char** argv) {
  bool const full = argc == 2 && std::strcmp(argv[1], "--full") == 0;
  if (argc != 1 && !full) {
    std::fprintf(stderr, "usage: threads [--full]\n");
    return 2;
  }
  int const rounds = full ? 200 : 12;
  stress::prefer_memory_for_scratch();
  stress::fill_cache_of_locale();
  int const descriptors = stress::open_descriptors();
  int wrong = 0;
  // First: nobody has asked for an identifier yet.
  for (int process = 0; process != rounds * 8; ++process) {
    wrong += stress::first_identifiers_are_right(thread_count) ? 0 : 1;
  }
  std::size_t statements = 1;
  {
    stress_run run(rounds);
    wrong += run.run();
    statements += run.statements();
  }
  if (stress::open_descriptors() != descriptors) {
    std::fprintf(stderr, "descriptors were left open\n");
    ++wrong;
  }
  std::printf("threads: %zu statements, %d threads, %d rounds, %d wrong\n", statements, thread_count, rounds, wrong);
  return wrong == 0 ? 0 : 1;
}
