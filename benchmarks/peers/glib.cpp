#include <gio/gio.h>
#include <glib.h>
#include <glib/gstdio.h>
#include <unistd.h>

#include <cstring>
#include <memory>

#include "benchmarks/peers/peers.h"
#include "benchmarks/peers/workloads.h"

namespace bench {

namespace {

char const name[] = "GLib";

struct freed {
  void operator()(char* text) const { g_free(text); }
};

using owned = std::unique_ptr<char, freed>;

// Without a directory the current one is read.
owned anchored(std::string const& value, char const* directory) {
  return owned(g_canonicalize_filename(value.c_str(), directory));
}

struct pattern_closer {
  void operator()(GPatternSpec* pattern) const { g_pattern_spec_free(pattern); }
};

template <typename Visitor>
void walk_tree(std::string& path, Visitor visit) {
  std::size_t const size = path.size();
  GDir* const opened = g_dir_open(path.c_str(), 0, nullptr);
  while (char const* const entry = opened != nullptr ? g_dir_read_name(opened) : nullptr) {
    path.resize(size);
    path.append(1, '/').append(entry);
    visit(path);
    GStatBuf status;
    if (g_lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
      walk_tree(path, visit);
    }
  }
  if (opened != nullptr) {
    g_dir_close(opened);
  }
  path.resize(size);
}

} // namespace

void add_glib() {
  auto const make = [](std::string const& text) { return text; };
  add(
      "path.construct_and_read", name, all_texts,
      [](texts const& from, std::size_t item, auto visit) {
        char const* const text = from[item].c_str();
        visit(owned(g_path_get_dirname(text)));
        visit(owned(g_path_get_basename(text)));
        visit(owned(g_strdup(text)));
      },
      "no object, and no extension");
  add(
      "simplify.dotted", name, dotted,
      [](texts const& from, std::size_t item, auto visit) { visit(anchored(from[item], "/")); }, "made absolute too");
  add_anchoring(
      name, "no object", make, [](std::string const& value) { return anchored(value, nullptr); },
      [](std::string const& value, std::string const& directory) { return anchored(value, directory.c_str()); });
  add_comparisons(name, "no object; no current directory where both are absolute", make,
                  [](std::string const& left, std::string const& right) {
                    return std::strcmp(anchored(left, nullptr).get(), anchored(right, nullptr).get());
                  });
  add_patterns(
      name, "pattern compiled before; UTF-8",
      [](std::string const& pattern) {
        return std::shared_ptr<GPatternSpec>(g_pattern_spec_new(pattern.c_str()), pattern_closer());
      },
      [](std::shared_ptr<GPatternSpec> const& pattern, std::string const& text) {
        return g_pattern_spec_match_string(pattern.get(), text.c_str()) != 0;
      });
  add_searches(name, "calls access", make, [](std::string const& directory, std::string const& text, auto visit) {
    if (!g_file_test(directory.c_str(), G_FILE_TEST_EXISTS)) {
      return false;
    }
    owned candidate(g_build_filename(directory.c_str(), text.c_str(), nullptr));
    bool const found = g_file_test(candidate.get(), G_FILE_TEST_EXISTS);
    if (found) {
      visit(candidate);
    }
    return found;
  });
  add_directory_walk(name, "GDir, then g_stat and g_access", [](std::string const& directory, auto visit) {
    GDir* const opened = g_dir_open(directory.c_str(), 0, nullptr);
    while (char const* const entry = g_dir_read_name(opened)) {
      owned const path(g_build_filename(directory.c_str(), entry, nullptr));
      GStatBuf status;
      visit(g_stat(path.get(), &status));
      visit(g_access(path.get(), W_OK));
    }
    g_dir_close(opened);
  });
  add_tree_walk(name, "GDir; reads the status of every entry", [](std::string const& top, auto visit) {
    std::string path = top;
    walk_tree(path, visit);
  });
}

} // namespace bench
