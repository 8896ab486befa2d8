#include "tests/sweeps/system_call_rules.h"

#include <fnmatch.h>

namespace system_call {
namespace {

constexpr timing any = timing::any;
constexpr timing once = timing::once;
constexpr timing always = timing::always;
constexpr effect before = effect::before;
constexpr effect after = effect::after;
constexpr effect between = effect::between;
constexpr effect partial = effect::partial;

// The first rule that fits holds: what is special to an operation stands before what holds for all.

constexpr rule rules_of_primitives[] = {
    // An operation that is one call hands its failure on.
    {"open", "osi_open", "*", 0, any, "*", "-1", before},
    {"fopen", "osi_fopen", "*", 0, any, "*", "null", before},
    {"chmod", "osi_chmod", "*", 0, any, "*", "false", before},
    {"mkdir", "osi_mkdir", "*", 0, any, "*", "-1", before},
    {"rmdir", "osi_rmdir", "*", 0, any, "*", "-1", before},
    {"change directory", "osi_chdir", "*", 0, any, "*", "-1", before},
    {"set directory", "osi_chdir", "*", 0, any, "*", "false", before},
    {"directory into buffer", "osi_getcwd", "*", 0, any, "*", "null", before},
    {"directory length", "osi_getcwd", "*", 0, any, "*", "held", before},
    {"directory", "osi_getcwd", "*", 0, any, "*", "", before},
    {"rename*", "rename", "*", 0, any, "*", "false", before},
    // What is not there is removed already.
    {"remove if there", "osi_exists", "*", 0, any, "E*", "=", before},
    {"@(remove|remove string|remove path|remove native|remove posix|remove unc|remove if there)", "remove", "*", 0, any,
     "*", "false", before},
    {"status*", "osi_status", "*", 0, any, "*", "false", before},
    {"is @(directory|regular file|older)", "osi_status", "*", 0, any, "*", "false", before},
    {"exists*", "osi_exists", "*", 0, any, "E*", "false", before},
    // A walk: an entry whose status fails is passed over, and an end of the reading is the end of the directory.
    {"exists wildcard", "@(opendir|readdir64|stat)", "*", 0, any, "*", "false", before},
    {"find literally", "stat", "*", 0, any, "*", "-1", before},
    {"find literally", "access", "*", 0, any, "*", "0 a.v attributes 1 size 1 time 1000000000", before},
    {"find wildcard", "@(opendir|readdir64|stat)", "*", 0, any, "*", "-1", before},
    {"find wildcard", "access", "*", 0, any, "*", "walk a.v attributes 1 size 1 time 1000000000", before},
    {"find next", "readdir64", "*", 0, any, "*", "-1", before},
    {"find next", "stat", "*", 0, once, "*", "0 b.v attributes 0 size 2 time 1000000001", before},
    {"find next", "stat", "*", 0, always, "*", "-1", before},
    {"find next", "access", "*", 0, any, "*", "0 a.v attributes 1 size 1 time 1000000000", before},
};

constexpr char made_by_nobody[] = "false | mkdir failed with: new (errno: %d) | "
                                  "is_directory (via status) failed with: new (errno: 2)";
constexpr char deep_made_by_nobody[] = "false | mkdir failed with: new/deep (errno: %d) | "
                                       "is_directory (via status) failed with: new/deep (errno: 2)";
constexpr char file_is_in_the_way[] = "false | mkdir failed with: file (errno: 17) | "
                                      "is_directory (via status) failed with: file (errno: 17)";
constexpr char other_errno_of_mkdir[] = "false | mkdir failed with: file/x (errno: %d) | "
                                        "is_directory (via status) failed with: file/x (errno: 20)";
constexpr char other_errno_of_status[] = "false | mkdir failed with: file/x (errno: 20) | "
                                         "is_directory (via status) failed with: file/x (errno: %d)";
constexpr char copied_made_by_nobody[] = "false | mkdir failed with: copied (errno: %d) | "
                                         "is_directory (via status) failed with: copied (errno: 2)";
constexpr char copied_sub_made_by_nobody[] = "false | mkdir failed with: copied/sub (errno: %d) | "
                                             "is_directory (via status) failed with: copied/sub (errno: 2)";

constexpr rule rules_of_creating[] = {
    // The answer of `create` is the last question, and a directory that stands can be made by anybody.
    {"create", "osi_exists", "new", 0, once, "E*", "=", after},
    {"create", "osi_exists", "new/deep", 1, once, "E*", "=", after},
    {"create", "osi_exists", "new/deep", 2, any, "E*", "false", after},
    {"create", "osi_exists", "*", 0, always, "E*", "false", after},
    {"create", "osi_exists", "new", 0, any, "says yes", "?", between},
    {"create", "osi_mkdir", "new", 0, any, "*", made_by_nobody, before},
    {"create", "osi_mkdir", "new/deep", 0, any, "*", deep_made_by_nobody, between},
    {"create what stands", "osi_exists", "dir/sub", 2, any, "E*", "false", before},
    {"create what stands", "osi_exists", "*", 0, once, "E*", "=", before},
    {"create what stands", "osi_exists", "*", 0, always, "E*", "false", before},
    {"create below a file", "osi_exists", "file", 0, any, "E*", file_is_in_the_way, before},
    {"create below a file", "osi_exists", "file/x", 0, any, "E*", "=", before},
    {"create below a file", "osi_mkdir", "*", 0, any, "*", other_errno_of_mkdir, before},
    {"create below a file", "osi_status", "*", 0, any, "*", other_errno_of_status, before},
    {"touch", "osi_exists", "dir", 0, once, "E*", "=", after},
    {"touch", "osi_exists", "*", 0, any, "E*", "false", before},
    {"touch", "osi_fopen", "*", 0, any, "*", "false", before},
};

constexpr rule rules_of_temporary_names[] = {
    // A name is free if nothing says that it is taken; after a thousand attempts it is given all the same.
    {"*temporary name", "osi_exists", "*", 0, any, "*", "=", before},
    {"remove temporary files", "osi_exists", "dir/.korvane.#.tmp", 0, once, "*", "=", after},
    {"remove temporary files", "osi_exists", "*", 0, any, "E*", "=", before},
    {"remove temporary files", "osi_open", "*", 0, once, "*", "=", after},
    {"remove temporary files", "osi_open", "*", 0, always, "*", "false", before},
    {"remove temporary files", "osi_status", "dir/.korvane.#.tmp", 0, any, "*", "false", before},
    {"remove temporary files", "remove", "dir/.korvane.#.tmp", 0, any, "*", "=", partial},
    {"remove temporary files", "osi_chdir", "*", 0, any, "*", "=", after},
    {"remove temporary files", "osi_getcwd", "*", 0, any, "*", "=", after},
    {"remove temporary files", "access", "*", 0, any, "*", "=", after},
    // Whatever the removal does.
    {"remove temporary files", "@(osi_exists|osi_status|opendir|readdir64|stat|remove)", "*", 0, any, "*", "=",
     between},
};

// The operations that copy, all of them by `copy`.
#define COPYING "@(copy|copy over|copy beside|move|copy files|copy tree)"
#define OF_COPIES "@(target|other|copied/*)"
#define OF_SOURCES "@(file|dir/*)"

constexpr rule rules_of_copying[] = {
    // A target that seems to be missing is not removed, and what stands there then is left as it is...
    {"copy over", "osi_exists", "other", 1, once, "E*", "=", between},
    {"copy over", "osi_exists", "other", 0, any, "E*", "=", after},
    {"copy over", "remove", "other", 0, any, "*", "=", between},
    // ...and one that seems to be missing at the second look is written over.
    {"copy beside", "osi_exists", "other", 0, any, "E*", "=", effect::overwritten},
    {"@(copy|move)", "osi_exists", "target", 0, any, "E*", "=", after},
    {"copy files", "osi_exists", "copied/", 1, once, "E*", "=", after},
    {"copy files", "osi_exists", "copied", 0, once, "E*", "=", after},
    {"copy files", "osi_exists", "copied/?.v", 0, once, "E*", "=", after},
    {"copy files", "osi_exists", "copied/b.v", 0, always, "E*", "=", after},
    {"copy tree", "osi_exists", "copied@(|/sub)/", 1, once, "E*", "=", after},
    {"copy tree", "osi_exists", "@(copied|copied/sub)", 0, once, "E*", "=", after},
    {"copy tree", "osi_exists", "copied/*.v", 0, once, "E*", "=", after},
    {"copy tree", "osi_exists", "copied/sub/c.v", 0, always, "E*", "=", after},
    {COPYING, "osi_exists", OF_SOURCES, 1, any, "E*", "false", partial},
    {"copy @(files|tree)", "osi_exists", "copied*", 0, any, "E*", "false", partial},
    {"copy @(files|tree)", "osi_mkdir", "copied", 0, any, "*", copied_made_by_nobody, before},
    {"copy @(files|tree)", "osi_mkdir", "copied/sub", 0, any, "*", copied_sub_made_by_nobody, between},
    // Nothing to be found is nothing to do.
    {"copy @(files|tree)", "readdir64", "*: (end)", 0, once, "*", "=", after},
    {"copy @(files|tree)", "@(opendir|readdir64|stat)", "*", 0, any, "*", "=", between},
    {COPYING, "osi_fopen", OF_SOURCES, 0, any, "*", "false", between},
    {"@(copy|move)", "osi_fopen", "target", 0, any, "*", "false", before},
    {COPYING, "osi_fopen", OF_COPIES, 0, any, "*", "false", partial},
    // The content: the error indicators decide, and not what was read and written.
    {COPYING, "fread", "*", 0, any, "E*", "false", partial},
    {COPYING, "fread", "*", 0, any, "ends early", "=", partial},
    {COPYING, "fread", "*", 0, any, "reads half", "=", partial},
    {COPYING, "fwrite", "*", 0, any, "E*", "false", partial},
    {COPYING, "fwrite", "*", 0, any, "writes half", "=", partial},
    {COPYING, "fflush", "*", 0, any, "*", "false", partial},
    {COPYING, "ferror", "*", 0, any, "*", "false", partial},
    {"copy over", "osi_status", "file", 0, any, "*", "false", partial},
    {"copy over", "utime", "other", 0, any, "*", "false", partial},
    {"copy beside", "osi_status", "file", 0, any, "*", "false", before},
    {"copy beside", "utime", "other", 0, any, "*", "false", before},
    {"move", "remove", "file", 0, any, "*", "false", between},
};

constexpr char tree_removers[] = "remove tree*";

constexpr rule rules_of_removing[] = {
    {"remove files", "remove", "dir/a.v", 0, any, "*", "false", before},
    {"remove files", "remove", "dir/b.v", 0, any, "*", "false", between},
    {"remove files", "opendir", "*", 0, any, "*", "=", before},
    {"remove files", "readdir64", "*", 0, any, "*", "=", between},
    {"remove files", "stat", "*", 0, any, "*", "=", between},
    // The current directory is only kept and put back, and yet it decides.
    {"remove tree", "osi_exists", "*", 0, any, "E*", "false", before},
    {"remove tree", "osi_getcwd", "*", 0, any, "*", "false", after},
    {"remove tree", "osi_chdir", "*", 0, any, "*", "false", after},
    // What is not found stays, and so does all above it.
    {tree_removers, "opendir", "dir", 0, any, "*", "false", before},
    {tree_removers, "opendir", "dir/sub", 0, any, "*", "false", between},
    {tree_removers, "readdir64", "*: (end)", 0, any, "*", "=", after},
    {tree_removers, "readdir64", "dir/sub: *", 0, any, "*", "false", between},
    {tree_removers, "readdir64", "*", 0, any, "*", "false", between},
    {tree_removers, "stat", "@(*/.|*/..)", 0, once, "*", "=", after},
    {tree_removers, "stat", "*", 0, any, "*", "false", between},
    {tree_removers, "remove", "*", 0, any, "*", "false", between},
    {"remove old files", "osi_exists", "*", 0, any, "E*", "false", before},
    {"remove old files", "osi_getcwd", "*", 0, any, "*", "false", after},
    {"remove old files", "osi_chdir", "*", 0, any, "*", "false", after},
    {"remove old files", "opendir", "dir", 0, any, "*", "=", before},
    {"remove old files", "remove", "*", 0, any, "*", "false", between},
    {"remove old files", "@(opendir|readdir64)", "*", 0, any, "*", "=", between},
    {"remove old files", "@(stat|osi_status)", "*", 0, any, "*", "=", between},
    // A directory that cannot be read counts as empty.
    {"is empty*", "osi_status", "*", 0, any, "*", "false", before},
    {"is empty*", "opendir", "*", 0, any, "*", "true", before},
    {"is empty", "@(readdir64|stat)", "*", 0, any, "*", "=", before},
    {"is empty where it is not", "readdir64", "*", 0, any, "*", "true", before},
    {"is empty where it is not", "stat", "*", 0, once, "*", "=", before},
    {"is empty where it is not", "stat", "*", 0, always, "*", "true", before},
};

#define NO_DIRECTORY(path) "The given path \"" path "\" is not a valid directory."
#define NOT_OPENED(path) "Failed to open \"" path "\" as a directory."
#define NOT_REMOVED(path) "Failed to remove directory \"" path "\"."
#define THEN(message) " | remove_empty_subdirectories failed with: " message
#define THEN_ROOT(path) " | remove_empty_subdirectories failed to remove root: " path

constexpr rule rules_of_removing_empty_with_root[] = {
    {"remove empty with root", "osi_status", "empty", 1, any, "*", NO_DIRECTORY("empty"), before},
    {"remove empty with root", "osi_status", "empty", 2, any, "*", "=", between},
    {"remove empty with root", "osi_status", "empty/in", 1, any, "*", NO_DIRECTORY("empty/in"), before},
    {"remove empty with root", "osi_status", "empty/in", 2, any, "*", "=", before},
    {"remove empty with root", "opendir", "empty", 1, any, "*", NOT_OPENED("empty"), before},
    {"remove empty with root", "opendir", "empty/in", 1, once, "*", NOT_OPENED("empty/in"), before},
    {"remove empty with root", "opendir", "empty/in", 1, always, "*", NOT_OPENED("empty/in") THEN_ROOT("empty"),
     before},
    {"remove empty with root", "opendir", "*", 2, any, "*", "=", after},
    {"remove empty with root", "readdir64", "empty: .", 1, any, "*", NOT_OPENED("empty"), before},
    {"remove empty with root", "readdir64", "empty: @(..|in)", 1, once, "*", "=", before},
    {"remove empty with root", "readdir64", "empty: @(..|in)", 1, always, "*", NOT_REMOVED("empty"), before},
    {"remove empty with root", "readdir64", "empty/in: .", 1, once, "*", NOT_OPENED("empty/in"), before},
    {"remove empty with root", "readdir64", "empty/in: .", 1, always, "*", NOT_OPENED("empty/in") THEN_ROOT("empty"),
     before},
    {"remove empty with root", "readdir64", "*", 0, any, "*", "=", after},
    {"remove empty with root", "stat", "*/.", 1, once, "*", "=", after},
    {"remove empty with root", "stat", "empty/.", 1, always, "*", NOT_OPENED("empty"), before},
    {"remove empty with root", "stat", "empty/in/.", 1, always, "*", NOT_OPENED("empty/in") THEN_ROOT("empty"), before},
    {"remove empty with root", "stat", "empty/..", 1, always, "*", NOT_REMOVED("empty"), before},
    {"remove empty with root", "stat", "empty/in", 1, once, "*", "=", before},
    {"remove empty with root", "stat", "empty/in", 1, always, "*", NOT_REMOVED("empty"), before},
    {"remove empty with root", "stat", "*", 0, any, "*", "=", after},
    {"remove empty with root", "remove", "empty/in", 0, any, "*", NOT_REMOVED("empty/in"), before},
    {"remove empty with root", "remove", "empty", 0, any, "*", NOT_REMOVED("empty"), between},
};

// Two directories, so that there may be a second error, which goes to the log.
constexpr char below_root[] = "remove empty below root";

constexpr rule rules_of_removing_empty_below_root[] = {
    {below_root, "osi_status", "pair", 1, any, "*", NO_DIRECTORY("pair"), before},
    {below_root, "osi_status", "pair/x", 1, once, "*", NO_DIRECTORY("pair/x"), between},
    {below_root, "osi_status", "pair/x", 1, always, "*", NO_DIRECTORY("pair/x") THEN(NO_DIRECTORY("pair/y")), before},
    {below_root, "osi_status", "pair/x", 2, once, "*", "=", between},
    {below_root, "osi_status", "pair/x", 2, always, "*", NO_DIRECTORY("pair/y"), before},
    {below_root, "osi_status", "pair/y", 1, any, "*", NO_DIRECTORY("pair/y"), between},
    {below_root, "osi_status", "pair/y", 2, any, "*", "=", between},
    {below_root, "opendir", "pair", 1, any, "*", NOT_OPENED("pair"), before},
    {below_root, "opendir", "pair/x", 1, once, "*", NOT_OPENED("pair/x"), between},
    {below_root, "opendir", "pair/x", 1, always, "*", NOT_OPENED("pair/x") THEN(NOT_OPENED("pair/y")), before},
    {below_root, "opendir", "pair/x", 2, always, "*", NOT_OPENED("pair/y"), between},
    {below_root, "opendir", "pair/y", 1, any, "*", NOT_OPENED("pair/y"), between},
    {below_root, "opendir", "*", 2, any, "*", "=", after},
    {below_root, "readdir64", "pair: .", 1, any, "*", NOT_OPENED("pair"), before},
    {below_root, "readdir64", "pair: @(..|x|y)", 1, any, "*", "=", between},
    {below_root, "readdir64", "pair/x: .", 1, once, "*", NOT_OPENED("pair/x"), between},
    {below_root, "readdir64", "pair/x: .", 1, always, "*", NOT_OPENED("pair/x"), before},
    {below_root, "readdir64", "pair/y: .", 1, any, "*", NOT_OPENED("pair/y"), between},
    {below_root, "readdir64", "*", 0, once, "*", "=", after},
    {below_root, "readdir64", "*", 0, always, "*", "=", between},
    {below_root, "stat", "@(*/.|*/..)", 0, once, "*", "=", after},
    {below_root, "stat", "pair/.", 1, always, "*", NOT_OPENED("pair"), before},
    {below_root, "stat", "pair/@(..|x)", 0, always, "*", "=", before},
    {below_root, "stat", "pair/x/.", 1, always, "*", NOT_OPENED("pair/x"), before},
    {below_root, "stat", "pair/y/.", 1, always, "*", NOT_OPENED("pair/y"), between},
    {below_root, "stat", "pair/y/@(.|..)", 0, always, "*", "=", after},
    {below_root, "stat", "*", 0, any, "*", "=", between},
    {below_root, "remove", "pair/x", 0, once, "*", NOT_REMOVED("pair/x"), between},
    {below_root, "remove", "pair/x", 0, always, "*", NOT_REMOVED("pair/x") THEN(NOT_REMOVED("pair/y")), before},
    {below_root, "remove", "pair/y", 0, any, "*", NOT_REMOVED("pair/y"), between},
};

#undef NO_DIRECTORY
#undef NOT_OPENED
#undef NOT_REMOVED
#undef THEN
#undef THEN_ROOT

#define MISSING "@(ENOENT|ENOTDIR)"

constexpr rule rules_of_searching[] = {
    // An iterator tells no failure: it is at its end, of the walk or of what lies below an entry.
    {"iterator*", "@(osi_status|opendir|readdir64)", "*", 0, any, "*", "end", before},
    {"increment", "readdir64", "*", 0, any, "*", "end", before},
    {"walk tree", "readdir64", "dir: b.v", 0, any, "*", "dir/a.v end", before},
    {"walk tree", "readdir64", "dir: sub", 0, any, "*", "dir/a.v dir/b.v end", before},
    {"walk tree", "readdir64", "*: (end)", 0, any, "*", "=", before},
    {"walk tree", "@(osi_status|opendir|readdir64)", "dir/sub*", 0, any, "*", "dir/a.v dir/b.v dir/sub/ end", before},
    // A directory that is missing is passed over; any other failure leaves as what Boost throws.
    {"make search list*", "stat64", "dir/", 0, once, MISSING, "dir/ pair/ pair/x/ pair/y/", before},
    {"make search list*", "stat64", "dir/sub", 0, once, MISSING, "dir/ pair/ pair/x/ pair/y/", before},
    {"make search list*", "stat64", "dir/*.v", 0, once, MISSING, "=", before},
    {"make search list*", "stat64", "dir/sub/c.v", 0, always, MISSING, "dir/ pair/ dir/sub/", before},
    {"make search list*", "stat64", "dir/*", 0, always, MISSING, "dir/ pair/", before},
    {"make search list*", "stat64", "pair/", 0, any, MISSING, "dir/ pair/ dir/sub/", before},
    {"make search list*", "stat64", "pair/x", 0, once, MISSING, "dir/ pair/ dir/sub/ pair/y/", before},
    {"make search list*", "stat64", "pair/x", 0, always, MISSING, "dir/ pair/ dir/sub/", before},
    {"make search list*", "stat64", "pair/y", 0, any, MISSING, "dir/ pair/ dir/sub/ pair/x/", before},
    {"make search list*", "@(stat64|lstat64)", "*", 0, any, "*", "throws filesystem_error %d", before},
    {"make search list*", "@(opendir|closedir)", "*", 0, any, "*", "throws filesystem_error %d", before},
    {"make search list*", "readdir64", "*", 0, any, "E*", "throws filesystem_error %d", before},
    {"make search list*", "readdir64", "@(dir/sub|pair/x): *", 0, once, "ends early", "=", before},
    {"make search list*", "readdir64", "dir/: (end)", 0, once, "ends early", "=", before},
    {"make search list*", "readdir64", "@(dir/sub: *|dir/: ?end?)", 0, always, "ends early", "dir/ pair/ dir/sub/",
     before},
    {"make search list*", "readdir64", "dir/: *", 0, once, "ends early", "dir/ pair/ pair/x/ pair/y/", before},
    {"make search list*", "readdir64", "dir/: *", 0, always, "ends early", "dir/ pair/", before},
    {"make search list*", "readdir64", "pair/: @(.|..|x)", 0, any, "ends early", "dir/ pair/ dir/sub/", before},
    {"make search list*", "readdir64", "@(pair/x: *|pair/: y)", 0, any, "ends early", "dir/ pair/ dir/sub/ pair/x/",
     before},
    {"make search list*", "readdir64", "*", 0, any, "ends early", "=", before},
    // A search passes over what does not exist.
    {"find", "osi_exists", "empty/*", 0, once, "E*", "=", before},
    {"@(find first|find relative)", "osi_exists", "empty/*", 0, once, "E*", "=", before},
    {"@(find|find first|find relative)", "osi_exists", "*", 0, any, "E*", "", before},
    {"find all*", "osi_exists", "empty/", 0, once, "E*", "=", before},
    {"find all*", "osi_exists", "*", 0, any, "E*", "false ", before},
    {"find all", "@(opendir|readdir64)", "empty*", 0, once, "*", "=", before},
    {"find all", "@(opendir|readdir64)", "empty*", 0, always, "*", "false ", before},
    {"find all", "opendir", "*", 0, any, "*", "false ", before},
    {"find all", "readdir64", "dir: @(.|..|a.v)", 0, any, "*", "false ", before},
    {"find all", "readdir64", "dir: b.v", 0, any, "*", "true dir/a.v", before},
    {"find all", "readdir64", "dir: *", 0, any, "*", "=", before},
    {"find all", "stat", "dir/a.v", 0, once, "*", "true dir/b.v", before},
    {"find all", "stat", "dir/a.v", 0, always, "*", "false ", before},
    {"find all", "stat", "dir/b.v", 0, any, "*", "true dir/a.v", before},
    // Each step down to lower case asks again, so that one failure costs nothing.
    {"find all lower case", "stat", "*", 0, once, "*", "=", before},
    {"find all lower case", "stat", "*", 0, always, "*", "false ", before},
    {"walk begins", "opendir", "*", 0, any, "*", "", before},
    {"walk begins", "readdir64", "*", 0, any, "*", "", before},
    {"walk begins", "stat", "*", 0, once, "*", "b.v", before},
    {"walk begins", "stat", "*", 0, always, "*", "", before},
    {"walk goes on", "@(readdir64|stat)", "*", 0, any, "*", "", before},
};

constexpr rule rules_of_paths[] = {
    // A current directory that cannot be read stands for the root.
    {"absolute", "osi_getcwd", "*", 0, any, "*", "/dir/a.v", before},
    {"absolute already", "osi_getcwd", "*", 0, any, "*", "=", before},
    {"equal*", "osi_getcwd", "*", 1, any, "*", "false", before},
    {"unequal*", "osi_getcwd", "*", 1, any, "*", "true", before},
    {"less*", "osi_getcwd", "*", 1, any, "*", "true", before},
    {"@(equal|unequal|less)*", "osi_getcwd", "*", 2, any, "*", "=", before},
    {"canonical", "getcwd", "*", 0, once, "ERANGE", "=", before}, // it asks again with more room
    {"canonical", "@(getcwd|stat64|lstat64|readlink)", "*", 0, any, "*", "absent", before},
    // Without a text there is no answer, and the record is not released.
    {"unc path", "@(osi_get_unc_full_path|osi_path_get_data)", "*", 0, any, "*",
     "throws logic_error basic_string: construction from null is not valid", before},
};

constexpr rule rules_of_all[] = {
    // Calls whose failure changes nothing: what they do is done, or nobody asks.
    {"*", "@(access|closedir|close|fclose|fsync|fileno|setvbuf)", "*", 0, any, "*", "=", after},
    {"*", "@(syscall|gethostname|time|getenv)", "*", 0, any, "*", "=", after},
    // Something that is not there and seems to be: no more is lost than by a call that fails.
    {"*", "osi_exists", "*", 0, any, "says yes", "?", partial},
};

template <std::size_t Size>
rule const* first_of(rule const (&rules)[Size], std::string const& operation, call const& disturbed, bool always_on,
                     disturbance const& what) {
  auto const fits = [](char const* pattern, std::string const& name) {
    return ::fnmatch(pattern, name.c_str(), FNM_NOESCAPE | FNM_EXTMATCH) == 0;
  };
  for (rule const& each : rules) {
    if (fits(each.operation, operation) && fits(each.function, disturbed.function) &&
        fits(each.subject, disturbed.subject) && fits(each.disturbance, what.name) &&
        (each.occurrence == 0 || each.occurrence == disturbed.occurrence_on_subject) &&
        (each.when == any || (each.when == always) == always_on)) {
      return &each;
    }
  }
  return nullptr;
}

} // namespace

rule const* rule_for(std::string const& operation, call const& disturbed, bool always_on, disturbance const& what) {
  rule const* found = nullptr;
  auto const look_in = [&](auto const& rules) {
    found = found != nullptr ? found : first_of(rules, operation, disturbed, always_on, what);
  };
  look_in(rules_of_primitives);
  look_in(rules_of_creating);
  look_in(rules_of_temporary_names);
  look_in(rules_of_copying);
  look_in(rules_of_removing);
  look_in(rules_of_removing_empty_with_root);
  look_in(rules_of_removing_empty_below_root);
  look_in(rules_of_searching);
  look_in(rules_of_paths);
  look_in(rules_of_all);
  return found;
}

} // namespace system_call
