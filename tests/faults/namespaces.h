/// @file
/// Mount namespaces and mounts that are seen by one process alone and end with it.

#ifndef CCL_TESTS_FAULTS_NAMESPACES_H
#define CCL_TESTS_FAULTS_NAMESPACES_H

#include <string>

namespace faults {

/// Gives the process a mount namespace of its own, in a user namespace of its own unless it is privileged. Answers why
/// not, or an empty text.
std::string enter_private_mounts();

/// Puts something over an existing directory, as `mount` does.
/// @throws skipped if the system refuses
void mount_over(std::string const& directory, char const* type, char const* source, std::string const& options);

/// Puts an empty file system in memory over a directory.
/// @throws skipped if the system refuses
inline void mount_memory(std::string const& directory, std::string const& options) {
  mount_over(directory, "tmpfs", "tmpfs", options);
}

/// Shows a directory at another place, as a mount of its own.
/// @throws skipped if the system refuses
void mount_again(std::string const& directory, std::string const& place);

/// Makes a mount read-only while it is in use.
/// @throws skipped if the system refuses
void make_read_only(std::string const& mounted);

/// Gives up all privileges for those of an ordinary user, whose folder `folder` becomes.
/// @throws skipped if the system refuses
void become_ordinary_user(std::string const& folder);

} // namespace faults

#endif
