#include "tests/sweeps/system_call_tree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/sweeps/system_call_doubles.h"

namespace fs = std::filesystem;

namespace system_call {
namespace {

// The time of the last modification of all files, and one second more for each in the order of their names.
constexpr std::time_t first_time = 1'000'000'000;
constexpr std::time_t last_time = first_time + 1000;

constexpr char current_directory[] = "(current)";

std::string content_of(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

entry entry_at(std::string const& path) {
  struct stat record = {};
  if (::lstat(path.c_str(), &record) != 0) {
    return {"gone", "", ""};
  }
  if (S_ISLNK(record.st_mode)) {
    return {"link to " + fs::read_symlink(path).string(), "", ""};
  }
  if (!S_ISREG(record.st_mode)) {
    return {"mode " + std::to_string(record.st_mode), "", ""};
  }
  bool const drawn = record.st_mtime >= first_time && record.st_mtime <= last_time;
  return {"mode " + std::to_string(record.st_mode), content_of(path),
          drawn ? std::to_string(record.st_mtime) : std::string("now")};
}

// Two blocks of a copy, and no two of them alike.
std::string two_blocks() {
  std::string content;
  for (int number = 0; content.size() < 5000; ++number) {
    content += std::to_string(number) + '\n';
  }
  return content;
}

bool is_start_of(std::string const& part, std::string const& whole) { return whole.compare(0, part.size(), part) == 0; }

// What stands under a name, or "nothing".
entry entry_of(snapshot const& of, std::string const& name) {
  auto const found = of.find(name);
  return found != of.end() ? found->second : entry{"nothing", "", ""};
}

bool is_between(entry const& before, entry const& after, entry const& seen) {
  if (seen.kind == "nothing" || before.kind == "nothing" || after.kind == "nothing") {
    return seen == before || seen == after;
  }
  return (seen.kind == before.kind || seen.kind == after.kind) &&
         (seen.content == before.content || seen.content == after.content) &&
         (seen.time == before.time || seen.time == after.time || seen.time == "now");
}

bool is_effect(effect wanted, bool at_stake, entry const& before, entry const& after, entry const& seen) {
  switch (wanted) {
  case effect::before:
    return seen == before;
  case effect::after:
    return seen == after;
  case effect::overwritten:
    return at_stake || seen == before;
  case effect::partial:
    if (at_stake && (seen.kind == "nothing" || is_start_of(seen.content, after.content))) {
      return true;
    }
    [[fallthrough]];
  case effect::between:
    break;
  }
  return is_between(before, after, seen);
}

std::string described(entry const& told) {
  return told.kind + ", " + std::to_string(told.content.size()) + " bytes, " + told.time;
}

} // namespace

tree::tree() : m_current_directory(fs::current_path().string()) {
  ::umask(022);
  set_root(root());
  draw();
  m_drawn = look();
}

tree::~tree() { fs::current_path(m_current_directory); }

void tree::draw() {
  fs::current_path(root());
  for (fs::directory_entry const& old : fs::directory_iterator(root())) {
    fs::remove_all(old.path());
  }
  m_scratch.make_file("file", two_blocks());
  m_scratch.draw({"other=what was there", "dir/a.v=1", "dir/b.v=22", "dir/sub/c.v=333", "empty/in/", "pair/x/",
                  "pair/y/", "link -> dir"});
  std::time_t time = first_time;
  for (char const* name : {"dir/a.v", "dir/b.v", "dir/sub/c.v", "file", "other"}) {
    timespec const times[2] = {{time, 0}, {time, 0}};
    ::utimensat(AT_FDCWD, name, times, 0);
    ++time;
  }
}

void tree::restore(snapshot const& seen) {
  if (!(seen == m_drawn)) {
    draw();
  }
}

snapshot tree::look() const {
  snapshot seen;
  seen[current_directory] = {anonymous(fs::current_path().string()), "", ""};
  for (fs::recursive_directory_iterator found(root()), end; found != end; ++found) {
    std::string const name = found->path().string().substr(root().size() + 1);
    seen[anonymous(name)] = entry_at(found->path().string());
  }
  return seen;
}

std::string difference(effect wanted, snapshot const& before, snapshot const& after, snapshot const& seen,
                       std::set<std::string> const& at_stake) {
  std::set<std::string> names;
  for (snapshot const* each : {&before, &after, &seen}) {
    for (auto const& [name, unused] : *each) {
      names.insert(name);
    }
  }
  for (std::string const& name : names) {
    entry const found = entry_of(seen, name);
    if (wanted == effect::overwritten && at_stake.count(name) != 0 && !(found == entry_of(before, "file"))) {
      return name + " is no copy of file";
    }
    if (!is_effect(wanted, at_stake.count(name) != 0, entry_of(before, name), entry_of(after, name), found)) {
      return name + " is " + described(found) + "; before " + described(entry_of(before, name)) + "; after " +
             described(entry_of(after, name));
    }
  }
  return {};
}

} // namespace system_call
