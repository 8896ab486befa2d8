#include <fcntl.h>
#include <unistd.h>

#include <cstring>

#include "ccl/fio/fio_file_sys.h"
#include "tests/stress/statements.h"

using stress::transcript;
using stress::workplace;

namespace {

using sys = FIO_FILE_SYSTEM;

void write(std::string const& name, char const* text, transcript& out) {
  std::FILE* const stream = sys::fopen(name.c_str(), "w");
  out << std::fputs(text, stream) << std::fclose(stream);
}

void open_and_rename(std::string const& own, transcript& out) {
  std::string const file = own + "a.txt";
  write(file, "text", out);
  int const descriptor = sys::open(file.c_str(), O_RDONLY, 0);
  out << (descriptor >= 0) << ::close(descriptor) << sys::chmod(file.c_str(), 0640);
  out << sys::rename(file, own + "b.txt") << sys::rename(FIO_PATH(own + "b.txt"), FIO_PATH(own + "c.txt"));
  out << sys::rename((own + "c.txt").c_str(), file.c_str()) << sys::posix_rename(file.c_str(), (own + "d").c_str());
  out << sys::remove(FIO_PATH(own + "d")) << sys::remove(file) << sys::native_remove(file.c_str());
  out << sys::posix_remove(file.c_str()) << sys::unc_native_remove(file) << sys::remove_if_exists(file);
}

void ask_for_status(std::string const& path, transcript& out) {
  long const limit = 1;
  struct stat buffer = {};
  out << sys::status(path, &buffer) << sys::status(path.c_str(), &buffer) << sys::status(FIO_PATH(path), &buffer);
  out << buffer.st_mode << sys::is_directory(path.c_str()) << sys::is_regular_file(path.c_str());
  out << sys::is_older(path.c_str(), &limit) << sys::exists(path.c_str()) << sys::exists(FIO_PATH(path));
  out << sys::exists((path + "*").c_str());
}

void take_texts_apart(transcript& out) {
  char buffer[64];
  for (char const* text : {"a\\b//c.tar.gz", "/x/.profile", "", "dir/"}) {
    std::string drive, directory, base, extension;
    out << sys::splitpath(text, drive, directory, base, extension) << drive << directory << base << extension;
    sys::makepath(buffer, "C", directory.c_str(), base.c_str(), extension.c_str());
    out << buffer << sys::tolower(text) << sys::same_file(text, "*.g?") << sys::same_file(text, "a*b*z");
  }
}

void create_and_copy(std::string const& own, transcript& out) {
  out << sys::create(own + "x/y/z") << sys::create(own + "x/y/z") << sys::touch(own + "x/t/new.txt");
  write(own + "x/a.v", "module", out);
  out << sys::copy(own + "x/a.v", own + "x/b.v", false, true) << sys::copy(own + "x/a.v", own + "x/b.v", true, false);
  out << sys::move(own + "x/b.v", own + "x/y/b.v", false, false)
      << sys::copy_files(own + "x/*.v", own + "w", true, true);
  out << sys::copy_dir(own + "x/y", own + "copied", true, false) << sys::is_directory_empty((own + "x/y/z").c_str());
  out << sys::mkdir((own + "m").c_str()) << sys::rmdir((own + "m").c_str());
}

void remove_in_bulk(std::string const& own, transcript& out) {
  out << sys::remove_files((own + "w/*.v").c_str()) << sys::remove_files((own + "x/y/*").c_str());
  out << (sys::remove_empty_subdirectories(own + "x", false) == nullptr);
  out << (sys::remove_empty_subdirectories(own + "missing", false) == nullptr);
  sys::remove_recursively((own + "x").c_str(), "*.v", nullptr); // what goes depends on the order of the directory
  std::string tree = own + "x";
  out << sys::do_remove_recursively(tree, nullptr, nullptr) << tree;
  out << sys::remove_recursively((own + "copied").c_str(), nullptr, nullptr);
  out << sys::remove_recursively((own + "w").c_str(), nullptr, nullptr);
}

void use_all_operations(workplace const& place, transcript& out) {
  open_and_rename(place.directory, out);
  ask_for_status(place.directory, out);
  ask_for_status(place.directory + "missing", out);
  ask_for_status(place.shared.files + "alu.v", out);
  take_texts_apart(out);
  create_and_copy(place.directory, out);
  remove_in_bulk(place.directory, out);
}

void read_current_directory(workplace const& /*place*/, transcript& out) {
  char buffer[1024] = {};
  out << sys::get_current_directory() << sys::get_current_directory(buffer, sizeof buffer);
  out << sys::get_current_directory(sizeof buffer, buffer) << sys::exists(".") << fio_get_unc_full_path("x");
}

// All who work at the same time make the same directories.
void create_the_same(workplace const& place, transcript& out) {
  std::string const top = place.shared.common + place.round;
  out << sys::create(top + "/a/b/c/d/e") << sys::touch(top + "/a/b/t/new.txt");
  out << sys::is_directory((top + "/a/b/c/d/e").c_str()) << sys::is_regular_file((top + "/a/b/t/new.txt").c_str());
}

bool is_temporary_name(std::string const& path, std::string const& directory) {
  char const head[] = ".korvane.", tail[] = ".tmp";
  std::size_t const digits = path.find_first_not_of("0123456789ABCDEF", directory.size() + std::strlen(head));
  return path.rfind(directory + head, 0) == 0 && digits != std::string::npos && path.substr(digits) == tail;
}

// All in one directory, where only names that differ can be made anew.
void make_temporary_files(workplace const& place, transcript& out) {
  std::vector<std::string> names;
  for (int i = 0; i != 16; ++i) {
    names.push_back(sys::get_tmp_path((place.shared.common + "x").c_str()));
    int const descriptor = sys::open(names.back().c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    out << (descriptor != -1) << ::close(descriptor) << is_temporary_name(names.back(), place.shared.common);
  }
  for (std::string const& name : names) {
    out << sys::remove(name);
  }
  out << sys::remove_temp_files(place.directory.c_str(), 3600, nullptr);
}

} // namespace

std::vector<stress::statement> stress::file_statements() {
  return {
      {"fio_file_sys.h", "Every operation may be called from any thread", "every operation, on a directory of its own",
       use_all_operations},
      {"fio_file_sys.h", "The current directory belongs to the process and is not guarded",
       "reading it while nobody changes it", read_current_directory},
      {"fio_file_sys.h", "Other processes may do the same at the same time",
       "making the same directories and the same empty file", create_the_same},
      {"fio_file_sys.h", "May be called from several threads at once",
       "names for temporary files in one directory, each made exclusively", make_temporary_files},
  };
}
