#include "tests/sweeps/system_call_errors.h"

#include <fnmatch.h>

#include <cerrno>
#include <initializer_list>
#include <map>
#include <utility>

namespace system_call {
namespace {

// The errors of the manual pages. EIO stands behind all that reach a device, whether or not the page tells of it.

struct error_name {
  char const* name;
  int error;
};

#define E(name)                                                                                                        \
  error_name { #name, name }

using error_list = std::vector<error_name>;

error_list const of_path = {E(EACCES),       E(EFAULT), E(EINVAL), E(EIO),    E(ELOOP),
                            E(ENAMETOOLONG), E(ENOENT), E(ENOMEM), E(ENOTDIR)};

error_list with(error_list base, std::initializer_list<error_name> more) {
  base.insert(base.end(), more);
  return base;
}

std::map<std::string, error_list> errors_of_manual() {
  error_list const stat = with(of_path, {E(EBADF), E(EOVERFLOW)});
  error_list const open = with(of_path, {E(EBADF), E(EBUSY), E(EDQUOT), E(EEXIST), E(EFBIG), E(EINTR), E(EISDIR),
                                         E(EMFILE), E(ENFILE), E(ENODEV), E(ENOSPC), E(ENXIO), E(EPERM), E(EROFS),
                                         E(EOPNOTSUPP), E(EOVERFLOW), E(ETXTBSY), E(EWOULDBLOCK)});
  error_list const remove = with(of_path, {E(EBADF), E(EBUSY), E(EISDIR), E(ENOTEMPTY), E(EEXIST), E(EPERM), E(EROFS)});
  error_list const read = {E(EAGAIN), E(EBADF), E(EFAULT), E(EINTR), E(EINVAL), E(EIO), E(EISDIR)};
  error_list const write = {E(EAGAIN), E(EBADF),  E(EDESTADDRREQ), E(EDQUOT), E(EFAULT), E(EFBIG),
                            E(EINTR),  E(EINVAL), E(EIO),          E(ENOSPC), E(EPERM),  E(EPIPE)};
  error_list const getcwd = {E(EACCES), E(EFAULT), E(EINVAL), E(ENAMETOOLONG), E(ENOENT), E(ENOMEM), E(ERANGE)};
  return {
      {"osi_status", stat},
      {"osi_exists", stat},
      {"stat", stat},
      {"stat64", stat},
      {"lstat64", stat},
      {"access", with(of_path, {E(EPERM), E(EROFS), E(ETXTBSY)})},
      {"readlink", with(of_path, {E(EBADF)})},
      {"opendir", with(of_path, {E(EBADF), E(EMFILE), E(ENFILE), E(EINTR)})},
      {"readdir64", {E(EBADF), E(EINTR), E(EIO), E(ENOENT), E(EOVERFLOW)}},
      {"closedir", {E(EBADF), E(EINTR), E(EIO)}},
      {"remove", remove},
      {"osi_rmdir", remove},
      {"rename", with(remove, {E(EDQUOT), E(EMLINK), E(ENOSPC), E(EXDEV)})},
      {"osi_mkdir", with(of_path, {E(EBADF), E(EDQUOT), E(EEXIST), E(EMLINK), E(ENOSPC), E(EPERM), E(EROFS)})},
      {"osi_chdir", with(of_path, {E(EBADF)})},
      {"osi_chmod", with(of_path, {E(EBADF), E(ENOTSUP), E(EPERM), E(EROFS)})},
      {"osi_getcwd", getcwd},
      {"getcwd", getcwd},
      {"osi_open", open},
      {"osi_fopen", open},
      {"osi_get_unc_full_path", {E(ENOMEM)}},
      {"osi_path_get_data", {E(EACCES), E(ENOENT), E(ENOMEM)}},
      {"utime", with(of_path, {E(EPERM), E(EROFS)})},
      {"fsync", {E(EBADF), E(EDQUOT), E(EINTR), E(EINVAL), E(EIO), E(ENOSPC), E(EROFS)}},
      {"close", {E(EBADF), E(EDQUOT), E(EINTR), E(EIO), E(ENOSPC)}},
      {"fread", with(read, {E(EOVERFLOW), E(ENOMEM), E(ENXIO)})},
      {"fwrite", with(write, {E(ENOMEM), E(ENXIO)})},
      {"fflush", write},
      {"fclose", write},
      {"fileno", {E(EBADF)}},
      {"gethostname", {E(EFAULT), E(EINVAL), E(ENAMETOOLONG), E(EPERM)}},
      {"time", {E(EFAULT), E(EOVERFLOW)}},
      {"syscall", {E(ENOSYS)}},
  };
}

#undef E

// What is no error and still not the usual answer.
std::multimap<std::string, disturbance> const other_disturbances = {
    {"readdir64", {"ends early", 0, manner::ends}},    {"fread", {"ends early", 0, manner::ends}},
    {"fread", {"reads half", 0, manner::falls_short}}, {"fwrite", {"writes half", 0, manner::falls_short}},
    {"ferror", {"says yes", 0, manner::says_yes}},     {"getenv", {"says yes", 0, manner::says_yes}},
    {"osi_exists", {"says yes", 0, manner::says_yes}}, {"setvbuf", {"refuses", 0, manner::fails}},
};

std::map<std::string, std::vector<disturbance>> all_disturbances() {
  std::map<std::string, std::vector<disturbance>> all;
  for (auto const& [function, errors] : errors_of_manual()) {
    for (error_name const& error : errors) {
      all[function].push_back({error.name, error.error, manner::fails});
    }
  }
  for (auto const& [function, other] : other_disturbances) {
    all[function].push_back(other);
  }
  return all;
}

struct harmless_import {
  char const* pattern; // as of `fnmatch`
  char const* reason;
};

constexpr char on_memory[] = "works on memory alone";
constexpr char allocates[] = "fails by allocation alone";
constexpr char runtime[] = "part of how C++ is run";

constexpr harmless_import harmless_imports[] = {
    {"mem[cmrs]*", on_memory},
    {"bcmp", on_memory},
    {"str[celnpr]*", on_memory},
    {"__mem*_chk", on_memory},
    {"__isoc*_sscanf", on_memory},
    {"mem_msg_local_vdebug(*", "a debug message changes nothing"},
    {"MEM_INITIALIZER::*", "registers at load, before any operation"},
    {"MEM_DETAIL::stl_raw_sprintf(*", allocates},
    {"err_report_internal_error(*", "does not return"},
    {"osi_path_free(*", "has no result"},
    {"stl_tolower(*", on_memory},
    {"strtok_s(*", on_memory},
    {"boost::filesystem::*", "its calls of the C library are doubled"},
    {"boost::system::*", on_memory},
    {"string::*", allocates},
    {"std::__detail::_List_node_base::*", on_memory},
    {"std::_Rb_tree_*", on_memory},
    {"std::basic_streambuf<*", on_memory},
    {"std::basic_ostream<*", on_memory},
    {"std::basic_istream<*", on_memory},
    {"std::ostream::*", on_memory},
    {"std::istream::*", on_memory},
    {"std::basic_ios<*", on_memory},
    {"std::ios_base*", on_memory},
    {"std::allocator<*", on_memory},
    {"std::locale::*", on_memory},
    {"std::ctype<*", on_memory},
    {"*std::use_facet<*", on_memory},
    {"*std::__ostream_insert<*", on_memory},
    {"std::_V2::*", on_memory},
    {"std::*error::*", runtime},
    {"std::exception::*", runtime},
    {"std::bad_*", runtime},
    {"std::__throw_*", runtime},
    {"std::terminate()", runtime},
    {"abort", runtime},
    {"typeinfo for *", runtime},
    {"vtable for *", runtime},
    {"virtual thunk to std::*", on_memory},
    {"operator new*", allocates},
    {"operator delete*", runtime},
    {"__cxa_*", runtime},
    {"__dynamic_cast", runtime},
    {"__gxx_personality_v0", runtime},
    {"_Unwind_Resume", runtime},
    {"__gmon_start__", runtime},
    {"_ITM_*", runtime},
    {"__errno_location", runtime},
    {"__stack_chk_fail", runtime},
    {"__libc_single_threaded", runtime},
    {"pthread_mutex_*lock", "a lock of one thread"},
    {"__asan_*", "the sanitizer"},
    {"__ubsan_*", "the sanitizer"},
};

} // namespace

std::vector<disturbance> const& disturbances_of(std::string const& function) {
  static auto const* const all = new std::map<std::string, std::vector<disturbance>>(all_disturbances());
  static auto const* const none = new std::vector<disturbance>;
  auto const found = all->find(function);
  return found != all->end() ? found->second : *none;
}

std::string reason_why_it_cannot_fail(std::string const& demangled) {
  for (harmless_import const& import : harmless_imports) {
    if (::fnmatch(import.pattern, demangled.c_str(), FNM_NOESCAPE) == 0) {
      return import.reason;
    }
  }
  return {};
}

} // namespace system_call
