#include <llvm/ADT/SmallString.h>
#include <llvm/Support/FileSystem.h>
#include <llvm/Support/GlobPattern.h>
#include <llvm/Support/Path.h>
#include <unistd.h>

#include "benchmarks/peers/peers.h"
#include "benchmarks/peers/workloads.h"

namespace bench {

namespace {

namespace fs = llvm::sys::fs;
namespace paths = llvm::sys::path;

// There is no path object: these are operations on texts, which are kept where no allocation is needed for most.
using text = llvm::SmallString<256>;

char const name[] = "LLVM";

text anchored(text value, std::string const& directory) {
  if (directory.empty()) {
    fs::make_absolute(value);
  } else {
    fs::make_absolute(directory, value);
  }
  paths::remove_dots(value, true);
  return value;
}

} // namespace

void add_llvm() {
  auto const make = [](std::string const& from) { return text(from); };
  add(
      "path.construct_and_read", name, all_texts,
      [](texts const& from, std::size_t item, auto visit) {
        llvm::StringRef const value = from[item];
        visit(paths::parent_path(value).str());
        visit(paths::stem(value).str());
        visit(paths::extension(value).str());
        visit(value.str());
      },
      "no object; copies of the parts");
  add_edits(
      name, "no object", make,
      [](text& value) {
        paths::remove_filename(value);
        paths::append(value, appended);
      },
      [](text& value, std::string const& to) {
        paths::remove_filename(value);
        paths::append(value, to);
      },
      [](text& value, std::string const& to) { paths::replace_extension(value, to); });
  add_simplification(name, "no object", make, [](text value) {
    paths::remove_dots(value, true);
    return value;
  });
  add_anchoring(
      name, "no object", make, [](text const& value) { return anchored(value, {}); }, anchored);
  add_comparisons(name, "no object; no current directory where both are absolute", make,
                  [](text const& left, text const& right) { return anchored(left, {}).compare(anchored(right, {})); });
  add_levels(name, "views", make, [](text const& value, auto visit) {
    for (auto level = paths::begin(value), end = paths::end(value); level != end; ++level) {
      visit(*level);
    }
  });
  add_patterns(
      name, "pattern compiled before",
      [](std::string const& pattern) { return llvm::cantFail(llvm::GlobPattern::create(pattern)); },
      [](llvm::GlobPattern const& pattern, std::string const& from) { return pattern.match(from); });
  add_searches(name, "no object; calls access", make, [](text const& directory, std::string const& to, auto visit) {
    if (!fs::exists(directory)) {
      return false;
    }
    text candidate = directory;
    paths::append(candidate, to);
    bool const found = fs::exists(candidate);
    if (found) {
      visit(candidate);
    }
    return found;
  });
  add_directory_walk(name, "", [](std::string const& directory, auto visit) {
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
      llvm::ErrorOr<fs::basic_file_status> const status = entry->status();
      visit(entry->path());
      visit(status->getSize());
      visit(status->getLastModificationTime());
      visit(::access(entry->path().c_str(), W_OK));
    }
  });
  add_tree_walk(name, "", [](std::string const& top, auto visit) {
    std::error_code error;
    for (fs::recursive_directory_iterator entry(top, error, false), end; !error && entry != end;
         entry.increment(error)) {
      visit(entry->path());
    }
  });
  add_removal(
      name, [](std::string const& top) { return !fs::remove_directories(top, false); }, "no test of permission");
}

} // namespace bench
