#include <utility>

#include "tests/stress/statements.h"

using stress::transcript;
using stress::workplace;

namespace {

char const* const path_texts[] = {"",
                                  "top.v",
                                  "rtl//core\\alu.v",
                                  "/a/./b/../c.tar.gz",
                                  "a/../../b",
                                  "/a/b/..",
                                  "C:\\x\\y.txt",
                                  ".profile",
                                  "dir/..",
                                  "/",
                                  "../x/y/",
                                  "/usr/./lib//a",
                                  "a/b.",
                                  "/a/b/c/d/e/f.g",
                                  "a\\b\\c"};

void read(FIO_PATH const& path, transcript& out) {
  out << path.fullpath() << static_cast<std::string>(path) << static_cast<char const*>(path);
  for (int mask = 0; mask != 16; ++mask) {
    out << path.get_path_components(mask);
  }
  out << path.has_drive() << path.has_directory() << path.has_extension() << path.absolute() << path.directory_path();
  out << path.drive() << path.directory() << path.full_directory() << path.base() << path.extension();
  out << path.filename() << path.tail() << path.levels() << path.is_legal_length() << path.unc();
  for (int level = -1; level <= path.levels(); ++level) {
    out << path[level] << path.legal(level);
  }
  out << path.sync_path_separators("a\\b//c/\\d");
  FIO_PATH const copy(path);
  FIO_PATH assigned;
  assigned = path;
  out << copy.fullpath() << assigned.fullpath();
}

void ask_about_texts(transcript& out) {
  std::string untouched = "untouched";
  for (char const* text : path_texts) {
    out << FIO_PATH::is_dot_directory(text) << FIO_PATH::is_path_length_within_operating_system_limits(text);
    out << FIO_PATH::is_unc_path(text) << FIO_PATH::is_unc_path(std::string(text));
    out << FIO_PATH::convert_unc_to_path_with_drive(text, untouched);
    out << FIO_PATH::convert_path_with_drive_to_unc(text, untouched);
  }
  out << FIO_PATH::is_path_length_within_operating_system_limits(1024ul) << FIO_PATH::default_path_separator();
  FIO_PATH::change_path_separators_for_windows_api();
  out << untouched;
}

void compare(FIO_PATH const& left, FIO_PATH const& right, transcript& out) {
  std::string const text = right.fullpath();
  out << (left == right) << (left != right) << (left < right);
  out << (left == text) << (left != text) << (left < text);
  out << left.get_relative_to(text) << FIO_PATH::os_specific_comparison(left, right);
}

void read_shared_paths(workplace const& place, transcript& out) {
  for (FIO_PATH const& path : place.shared.paths) {
    read(path, out);
    for (FIO_PATH const& other : place.shared.paths) {
      compare(path, other, out);
    }
  }
}

void edit(FIO_PATH path, transcript& out) {
  out << path.drive('c').fullpath() << path.drive("").fullpath() << path.directory("x\\y").fullpath();
  out << path.base("d.e").fullpath() << path.filename("s/d.h").fullpath() << path.tail("z").fullpath();
  out << path.extension("tar", ".gz").fullpath() << path.extension(FIO_EXTENSION_TYPE_VHD, "bak").fullpath();
  out << path.extension("v", FIO_EXTENSION_TYPE_VHD).fullpath();
  out << path.extension(FIO_EXTENSION_TYPE_VHD, FIO_EXTENSION_TYPE_V).fullpath() << path.no_extension().fullpath();
  out << path.path_separator('\\').fullpath();
  path.make_path(FIO_PATH::BASE, "made");
  FIO_PATH taken(std::move(path));
  path = "used/again";
  out << taken.fullpath() << path.fullpath();
  path = std::move(taken);
  out << path.fullpath();
}

void edit_own_paths(workplace const& place, transcript& out) {
  ask_about_texts(out);
  for (char const* text : path_texts) {
    FIO_PATH path(place.directory, text);
    read(path, out);
    edit(path, out);
    path = text;
    edit(path, out);
    path.split_full_path("a///b\\c.d");
    path.flatten();
    out << path.cd("../e\\f").fullpath();
    path.become_absolute("/w/x");
    read(path, out);
  }
}

// The current directory and the environment are the same for all, and nobody changes them.
void anchor_own_paths(workplace const& place, transcript& out) {
  for (char const* text : path_texts) {
    FIO_PATH path(text);
    path.become_simplified();
    out << path.fullpath();
    path.become_absolute("");
    out << path.fullpath() << (path == FIO_PATH(text)) << (FIO_PATH(text) < path);
  }
  out << FIO_PATH::canonical(place.shared.files + "link/../alu.v").value_or("nothing");
  out << FIO_PATH::canonical(place.directory).value_or("nothing");
  out << FIO_PATH::canonical(place.directory + "missing").value_or("nothing") << FIO_PATH::canonical(".").value_or("");
}

} // namespace

std::vector<stress::statement> stress::path_statements() {
  return {
      {"fio_path.h", "several threads may read one object",
       "queries and comparisons of the same paths, too long ones too", read_shared_paths},
      {"fio_path.h", "or use different objects freely", "making, assigning, moving, editing, simplifying",
       edit_own_paths},
      {"fio_path.h", "The current directory belongs to the process and the environment too",
       "simplifying, anchoring and comparing while nobody changes either", anchor_own_paths},
  };
}
