#include "tests/support/scratch.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/platform_double.h"

namespace fs = std::filesystem;

namespace {

[[noreturn]] void give_up(std::string const& reason) {
  std::fprintf(stderr, "scratch tree: %s\n", reason.c_str());
  std::abort();
}

int count_descriptors() {
  int count = 0;
  for (int descriptor = 0; descriptor != 256; ++descriptor) {
    count += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
  }
  return count;
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
    ADD_FAILURE() << "left behind: " << m_root;
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

void fio_test::SetUp() {
  platform_double::reset();
  ::unsetenv("fio_old_simplify");
  m_current_directory = fs::current_path().string();
  m_descriptors = count_descriptors();
  m_streams = platform_double::open_streams();
}

void fio_test::TearDown() {
  platform_double::reset();
  ::unsetenv("fio_old_simplify");
  fs::current_path(m_current_directory);
  EXPECT_EQ(count_descriptors(), m_descriptors) << "a descriptor was left open";
  EXPECT_EQ(platform_double::open_streams(), m_streams) << "a directory stream was left open";
}

std::vector<std::string> fio_test::messages() {
  std::vector<std::string> texts;
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    texts.push_back(message.text);
  }
  return texts;
}

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
