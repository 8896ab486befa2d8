// type: what a file is, by its name; and the types of an extension, an editor, a trait or a document class.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "ccl/fio/fio.h"
#include "tools/ccl-fio/command.h"
#include "tools/ccl-fio/json.h"
#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/type_list.h"
#include "tools/ccl-fio/type_page.h"
#include "tools/ccl-fio/vocabulary.h"

namespace tool {

namespace {

struct type_options {
  format_options format;
  std::vector<std::string> names;
  bool list = false;
  std::string list_format = "text";
  bool html = false;
  std::optional<std::string> type;
  std::optional<std::string> extension;
  std::optional<std::string> editor;
  std::optional<std::string> trait;
  std::optional<std::string> clsid;

  bool selects() const { return type || extension || editor || trait || clsid; }
};

template <typename Value>
bool contains(std::vector<Value> const& values, Value value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

// Selecting types

/// Of `values`, those that `given` means by their number or by their text.
template <typename Value, typename Text>
std::vector<Value> meant_by(std::string const& given, std::vector<Value> const& values, Text text_of,
                            char const* what) {
  std::vector<Value> meant;
  std::copy_if(values.begin(), values.end(), std::back_inserter(meant),
               [&given, text_of](Value value) { return given == std::to_string(value) || given == text_of(value); });
  if (meant.empty()) {
    throw usage_error(fmt::format("unknown {} \"{}\"", what, given));
  }
  return meant;
}

std::vector<FIO_FILE_TYPE> of_editor_and_trait(type_options const& given) {
  std::vector<FIO_EDITOR_TYPE> wanted = {FIO_EDITOR_TYPE_ALL_FILES};
  if (given.editor) {
    wanted = meant_by(*given.editor, editors(), fio_get_editor_type_string, "editor");
  }
  long mask = -1;
  if (given.trait) {
    mask = 0;
    for (FIO_FILE_TYPE_FLAG const trait : meant_by(*given.trait, traits(), fio_get_file_type_trait_string, "trait")) {
      mask |= trait;
    }
  }
  std::vector<FIO_FILE_TYPE> types;
  for (FIO_EDITOR_TYPE const editor : wanted) {
    std::vector<FIO_FILE_TYPE> const of_editor = file_types(editor, mask);
    types.insert(types.end(), of_editor.begin(), of_editor.end());
  }
  std::sort(types.begin(), types.end());
  return types;
}

/// The type of a class, by its name or identifier.
FIO_FILE_TYPE type_of_class(std::string const& given) {
  _GUID const clsid = fio_str_to_clsid(given);
  for (document_class const& document : document_classes()) {
    if (given == document.name || std::memcmp(&clsid, document.clsid, sizeof clsid) == 0) {
      return fio_get_file_type(*document.clsid);
    }
  }
  throw usage_error(fmt::format("unknown document class \"{}\"", given));
}

template <typename Condition>
void keep_if(std::vector<FIO_FILE_TYPE>& types, Condition condition) {
  types.erase(std::remove_if(types.begin(), types.end(), [condition](FIO_FILE_TYPE type) { return !condition(type); }),
              types.end());
}

std::string dotted(std::string const& text) {
  bool const is_number = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  return is_number || text.empty() || text.front() == '.' ? text : '.' + text;
}

selection select(type_options const& given) {
  selection picked;
  picked.whole = !given.selects();
  picked.types = of_editor_and_trait(given);
  if (given.type) {
    auto const wanted =
        meant_by(*given.type, file_types(FIO_EDITOR_TYPE_ALL_FILES, -1), fio_get_file_type_name, "file type");
    keep_if(picked.types, [&wanted](FIO_FILE_TYPE type) { return contains(wanted, type); });
  }
  if (given.clsid) {
    FIO_FILE_TYPE const wanted = type_of_class(*given.clsid);
    keep_if(picked.types, [wanted](FIO_FILE_TYPE type) { return type == wanted && wanted != FIO_FILE_TYPE_INVALID; });
  }
  std::vector<FIO_EXTENSION_TYPE> wanted = extensions_of(FIO_FILE_TYPE_ANY);
  if (given.extension) {
    wanted = meant_by(dotted(*given.extension), wanted, fio_get_extension_string, "extension");
  }
  auto const is_wanted = [&wanted](FIO_EXTENSION_TYPE extension) { return contains(wanted, extension); };
  std::set<FIO_EXTENSION_TYPE> used;
  keep_if(picked.types, [&](FIO_FILE_TYPE type) {
    std::vector<FIO_EXTENSION_TYPE> const extensions = extensions_of(type);
    used.insert(extensions.begin(), extensions.end());
    return std::any_of(extensions.begin(), extensions.end(), is_wanted);
  });
  std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(picked.extensions),
               [&used](FIO_EXTENSION_TYPE extension) { return used.count(extension) != 0; });
  return picked;
}

// Output

/// A name, or nothing for a type that was selected, and what it is.
struct result {
  std::string name;
  type_facts facts;
};

void write_for_people(std::vector<result> const& results, bool named, bool all_columns) {
  table contents = {{}, named ? std::size_t{2} : std::size_t{1}, {}};
  if (named) {
    contents.columns.push_back({"name"});
  }
  std::vector<column> const facts = fact_columns();
  contents.columns.insert(contents.columns.end(), facts.begin(), facts.end());
  for (result const& one : results) {
    auto& row = contents.rows.emplace_back();
    if (named) {
      row.push_back({one.name});
    }
    append_facts(row, one.facts);
    if (one.facts.type == FIO_FILE_TYPE_INVALID) {
      row[named ? 1 : 0] = {"unknown type", style::bad};
    }
  }
  write_table(contents, all_columns);
}

void write_results(std::vector<result> const& results, bool named, format_options const& format) {
  if (format.json) {
    json list = json::array();
    for (result const& one : results) {
      json object = named ? json{{"name", name_to_json(one.name)}} : json::object();
      append_facts(object, one.facts);
      list.push_back(std::move(object));
    }
    write_json(list);
  } else if (format.zero) {
    for (result const& one : results) {
      write_record(one.facts.type == FIO_FILE_TYPE_INVALID ? "" : fio_get_file_type_name(one.facts.type));
    }
  } else {
    write_for_people(results, named, format.all_columns);
  }
}

// The subcommand

exit_status run_list(type_options const& given) {
  selection const picked = select(given);
  write_lists(picked, given.format.json ? "json" : given.list_format, given.format.all_columns);
  return picked.types.empty() ? not_all : done;
}

exit_status run_selection(type_options const& given) {
  std::vector<result> results;
  for (FIO_FILE_TYPE const type : select(given).types) {
    results.push_back({"", {type, fio_get_default_extension_type(type)}});
  }
  write_results(results, false, given.format);
  return results.empty() ? not_all : done;
}

exit_status run_names(type_options const& given) {
  std::vector<result> results;
  for (std::string const& name : expand_names(given.names, given.format.zero)) {
    FIO_EXTENSION_TYPE const extension = fio_get_extension_type(name);
    results.push_back({name, {fio_get_file_type(extension), extension}});
  }
  write_results(results, true, given.format);
  bool const all = std::none_of(results.begin(), results.end(),
                                [](result const& one) { return one.facts.type == FIO_FILE_TYPE_INVALID; });
  return all ? done : not_all;
}

exit_status run(type_options const& given) {
  if (given.html) {
    if (given.list || given.selects() || !given.names.empty() || given.format.json || given.format.zero ||
        given.format.all_columns) {
      throw usage_error("type: --html prints all types, and takes no name and no other option");
    }
    write(type_page());
    return done;
  }
  if (given.names.empty() == !(given.list || given.selects())) {
    throw usage_error("type: either names, or a selection, --list or both are required");
  }
  if (given.list) {
    return run_list(given);
  }
  return given.names.empty() ? run_selection(given) : run_names(given);
}

} // namespace

void add_type(CLI::App& application, invocation& call) {
  auto const given = std::make_shared<type_options>();
  CLI::App& type = *application.add_subcommand("type", "print what a file is, or list file types");
  add_names(type, "a file name, or an extension; - for standard input");
  for (CLI::Option* const selection :
       {type.add_option("-t,--type", given->type, "the file type of this number or name"),
        type.add_option("-e,--extension", given->extension,
                        "the file types with this extension, by its number or text (\"vhd\" or \".vhd\")"),
        type.add_option("--editor", given->editor, "the file types of this editor, by its number or text"),
        type.add_option("--trait", given->trait, "the file types with this trait, by its number or text"),
        type.add_option("--class", given->clsid, "the file type of this document class, by its name or identifier")}) {
    selection->type_name("VALUE");
  }
  auto* const list = type.add_flag("--list", given->list,
                                   "list the types, extensions, editors, traits and document classes: all, or those of "
                                   "the selected types");
  auto* const form = type.add_option("--format", given->list_format, "the format of the list: text, json or markdown");
  form->needs(list)->type_name("FORMAT")->check(CLI::IsMember({"text", "json", "markdown"}));
  type.add_flag("--html", given->html, "print all types as an HTML page with a search");
  add_format_options(type, given->format, "print all columns");
  list->excludes(type.get_option("--null"));
  form->excludes(type.get_option("--json"))->excludes(type.get_option("--long"));
  type.callback([given, &type, &call] {
    given->names = names_of(type, call);
    call.status = run(*given);
  });
}

} // namespace tool
