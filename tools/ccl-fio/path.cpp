// path: the parts of a path, and what the operations on paths make of it, side by side.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tools/ccl-fio/command.h"
#include "tools/ccl-fio/json.h"
#include "tools/ccl-fio/output.h"

namespace tool {

namespace {

struct path_options {
  format_options format;
  std::vector<std::string> names;
  bool simplify = false;
  bool absolute = false;
  std::optional<std::string> absolute_to;
  std::optional<std::string> relative_to;
  bool canonical = false;
  bool same = false;
};

/// A path under a heading: as it was given, or what an operation made of it, which may be nothing.
struct version {
  std::string heading;
  std::optional<FIO_PATH> path;
};

// The operations

FIO_PATH simplified(FIO_PATH path, bool old_algorithm) {
  if (!old_algorithm) {
    path.flatten();
    return path;
  }
  ::setenv("fio_old_simplify", "1", 1);
  path.become_simplified();
  return path;
}

/// The given path and what the operation makes of it. The last one is the result.
std::vector<version> versions_of(std::string const& name, path_options const& given) {
  FIO_PATH const path(name);
  std::vector<version> versions = {{"given", path}};
  if (given.simplify) {
    versions.push_back({"old algorithm", simplified(path, true)});
    versions.push_back({"simplified", simplified(path, false)});
  } else if (given.absolute || given.absolute_to) {
    FIO_PATH absolute = path;
    absolute.become_absolute(given.absolute_to.value_or(""));
    versions.push_back({"absolute", absolute});
  } else if (given.relative_to) {
    versions.push_back({"relative", FIO_PATH(path.get_relative_to(*given.relative_to))});
  } else if (given.canonical) {
    auto const real = FIO_PATH::canonical(path);
    versions.push_back({"real", real ? std::optional<FIO_PATH>(*real) : std::nullopt});
  }
  return versions;
}

bool is_usable(version const& one) { return one.path && one.path->is_legal_length(); }

// The components

struct component {
  char const* name;
  std::string text;
};

std::vector<component> components_of(FIO_PATH const& path) {
  return {{"path", path.fullpath()},
          {"directory", path.directory()},
          {"base", path.base()},
          {"extension", path.extension()},
          {"filename", path.filename()},
          {"tail", path.tail()},
          {"levels", std::to_string(path.levels())},
          {"absolute", path.absolute() ? "yes" : "no"}};
}

json to_json(version const& one) {
  if (!is_usable(one)) {
    return nullptr;
  }
  json object;
  for (component const& part : components_of(*one.path)) {
    object[part.name] = name_to_json(part.text);
  }
  object["levels"] = one.path->levels();
  object["absolute"] = one.path->absolute();
  return object;
}

char const* fault_of(version const& one) { return one.path ? "too long for a path" : "not found"; }

/// Versions of a path beside each other, a component on each line.
void write_side_by_side(std::vector<version> const& versions) {
  table contents = {{{"part"}}, versions.size() + 1, {}, true};
  std::vector<component> const parts = components_of(FIO_PATH());
  for (component const& part : parts) {
    contents.rows.push_back({{part.name}});
  }
  for (version const& one : versions) {
    contents.columns.push_back({one.heading});
    std::vector<component> const texts = components_of(is_usable(one) ? *one.path : FIO_PATH());
    for (std::size_t i = 0; i != texts.size(); ++i) {
      contents.rows[i].push_back({contents.keep(is_usable(one) ? texts[i].text : "")});
    }
    if (!is_usable(one)) {
      contents.rows.front().back() = {fault_of(one), style::bad};
    }
  }
  write_table(contents, false);
}

void write_parts(std::vector<std::string> const& names, bool all_columns) {
  table contents = {{}, 4, {}, true};
  for (component const& part : components_of(FIO_PATH())) {
    contents.columns.push_back({part.name});
  }
  for (std::string const& name : names) {
    version const one = {"", FIO_PATH(name)};
    auto& row = contents.rows.emplace_back();
    if (!is_usable(one)) {
      row.resize(contents.columns.size());
      row.front() = {name};
      row[1] = {fault_of(one), style::bad};
      continue;
    }
    for (component const& part : components_of(*one.path)) {
      row.push_back({contents.keep(part.text)});
    }
  }
  write_table(contents, all_columns);
}

// The subcommand

exit_status run_same(std::vector<std::string> const& names, bool as_json) {
  if (names.size() != 2) {
    throw usage_error("path: --same takes two names");
  }
  FIO_PATH const left(names[0]);
  FIO_PATH const right(names[1]);
  // A text that is too long for a path counts as empty.
  bool const same = left.is_legal_length() && right.is_legal_length() && left == right;
  json object = {{"same", same}, {"names", json::array()}};
  table contents = {{{"name"}, {"compared as"}, {"real location"}}, 2, {}};
  for (std::string const& name : names) {
    FIO_PATH compared(name);
    compared.become_absolute("");
    compared.become_simplified();
    std::string const real = FIO_PATH::canonical(name).get_value_or("");
    contents.rows.push_back({{name}, {contents.keep(compared.fullpath())}, {contents.keep(real)}});
    object["names"].push_back({{"name", name_to_json(name)},
                               {"compared_as", name_to_json(compared.fullpath())},
                               {"real_location", name_or_null(real)}});
  }
  if (as_json) {
    write_json(object);
  } else {
    write_table(contents, true);
    write(same ? styled("the same", style::good, stdout) + '\n' : styled("not the same", style::bad, stdout) + '\n');
  }
  return same ? done : not_all;
}

exit_status run(path_options const& given) {
  if (given.simplify + given.absolute + given.absolute_to.has_value() + given.relative_to.has_value() +
          given.canonical + given.same >
      1) {
    throw usage_error("path: one operation at a time");
  }
  std::vector<std::string> const names = expand_names(given.names, given.format.zero);
  if (given.same) {
    return run_same(names, given.format.json);
  }
  exit_status status = done;
  json list = json::array();
  bool shows_parts = false;
  char const* gap = "";
  for (std::string const& name : names) {
    std::vector<version> const versions = versions_of(name, given);
    version const& result = versions.back();
    bool const is_unrelated = given.relative_to && result.path->absolute() == versions.front().path->absolute();
    status = is_usable(versions.front()) && is_usable(result) && !is_unrelated ? status : not_all;
    if (given.format.json) {
      json object = {{"name", name_to_json(name)}};
      for (version const& one : versions) {
        std::string key = one.heading;
        std::replace(key.begin(), key.end(), ' ', '_');
        object[key] = to_json(one);
      }
      list.push_back(std::move(object));
    } else if (given.format.zero) {
      if (is_usable(result)) {
        write_record(result.path->fullpath());
      }
    } else if (versions.size() == 1) {
      shows_parts = true;
    } else {
      write(gap);
      write_side_by_side(versions);
      gap = "\n";
    }
  }
  if (given.format.json) {
    write_json(list);
  } else if (shows_parts) {
    write_parts(names, given.format.all_columns);
  }
  return status;
}

} // namespace

void add_path(CLI::App& application, invocation& call) {
  auto const given = std::make_shared<path_options>();
  CLI::App& path = *application.add_subcommand("path", "print the parts of paths, or what an operation makes of them");
  path.add_flag("--simplify", given->simplify, "remove . and .., by both algorithms of the library");
  path.add_flag("--absolute", given->absolute, "make a relative path absolute to the current directory");
  add_anchor(path, "--absolute-to", given->absolute_to, "make a relative path absolute to this directory");
  add_anchor(path, "--relative-to", given->relative_to, "make an absolute path relative to this directory");
  path.add_flag("--canonical", given->canonical, "print the absolute path with symbolic links resolved");
  auto* const same = path.add_flag("--same", given->same, "compare two paths");
  add_format_options(path, given->format, "print all parts");
  same->excludes(path.get_option("--null"));
  // An operation shows all parts anyway.
  for (char const* const operation :
       {"--simplify", "--absolute", "--absolute-to", "--relative-to", "--canonical", "--same"}) {
    path.get_option(operation)->excludes(path.get_option("--long"));
  }
  add_names(path, "a path; - for standard input");
  run_with_names(path, call, given->names, [given] { return run(*given); });
}

} // namespace tool
