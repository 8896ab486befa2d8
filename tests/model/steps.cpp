#include "tests/model/steps.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>

namespace {

// The names of the operations that are no members, whichever side a scene belongs to.
template <typename Scene>
using side_of = typename std::decay_t<Scene>::side;
template <typename Scene>
using path_of = typename std::decay_t<Scene>::path;

std::string truth(bool value) { return value ? "true" : "false"; }

// What a setter hands back must be the object itself.
template <typename Path>
std::string itself(Path const& returned, Path const& path) {
  return &returned == &path ? "itself" : "something else";
}

std::string sign(int number) { return number < 0 ? "negative" : number > 0 ? "positive" : "0"; }

template <typename Action>
step_kind kind(operation what, number_use numbers, char const* form, Action action) {
  return {what, numbers, form, action, action};
}

template <typename Action>
step_kind kind(operation what, char const* form, Action action) {
  return kind(what, number_use::none, form, action);
}

// A step that makes a new path in the place of the target.
template <typename Maker>
step_kind construction(operation what, char const* form, Maker maker) {
  return kind(what, form, [maker](auto& all, step const& s) {
    auto made = maker(all, s);
    all.paths[s.target] = std::move(made);
    return std::string();
  });
}

// A step on the target alone.
template <typename Action>
step_kind on_target(operation what, number_use numbers, char const* form, Action action) {
  return kind(what, numbers, form,
              [action](auto& all, step const& s) -> std::string { return action(*all.paths[s.target], s); });
}

template <typename Action>
step_kind on_target(operation what, char const* form, Action action) {
  return on_target(what, number_use::none, form, action);
}

// A step on the target and the source.
template <typename Action>
step_kind on_both(operation what, char const* form, Action action) {
  return kind(what, form, [action](auto& all, step const& s) -> std::string {
    return action(*all.paths[s.target], *all.paths[s.source]);
  });
}

template <typename Scene>
using new_path = std::unique_ptr<path_of<Scene>>;

void add_constructions(std::vector<step_kind>& rows) {
  rows.push_back(construction(operation::construct, "FIO_PATH $t(std::string($1));", [](auto& all, step const& s) {
    return new_path<decltype(all)>(new path_of<decltype(all)>(s.first));
  }));
  rows.push_back(construction(operation::construct_from_characters, "FIO_PATH $t($1);", [](auto& all, step const& s) {
    return new_path<decltype(all)>(new path_of<decltype(all)>(s.first.c_str()));
  }));
  rows.push_back(construction(operation::construct_from_null, "FIO_PATH $t(nullptr);", [](auto& all, step const&) {
    return new_path<decltype(all)>(new path_of<decltype(all)>(static_cast<char const*>(nullptr)));
  }));
  rows.push_back(construction(operation::construct_joined, "FIO_PATH $t($1, $2);", [](auto& all, step const& s) {
    return new_path<decltype(all)>(new path_of<decltype(all)>(s.first, s.second));
  }));
  rows.push_back(construction(operation::construct_copy, "FIO_PATH $t($s);", [](auto& all, step const& s) {
    return new_path<decltype(all)>(new path_of<decltype(all)>(std::as_const(*all.paths[s.source])));
  }));
  rows.push_back(construction(operation::construct_moved, "FIO_PATH $t(std::move($s));", [](auto& all, step const& s) {
    return new_path<decltype(all)>(new path_of<decltype(all)>(std::move(*all.paths[s.source])));
  }));
}

void add_assignments(std::vector<step_kind>& rows) {
  rows.push_back(on_both(operation::assign_copy, "$t = $s;",
                         [](auto& path, auto& other) { return itself(path = std::as_const(other), path); }));
  rows.push_back(on_both(operation::assign_moved, "$t = std::move($s);",
                         [](auto& path, auto& other) { return itself(path = std::move(other), path); }));
  rows.push_back(on_target(operation::assign, "$t = std::string($1);",
                           [](auto& path, step const& s) { return itself(path = s.first, path); }));
  rows.push_back(on_target(operation::assign_characters, "$t = $1;",
                           [](auto& path, step const& s) { return itself(path = s.first.c_str(), path); }));
  rows.push_back(on_target(operation::assign_null, "$t = nullptr;", [](auto& path, step const&) {
    return itself(path = static_cast<char const*>(nullptr), path);
  }));
  rows.push_back(
      on_target(operation::assign_own_characters, number_use::offset,
                "$t = static_cast<char const*>($t) + $n; // at most its length", [](auto& path, step const& s) {
                  char const* const own = path;
                  return itself(path = own + std::min(static_cast<std::size_t>(s.number), std::strlen(own)), path);
                }));
  rows.push_back(on_target(operation::split_full_path, "$t.split_full_path($1);", [](auto& path, step const& s) {
    path.split_full_path(s.first.c_str());
    return std::string();
  }));
  rows.push_back(kind(operation::make_path, number_use::component, "$t.make_path(FIO_PATH::FILE_COMPONENTS($n), $1);",
                      [](auto& all, step const& s) {
                        using component = typename side_of<decltype(all)>::component;
                        all.paths[s.target]->make_path(static_cast<component>(s.number), s.first);
                        return std::string();
                      }));
}

void add_setters(std::vector<step_kind>& rows) {
  rows.push_back(
      on_target(operation::path_separator, number_use::separator, "$t.path_separator($c);",
                [](auto& p, step const& s) { return itself(p.path_separator(static_cast<char>(s.number)), p); }));
  rows.push_back(on_target(operation::drive_letter, number_use::letter, "$t.drive($c);",
                           [](auto& p, step const& s) { return itself(p.drive(static_cast<char>(s.number)), p); }));
  rows.push_back(on_target(operation::drive, "$t.drive(std::string($1));",
                           [](auto& p, step const& s) { return itself(p.drive(s.first), p); }));
  rows.push_back(on_target(operation::directory, "$t.directory($1);",
                           [](auto& p, step const& s) { return itself(p.directory(s.first), p); }));
  rows.push_back(
      on_target(operation::base, "$t.base($1);", [](auto& p, step const& s) { return itself(p.base(s.first), p); }));
  rows.push_back(on_target(operation::filename, "$t.filename($1);",
                           [](auto& p, step const& s) { return itself(p.filename(s.first), p); }));
  rows.push_back(
      on_target(operation::tail, "$t.tail($1);", [](auto& p, step const& s) { return itself(p.tail(s.first), p); }));
  rows.push_back(on_target(operation::no_extension, "$t.no_extension();",
                           [](auto& p, step const&) { return itself(p.no_extension(), p); }));
}

void add_extension_setters(std::vector<step_kind>& rows) {
  rows.push_back(kind(operation::extension_types, number_use::extension_type,
                      "$t.extension(FIO_EXTENSION_TYPE($n), FIO_EXTENSION_TYPE($m));", [](auto& all, step const& s) {
                        using type = typename side_of<decltype(all)>::extension_type;
                        auto& path = *all.paths[s.target];
                        return itself(path.extension(static_cast<type>(s.number), static_cast<type>(s.other_number)),
                                      path);
                      }));
  rows.push_back(kind(operation::extension_type_and_text, number_use::extension_type,
                      "$t.extension(FIO_EXTENSION_TYPE($n), std::string($2));", [](auto& all, step const& s) {
                        using type = typename side_of<decltype(all)>::extension_type;
                        auto& path = *all.paths[s.target];
                        return itself(path.extension(static_cast<type>(s.number), s.second), path);
                      }));
  rows.push_back(kind(operation::extension_text_and_type, number_use::extension_type,
                      "$t.extension(std::string($1), FIO_EXTENSION_TYPE($m));", [](auto& all, step const& s) {
                        using type = typename side_of<decltype(all)>::extension_type;
                        auto& path = *all.paths[s.target];
                        return itself(path.extension(s.first, static_cast<type>(s.other_number)), path);
                      }));
  rows.push_back(on_target(operation::extension_texts, "$t.extension(std::string($1), std::string($2));",
                           [](auto& p, step const& s) { return itself(p.extension(s.first, s.second), p); }));
}

void add_moves(std::vector<step_kind>& rows) {
  rows.push_back(on_target(operation::become_simplified, "$t.become_simplified();", [](auto& path, step const&) {
    path.become_simplified();
    return std::string();
  }));
  rows.push_back(on_target(operation::flatten, "$t.flatten();", [](auto& path, step const&) {
    path.flatten();
    return std::string();
  }));
  rows.push_back(on_target(operation::become_absolute, "$t.become_absolute($1);", [](auto& path, step const& s) {
    path.become_absolute(s.first);
    return std::string();
  }));
  rows.push_back(
      on_target(operation::cd, "$t.cd($1);", [](auto& path, step const& s) { return itself(path.cd(s.first), path); }));
}

void add_queries(std::vector<step_kind>& rows) {
  rows.push_back(on_target(operation::get_path_components, number_use::mask, "$t.get_path_components($n)",
                           [](auto const& path, step const& s) { return path.get_path_components(s.number); }));
  rows.push_back(on_target(operation::level, number_use::level, "$t[$n]",
                           [](auto const& path, step const& s) { return path[s.number]; }));
  rows.push_back(on_target(operation::legal, number_use::level, "$t.legal($n)",
                           [](auto const& path, step const& s) { return truth(path.legal(s.number)); }));
  rows.push_back(on_target(operation::sync_path_separators, "$t.sync_path_separators($1)",
                           [](auto const& path, step const& s) { return path.sync_path_separators(s.first); }));
  rows.push_back(on_target(operation::get_relative_to, "$t.get_relative_to($1)",
                           [](auto const& path, step const& s) { return path.get_relative_to(s.first); }));
}

void add_comparisons(std::vector<step_kind>& rows) {
  rows.push_back(
      on_both(operation::equal, "$t == $s", [](auto const& left, auto const& right) { return truth(left == right); }));
  rows.push_back(on_target(operation::equal_to_text, "$t == std::string($1)",
                           [](auto const& path, step const& s) { return truth(path == s.first); }));
  rows.push_back(on_both(operation::unequal, "$t != $s",
                         [](auto const& left, auto const& right) { return truth(left != right); }));
  rows.push_back(on_target(operation::unequal_to_text, "$t != std::string($1)",
                           [](auto const& path, step const& s) { return truth(path != s.first); }));
  rows.push_back(
      on_both(operation::less, "$t < $s", [](auto const& left, auto const& right) { return truth(left < right); }));
  rows.push_back(on_target(operation::less_than_text, "$t < std::string($1)",
                           [](auto const& path, step const& s) { return truth(path < s.first); }));
}

void add_statics(std::vector<step_kind>& rows) {
  rows.push_back(
      kind(operation::os_specific_comparison, "FIO_PATH::os_specific_comparison($1, $2)", [](auto& all, step const& s) {
        return sign(path_of<decltype(all)>::os_specific_comparison(s.first.c_str(), s.second.c_str()));
      }));
  rows.push_back(kind(operation::is_dot_directory, "FIO_PATH::is_dot_directory($1)", [](auto& all, step const& s) {
    return truth(path_of<decltype(all)>::is_dot_directory(s.first));
  }));
  rows.push_back(kind(operation::is_legal_text, "FIO_PATH::is_path_length_within_operating_system_limits($1)",
                      [](auto& all, step const& s) {
                        using path = path_of<decltype(all)>;
                        return truth(path::is_path_length_within_operating_system_limits(s.first));
                      }));
  rows.push_back(kind(operation::is_legal_length, number_use::length,
                      "FIO_PATH::is_path_length_within_operating_system_limits($nul)", [](auto& all, step const& s) {
                        using path = path_of<decltype(all)>;
                        auto const length = static_cast<unsigned long>(s.number);
                        return truth(path::is_path_length_within_operating_system_limits(length));
                      }));
  rows.push_back(kind(operation::same_file, "FIO_FILE_SYSTEM::same_file($1, $2)", [](auto& all, step const& s) {
    return truth(side_of<decltype(all)>::same_file(s.first, s.second));
  }));
  rows.push_back(kind(operation::splitpath, "FIO_FILE_SYSTEM::splitpath($1, drive, dir, base, ext)",
                      [](auto& all, step const& s) { return side_of<decltype(all)>::splitpath(s.first); }));
  rows.push_back(
      kind(operation::makepath, "FIO_FILE_SYSTEM::makepath(buffer, $1, $2, $1, $2)", [](auto& all, step const& s) {
        return side_of<decltype(all)>::makepath(s.first, s.second, s.first, s.second);
      }));
  rows.push_back(kind(operation::length_message, number_use::flag,
                      "fio_display_path_too_long_assert_message($n != 0 ? $1 : nullptr);",
                      [](auto& all, step const& s) {
                        side_of<decltype(all)>::length_message(s.number != 0 ? s.first.c_str() : nullptr);
                        return std::string();
                      }));
}

void add_surroundings(std::vector<step_kind>& rows) {
  rows.push_back(kind(operation::old_simplify, number_use::flag, "set_environment(\"fio_old_simplify\", $n);",
                      [](auto& all, step const& s) {
                        side_of<decltype(all)>::set_old_simplify(s.number != 0);
                        return std::string();
                      }));
  rows.push_back(
      kind(operation::current_directory, "set_current_directory(std::string($1));", [](auto& all, step const& s) {
        side_of<decltype(all)>::set_current_directory(s.first.c_str());
        return std::string();
      }));
}

std::vector<step_kind> make_step_kinds() {
  std::vector<step_kind> rows;
  add_constructions(rows);
  add_assignments(rows);
  add_setters(rows);
  add_extension_setters(rows);
  add_moves(rows);
  add_queries(rows);
  add_comparisons(rows);
  add_statics(rows);
  add_surroundings(rows);
  for (std::size_t index = 0; index < rows.size(); ++index) {
    if (rows[index].what != static_cast<operation>(index)) {
      std::fprintf(stderr, "the row of \"%s\" is not in its place\n", rows[index].form);
      std::abort();
    }
  }
  return rows;
}

// One byte inside of a literal. Three octal digits, so that no digit behind them is drawn in.
std::string escaped(char character) {
  if (character == '"' || character == '\\' || character == '\'') {
    return std::string("\\") + character;
  }
  if (character >= ' ' && character <= '~') {
    return std::string(1, character);
  }
  char text[8];
  std::snprintf(text, sizeof text, "\\%03o", static_cast<unsigned>(static_cast<unsigned char>(character)));
  return text;
}

std::string argument_text(step const& what, char letter) {
  switch (letter) {
  case 't':
    return "p" + std::to_string(what.target);
  case 's':
    return "p" + std::to_string(what.source);
  case '1':
    return literal(what.first);
  case '2':
    return literal(what.second);
  case 'n':
    return std::to_string(what.number);
  case 'm':
    return std::to_string(what.other_number);
  default:
    return "'" + escaped(static_cast<char>(what.number)) + "'";
  }
}

} // namespace

std::vector<step_kind> const& step_kinds() {
  static std::vector<step_kind> const rows = make_step_kinds();
  return rows;
}

step_kind const& kind_of(step const& what) { return step_kinds()[static_cast<std::size_t>(what.what)]; }

std::string literal(std::string const& text) {
  constexpr std::size_t long_run = 24;
  std::string result;
  std::string stretch;
  auto const join = [&result](std::string const& piece) { result += (result.empty() ? "" : " + ") + piece; };
  auto const close_stretch = [&stretch, &join] {
    if (!stretch.empty()) {
      join('"' + stretch + '"');
      stretch.clear();
    }
  };
  for (std::size_t position = 0; position < text.size();) {
    std::size_t const end = std::min(text.find_first_not_of(text[position], position), text.size());
    if (end - position >= long_run) {
      close_stretch();
      join("std::string(" + std::to_string(end - position) + ", '" + escaped(text[position]) + "')");
    } else {
      for (; position < end; ++position) {
        stretch += escaped(text[position]);
      }
    }
    position = end;
  }
  close_stretch();
  return result.empty() ? "\"\"" : result;
}

std::string line_of(step const& what) {
  std::string result;
  for (char const* form = kind_of(what).form; *form != '\0'; ++form) {
    if (*form == '$') {
      ++form;
      result += argument_text(what, *form);
    } else {
      result += *form;
    }
  }
  return result;
}

std::string lines_of(std::vector<step> const& steps) {
  std::string result;
  for (step const& what : steps) {
    result += "  " + line_of(what) + '\n';
  }
  return result;
}
