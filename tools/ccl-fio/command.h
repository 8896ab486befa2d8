/// @file
/// What the subcommands have in common: how they are added to the command line, and the options that each of them has.

#ifndef CCL_TOOLS_COMMAND_H
#define CCL_TOOLS_COMMAND_H

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/ccl-fio/output.h"

namespace CLI {
class App;
} // namespace CLI

namespace tool {

/// Arguments that are not valid.
class usage_error : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// A run of the command.
struct invocation {
  std::vector<std::string> names_behind_dashes; ///< the arguments behind "--"
  exit_status status = done;
};

/// How the results are written. Without any of these, for people.
struct format_options {
  bool json = false;
  bool zero = false;
  bool all_columns = false;
};

/// Adds `--json`, `-0` and `--long`.
void add_format_options(CLI::App& subcommand, format_options& format, std::string const& long_description);

/// Adds an option for a directory that has to be absolute.
void add_anchor(CLI::App& subcommand, std::string const& option, std::optional<std::string>& directory,
                std::string const& description);

/// Lists names in the help of a subcommand, which `names_of` returns.
void add_names(CLI::App& subcommand, std::string const& description);

/// @throws usage_error if an argument looks like an option and is none
void refuse_unknown_options(CLI::App& application);

/// The arguments of a subcommand that belong to no option.
///
/// @throws usage_error if one of them looks like an option
std::vector<std::string> names_of(CLI::App& subcommand, invocation const& call);

/// Lets the subcommand store its names, of which there has to be one, and then run.
void run_with_names(CLI::App& subcommand, invocation& call, std::vector<std::string>& names,
                    std::function<exit_status()> run);

/// `names`, with those that standard input holds in the place of a "-": one on each line, which may end as on Windows, or
/// each ended by a NUL with `zero`. Empty ones are passed over.
///
/// @throws std::runtime_error if standard input cannot be read
std::vector<std::string> expand_names(std::vector<std::string> const& names, bool zero);

/// @name The subcommands
/// Each adds itself to the command line, and sets the status when it has run.
/// @{
void add_find(CLI::App& application, invocation& call);
void add_type(CLI::App& application, invocation& call);
void add_path(CLI::App& application, invocation& call);
void add_copy(CLI::App& application, invocation& call);
void add_clean(CLI::App& application, invocation& call);
/// @}

} // namespace tool

#endif
