// Entries that are neither files nor directories, and directories that do not tell what their entries are.

#include <dirent.h>
#include <fcntl.h>
#include <linux/loop.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/namespaces.h"
#include "tests/faults/trees.h"
#include "tests/support/platform_double.h"
#include "tests/support/walks.h"

using namespace faults;
using files = FIO_FILE_SYSTEM;

namespace {

// What holds where the stream of `disk` calls every type unknown: the iterators take its word, and the walks ask.
void check_without_types(scratch_tree const& tree) {
  tree.draw({"disk/d/e/f=f", "disk/g=g", "disk/l -> d", "link -> disk"});
  lines const top = {"disk/d", "disk/g", "disk/l"};
  CHECK_EQUAL(iterated<FIO_DIRECTORY_ITERATOR>("disk"), top);
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("disk"), top);
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("link"), (lines{"link/d", "link/g", "link/l"}));
  CHECK_EQUAL(found_names("disk/*"), (lines{".", "..", "d", "g", "l"}));
  _finddata_t entry;
  long const handle = files::findfirst("disk/*", &entry);
  do {
    CHECK_EQUAL(entry.attrib, entry.name == std::string("g") ? 0U : 0x10U);
  } while (files::findnext(handle, &entry) == 0);
  files::findclose(handle);
  CHECK(files::copy_dir("disk", "copy", false, false));
  CHECK_EQUAL(drawing("copy"), (lines{"d/", "d/e/", "d/e/f=f", "g=g", "l/", "l/e/", "l/e/f=f"}));
  tree.draw({"disk/hollow/inner/"});
  CHECK(files::remove_empty_subdirectories("disk", false) == nullptr);
  CHECK(!stands("disk/hollow"));
  CHECK(files::remove_recursively("disk/l", nullptr, nullptr)); // the link and what it leads to
  CHECK_EQUAL(drawing("disk"), (lines{"d/", "g=g"}));
  CHECK(files::remove_recursively("disk/d", nullptr, nullptr));
  CHECK(files::remove_recursively("disk/g", nullptr, nullptr));
}

bool tells_no_types(char const* directory) {
  bool unknown = true;
  DIR* const stream = ::opendir(directory);
  while (dirent const* const entry = ::readdir(stream)) {
    unknown = unknown && entry->d_type == DT_UNKNOWN;
  }
  ::closedir(stream);
  return unknown;
}

bool run_program(char const* program, char const* const* arguments) {
  pid_t child = -1;
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  ::posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  int status = -1;
  bool const started =
      ::posix_spawn(&child, program, &actions, nullptr, const_cast<char* const*>(arguments), environ) == 0;
  ::posix_spawn_file_actions_destroy(&actions);
  return started && ::waitpid(child, &status, 0) == child && status == 0;
}

// A block device that is a file, and goes with its last user.
class loop_device {
public:
  explicit loop_device(char const* image) {
    int const control = ::open("/dev/loop-control", O_RDWR | O_CLOEXEC);
    m_path = "/dev/loop" + std::to_string(::ioctl(control, LOOP_CTL_GET_FREE));
    ::close(control);
    m_device = ::open(m_path.c_str(), O_RDWR | O_CLOEXEC);
    int const file = ::open(image, O_RDWR | O_CLOEXEC);
    loop_config config = {};
    config.fd = static_cast<std::uint32_t>(file);
    config.info.lo_flags = LO_FLAGS_AUTOCLEAR;
    bool const ready = ::ioctl(m_device, LOOP_CONFIGURE, &config) == 0;
    ::close(file);
    if (!ready) {
      ::close(m_device);
      throw skipped{"no loop device"};
    }
  }
  ~loop_device() { ::close(m_device); }
  loop_device(loop_device const&) = delete;
  loop_device& operator=(loop_device const&) = delete;

  char const* path() const { return m_path.c_str(); }

private:
  std::string m_path;
  int m_device;
};

void make_node(char const* path, mode_t mode, dev_t device) {
  if (::mknod(path, mode, device) != 0) {
    throw skipped{std::string("no device nodes: ") + std::strerror(errno)};
  }
}

void make_socket(char const* path) {
  int const descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
  CHECK_EQUAL(::bind(descriptor, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
  ::close(descriptor);
}

// What the bits of a mode say of an entry.
void check_kind(char const* path, bool directory, bool regular) {
  about const topic(path);
  CHECK(files::exists(path));
  CHECK_EQUAL(files::is_directory(path), directory);
  CHECK_EQUAL(files::is_regular_file(path), regular);
  _finddata_t entry;
  CHECK_EQUAL(files::findfirst(path, &entry), 0);
  CHECK_EQUAL(entry.attrib, directory ? 0x10U : 0U);
  // What reads as a directory and cannot be opened counts as an empty one.
  CHECK_EQUAL(files::is_directory_empty(path), directory);
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>(path), lines{});
}

std::string words_of(std::unique_ptr<FIO_ERRC> const& error) {
  return error == nullptr ? std::string() : error->message().m_lines.at(0).m_text;
}

} // namespace

void directory_stream_without_types(scratch_tree const& tree) {
  platform_double::replaced().readdir64 = [](DIR* stream) {
    auto* const entry = reinterpret_cast<dirent64*>(::readdir(stream));
    if (entry != nullptr) {
      entry->d_type = DT_UNKNOWN;
    }
    return entry;
  };
  check_without_types(tree);
}

void file_system_without_types(scratch_tree const& tree) {
  char const* const image = "image";
  CHECK_EQUAL(::close(::open(image, O_WRONLY | O_CREAT, 0600)), 0);
  CHECK_EQUAL(::truncate(image, 1 << 20), 0);
  char const* const arguments[] = {"mke2fs", "-q", "-t", "ext2", "-O", "none", "-F", image, nullptr};
  if (!run_program("/sbin/mke2fs", arguments)) {
    throw skipped{"no mke2fs"};
  }
  tree.make_directory("disk");
  {
    loop_device const device(image);
    mount_over(tree.path("disk"), "ext2", device.path(), "");
  }
  ::rmdir("disk/lost+found");
  CHECK(tells_no_types("disk"));
  check_without_types(tree);
}

void pipes_and_sockets(scratch_tree const& tree) {
  tree.draw({"dir/file=f", "dir/sub/g"});
  CHECK_EQUAL(::mkfifo("dir/p", 0644), 0);
  make_socket("dir/s");
  check_kind("dir/p", false, false);
  check_kind("dir/s", true, true);
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir"),
              (lines{"dir/file", "dir/p", "dir/s/", "dir/sub/", "dir/sub/g"}));
  CHECK_EQUAL(found_names("dir/*"), (lines{".", "..", "file", "p", "s", "sub"}));
  CHECK_EQUAL(words_of(files::remove_empty_subdirectories("dir", true)), "Failed to open \"dir/s\" as a directory.");
  long const soon = INT32_MAX;
  CHECK(files::is_older("dir/p", &soon));
  CHECK(files::create("dir/p")); // something stands there
  CHECK(!files::create("dir/p/q"));
  CHECK_EQUAL(take_messages().size(), 2U);
  CHECK(files::rename("dir/p", "dir/q"));
  CHECK(files::rename("dir/q", "dir/p"));
  // Nothing of it opens a pipe, which would wait for its other end.
  CHECK(files::remove_files("dir/*p"));
  CHECK(!stands("dir/p"));
  CHECK_EQUAL(::mkfifo("dir/p", 0644), 0);
  CHECK(files::remove_recursively("dir", nullptr, nullptr));
  CHECK_EQUAL(drawing("."), lines{});
}

void copies_of_pipes_and_sockets(scratch_tree const& tree) {
  tree.draw({"dir/", "file=file"});
  make_socket("dir/s");
  // What reads as a directory is copied as one.
  CHECK(files::copy_dir("dir", "out", false, false));
  CHECK_EQUAL(drawing("out"), lines{"s/"});
  CHECK(!files::copy("dir/s", "copied", false, false)); // and cannot be opened as a file
  CHECK(!stands("copied"));
  // A pipe as a target is not opened: it is left, or removed first.
  CHECK_EQUAL(::mkfifo("p", 0644), 0);
  CHECK(files::copy("file", "p", false, true));
  CHECK_EQUAL(drawing("."), (lines{"dir/", "dir/s?", "file=file", "out/", "out/s/", "p?"}));
  CHECK(files::copy("file", "p", true, true));
  CHECK_EQUAL(content_of("p"), "file");
  // As a source it is read to its end.
  std::string const content = patterned(100000);
  CHECK_EQUAL(::mkfifo("dir/q", 0644), 0);
  pid_t const writer = ::fork();
  if (writer == 0) {
    write_file("dir/q", content);
    ::_exit(0);
  }
  CHECK(files::move("dir/q", "out/q", false, false));
  ::waitpid(writer, nullptr, 0);
  CHECK(content_of("out/q") == content);
  CHECK(!stands("dir/q"));
}

void device_nodes(scratch_tree const& tree) {
  tree.make_directory("dir");
  make_node("dir/null", S_IFCHR | 0666, makedev(1, 3));
  make_node("dir/block", S_IFBLK | 0600, makedev(7, 255));
  check_kind("dir/null", false, false);
  check_kind("dir/block", true, false);
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir"), (lines{"dir/block/", "dir/null"}));
  CHECK(files::copy_dir("dir", "out", false, false));
  CHECK_EQUAL(drawing("out"), (lines{"block/", "null"})); // an empty directory and an empty file
  CHECK_EQUAL(words_of(files::remove_empty_subdirectories("dir", true)),
              "Failed to open \"dir/block\" as a directory.");
  CHECK(files::remove_recursively("dir", nullptr, nullptr));
  CHECK(!stands("dir"));
}
