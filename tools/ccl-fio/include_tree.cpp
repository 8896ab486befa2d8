#include "tools/ccl-fio/include_tree.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <set>

#include "ccl/fio/fio_file_sys.h"
#include "tools/ccl-fio/include_scanner.h"
#include "tools/ccl-fio/json.h"
#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/search.h"

namespace tool {

namespace {

/// What became of a file.
enum class state { read, repeated, loop, missing, macro, unreadable, too_deep };

/// Beyond this depth a tree is not followed: no design has it, and the stack has an end.
constexpr std::size_t deepest = 1000;

struct node {
  std::string name;
  int line = 0; ///< 0 for a source of the command line
  std::string path = {};
  state found = state::read;
  std::string reason = {};                 ///< why it cannot be read
  std::vector<std::string> looked_at = {}; ///< where it is not
  std::vector<node> includes = {};
};

/// The content of a file, or nothing, with the cause in `errno`.
std::optional<std::string> content_of(std::string const& path) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(FIO_FILE_SYSTEM::fopen(path.c_str(), "rb"), &std::fclose);
  if (file == nullptr) {
    return std::nullopt;
  }
  // Not by way of a buffer on the stack: a compiler that inlines this gives each level of the tree one.
  constexpr std::size_t chunk = 65536;
  std::string content;
  std::size_t size = 0;
  do {
    size = content.size();
    content.resize(size + chunk);
    content.resize(size + std::fread(&content[size], 1, chunk, file.get()));
  } while (content.size() != size);
  return std::ferror(file.get()) != 0 ? std::nullopt : std::optional<std::string>(std::move(content));
}

class tree_maker {
public:
  tree_maker(FIO_FIND const& find, bool beside) : m_find(find), m_search(find), m_beside(beside) {}

  node make(std::string const& source) {
    node root = {source, 0, source};
    read(root);
    return root;
  }

private:
  void read(node& file) {
    // Two names of one file are one file, and so is a file with itself.
    std::string const real = FIO_PATH::canonical(file.path).get_value_or(file.path);
    if (std::find(m_above.begin(), m_above.end(), real) != m_above.end()) {
      file.found = state::loop;
      return;
    }
    if (!m_read.insert(real).second) {
      file.found = state::repeated;
      return;
    }
    std::optional<std::string> const content = content_of(file.path);
    if (!content) {
      file.found = state::unreadable;
      file.reason = std::strerror(errno);
      return;
    }
    if (m_above.size() == deepest) {
      file.found = state::too_deep;
      return;
    }
    m_above.push_back(real);
    for (include_directive const& directive : scan_includes(*content)) {
      file.includes.push_back(follow(directive, file.path));
    }
    m_above.pop_back();
  }

  node follow(include_directive const& directive, std::string const& including) {
    node included = {directive.name, directive.line};
    if (directive.is_macro) {
      included.found = state::macro;
      return included;
    }
    std::string const own = own_place_of(directive.name, including);
    if (!own.empty() && FIO_FILE_SYSTEM::exists(own.c_str())) {
      included.path = own;
    } else if (!FIO_PATH(directive.name).absolute()) {
      included.path = m_search.first(directive.name);
    }
    if (!included.path.empty()) {
      read(included);
      m_find.make_path_absolute_if_relative(&included.path);
      return included;
    }
    included.found = state::missing;
    if (!own.empty()) {
      included.looked_at.push_back(own);
    }
    if (!FIO_PATH(directive.name).absolute()) {
      std::vector<std::string> const places = m_search.places(directive.name);
      std::copy_if(places.begin(), places.end(), std::back_inserter(included.looked_at),
                   [&own](std::string const& place) { return place != own; });
    }
    std::for_each(included.looked_at.begin(), included.looked_at.end(),
                  [this](std::string& place) { m_find.make_path_absolute_if_relative(&place); });
    return included;
  }

  /// The place of a name that does not depend on the search path, or an empty string.
  std::string own_place_of(std::string const& name, std::string const& including) const {
    if (FIO_PATH(name).absolute()) {
      return name;
    }
    return m_beside ? FIO_PATH(including).filename(name).fullpath() : std::string();
  }

  FIO_FIND const& m_find;
  name_search m_search;
  bool m_beside;
  std::vector<std::string> m_above; ///< the files that are being read
  std::set<std::string> m_read;
};

bool is_complete(node const& file) {
  bool const here = file.found == state::read || file.found == state::repeated || file.found == state::loop;
  return here && std::all_of(file.includes.begin(), file.includes.end(), is_complete);
}

char const* word_of(state found) {
  constexpr char const* words[] = {"read", "repeated", "loop", "missing", "macro", "unreadable", "too_deep"};
  return words[static_cast<int>(found)];
}

std::string remark_on(node const& file) {
  switch (file.found) {
  case state::read:
    break;
  case state::repeated:
    return "shown above";
  case state::loop:
    return "include loop";
  case state::missing:
    return "not found";
  case state::macro:
    return "name given by a macro";
  case state::unreadable:
    return "cannot be read: " + file.reason;
  case state::too_deep:
    return "nested too deeply";
  }
  return "";
}

/// Writes a remark behind the name on its line, or below it if only there is room.
void write_line(std::string const& name, style look, std::size_t indent, std::string const& remark) {
  std::size_t const width = output_width();
  std::size_t const below = indent + 4;
  write(std::string(indent, ' ') + styled(name, look, stdout));
  if (remark.empty() || indent + width_of(name) + 2 + remark.size() <= width || below >= width) {
    write((remark.empty() ? "" : "  ") + styled(remark, style::faint, stdout) + '\n');
    return;
  }
  write("\n");
  for (std::string const& part : wrapped(remark, width - below)) {
    write(std::string(below, ' ') + styled(part, style::faint, stdout) + '\n');
  }
}

void write_for_people(node const& file, std::size_t depth) {
  bool const wrong = file.found != state::read && file.found != state::repeated;
  std::string remark = file.line != 0 ? fmt::format("line {}", file.line) : std::string();
  if (std::string const found = remark_on(file); !found.empty()) {
    remark.append(remark.empty() ? "" : ", ").append(found);
  }
  write_line(escaped(file.path.empty() ? file.name : file.path), wrong ? style::bad : style::plain, 2 * depth,
             remark.empty() ? remark : "(" + remark + ")");
  for (std::string const& place : file.looked_at) {
    write(std::string(2 * depth + 4, ' ') + "no " + escaped(place) + '\n');
  }
  for (node const& included : file.includes) {
    write_for_people(included, depth + 1);
  }
}

json to_json(node const& file) {
  json object = {{"name", name_to_json(file.name)},
                 {"line", file.line == 0 ? json() : json(file.line)},
                 {"path", name_or_null(file.path)},
                 {"state", word_of(file.found)},
                 {"reason", name_or_null(file.reason)},
                 {"looked_at", json::array()},
                 {"includes", json::array()}};
  std::transform(file.looked_at.begin(), file.looked_at.end(), std::back_inserter(object["looked_at"]), name_to_json);
  std::transform(file.includes.begin(), file.includes.end(), std::back_inserter(object["includes"]), to_json);
  return object;
}

/// The files that are included, each once.
void write_records(node const& file) {
  if (file.line != 0 && file.found == state::read) {
    write_record(file.path);
  }
  std::for_each(file.includes.begin(), file.includes.end(), write_records);
}

} // namespace

exit_status write_include_trees(FIO_FIND const& find, std::vector<std::string> const& sources, bool beside,
                                format_options const& format) {
  tree_maker maker(find, beside);
  std::vector<node> trees;
  std::transform(sources.begin(), sources.end(), std::back_inserter(trees),
                 [&maker](std::string const& source) { return maker.make(source); });
  if (format.json) {
    json list = json::array();
    std::transform(trees.begin(), trees.end(), std::back_inserter(list), to_json);
    write_json(list);
  } else {
    for (node const& tree : trees) {
      format.zero ? write_records(tree) : write_for_people(tree, 0);
    }
  }
  return std::all_of(trees.begin(), trees.end(), is_complete) ? done : not_all;
}

} // namespace tool
