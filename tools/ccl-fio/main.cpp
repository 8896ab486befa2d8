// ccl-fio: search paths, file types, paths and directory trees of the library, on the command line.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <clocale>
#include <exception>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ccl/fio/fio_version.h"
#include "tools/ccl-fio/command.h"
#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/suggestion.h"

namespace {

/// Writes each option with its description beside it, within the width of the output.
class help_formatter : public CLI::Formatter {
public:
  std::string make_option(CLI::Option const* option, bool is_positional) const override {
    return entry(make_option_name(option, is_positional) + make_option_opts(option), make_option_desc(option));
  }

  std::string make_description(CLI::App const* application) const override {
    return lines_of(application->get_description());
  }

  std::string make_usage(CLI::App const* application, std::string name) const override {
    std::string const usage = CLI::Formatter::make_usage(application, std::move(name));
    return lines_of(usage.substr(0, usage.find_last_not_of('\n') + 1));
  }

  std::string make_subcommand(CLI::App const* subcommand) const override {
    return entry(subcommand->get_name(), subcommand->get_description());
  }

private:
  static std::string lines_of(std::string const& text) {
    std::string result;
    for (std::string const& line : tool::wrapped(text, tool::output_width())) {
      result += line + '\n';
    }
    return result;
  }

  static std::string entry(std::string const& name, std::string const& description) {
    constexpr std::size_t column = 26;
    std::size_t const width = tool::output_width();
    bool const narrow = width < 2 * column;
    std::size_t const indent = narrow ? 6 : column;
    std::string result = "  " + name.substr(0, name.find_last_not_of(' ') + 1);
    if (narrow || result.size() + 2 > indent) {
      result += '\n';
    } else {
      result.resize(indent, ' ');
    }
    for (std::string const& line : tool::wrapped(description, width - std::min(indent, width - 1))) {
      result.append(result.back() == '\n' ? indent : 0, ' ').append(line).append(1, '\n');
    }
    return result;
  }

  std::string make_option_opts(CLI::Option const* option) const override {
    return option->get_type_size() == 0 || !option->nonpositional() ? "" : " " + option->get_type_name();
  }
};

/// What is wrong with a command line. An unknown argument is named before anything that may follow from it.
std::string fault_of(CLI::App& application, CLI::ParseError const& error) {
  auto const chosen = application.get_subcommands();
  if (!chosen.empty()) {
    tool::refuse_unknown_options(*chosen.front());
  } else if (auto const arguments = application.remaining(); !arguments.empty()) {
    tool::refuse_unknown_options(application);
    std::vector<std::string> names;
    for (CLI::App const* const subcommand : application.get_subcommands({})) {
      names.push_back(subcommand->get_name());
    }
    return fmt::format("unknown subcommand {}{}", arguments.front(), tool::suggestion(arguments.front(), names));
  }
  return error.what();
}

tool::exit_status run(int count, char** values) {
  // Behind the dashes there are only names, which a subcommand that takes names by itself does not get.
  char** const dashes = std::find(values, values + count, std::string_view("--"));
  tool::invocation call;
  call.names_behind_dashes.assign(std::min(dashes + 1, values + count), values + count);
  CLI::App application("Search paths, file types, paths and directory trees, as the suite's tools see them.",
                       "ccl-fio");
  application.formatter(std::make_shared<help_formatter>());
  application.set_help_flag("-h,--help", "print this help and exit");
  application.set_version_flag("--version", "ccl-fio " CCL_FIO_VERSION_STRING, "print the version and exit");
  application.require_subcommand(1);
  tool::add_find(application, call);
  tool::add_type(application, call);
  tool::add_path(application, call);
  tool::add_copy(application, call);
  tool::add_clean(application, call);
  try {
    application.parse(static_cast<int>(dashes - values), values);
  } catch (CLI::Success const& asked_for) {
    std::ostringstream text;
    application.exit(asked_for, text, text);
    tool::write(text.str());
  } catch (CLI::ParseError const& error) {
    throw tool::usage_error(fault_of(application, error));
  }
  tool::finish_output();
  return call.status;
}

} // namespace

int main(int count, char** values) try {
  tool::occupy_standard_streams();
  std::setlocale(LC_CTYPE, "C.UTF-8");
  return run(count, values);
} catch (tool::usage_error const& error) {
  tool::complain("", error.what());
  tool::complain("", "see ccl-fio --help");
  return tool::unusable;
} catch (std::exception const& error) {
  tool::complain("", error.what());
  return tool::unusable;
}
