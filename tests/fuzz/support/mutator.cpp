// Changes inputs that are lines of strings (input.h) by what matters to paths: separators, dots, runs, and lengths at
// the limits. Every second change is the fuzzer's own. For fuzzers alone: a replay changes nothing.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t max_size,
                                               unsigned seed);

namespace {

using engine = std::minstd_rand;

constexpr char const* pieces[] = {"/",  "\\",  "//", "/\\", ".", "..",   "...", "../", "./", "/../", "/.",
                                  "a/", ".x",  "C:", ":",   "*", "?",    "**",  ";",   "\t", " ",    "%s",
                                  "x",  "a.b", ".v", "d/",  "e", "\xff", "|",   "~",   "$",  "f.v",  "g.v"};

// Around the limits of an extension, of a name, of a path, and of the buffers for them.
constexpr std::size_t lengths[] = {2, 15, 16, 254, 255, 256, 257, 1000, 1021, 1022, 1023, 1024, 1025, 1026, 2000};

std::size_t below(engine& random, std::size_t bound) { return random() % bound; }

template <typename Items>
auto const& one_of(engine& random, Items const& items) {
  return items[below(random, std::size(items))];
}

// `length` times the character, in the notation of fuzz::expanded.
std::string run_of(char character, std::size_t length) {
  std::string run(1, character);
  for (--length; length != 0;) {
    std::size_t const more = std::min<std::size_t>(length, 255);
    // A count that is a line feed would end the line.
    std::size_t const count = more == '\n' ? more - 1 : more;
    run += '^';
    run += static_cast<char>(static_cast<std::uint8_t>(count));
    length -= count;
  }
  return run;
}

std::vector<std::string> lines_of(std::string const& input) {
  std::vector<std::string> lines(1);
  for (char const character : input) {
    if (character == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += character;
    }
  }
  return lines;
}

void change_line(engine& random, std::string& line) {
  std::size_t const at = below(random, line.size() + 1);
  std::string const piece = one_of(random, pieces);
  switch (below(random, 6)) {
  case 0:
    line.insert(at, piece);
    break;
  case 1: // in the place of as many characters
    line.replace(at, piece.size(), piece);
    break;
  case 2:
    line.insert(at, run_of(piece.front(), one_of(random, lengths)));
    break;
  case 3: // one piece some times
    for (std::size_t times = 2 + below(random, 6); times != 0; --times) {
      line.insert(at, piece);
    }
    break;
  case 4:
    line.erase(at, 1 + below(random, 4));
    break;
  default: // all separators become others
    std::replace(line.begin(), line.end(), '/', '\\');
    break;
  }
}

void change_lines(engine& random, std::vector<std::string>& lines) {
  std::size_t const at = below(random, lines.size());
  std::size_t const other = below(random, lines.size());
  switch (below(random, 8)) {
  case 0:
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), lines[other]);
    break;
  case 1:
    std::swap(lines[at], lines[other]);
    break;
  case 2:
    if (lines.size() > 1) {
      lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
    }
    break;
  case 3: // the end of another line
    lines[at] += lines[other].substr(below(random, lines[other].size() + 1));
    break;
  default:
    change_line(random, lines[at]);
    break;
  }
}

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t max_size, unsigned seed) {
  engine random(seed + 1U);
  if (below(random, 2) == 0) {
    return LLVMFuzzerMutate(data, size, max_size);
  }
  std::vector<std::string> lines = lines_of(std::string(data, data + size));
  for (std::size_t changes = 1 + below(random, 3); changes != 0; --changes) {
    change_lines(random, lines);
  }
  std::string result = lines.front();
  std::for_each(lines.begin() + 1, lines.end(), [&result](std::string const& line) { result += '\n' + line; });
  result.resize(std::min(result.size(), max_size));
  std::memcpy(data, result.data(), result.size());
  return result.size();
}
