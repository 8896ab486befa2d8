/// @file
/// Every short text over the characters that paths are made of, through every operation that takes a text, and every
/// pair of the shortest ones through the comparisons; the answers must be those of the model.
///
/// The quick form takes shorter texts and a sample of the pairs. `--full` takes all of them.

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/duel.h"
#include "tests/model/program.h"
#include "tests/support/platform_double.h"

namespace {

constexpr char const* six_characters = "/\\.a:%";
constexpr char const* three_characters = "/.a";
constexpr char const* name_characters = "ab";
constexpr char const* pattern_characters = "ab*?";
constexpr std::size_t longest_of_a_pair = 4;
constexpr std::uint64_t most_differences = 20;

struct extent {
  std::size_t longest_of_six;
  std::size_t longest_of_three;
  std::size_t longest_of_all_pairs; // every pair up to this length
  std::uint64_t pair_stride;        // and each so-many-th of the others; no divisor of the number of texts
  std::size_t longest_name;         // for every name and every pattern of the wildcard test
  std::size_t longest_pattern;
};

constexpr extent quick_extent = {5, 8, 2, 97, 4, 5};
constexpr extent full_extent = {7, 10, 4, 1, 7, 7};

// What is done to each text: T stands for it in the arguments.
struct treatment {
  operation what;
  char const* first;
  char const* second = "";
  int number = 0;
};

// The path is made of the text, and this is done to it.
constexpr treatment treatments_of_the_path[] = {
    {operation::assign, "T"},
    {operation::assign_characters, "T"},
    {operation::assign_own_characters, ""},
    {operation::flatten, ""},
    {operation::become_absolute, ""},
    {operation::become_absolute, "/x"},
    {operation::become_absolute, "/x/y/"},
    {operation::become_absolute, "/"},
    {operation::become_absolute, "x"},
    {operation::become_absolute, "..\\x//."},
    {operation::cd, ""},
    {operation::cd, "."},
    {operation::cd, ".."},
    {operation::cd, "../../c"},
    {operation::cd, "c/"},
    {operation::cd, "/x/y"},
    {operation::cd, "\\x"},
    {operation::tail, ""},
    {operation::tail, "z"},
    {operation::tail, "/y\\z/"},
    {operation::tail, ".."},
    {operation::filename, ""},
    {operation::filename, "d.h"},
    {operation::filename, "/x\\d.h"},
    {operation::filename, "x/"},
    {operation::filename, ".."},
    {operation::directory, ""},
    {operation::directory, "x\\y"},
    {operation::base, "d.e"},
    {operation::base, "."},
    {operation::no_extension, ""},
    {operation::extension_texts, "tar", "gz"},
    {operation::extension_types, "", "", 9},
    {operation::drive_letter, "", "", 'C'},
    {operation::path_separator, "", "", '\\'},
    {operation::path_separator, "", "", 'a'},
    {operation::path_separator, "", "", ':'},
    {operation::get_relative_to, "/a"},
    {operation::get_relative_to, "\\a//a"},
    {operation::get_relative_to, "/a/./.."},
};

// The path is made of another text, and the text is an argument.
constexpr treatment treatments_of_the_argument[] = {
    {operation::tail, "T"},
    {operation::filename, "T"},
    {operation::cd, "T"},
    {operation::directory, "T"},
    {operation::base, "T"},
    {operation::drive, "T"},
    {operation::become_absolute, "T"},
    {operation::get_relative_to, "T"},
    {operation::extension_texts, "T", "gz"},
    {operation::extension_texts, "tar", "T"},
    {operation::extension_type_and_text, "", "T", 9},
    {operation::construct_joined, "T", "b.c"},
    {operation::construct_joined, "a/", "T"},
    {operation::make_path, "T", "", FIO_PATH::DIRECTORY},
    {operation::make_path, "T", "", FIO_PATH::EXTENSION},
    {operation::is_dot_directory, "T"},
    {operation::splitpath, "T"},
    {operation::makepath, "T", "T"},
    {operation::makepath, "", "T"},
    {operation::same_file, "T", "T"},
    {operation::same_file, "T", "*a"},
    {operation::same_file, "T", "?.*"},
};

constexpr char const* paths_of_the_arguments[] = {"/a/b/c.t", "c.t"};

step made(treatment const& wanted, std::string const& text) {
  step result;
  result.what = wanted.what;
  result.first = wanted.first == std::string("T") ? text : wanted.first;
  result.second = wanted.second == std::string("T") ? text : wanted.second;
  result.number = wanted.number;
  result.other_number = -1;
  return result;
}

step made(operation what, std::string const& text = "") { return made(treatment{what, "T"}, text); }

step on_pair(operation what, std::string const& text = "") {
  step result = made(what, text);
  result.source = 1;
  return result;
}

std::uint64_t power(std::uint64_t base, std::size_t exponent) {
  return exponent == 0 ? 1 : base * power(base, exponent - 1);
}

// The number of texts up to a length, and the text of a number among them: the shorter ones first.
std::uint64_t count_of(std::string const& characters, std::size_t longest) {
  std::uint64_t count = 0;
  for (std::size_t length = 0; length <= longest; ++length) {
    count += power(characters.size(), length);
  }
  return count;
}

std::string text_of_number(std::string const& characters, std::uint64_t number) {
  std::size_t length = 0;
  for (; number >= power(characters.size(), length); ++length) {
    number -= power(characters.size(), length);
  }
  std::string text;
  for (; length > 0; --length) {
    text += characters[number % characters.size()];
    number /= characters.size();
  }
  return text;
}

class examination {
public:
  // Its share are the numbers that leave `worker` when divided by `jobs`.
  examination(extent const& wanted, int jobs, int worker)
      : m_extent(wanted), m_jobs(static_cast<std::uint64_t>(jobs)), m_worker(static_cast<std::uint64_t>(worker)) {}

  figures run();

private:
  bool is_over() const { return m_differences * m_jobs >= most_differences; }
  bool is_mine(std::uint64_t number) const { return number % m_jobs == m_worker; }
  void examine_texts();
  void examine_text(std::string const& text);
  void examine_relations(std::string const& text);
  void examine_pairs();
  void examine_patterns();
  void examine_pair(std::string const& left, std::string const& right);
  void examine_both_ways(std::string const& left, std::string const& right);
  void expect_same(std::vector<step> const& steps, looks when);
  void expect(bool holds, char const* relation, std::string const& left, std::string const& right = "");

  extent m_extent;
  std::uint64_t m_jobs;
  std::uint64_t m_worker;
  std::uint64_t m_texts = 0;
  std::uint64_t m_pairs = 0;
  std::uint64_t m_relations = 0;
  std::uint64_t m_differences = 0;
};

figures examination::run() {
  examine_texts();
  examine_pairs();
  examine_patterns();
  return {m_texts, m_pairs, duel::comparisons() + m_relations, m_differences};
}

void examination::expect_same(std::vector<step> const& steps, looks when) {
  if (is_over()) {
    return;
  }
  if (auto const found = play(steps, when)) {
    ++m_differences;
    std::fprintf(stderr, "difference after\n%s", text_of(steps, *found).c_str());
  }
}

void examination::expect(bool holds, char const* relation, std::string const& left, std::string const& right) {
  ++m_relations;
  if (!holds && !is_over()) {
    ++m_differences;
    std::fprintf(stderr, "does not hold: %s\n  left: %s\n  right: %s\n", relation, literal(left).c_str(),
                 literal(right).c_str());
  }
}

void examination::examine_texts() {
  std::uint64_t const six = count_of(six_characters, m_extent.longest_of_six);
  for (std::uint64_t number = 0; number < six && !is_over(); ++number) {
    if (is_mine(number)) {
      examine_text(text_of_number(six_characters, number));
    }
  }
  // The shorter texts over the three were among those over the six.
  std::uint64_t const three = count_of(three_characters, m_extent.longest_of_three);
  for (std::uint64_t number = count_of(three_characters, m_extent.longest_of_six); number < three && !is_over();
       ++number) {
    if (is_mine(number)) {
      examine_text(text_of_number(three_characters, number));
    }
  }
}

void examination::examine_text(std::string const& text) {
  ++m_texts;
  step const construction = made(operation::construct, text);
  expect_same({construction}, looks::at_end);
  expect_same({made(operation::construct_from_characters, text)}, looks::at_end);
  for (treatment const& wanted : treatments_of_the_path) {
    expect_same({construction, made(wanted, text)}, looks::at_end);
  }
  for (char const* path : paths_of_the_arguments) {
    for (treatment const& wanted : treatments_of_the_argument) {
      expect_same({made(operation::construct, path), made(wanted, text)}, looks::at_end);
    }
  }
  step const simplification = made(operation::become_simplified);
  step const second_way = made({operation::old_simplify, "", "", 1}, "");
  step const nowhere = made({operation::current_directory, ""}, "");
  for (std::vector<step> const& before :
       {std::vector<step>{construction}, {construction, second_way}, {construction, nowhere}}) {
    for (treatment const& wanted : {treatment{operation::become_simplified, ""},
                                    {operation::become_absolute, ""},
                                    {operation::become_absolute, "/x/.."},
                                    {operation::cd, "../c"}}) {
      std::vector<step> steps = before;
      steps.push_back(made(wanted, text));
      steps.push_back(simplification);
      expect_same(steps, looks::at_end);
    }
    for (char separator : {'\\', 'a'}) {
      std::vector<step> steps = before;
      steps.push_back(made({operation::path_separator, "", "", separator}, ""));
      steps.push_back(simplification);
      expect_same(steps, looks::at_end);
    }
  }
  step const other_separator = made({operation::path_separator, "", "", '\\'}, "");
  expect_same({construction, other_separator, made(operation::get_relative_to, "/a/b")}, looks::never);
  // Stored under a third separator, a text with `\` is absolute all the same when it is read again.
  step const third_separator = made({operation::path_separator, "", "", '|'}, "");
  expect_same({construction, third_separator, made(operation::assign, text), made(operation::get_relative_to, "/a/b"),
               made(operation::get_relative_to, "\\a\\b")},
              looks::never);
  examine_relations(text);
}

// What must hold whatever the values are.
void examination::examine_relations(std::string const& text) {
  FIO_PATH const path(text);
  FIO_PATH const again(path.fullpath());
  bool const parts_agree = again.fullpath() == path.fullpath() && again.directory() == path.directory() &&
                           again.base() == path.base() && again.extension() == path.extension();
  expect(parts_agree, "the finished text has the parts that it was made of", text, path.fullpath());
  expect(path.directory() + path.filename() == path.fullpath(), "the parts make up the text", text, path.fullpath());
  for (bool second_way : {false, true}) {
    real_side::set_old_simplify(second_way);
    FIO_PATH once(path);
    once.become_simplified();
    FIO_PATH twice(once);
    twice.become_simplified();
    expect(twice.fullpath() == once.fullpath(), "simplified twice is simplified once", text, once.fullpath());
    expect(once.absolute() == path.absolute(), "simplification keeps an absolute path absolute", text, once.fullpath());
    if (path.has_directory()) {
      FIO_PATH flat(path);
      flat.flatten();
      expect(flat.fullpath() == once.fullpath(), "both ways agree where there is a directory", text, once.fullpath());
    }
  }
  real_side::set_old_simplify(false);
  platform_double::debug_messages().clear();
}

void examination::examine_pairs() {
  std::uint64_t const count = count_of(six_characters, longest_of_a_pair);
  std::uint64_t const short_count = count_of(six_characters, m_extent.longest_of_all_pairs);
  for (std::uint64_t number = 0; number < count * count && !is_over(); ++number) {
    std::uint64_t const left = number / count;
    std::uint64_t const right = number % count;
    bool const is_short = left < short_count && right < short_count;
    // Divided first, so that the strides do not keep to one worker.
    if ((is_short || number % m_extent.pair_stride == 0) && is_mine(number / m_extent.pair_stride)) {
      examine_pair(text_of_number(six_characters, left), text_of_number(six_characters, right));
    }
  }
}

// Every pattern on every name. The texts of the pairs above hold no wildcard.
void examination::examine_patterns() {
  std::uint64_t const names = count_of(name_characters, m_extent.longest_name);
  std::uint64_t const patterns = count_of(pattern_characters, m_extent.longest_pattern);
  for (std::uint64_t number = m_worker; number < patterns && !is_over(); number += m_jobs) {
    std::string const pattern = text_of_number(pattern_characters, number);
    std::vector<step> steps;
    for (std::uint64_t name = 0; name < names; ++name) {
      std::string const name_text = text_of_number(name_characters, name);
      steps.push_back(made({operation::same_file, name_text.c_str(), "T"}, pattern));
    }
    m_pairs += names;
    expect_same(steps, looks::never);
  }
}

void examination::examine_pair(std::string const& left, std::string const& right) {
  ++m_pairs;
  step second = made(operation::construct, right);
  second.target = 1;
  expect_same({made(operation::construct, left), second, on_pair(operation::equal), on_pair(operation::unequal),
               on_pair(operation::less), made(operation::equal_to_text, right), made(operation::unequal_to_text, right),
               made(operation::less_than_text, right), made(operation::get_relative_to, right),
               made({operation::same_file, left.c_str(), "T"}, right),
               made({operation::os_specific_comparison, left.c_str(), "T"}, right)},
              looks::never);
  expect_same({made({operation::construct_joined, left.c_str(), "T"}, right)}, looks::at_end);
  examine_both_ways(left, right);
}

// The comparisons against each other, and the operands after them.
void examination::examine_both_ways(std::string const& left_text, std::string const& right_text) {
  FIO_PATH const left(left_text);
  FIO_PATH const right(right_text);
  std::string const left_before = left.fullpath();
  std::string const right_before = right.fullpath();
  bool const equal = left == right;
  bool const less = left < right;
  expect(equal != (left != right), "== against !=", left_text, right_text);
  expect(equal == (right == left), "== is the same both ways", left_text, right_text);
  expect(!(less && right < left), "< holds one way only", left_text, right_text);
  expect(!(equal && less), "equal paths have no order", left_text, right_text);
  if (left_text == right_text) {
    expect(equal, "a path equals itself", left_text, right_text);
    expect(!less, "a path is not less than itself", left_text, right_text);
  }
  expect(left.fullpath() == left_before && right.fullpath() == right_before, "a comparison changes no operand",
         left_text, right_text);
}

} // namespace

int main(int argument_count, char** arguments) {
  program_options const options = read_options(argument_count, arguments);
  extent const& wanted = options.full ? full_extent : quick_extent;
  auto const counted =
      run_workers(options.jobs, [&](int worker) { return examination(wanted, options.jobs, worker).run(); });
  if (!counted) {
    std::fprintf(stderr, "a worker process did not come to its end\n");
    return 1;
  }
  auto const [texts, pairs, comparisons, differences] = *counted;
  std::printf("exhaustive strings: %s strings and %s pairs, %s comparisons, %s differences\n", grouped(texts).c_str(),
              grouped(pairs).c_str(), grouped(comparisons).c_str(), grouped(differences).c_str());
  return differences == 0 ? 0 : 1;
}
