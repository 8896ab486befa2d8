// The Tcl package ccl::fio: an ensemble over the public headers. docs/tcl.md is its manual.
//
// Names cross in the system encoding, as those of Tcl's own file commands do. Nothing here is shared between
// interpreters or threads, and no exception leaves a command.

#include <sys/stat.h>
#include <tcl.h>
#include <unistd.h>

#include <algorithm>
#include <boost/system/system_error.hpp>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <exception>
#include <list>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "ccl/fio/fio.h"

namespace {

// Values and errors of Tcl

/// Thrown when the interpreter has the message and the error code already.
struct reported_error {};

struct reference {
  void operator()(Tcl_Obj* object) const { Tcl_DecrRefCount(object); }
};
using owned = std::unique_ptr<Tcl_Obj, reference>;

owned hold(Tcl_Obj* object) {
  Tcl_IncrRefCount(object);
  return owned(object);
}

owned new_list() { return hold(Tcl_NewListObj(0, nullptr)); }

void append(owned const& list, Tcl_Obj* value) { Tcl_ListObjAppendElement(nullptr, list.get(), value); }

void put(owned const& dictionary, char const* key, Tcl_Obj* value) {
  Tcl_DictObjPut(nullptr, dictionary.get(), Tcl_NewStringObj(key, -1), value);
}

struct dynamic_string {
  dynamic_string() { Tcl_DStringInit(&text); }
  ~dynamic_string() { Tcl_DStringFree(&text); }
  dynamic_string(dynamic_string const&) = delete;
  dynamic_string& operator=(dynamic_string const&) = delete;

  std::string_view view() { return {Tcl_DStringValue(&text), static_cast<std::size_t>(Tcl_DStringLength(&text))}; }

  Tcl_DString text;
};

/// The words of a command, its own name first.
struct invocation {
  Tcl_Interp* interp;
  int count;
  Tcl_Obj* const* words;

  void result(Tcl_Obj* value) const { Tcl_SetObjResult(interp, value); }
};

void check(int status) {
  if (status != TCL_OK) {
    throw reported_error();
  }
}

/// Fails with the error code "CCL FIO cause value".
[[noreturn]] void refuse(Tcl_Interp* interp, char const* cause, Tcl_Obj* value, char const* reason) {
  char const* const text = Tcl_GetString(value);
  Tcl_SetObjResult(interp, Tcl_ObjPrintf("\"%s\" %s", text, reason));
  Tcl_SetErrorCode(interp, "CCL", "FIO", cause, text, static_cast<char*>(nullptr));
  throw reported_error();
}

/// Fails as Tcl's own file commands do, with the error code "POSIX name reason".
[[noreturn]] void fail(Tcl_Interp* interp, int error, char const* action, Tcl_Obj* name) {
  Tcl_SetErrno(error);
  char const* const reason = Tcl_PosixError(interp);
  Tcl_SetObjResult(interp, Tcl_ObjPrintf("couldn't %s \"%s\": %s", action, Tcl_GetString(name), reason));
  throw reported_error();
}

/// Turns the exception that is being handled into an error of Tcl.
void report_exception(Tcl_Interp* interp) {
  try {
    throw;
  } catch (reported_error const&) {
  } catch (std::bad_alloc const&) {
    Tcl_SetErrno(ENOMEM);
    Tcl_SetObjResult(interp, Tcl_NewStringObj(Tcl_PosixError(interp), -1));
  } catch (boost::system::system_error const& error) {
    Tcl_SetErrno(error.code().value());
    Tcl_SetObjResult(interp, Tcl_ObjPrintf("couldn't list the subdirectories: %s", Tcl_PosixError(interp)));
  } catch (...) {
    Tcl_SetErrorCode(interp, "CCL", "FIO", "INTERNAL", static_cast<char*>(nullptr));
    Tcl_SetObjResult(interp, Tcl_NewStringObj("internal error", -1));
  }
}

template <void (*Command)(invocation const&)>
int run(ClientData /*unused*/, Tcl_Interp* interp, int count, Tcl_Obj* const words[]) noexcept {
  try {
    Command({interp, count, words});
    return TCL_OK;
  } catch (...) {
    report_exception(interp);
    return TCL_ERROR;
  }
}

// Arguments

[[noreturn]] void refuse_count(invocation const& given, char const* usage) {
  Tcl_WrongNumArgs(given.interp, 1, given.words, usage);
  throw reported_error();
}

/// Checks the number of words behind the command's own name.
void require(invocation const& given, int least, int most, char const* usage) {
  if (given.count - 1 < least || given.count - 1 > most) {
    refuse_count(given, usage);
  }
}

/// An option, and what its value is called, or null if it has none.
struct option {
  char const* name;
  char const* value;
};

/// Calls `take(option, value)` for each option in front of the last `required` words, which are no options whatever they
/// begin with; "--" may stand in front of them. The table ends with "--" and an option without a name.
template <typename Take>
void take_options(invocation const& given, int required, char const* usage, option const* options, Take take) {
  int const end = given.count - required;
  if (end < 1) {
    refuse_count(given, usage);
  }
  for (int i = 1; i < end; ++i) {
    int index = 0;
    check(Tcl_GetIndexFromObjStruct(given.interp, given.words[i], options, sizeof(option), "option", 0, &index));
    option const& chosen = options[index];
    if (std::strcmp(chosen.name, "--") == 0) {
      if (i != end - 1) {
        refuse_count(given, usage);
      }
    } else if (chosen.value == nullptr) {
      take(std::string_view(chosen.name), nullptr);
    } else if (++i < end) {
      take(std::string_view(chosen.name), given.words[i]);
    } else {
      given.result(Tcl_ObjPrintf("\"%s\" option must be followed by %s", chosen.name, chosen.value));
      Tcl_SetErrorCode(given.interp, "TCL", "ARGUMENT", "MISSING", static_cast<char*>(nullptr));
      throw reported_error();
    }
  }
}

// Names

/// The bytes of a name in the system encoding. A name that it cannot represent is refused: a "?" in the place of
/// a character would be a wildcard, and a NUL would end the name.
std::string bytes_of(Tcl_Interp* interp, Tcl_Obj* name) {
  int length = 0;
  char const* const text = Tcl_GetStringFromObj(name, &length);
  dynamic_string external;
  dynamic_string back;
  Tcl_UtfToExternalDString(nullptr, text, length, &external.text);
  std::string_view const bytes = external.view();
  Tcl_ExternalToUtfDString(nullptr, bytes.data(), static_cast<int>(bytes.size()), &back.text);
  if (back.view() != std::string_view(text, static_cast<std::size_t>(length))) {
    refuse(interp, "ENCODING", name, "contains a character that the system encoding cannot represent");
  }
  if (bytes.find('\0') != std::string_view::npos) {
    refuse(interp, "NUL", name, "contains a NUL");
  }
  return std::string(bytes);
}

/// The same for a directory on the disk, where Tcl replaces a leading "~" by a home directory.
std::string directory_of(Tcl_Interp* interp, Tcl_Obj* name) {
  std::string bytes = bytes_of(interp, name);
  if (bytes.empty() || bytes.front() != '~') {
    return bytes;
  }
  owned const translated(Tcl_FSGetTranslatedPath(interp, name));
  if (!translated) {
    throw reported_error();
  }
  return bytes_of(interp, translated.get());
}

/// A value of Tcl from the bytes of a name. Tcl ends the program where its own memory runs out.
Tcl_Obj* new_name(std::string const& bytes) noexcept {
  dynamic_string text;
  Tcl_ExternalToUtfDString(nullptr, bytes.data(), static_cast<int>(bytes.size()), &text.text);
  return Tcl_NewStringObj(text.view().data(), static_cast<int>(text.view().size()));
}

/// Fails if the string of a path was too long, which has left it empty.
FIO_PATH const& checked(Tcl_Interp* interp, FIO_PATH const& path, Tcl_Obj* name) {
  if (!path.is_legal_length()) {
    fail(interp, ENAMETOOLONG, "use path", name);
  }
  return path;
}

FIO_PATH path_of(Tcl_Interp* interp, Tcl_Obj* name) {
  FIO_PATH path(bytes_of(interp, name));
  checked(interp, path, name);
  return path;
}

/// Calls `take` with each element of a list.
template <typename Take>
void for_each_element(Tcl_Interp* interp, Tcl_Obj* list, Take take) {
  int count = 0;
  Tcl_Obj** elements = nullptr;
  check(Tcl_ListObjGetElements(interp, list, &count, &elements));
  std::for_each(elements, elements + count, take);
}

// find, findall

/// What both searches are given.
struct search {
  FIO_FIND finder = FIO_FIND(std::list<FIO_PATH>(), false);
  std::string name;
  bool has_filename = false; ///< without one the library would find the directories themselves
  Tcl_Obj* extensions = nullptr;
  bool lower_case = false;
};

void read_search(invocation const& given, char const* usage, option const* options, search& wanted) {
  take_options(given, 2, usage, options, [&](std::string_view chosen, Tcl_Obj* value) {
    if (chosen == "-recursive") {
      wanted.finder.m_recursive = true;
    } else if (chosen == "-lowercase") {
      wanted.lower_case = true;
    } else if (chosen == "-extensions") {
      wanted.extensions = value;
    } else {
      std::string const directory = directory_of(given.interp, value);
      checked(given.interp, FIO_PATH(directory), value);
      if (!wanted.finder.set_directory_for_results_to_become_absolute_to(directory.c_str())) {
        refuse(given.interp, "RELATIVE", value, "is not an absolute directory");
      }
    }
  });
  Tcl_Obj* const name = given.words[given.count - 1];
  wanted.name = bytes_of(given.interp, name);
  wanted.has_filename = !path_of(given.interp, name).filename().empty();
  std::list<FIO_PATH> directories;
  for_each_element(given.interp, given.words[given.count - 2], [&](Tcl_Obj* element) {
    std::string const directory = directory_of(given.interp, element);
    if (!directory.empty()) { // it would be the current one
      directories.emplace_back(directory, std::string());
      checked(given.interp, directories.back(), element);
    }
  });
  wanted.finder.init(directories);
}

void find(invocation const& given) {
  static constexpr option options[] = {{"-absolute", "directory"}, {"-recursive", nullptr}, {"--", nullptr}, {}};
  search wanted;
  read_search(given, "?-absolute directory? ?-recursive? ?--? directories name", options, wanted);
  Tcl_Obj* const name = given.words[given.count - 1];
  if (wanted.name.find_first_of("*?") != std::string::npos) {
    refuse(given.interp, "WILDCARD", name, "contains a wildcard: use findall");
  }
  if (wanted.has_filename) {
    FIO_PATH const found = wanted.finder.find_first_relative_path(wanted.name);
    given.result(new_name(checked(given.interp, found, name).fullpath()));
  }
}

void find_all(invocation const& given) {
  static constexpr option options[] = {{"-absolute", "directory"}, {"-recursive", nullptr}, {"-extensions", "list"},
                                       {"-lowercase", nullptr},    {"--", nullptr},         {}};
  search wanted;
  read_search(given, "?-absolute directory? ?-recursive? ?-extensions list? ?-lowercase? ?--? directories name",
              options, wanted);
  std::vector<std::string> endings;
  if (wanted.extensions == nullptr) { // its own one, with the dot: "file." has a lone one
    endings.push_back(FIO_PATH(wanted.name).get_path_components(FIO_PATH::EXTENSION));
  } else {
    for_each_element(given.interp, wanted.extensions,
                     [&](Tcl_Obj* element) { endings.push_back(bytes_of(given.interp, element)); });
  }
  std::list<FIO_PATH> found;
  if (wanted.has_filename) {
    wanted.finder.find_all(wanted.name, endings, &found, false, wanted.lower_case);
  }
  owned const list = new_list();
  for (FIO_PATH const& path : found) {
    std::string const filename = checked(given.interp, path, given.words[given.count - 1]).filename();
    // A wildcard finds "." and "..", of which nothing is left in an absolute path.
    if (!filename.empty() && !FIO_PATH::is_dot_directory(filename)) {
      append(list, new_name(path.fullpath()));
    }
  }
  given.result(list.get());
}

// type, filter

/// A string of the vocabulary; null counts as empty.
Tcl_Obj* new_string(char const* text) noexcept { return Tcl_NewStringObj(text == nullptr ? "" : text, -1); }

/// The names of a type's traits, each once: two traits may have the same.
owned traits_of(FIO_FILE_TYPE type) {
  owned list = new_list();
  std::vector<std::string_view> seen;
  for (unsigned bit = 1; bit != 0; bit <<= 1) {
    auto const trait = static_cast<FIO_FILE_TYPE_FLAG>(bit);
    char const* const text = fio_get_file_type_trait_string(trait);
    if (text != nullptr && fio_test_trait_of(type, trait) && std::find(seen.begin(), seen.end(), text) == seen.end()) {
      seen.emplace_back(text);
      append(list, new_string(text));
    }
  }
  return list;
}

void type(invocation const& given) {
  require(given, 1, 1, "name");
  FIO_EXTENSION_TYPE const extension = fio_get_extension_type(bytes_of(given.interp, given.words[1]));
  FIO_FILE_TYPE const type = fio_get_file_type(extension);
  if (type == FIO_FILE_TYPE_INVALID) {
    return;
  }
  FIO_EDITOR_TYPE const editor = fio_get_editor_type(type);
  owned const facts = hold(Tcl_NewDictObj());
  put(facts, "type", new_string(fio_get_file_type_name(type)));
  put(facts, "extension", new_string(fio_get_extension_string(extension)));
  put(facts, "editor", new_string(editor == FIO_EDITOR_TYPE_NONE ? nullptr : fio_get_editor_type_string(editor)));
  put(facts, "number", Tcl_NewIntObj(type));
  put(facts, "description", new_string(fio_get_file_description(type)));
  put(facts, "traits", traits_of(type).get());
  given.result(facts.get());
}

void filter(invocation const& given) {
  static constexpr option options[] = {{"-plural", nullptr}, {"-tk", nullptr}, {"--", nullptr}, {}};
  bool plural = false;
  bool for_tk = false;
  take_options(given, 1, "?-plural? ?-tk? ?--? name", options,
               [&](std::string_view chosen, Tcl_Obj* /*unused*/) { (chosen == "-plural" ? plural : for_tk) = true; });
  FIO_FILE_TYPE const type = fio_get_file_type(bytes_of(given.interp, given.words[given.count - 1]));
  if (type == FIO_FILE_TYPE_INVALID) {
    return;
  }
  if (!for_tk) {
    given.result(new_string(fio_get_file_type_filter(type, plural).c_str()));
    return;
  }
  std::list<FIO_EXTENSION_TYPE> used;
  fio_get_extension_type_list(&used, FIO_EXTENSION_TYPE_ANY, type);
  owned const patterns = new_list();
  for (FIO_EXTENSION_TYPE const extension : used) {
    append(patterns, new_string(fio_get_extension_string(extension)));
  }
  Tcl_Obj* const parts[] = {Tcl_ObjPrintf("%s%s", fio_get_file_type_name(type), plural ? "s" : ""), patterns.get()};
  given.result(Tcl_NewListObj(2, parts));
}

// parts, simplify, absolute, relative, same

void parts(invocation const& given) {
  require(given, 1, 1, "name");
  FIO_PATH const path = path_of(given.interp, given.words[1]);
  owned const levels = new_list();
  for (int level = 0; level != path.levels(); ++level) {
    append(levels, new_name(path[level]));
  }
  owned const dictionary = hold(Tcl_NewDictObj());
  put(dictionary, "path", new_name(path.fullpath()));
  put(dictionary, "directory", new_name(path.directory()));
  put(dictionary, "base", new_name(path.base()));
  put(dictionary, "extension", new_name(path.extension()));
  put(dictionary, "filename", new_name(path.filename()));
  put(dictionary, "tail", new_name(path.tail()));
  put(dictionary, "levels", levels.get());
  put(dictionary, "absolute", Tcl_NewBooleanObj(path.absolute()));
  given.result(dictionary.get());
}

void simplify(invocation const& given) {
  require(given, 1, 1, "name");
  FIO_PATH path = path_of(given.interp, given.words[1]);
  path.become_simplified();
  given.result(new_name(path.fullpath()));
}

/// Fails, as `pwd` does, where the library would take the root for a current directory that it cannot read.
void require_current_directory(Tcl_Interp* interp, FIO_PATH const& path) {
  errno = 0;
  if (!path.absolute() && FIO_FILE_SYSTEM::get_current_directory().empty()) {
    Tcl_SetErrno(errno != 0 ? errno : ENAMETOOLONG);
    Tcl_SetObjResult(interp, Tcl_ObjPrintf("error getting working directory name: %s", Tcl_PosixError(interp)));
    throw reported_error();
  }
}

void absolute(invocation const& given) {
  require(given, 1, 2, "name ?directory?");
  FIO_PATH path = path_of(given.interp, given.words[1]);
  std::string directory;
  if (given.count == 3) {
    directory = path_of(given.interp, given.words[2]).fullpath();
  }
  if (directory.empty()) {
    require_current_directory(given.interp, path);
  }
  path.become_absolute(directory);
  given.result(new_name(checked(given.interp, path, given.words[1]).fullpath()));
}

void relative(invocation const& given) {
  require(given, 2, 2, "name directory");
  FIO_PATH const path = path_of(given.interp, given.words[1]);
  given.result(new_name(path.get_relative_to(path_of(given.interp, given.words[2]).fullpath())));
}

void same(invocation const& given) {
  require(given, 2, 2, "name name");
  FIO_PATH const left = path_of(given.interp, given.words[1]);
  FIO_PATH const right = path_of(given.interp, given.words[2]);
  require_current_directory(given.interp, left);
  require_current_directory(given.interp, right);
  given.result(Tcl_NewBooleanObj(left == right));
}

// clean

/// The first failure of several. What vanished meanwhile is none, nor is a socket, which the library calls a directory.
struct first_failure {
  std::string path;
  int error = 0;

  void note(std::string const& failed) {
    int const cause = errno;
    if (error == 0 && cause != ENOENT && cause != ENOTDIR) {
      path = failed;
      error = cause;
    }
  }
};

/// What an iterator would take for an empty directory has no such entry.
bool is_readable(std::string const& directory) { return ::access((directory + "/.").c_str(), R_OK | X_OK) == 0; }

bool is_file_before(std::string const& path, Tcl_WideInt limit) {
  struct stat status = {};
  return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_mtime < limit;
}

/// What there is to remove below a directory, directories before what they hold. Links are not followed, which the
/// library's own removals do. A removal during a walk might make it pass over an entry.
std::vector<std::string> removable(std::string const& directory, char const* pattern, Tcl_WideInt limit,
                                   bool with_directories, first_failure& failure) {
  std::vector<std::string> paths;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR(directory.c_str())) {
    if (entry.is_directory) {
      if (!is_readable(entry.path)) {
        failure.note(entry.path);
      } else if (with_directories) {
        paths.push_back(entry.path);
      }
    } else if (FIO_FILE_SYSTEM::same_file(entry.path.c_str() + entry.path.rfind('/') + 1, pattern) &&
               is_file_before(entry.path, limit)) {
      paths.push_back(entry.path);
    }
  }
  return paths;
}

void clean(invocation const& given) {
  static constexpr option options[] = {
      {"-empty", nullptr}, {"-older", "seconds"}, {"-pattern", "pattern"}, {"--", nullptr}, {}};
  bool with_directories = false;
  Tcl_WideInt age = 24L * 60 * 60;
  std::string pattern = ".korvane.*.tmp";
  take_options(given, 1, "?-empty? ?-older seconds? ?-pattern pattern? ?--? directory", options,
               [&](std::string_view chosen, Tcl_Obj* value) {
                 if (chosen == "-empty") {
                   with_directories = true;
                 } else if (chosen == "-pattern") {
                   pattern = bytes_of(given.interp, value);
                   if (pattern.empty()) {
                     refuse(given.interp, "PATTERN", value, "matches every name");
                   }
                 } else {
                   check(Tcl_GetWideIntFromObj(given.interp, value, &age));
                   if (age < 0) {
                     refuse(given.interp, "AGE", value, "is not an age in seconds");
                   }
                 }
               });
  Tcl_Obj* const name = given.words[given.count - 1];
  std::string directory = directory_of(given.interp, name);
  while (directory.size() > 1 && directory.back() == '/') {
    directory.pop_back();
  }
  if (directory.empty() || !is_readable(directory)) {
    fail(given.interp, directory.empty() ? ENOENT : errno, "clean", name);
  }
  first_failure failure;
  std::vector<std::string> const paths =
      removable(directory, pattern.c_str(), std::time(nullptr) - age, with_directories, failure);
  owned const removed = new_list();
  std::for_each(paths.rbegin(), paths.rend(), [&](std::string const& path) {
    if (FIO_FILE_SYSTEM::remove(path.c_str())) {
      append(removed, new_name(path));
    } else if (errno != ENOTEMPTY && errno != EEXIST) {
      failure.note(path);
    }
  });
  if (failure.error != 0) {
    fail(given.interp, failure.error, "clean", hold(new_name(failure.path)).get());
  }
  given.result(removed.get());
}

} // namespace

/// What `load` looks for. There is none for safe interpreters: the commands reach the disk.
extern "C" FIO_EXPORT int Cclfio_Init(Tcl_Interp* interp) {
  static constexpr struct {
    char const* name;
    Tcl_ObjCmdProc* command;
  } commands[] = {
      {"::ccl::fio::find", run<find>},         {"::ccl::fio::findall", run<find_all>},
      {"::ccl::fio::type", run<type>},         {"::ccl::fio::filter", run<filter>},
      {"::ccl::fio::parts", run<parts>},       {"::ccl::fio::simplify", run<simplify>},
      {"::ccl::fio::absolute", run<absolute>}, {"::ccl::fio::relative", run<relative>},
      {"::ccl::fio::same", run<same>},         {"::ccl::fio::clean", run<clean>},
  };
  if (Tcl_InitStubs(interp, "8.6", 0) == nullptr) {
    return TCL_ERROR;
  }
  for (auto const& [name, command] : commands) {
    Tcl_CreateObjCommand(interp, name, command, nullptr, nullptr);
  }
  if (Tcl_EvalEx(interp, "namespace eval ::ccl::fio {namespace export *; namespace ensemble create}", -1,
                 TCL_EVAL_GLOBAL) != TCL_OK) {
    return TCL_ERROR;
  }
  return Tcl_PkgProvideEx(interp, "ccl::fio", CCL_FIO_VERSION_STRING, nullptr);
}
