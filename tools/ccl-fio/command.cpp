#include "tools/ccl-fio/command.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "ccl/fio/fio_path.h"
#include "tools/ccl-fio/suggestion.h"

namespace tool {

namespace {

void remove_suffix(std::string_view& text, char suffix) {
  if (!text.empty() && text.back() == suffix) {
    text.remove_suffix(1);
  }
}

} // namespace

void add_format_options(CLI::App& subcommand, format_options& format, std::string const& long_description) {
  auto* const json = subcommand.add_flag("--json", format.json, "print JSON");
  auto* const zero = subcommand.add_flag("-0,--null", format.zero,
                                         "names on standard input and results on standard output end with NUL");
  auto* const all = subcommand.add_flag("-l,--long", format.all_columns, long_description);
  json->excludes(zero);
  all->excludes(zero)->excludes(json);
}

void add_anchor(CLI::App& subcommand, std::string const& option, std::optional<std::string>& directory,
                std::string const& description) {
  auto const fault_of = [](std::string const& given) {
    return FIO_PATH(given).absolute() ? std::string() : fmt::format("\"{}\" is not an absolute path", given);
  };
  subcommand.add_option(option, directory, description)->type_name("DIR")->check(CLI::Validator(fault_of, ""));
}

void add_names(CLI::App& subcommand, std::string const& description) {
  // As an option of its own it would take a name in brackets for a list. It is there for the help alone, and takes none.
  CLI::callback_t const ignore = [](CLI::results_t const& /*values*/) { return true; };
  subcommand.add_option("NAME", ignore, description)->expected(0, -1)->allow_extra_args(false);
  subcommand.allow_extras();
}

void refuse_unknown_options(CLI::App& application) {
  for (std::string const& argument : application.remaining()) {
    if (argument.size() > 1 && argument.front() == '-') {
      std::vector<std::string> known;
      for (CLI::Option const* const option : application.get_options()) {
        for (std::string const& name : option->get_lnames()) {
          known.push_back("--" + name);
        }
      }
      std::string const name = argument.substr(0, argument.find('='));
      throw usage_error(fmt::format("unknown option {}{}", name, suggestion(name, known)));
    }
  }
}

std::vector<std::string> names_of(CLI::App& subcommand, invocation const& call) {
  refuse_unknown_options(subcommand);
  std::vector<std::string> names = subcommand.remaining();
  names.insert(names.end(), call.names_behind_dashes.begin(), call.names_behind_dashes.end());
  return names;
}

void run_with_names(CLI::App& subcommand, invocation& call, std::vector<std::string>& names,
                    std::function<exit_status()> run) {
  subcommand.callback([&subcommand, &call, &names, run = std::move(run)] {
    names = names_of(subcommand, call);
    if (names.empty()) {
      throw usage_error(subcommand.get_name() + ": NAME is required");
    }
    call.status = run();
  });
}

std::vector<std::string> expand_names(std::vector<std::string> const& names, bool zero) {
  std::vector<std::string> result;
  for (std::string const& given : names) {
    if (given != "-") {
      result.push_back(given);
      continue;
    }
    char* line = nullptr;
    std::size_t room = 0;
    char const end = zero ? '\0' : '\n';
    ssize_t length = 0;
    while ((length = ::getdelim(&line, &room, end, stdin)) > 0) {
      std::string_view name(line, static_cast<std::size_t>(length));
      remove_suffix(name, end);
      if (!zero) {
        remove_suffix(name, '\r');
      }
      if (!name.empty()) {
        result.emplace_back(name);
      }
    }
    std::free(line);
    if (std::ferror(stdin) != 0) {
      throw std::runtime_error("standard input cannot be read");
    }
  }
  return result;
}

} // namespace tool
