/// @file
/// The steps that a sequence is made of: one operation each, with its arguments, playable on both sides.

#ifndef CCL_TESTS_MODEL_STEPS_H
#define CCL_TESTS_MODEL_STEPS_H

#include <functional>
#include <string>
#include <vector>

#include "tests/model/scene.h"

/// The operations, in the order of their rows in `step_kinds`.
enum class operation {
  construct,
  construct_from_characters,
  construct_from_null,
  construct_joined,
  construct_copy,
  construct_moved,
  assign_copy,
  assign_moved,
  assign,
  assign_characters,
  assign_null,
  assign_own_characters,
  split_full_path,
  make_path,
  path_separator,
  drive_letter,
  drive,
  directory,
  base,
  filename,
  tail,
  no_extension,
  extension_types,
  extension_type_and_text,
  extension_text_and_type,
  extension_texts,
  become_simplified,
  flatten,
  become_absolute,
  cd,
  get_path_components,
  level,
  legal,
  sync_path_separators,
  get_relative_to,
  equal,
  equal_to_text,
  unequal,
  unequal_to_text,
  less,
  less_than_text,
  os_specific_comparison,
  is_dot_directory,
  is_legal_text,
  is_legal_length,
  same_file,
  splitpath,
  makepath,
  length_message,
  old_simplify,
  current_directory,
};

/// What the numbers of a step are.
enum class number_use { none, component, separator, letter, extension_type, mask, level, length, offset, flag };

/// The extension types that the model knows, "any" twice, and values of none.
inline constexpr int modelled_extension_types[] = {-1, -1, 0, 9, 12, 56, 244, 283, -5, 32767};

/// One operation with its arguments. Which of them count is the operation's affair.
struct step {
  operation what = operation::construct;
  std::string first;
  std::string second;
  int number = 0;
  int other_number = 0;
  std::size_t target = 0;
  std::size_t source = 0;
};

/// A row of `step_kinds`. Both functions play the step and answer its result as a text.
struct step_kind {
  operation what;
  number_use numbers;
  /// How the step is written: $t and $s are the paths, $1 and $2 the texts, $n and $m the numbers, $c the number as a
  /// character.
  char const* form;
  std::function<std::string(scene<real_side>&, step const&)> real;
  std::function<std::string(scene<model_side>&, step const&)> model;
};

std::vector<step_kind> const& step_kinds();
step_kind const& kind_of(step const& what);

/// The text as a C++ literal, with long runs of one character told by their length.
std::string literal(std::string const& text);

/// The step as a line of C++, or nearly so.
std::string line_of(step const& what);
std::string lines_of(std::vector<step> const& steps);

#endif
