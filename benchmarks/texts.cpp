#include "benchmarks/texts.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <system_error>

namespace bench {

namespace {

// The distributions of the standard library differ between its implementations; the engine does not.
class dice {
public:
  explicit dice(std::uint64_t seed) : m_engine(seed) {}

  std::size_t below(std::size_t bound) { return static_cast<std::size_t>(m_engine() % bound); }
  bool chance(std::size_t percent) { return below(100) < percent; }

  template <typename Element, std::size_t count>
  Element const& one_of(Element const (&list)[count]) {
    return list[below(count)];
  }

private:
  std::mt19937_64 m_engine;
};

constexpr std::uint64_t seed = 20251121;

char const* const words[] = {"alu",        "fifo",    "uart",    "core",      "bus",      "bridge",   "timing",
                             "memory",     "decoder", "arbiter", "cache",     "pipeline", "register", "interrupt",
                             "channel",    "packet",  "clock",   "reset",     "serial",   "transmit", "receive",
                             "buffer",     "control", "status",  "floorplan", "netlist",  "report",   "constraint",
                             "simulation", "wrapper", "io",      "tb"};
char const* const roots[] = {"projects", "home/design", "work", "srv/builds/nightly", "usr/share", "opt/tools"};
char const* const folders[] = {"rtl", "lib", "sim", "doc", "include", "scripts", "db", "output_files", "synthesis"};
char const* const extensions[] = {".v", ".sv", ".vhd", ".h", ".tcl", ".sdc", ".txt", ".rpt", ".mif", ".py", ".csf.rpt"};

std::string make_name(dice& rolls) {
  std::string name = rolls.one_of(words);
  for (std::size_t more = rolls.below(3); more != 0; --more) {
    name += rolls.chance(80) ? '_' : '-';
    name += rolls.one_of(words);
  }
  return rolls.chance(20) ? name + std::to_string(rolls.below(100)) : name;
}

std::string make_absolute(dice& rolls) {
  std::string text = std::string("/") + rolls.one_of(roots);
  for (std::size_t levels = 1 + rolls.below(5); levels != 0; --levels) {
    text += '/';
    text += rolls.chance(40) ? rolls.one_of(folders) : make_name(rolls);
  }
  text += '/' + make_name(rolls);
  if (rolls.chance(85)) {
    text += rolls.one_of(extensions);
  } else if (rolls.chance(30)) {
    text += '/';
  }
  return text;
}

std::string cut_to_relative(std::string const& text, dice& rolls) {
  std::size_t start = 1;
  for (std::size_t levels = 1 + rolls.below(3); levels != 0; --levels) {
    std::size_t const next = text.find('/', start);
    start = next != std::string::npos && next + 1 < text.size() ? next + 1 : start;
  }
  return text.substr(start);
}

// The same place spelled otherwise.
std::string respell(std::string const& text, dice& rolls, bool with_backslashes) {
  static char const* const detours[] = {"./", "tmp/../", "a/b/../../", "/", "//"};
  std::string result;
  bool changed = false;
  for (std::size_t i = 0; i != text.size(); ++i) {
    bool const may_change = text[i] == '/';
    result += may_change && with_backslashes && rolls.chance(8) ? '\\' : text[i];
    if (may_change && (rolls.chance(25) || (!changed && text.find('/', i + 1) == std::string::npos))) {
      result += rolls.one_of(detours);
      changed = true;
    }
  }
  return result;
}

std::string make_untidy(std::string const& text, dice& rolls) {
  std::string result = respell(text, rolls, true);
  if (rolls.chance(30)) {
    result = (rolls.chance(50) ? "../" : "./") + result.substr(1);
  }
  return rolls.chance(10) ? result + "/.." : result;
}

// Brings absolute texts in normal form into the proportions of the corpus.
texts in_proportion(texts plain, dice& rolls) {
  for (std::size_t i = 0; i != plain.size(); ++i) {
    switch (i % 10) {
    case 8:
      plain[i] = cut_to_relative(plain[i], rolls);
      break;
    case 9:
      plain[i] = make_untidy(plain[i], rolls);
      break;
    default:
      break;
    }
  }
  return plain;
}

bool has_dot_level(std::string const& text) {
  std::string const closed = '/' + text + '/';
  return closed.find("/./") != std::string::npos || closed.find("/../") != std::string::npos;
}

bool is_plain(std::string const& text) {
  return text.find('\\') == std::string::npos && text.find("//") == std::string::npos && !has_dot_level(text);
}

struct text_sets {
  texts all;
  texts plain_absolute;
  texts plain_relative;
  texts dotted;
  texts names;
  text_pairs neighbours;
  text_pairs same_places;
  text_pairs path_and_directory;
};

text_sets sets;

std::string directory_of(std::string const& text, std::size_t levels_up) {
  std::size_t end = text.rfind('/');
  for (; levels_up != 0 && end != 0; --levels_up) {
    end = text.rfind('/', end - 1);
  }
  return text.substr(0, std::max<std::size_t>(end, 1));
}

} // namespace

texts generated_texts(std::size_t count) {
  dice rolls(seed);
  texts all(count);
  std::generate(all.begin(), all.end(), [&rolls] { return make_absolute(rolls); });
  return in_proportion(std::move(all), rolls);
}

texts machine_texts(std::size_t count) {
  namespace fs = std::filesystem;
  texts all;
  for (char const* root : {"/usr", "/etc", "/opt", "/var/lib"}) {
    std::error_code error;
    fs::recursive_directory_iterator entry(root, fs::directory_options::skip_permission_denied, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
      std::string const text = entry->path().string();
      if (is_plain(text) && text.size() < 1000 && text.find('\n') == std::string::npos) {
        all.push_back(text);
      }
    }
  }
  if (all.empty()) {
    throw std::runtime_error("no files to take names from");
  }
  std::sort(all.begin(), all.end()); // the order of the directories changes from run to run
  dice rolls(seed);
  for (std::size_t i = 0; i != all.size(); ++i) {
    std::swap(all[i], all[i + rolls.below(all.size() - i)]);
  }
  for (std::size_t i = 0; all.size() < count; ++i) {
    all.push_back(all[i]);
  }
  all.resize(count);
  return in_proportion(std::move(all), rolls);
}

texts odd_texts() {
  std::string const levels(511, 'd');
  return {"",
          ".",
          "..",
          "/",
          "//",
          "\\",
          "a",
          "/a",
          "/..",
          "/../..",
          "/a/..",
          "a/..",
          "a/../..",
          "../..",
          "../../a/..",
          "./",
          "/./.",
          "/a/b/.",
          "dir/..",
          "dir/...",
          "..v",
          "dir/..v",
          ".profile",
          "dir/.profile",
          "a.b.c",
          "dir.d/f",
          "a/.b/..c",
          "C:\\x\\y.z",
          "a///b\\\\c",
          "a/b//../c",
          "/a/./",
          "x/./././",
          "/" + levels + "/" + std::string(510, 'n'), // the longest path
          "/" + levels + "/" + std::string(511, 'n'), // one more
          std::string(1023, 'n'),
          std::string(1024, 'n'),
          "n." + std::string(255, 'e'),
          "n." + std::string(256, 'e'),
          "/d/./n." + std::string(300, 'e'),
          levels + "/../" + std::string(500, 'n')};
}

void use_texts(texts all) {
  sets = {};
  dice rolls(seed);
  for (std::string const& text : all) {
    if (!is_plain(text)) {
      if (has_dot_level(text)) {
        sets.dotted.push_back(text);
      }
    } else if (!text.empty() && text.size() < 1000) {
      (text.front() == '/' ? sets.plain_absolute : sets.plain_relative).push_back(text);
      sets.names.push_back(text.substr(text.rfind('/', text.size() - 2) + 1));
    }
  }
  for (std::string const& text : sets.plain_absolute) {
    sets.same_places.emplace_back(text, respell(text, rolls, false));
    std::string const& other = sets.plain_absolute[rolls.below(sets.plain_absolute.size())];
    std::string directory = directory_of(text, rolls.below(3));
    if (rolls.chance(40)) {
      directory = directory_of(directory + other, 0);
    }
    sets.path_and_directory.emplace_back(text, directory);
  }
  texts sorted = sets.plain_absolute;
  std::sort(sorted.begin(), sorted.end());
  sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
  for (std::size_t i = 0; i + 1 < sorted.size(); ++i) {
    sets.neighbours.emplace_back(sorted[i], sorted[i + 1]);
  }
  // Neighbours are found one behind the other in no use of paths.
  for (std::size_t i = 0; i < sets.neighbours.size(); ++i) {
    std::swap(sets.neighbours[i], sets.neighbours[i + rolls.below(sets.neighbours.size() - i)]);
  }
  sets.all = std::move(all);
}

texts const& all_texts() { return sets.all; }
texts const& plain_absolute() { return sets.plain_absolute; }
texts const& plain_relative() { return sets.plain_relative; }
texts const& dotted() { return sets.dotted; }
texts const& names() { return sets.names; }
text_pairs const& neighbours() { return sets.neighbours; }
text_pairs const& same_places() { return sets.same_places; }
text_pairs const& path_and_directory() { return sets.path_and_directory; }

std::string text_with_levels(int levels, bool dots) {
  std::string text;
  for (int level = 1; level <= levels; ++level) {
    text += dots && level % 3 == 0 ? "/.." : "/dir";
  }
  return text + "/unit.v";
}

} // namespace bench
