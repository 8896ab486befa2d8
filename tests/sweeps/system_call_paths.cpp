// The operations of paths that ask the system.

#include <boost/optional/optional.hpp>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/sweeps/system_call_operations.h"
#include "tests/sweeps/system_call_results.h"

namespace system_call {
namespace {

std::string made_absolute(char const* path, char const* directory) {
  FIO_PATH changed(path);
  watched([&] { changed.become_absolute(directory); });
  return anonymous(changed.fullpath());
}

std::string simplified() {
  FIO_PATH changed("dir/./a.v");
  watched([&changed] { changed.become_simplified(); });
  return changed.fullpath();
}

std::string moved() {
  FIO_PATH changed("dir/a.v");
  watched([&changed] { changed.cd("sub"); });
  return changed.fullpath();
}

std::string canonical() {
  auto const real = watched([] { return FIO_PATH::canonical("link/sub/../a.v"); });
  return real ? anonymous(*real) : "absent";
}

std::string unc_path() {
  return anonymous(watched([] { return fio_get_unc_full_path("file"); }));
}

// The same file, by a path from the current directory and by one from the root.
template <typename Right, typename Compare>
std::string compared(Compare compare) {
  FIO_PATH const left("dir/a.v");
  Right const right(FIO_FILE_SYSTEM::get_current_directory() + "/dir/a.v");
  return text(watched([&] { return compare(left, right); }));
}

// One path from the current directory and one that stands between the same name below any directory and below the root.
template <typename Right>
std::string ordered() {
  FIO_PATH const left("\1x");
  Right const right(std::string("/\2"));
  return text(watched([&] { return left < right; }));
}

template <typename Right>
std::string equal() {
  return compared<Right>([](FIO_PATH const& left, Right const& right) { return left == right; });
}

template <typename Right>
std::string unequal() {
  return compared<Right>([](FIO_PATH const& left, Right const& right) { return left != right; });
}

constexpr char become_absolute[] = "FIO_PATH::become_absolute(string const&)";

std::vector<operation> const rows = {
    {"absolute", become_absolute, [] { return made_absolute("dir/a.v", ""); }, "$/dir/a.v", "", ""},
    {"absolute already", become_absolute, [] { return made_absolute("/dir/../a.v", ""); }, "/dir/../a.v", "", ""},
    {"absolute to a directory", become_absolute, [] { return made_absolute("dir/a.v", "/w"); }, "/w/dir/a.v", "", ""},
    {"simplified", "FIO_PATH::become_simplified()", simplified, "dir/a.v", "", ""},
    {"moved", "FIO_PATH::cd(string)", moved, "dir/sub/a.v", "", ""},
    {"canonical", "FIO_PATH::canonical(string const&)", canonical, "$/dir/a.v", "", ""},
    {"equal", "FIO_PATH::operator==(FIO_PATH const&) const", equal<FIO_PATH>, "true", "", ""},
    {"equal to text", "FIO_PATH::operator==(string const&) const", equal<std::string>, "true", "", ""},
    {"unequal", "FIO_PATH::operator!=(FIO_PATH const&) const", unequal<FIO_PATH>, "false", "", ""},
    {"unequal to text", "FIO_PATH::operator!=(string const&) const", unequal<std::string>, "false", "", ""},
    {"less", "FIO_PATH::operator<(FIO_PATH const&) const", ordered<FIO_PATH>, "false", "", ""},
    {"less than text", "FIO_PATH::operator<(string const&) const", ordered<std::string>, "false", "", ""},
    {"unc path", "fio_get_unc_full_path(char const*)", unc_path, "$/file", "", ""},
};

} // namespace

std::vector<operation> path_operations() { return rows; }

} // namespace system_call
