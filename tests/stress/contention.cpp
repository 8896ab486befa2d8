#include "tests/stress/contention.h"

#include <fcntl.h>
#include <unistd.h>
#include <utime.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "ccl/fio/fio_file_sys.h"

namespace fs = std::filesystem;
using stress::outcome;
using stress::round_of_outcomes;

namespace {

std::string const deep = "a/b/c/d/e/f/g/h";

void prepare_nothing(std::string const& /*place*/) {}

void make_file(std::string const& name, std::string const& content = {}) { std::ofstream(name) << content; }

void add_text(outcome& result, std::string const& text) {
  std::size_t const used = std::strlen(result.text);
  (text + '\n').copy(result.text + used, sizeof result.text - 1 - used);
}

std::ptrdiff_t entries_below(std::string const& directory) {
  fs::recursive_directory_iterator const first(directory);
  return std::distance(begin(first), end(first));
}

std::ptrdiff_t count(round_of_outcomes const& round, int answer) {
  return std::count_if(round.outcomes.begin(), round.outcomes.end(),
                       [answer](outcome const& one) { return one.answer == answer; });
}

std::string unless(bool right, char const* words) { return right ? "" : words; }

// Everybody succeeds, and this many entries stand at the place then.
std::string all_succeed(round_of_outcomes const& round, std::ptrdiff_t entries) {
  return unless(count(round, 1) == std::ptrdiff_t(round.outcomes.size()), "one of them failed") +
         unless(entries_below(round.place) == entries, "not what was made");
}

// A concurrent creation is no failure.

void create_the_same(std::string const& place, int /*participant*/, outcome& result) {
  result.answer = FIO_FILE_SYSTEM::create(place + '/' + deep);
}

std::string judge_the_same(round_of_outcomes const& round) {
  return all_succeed(round, 8) + unless(fs::is_directory(round.place + '/' + deep), "no directory");
}

// One, two or up to all levels of the common path, and one level that nobody else has.
std::string overlapping_path(std::string const& place, int participant) {
  std::size_t const levels = 1 + static_cast<std::size_t>(participant) % 8;
  return place + '/' + deep.substr(0, 2 * levels) + (levels == 8 ? "/" : "") + std::to_string(participant);
}

void create_overlapping(std::string const& place, int participant, outcome& result) {
  result.answer = FIO_FILE_SYSTEM::create(overlapping_path(place, participant));
}

std::string judge_overlapping(round_of_outcomes const& round) {
  int const participants = static_cast<int>(round.outcomes.size());
  for (int participant = 0; participant != participants; ++participant) {
    if (!fs::is_directory(overlapping_path(round.place, participant))) {
      return "no directory";
    }
  }
  return all_succeed(round, std::min(8, participants) + participants);
}

void touch_the_same(std::string const& place, int /*participant*/, outcome& result) {
  result.answer = FIO_FILE_SYSTEM::touch(place + "/a/b/c/file");
}

std::string judge_touched(round_of_outcomes const& round) {
  return all_succeed(round, 4) + unless(fs::is_regular_file(round.place + "/a/b/c/file"), "no file");
}

// A target is replaced as one step: whoever looks sees one of the contents, and all of it.

std::string content_of(int participant) { return std::string(4096, static_cast<char>('a' + participant)); }

bool is_whole(std::string const& name) {
  std::ifstream file(name);
  std::string const content(std::istreambuf_iterator<char>(file), {});
  return !content.empty() && content == content_of(content[0] - 'a');
}

void replace_the_same(std::string const& place, int participant, outcome& result) {
  constexpr int times = 2;
  std::string const own = place + '/' + std::to_string(participant);
  result.answer = 1;
  for (int i = 0; i != times; ++i) {
    make_file(own, content_of(participant));
    bool const replaced = FIO_FILE_SYSTEM::rename(own, place + "/target");
    result.answer = replaced && is_whole(place + "/target") ? result.answer : 0;
  }
}

std::string judge_replaced(round_of_outcomes const& round) { return all_succeed(round, 1); }

// A name for a temporary file is free when it is looked for; who needs it alone makes it exclusively.

void name_temporary_file(std::string const& place, int /*participant*/, outcome& result) {
  add_text(result, FIO_FILE_SYSTEM::get_tmp_path((place + "/missing/x").c_str()));
  result.answer = 1;
}

// Where nothing exists a name is what host, time, thread and call make of it, and no two of them make the same.
std::string judge_names(round_of_outcomes const& round) {
  std::set<std::string> names;
  for (outcome const& one : round.outcomes) {
    names.insert(one.text);
  }
  return all_succeed(round, 0) +
         unless(names.size() == round.outcomes.size() || round.names_repeat, "two have the same name");
}

constexpr int files_each = 2;

void make_temporary_files(std::string const& place, int /*participant*/, outcome& result) {
  for (int made = 0; made != files_each && result.refused != 1000;) {
    std::string const name = FIO_FILE_SYSTEM::get_tmp_path((place + "/x").c_str());
    int const descriptor = FIO_FILE_SYSTEM::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (descriptor == -1) {
      result.answer = errno == EEXIST ? result.answer : -1;
      ++result.refused;
      continue;
    }
    ::close(descriptor);
    add_text(result, name);
    ++result.answer;
    ++made;
  }
}

// A name is refused only to a participant who would have had the same one as another, and once for each file of others.
std::string judge_temporary_files(round_of_outcomes const& round) {
  int const others_files = files_each * (static_cast<int>(round.outcomes.size()) - 1);
  int const allowed = round.names_repeat ? others_files : 0;
  std::set<std::string> names;
  for (outcome const& one : round.outcomes) {
    if (one.refused > allowed) {
      return "a name was taken " + std::to_string(one.refused) + " times";
    }
    std::string const text = one.text;
    for (std::size_t from = 0, to = 0; (to = text.find('\n', from)) != std::string::npos; from = to + 1) {
      std::string const name = text.substr(from, to - from);
      if (!names.insert(name).second || !fs::is_regular_file(name)) {
        return "made twice or not at all: " + name;
      }
    }
  }
  std::ptrdiff_t const made = files_each * std::ptrdiff_t(round.outcomes.size());
  return unless(count(round, files_each) == std::ptrdiff_t(round.outcomes.size()), "one of them failed") +
         unless(entries_below(round.place) == made, "not what was made");
}

// What has outlived its time goes, whoever removes it, and the probes of all go as well.

constexpr int age = 600;

void make_aged_files(std::string const& place) {
  utimbuf const long_ago = {std::time(nullptr) - 2 * age, std::time(nullptr) - 2 * age};
  for (int i = 0; i != 12; ++i) {
    std::string const name = place + "/.korvane." + std::to_string(100 + i) + ".tmp";
    make_file(name);
    if (i % 4 != 0) {
      ::utime(name.c_str(), &long_ago);
    }
  }
}

void remove_aged_files(std::string const& place, int /*participant*/, outcome& result) {
  result.answer = FIO_FILE_SYSTEM::remove_temp_files((place + '/').c_str(), age, nullptr);
}

std::string judge_aged_files(round_of_outcomes const& round) {
  for (char const* young : {"100", "104", "108"}) {
    if (!fs::exists(round.place + "/.korvane." + young + ".tmp")) {
      return "a young file went";
    }
  }
  return all_succeed(round, 3);
}

// A removal that fails because another participant was first is a failure in the answer. So one alone succeeds; of many
// at most the one who removes the top, and only if nobody was ahead of it anywhere. But nobody leaves before everything
// that it saw is gone: whoever comes last finds nothing.

void make_tree(std::string const& place, bool with_files) {
  for (char const* directory : {"/tree/a/b/c", "/tree/a/d", "/tree/e", "/tree/f/g/h/i", "/tree/j"}) {
    fs::create_directories(place + directory);
    for (int i = 0; with_files && i != 4; ++i) {
      make_file(place + directory + "/file" + std::to_string(i), "content");
    }
  }
}

void make_tree_of_files(std::string const& place) { make_tree(place, true); }

void make_tree_of_directories(std::string const& place) { make_tree(place, false); }

void remove_the_same(std::string const& place, int /*participant*/, outcome& result) {
  result.answer = FIO_FILE_SYSTEM::remove_recursively((place + "/tree").c_str(), nullptr, nullptr);
}

std::string judge_removed(round_of_outcomes const& round) {
  std::ptrdiff_t const succeeded = count(round, 1);
  return unless(entries_below(round.place) == 0, "something was left") +
         unless(succeeded + count(round, 0) == std::ptrdiff_t(round.outcomes.size()), "neither true nor false") +
         unless(succeeded <= 1, "two removed the same tree") +
         unless(succeeded == 1 || round.outcomes.size() != 1, "one alone failed");
}

// The same where words tell of the failure. Nobody is told of anything but what vanished under its hands.

enum verdict : int { no_error, not_a_directory, cannot_be_opened, cannot_be_removed, another_error };

verdict verdict_on(FIO_ERRC const* error) {
  if (error == nullptr) {
    return no_error;
  }
  if (dynamic_cast<FIO::ERRC::NOT_A_DIRECTORY_ERRC const*>(error) != nullptr) {
    return not_a_directory;
  }
  if (dynamic_cast<FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC const*>(error) != nullptr) {
    return cannot_be_opened;
  }
  bool const removal = dynamic_cast<FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC const*>(error) != nullptr;
  return removal ? cannot_be_removed : another_error;
}

void remove_the_same_directories(std::string const& place, int /*participant*/, outcome& result) {
  std::unique_ptr<FIO_ERRC> const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(place + "/tree", true);
  result.answer = verdict_on(error.get());
  if (error != nullptr) {
    add_text(result, error->message().m_lines[0].m_text);
  }
}

std::string judge_removed_directories(round_of_outcomes const& round) {
  for (outcome const& one : round.outcomes) {
    bool const names_the_tree = std::strstr(one.text, ('"' + round.place + "/tree").c_str()) != nullptr;
    if (one.answer == another_error || names_the_tree != (one.answer != no_error)) {
      return std::string("not the error of a directory that vanished: ") + one.text;
    }
  }
  return unless(entries_below(round.place) == 0, "something was left") +
         unless(count(round, no_error) == 1 || round.outcomes.size() != 1, "one alone failed");
}

// A test and then a removal: who comes too late for the test succeeds, who comes between the two fails.

void make_one_file(std::string const& place) { make_file(place + "/file"); }

void remove_if_there(std::string const& place, int /*participant*/, outcome& result) {
  result.answer = FIO_FILE_SYSTEM::remove_if_exists(place + "/file");
}

std::string judge_removed_file(round_of_outcomes const& round) {
  return unless(entries_below(round.place) == 0, "something was left") +
         unless(count(round, 1) >= 1, "nobody succeeded") +
         unless(count(round, 1) + count(round, 0) == std::ptrdiff_t(round.outcomes.size()), "neither true nor false");
}

} // namespace

std::vector<stress::contention> stress::all_contentions() {
  return {
      {"create of the same directory", prepare_nothing, create_the_same, judge_the_same},
      {"create of overlapping directories", prepare_nothing, create_overlapping, judge_overlapping},
      {"touch of the same file", prepare_nothing, touch_the_same, judge_touched},
      {"rename onto the same file", prepare_nothing, replace_the_same, judge_replaced},
      {"get_tmp_path in a missing directory", prepare_nothing, name_temporary_file, judge_names},
      {"get_tmp_path and exclusive creation", prepare_nothing, make_temporary_files, judge_temporary_files},
      {"remove_temp_files of the same directory", make_aged_files, remove_aged_files, judge_aged_files},
      {"remove_recursively of the same tree", make_tree_of_files, remove_the_same, judge_removed},
      {"remove_empty_subdirectories of the same tree", make_tree_of_directories, remove_the_same_directories,
       judge_removed_directories},
      {"remove_if_exists of the same file", make_one_file, remove_if_there, judge_removed_file},
  };
}
