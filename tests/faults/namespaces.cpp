#include "tests/faults/namespaces.h"

#include <fcntl.h>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "tests/faults/case.h"

namespace faults {

namespace {

constexpr unsigned nobody = 65534;

std::string refusal(std::string const& what) { return what + ": " + std::strerror(errno); }

bool write_text(char const* path, std::string const& text) {
  int const descriptor = ::open(path, O_WRONLY | O_CLOEXEC);
  if (descriptor == -1) {
    return false;
  }
  bool const written = ::write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  ::close(descriptor);
  return written;
}

// A user namespace in which this user is root, so that mounts are its own affair.
bool enter_user_namespace() {
  std::string const user = "0 " + std::to_string(::geteuid()) + " 1";
  std::string const group = "0 " + std::to_string(::getegid()) + " 1";
  return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && write_text("/proc/self/setgroups", "deny") &&
         write_text("/proc/self/uid_map", user) && write_text("/proc/self/gid_map", group);
}

} // namespace

std::string enter_private_mounts() {
  if ((::geteuid() != 0 || ::unshare(CLONE_NEWNS) != 0) && !enter_user_namespace()) {
    return refusal("no mount namespace");
  }
  // Nothing that is mounted from here on may be seen outside.
  return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 ? std::string()
                                                                          : refusal("no private mounts");
}

void mount_over(std::string const& directory, char const* type, char const* source, std::string const& options) {
  if (::mount(source, directory.c_str(), type, 0, options.c_str()) != 0) {
    throw skipped{refusal(std::string("no ") + type)};
  }
}

void mount_again(std::string const& directory, std::string const& place) {
  if (::mount(directory.c_str(), place.c_str(), nullptr, MS_BIND, nullptr) != 0) {
    throw skipped{refusal("no bind mount")};
  }
}

void make_read_only(std::string const& mounted) {
  if (::mount(nullptr, mounted.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0) {
    throw skipped{refusal("no read-only remount")};
  }
}

void become_ordinary_user(std::string const& folder) {
  if (::geteuid() != 0) {
    return;
  }
  if (::chown(folder.c_str(), nobody, nobody) != 0 || ::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 ||
      ::setuid(nobody) != 0) {
    throw skipped{refusal("no ordinary user")};
  }
}

} // namespace faults
