#include <Poco/BinaryReader.h>
#include <Poco/BinaryWriter.h>
#include <Poco/DirectoryIterator.h>
#include <Poco/File.h>
#include <Poco/Glob.h>
#include <Poco/Path.h>
#include <Poco/RecursiveDirectoryIterator.h>
#include <Poco/Timestamp.h>

#include <memory>

#include "benchmarks/peers/peers.h"
#include "benchmarks/peers/workloads.h"

namespace bench {

namespace {

using Poco::Path;

char const name[] = "Poco";

Path without_name(Path const& value) { return Path(value).setFileName(""); }

// Poco leaves "." and ".." out of a text as it divides it, and says nothing of how one place is seen from another.
Path absolute(Path const& value) { return Path(value).makeAbsolute(); }

} // namespace

void add_poco() {
  auto const make = [](std::string const& text) { return Path(text); };
  add_path_values(name, "a list of levels; joined when it is read", make, [](Path const& value, auto visit) {
    visit(value.parent().toString());
    visit(value.getBaseName());
    visit(value.getExtension());
    visit(value.toString());
  });
  add_edits(
      name, "the string is made too", make,
      [](Path& value) {
        value = without_name(value).append(appended);
        keep()(value.toString());
      },
      [](Path& value, std::string const& text) {
        value.setFileName(text);
        keep()(value.toString());
      },
      [](Path& value, std::string const& text) {
        value.setExtension(text);
        keep()(value.toString());
      });
  add_anchoring(
      name, "", make, [](Path const& value) { return absolute(value).toString(); },
      [](Path const& value, std::string const& directory) {
        return Path(value).makeAbsolute(Path(directory + '/')).toString();
      });
  add_comparisons(name, "no current directory where both are absolute", make, [](Path const& left, Path const& right) {
    return absolute(left).toString().compare(absolute(right).toString());
  });
  add_levels(name, "by its index", make, [](Path const& value, auto visit) {
    for (int level = 0; level != value.depth(); ++level) {
      visit(std::string(value.directory(level)));
    }
  });
  add_patterns(
      name, "pattern stored before", [](std::string const& pattern) { return std::make_shared<Poco::Glob>(pattern); },
      [](std::shared_ptr<Poco::Glob> const& glob, std::string const& text) { return glob->match(text); });
  add_searches(name, "", make, [](Path const& directory, std::string const& text, auto visit) {
    if (!Poco::File(directory).exists()) {
      return false;
    }
    Path const candidate(directory, text);
    bool const found = Poco::File(candidate).exists();
    if (found) {
      visit(candidate);
    }
    return found;
  });
  add_directory_walk(name, "three statuses an entry, and no test of permission by the system",
                     [](std::string const& directory, auto visit) {
                       for (Poco::DirectoryIterator entry(directory), end; entry != end; ++entry) {
                         visit(entry.path());
                         visit(entry->getSize());
                         visit(entry->getLastModified().epochTime());
                         visit(entry->canWrite());
                       }
                     });
  add_tree_walk(name, "reads the status of every entry", [](std::string const& top, auto visit) {
    for (Poco::SimpleRecursiveDirectoryIterator entry(top), end; entry != end; ++entry) {
      visit(entry.path());
    }
  });
  add_copy(name, [](std::string const& source, std::string const& target) {
    Poco::File(source).copyTo(target);
    return true;
  });
  add_removal(name, [](std::string const& top) {
    Poco::File(top).remove(true);
    return true;
  });
  add_writing(
      name,
      [](std::ostream& stream, unsigned value) {
        Poco::BinaryWriter(stream, Poco::BinaryWriter::LITTLE_ENDIAN_BYTE_ORDER) << value;
      },
      "four bytes a call");
  add_reading(
      name,
      [](std::istream& stream) {
        unsigned value = 0;
        Poco::BinaryReader(stream, Poco::BinaryReader::LITTLE_ENDIAN_BYTE_ORDER) >> value;
        return value;
      },
      "four bytes a call");
}

} // namespace bench
