/// @file
/// The two sides that are held against each other: the real path class and the model, behind one set of names.

#ifndef CCL_TESTS_MODEL_SCENE_H
#define CCL_TESTS_MODEL_SCENE_H

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/model/path_model.h"

/// The real class, and what belongs to it without being a member of a path.
struct real_side {
  using path = FIO_PATH;
  using component = FIO_PATH::FILE_COMPONENTS;
  using extension_type = FIO_EXTENSION_TYPE;

  static bool same_file(std::string const& name, std::string const& pattern);
  /// The answer and the four parts, each behind a line feed.
  static std::string splitpath(std::string const& text);
  static std::string makepath(std::string const& drive, std::string const& directory, std::string const& base,
                              std::string const& extension);
  static void length_message(char const* path);
  static void set_old_simplify(bool on);
  /// The text that the platform answers for the current directory. An empty one, and one that its caller's buffer
  /// cannot hold, means that it cannot be read.
  static void set_current_directory(std::string const& directory);
  /// Hands out the debug messages since the last call.
  static std::vector<std::string> take_messages();
};

/// The model under the same names.
struct model_side {
  using path = path_model;
  using component = int;
  using extension_type = int;

  static bool same_file(std::string const& name, std::string const& pattern);
  static std::string splitpath(std::string const& text);
  static std::string makepath(std::string const& drive, std::string const& directory, std::string const& base,
                              std::string const& extension);
  static void length_message(char const* path);
  static void set_old_simplify(bool on);
  static void set_current_directory(std::string const& directory);
  static std::vector<std::string> take_messages();
};

inline constexpr std::size_t paths_of_a_scene = 4;

/// The paths of one side, to which a sequence of steps happens.
template <typename Side>
struct scene {
  using side = Side;
  using path = typename Side::path;

  scene() {
    for (auto& slot : paths) {
      slot = std::make_unique<path>();
    }
  }

  std::array<std::unique_ptr<path>, paths_of_a_scene> paths;
};

#endif
