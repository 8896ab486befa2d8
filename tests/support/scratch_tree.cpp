#include "tests/support/scratch_tree.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void give_up(std::string const& reason) {
  std::fprintf(stderr, "scratch tree: %s\n", reason.c_str());
  std::abort();
}

} // namespace

scratch_tree::scratch_tree() {
  std::string name = (fs::temp_directory_path() / "fio_test.XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    give_up("no directory of its own can be made at " + name);
  }
  m_root = fs::canonical(name).string();
}

scratch_tree::~scratch_tree() {
  // A test may have taken the permissions that a removal needs.
  std::error_code ignored;
  for (fs::recursive_directory_iterator entry(m_root, ignored), end; entry != end; entry.increment(ignored)) {
    if (entry->is_directory(ignored) && !entry->is_symlink(ignored)) {
      fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }
  fs::remove_all(m_root, ignored);
  if (fs::exists(m_root, ignored)) {
    give_up("left behind: " + m_root);
  }
}

std::string scratch_tree::path(std::string const& name) const {
  fs::path const relative(name);
  if (relative.is_absolute()) {
    give_up("not a name in the tree: " + name);
  }
  for (fs::path const& component : relative) {
    if (component == "..") {
      give_up("not a name in the tree: " + name);
    }
  }
  return m_root + '/' + name;
}

void scratch_tree::draw(std::initializer_list<char const*> entries) const {
  for (std::string const entry : entries) {
    std::size_t const arrow = entry.find(" -> ");
    std::size_t const equals = entry.find('=');
    if (arrow != std::string::npos) {
      std::string const name = path(entry.substr(0, arrow));
      fs::create_directories(fs::path(name).parent_path());
      fs::create_symlink(entry.substr(arrow + 4), name);
    } else if (entry.back() == '/') {
      make_directory(entry);
    } else if (equals != std::string::npos) {
      make_file(entry.substr(0, equals), entry.substr(equals + 1));
    } else {
      make_file(entry);
    }
  }
}

void scratch_tree::make_file(std::string const& name, std::string const& content) const {
  std::string const whole = path(name);
  fs::create_directories(fs::path(whole).parent_path());
  std::ofstream file(whole, std::ios::binary);
  file << content;
  if (!file.flush()) {
    give_up("cannot write " + whole);
  }
}

void scratch_tree::make_directory(std::string const& name) const { fs::create_directories(path(name)); }

bool holds_for_ordinary_user(bool (*body)(scratch_tree const&), scratch_tree const& tree) {
  constexpr unsigned nobody = 65534;
  pid_t const child = ::fork();
  if (child == 0) {
    bool ready = true;
    if (::geteuid() == 0) {
      ready = ::chown(tree.root().c_str(), nobody, nobody) == 0 && ::setgroups(0, nullptr) == 0 &&
              ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
    }
    ::_exit(ready && body(tree) ? 0 : 1);
  }
  int status = -1;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
