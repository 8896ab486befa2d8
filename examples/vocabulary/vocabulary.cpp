// Writes the vocabulary of files: types, extensions, editors, traits and document classes, as text, JSON or Markdown.
//
//     vocabulary [--format text|json|markdown] [--type T] [--extension E] [--editor E] [--trait T]
//
// Each of the four picks file types, by value or by text, and only what belongs to these is written then. All that is
// written comes from the library's public queries. The exit status is 0, 1 if nothing was picked, and 2 for arguments
// that make no sense or an answer that cannot be written.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <iterator>
#include <list>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "ccl/fio/fio.h"
#include "examples/common/output.h"
#include "examples/common/table.h"
#include "examples/common/vocabulary_texts.h"

namespace {

enum exit_status { written = 0, nothing_picked = 1, failed = 2 };

using json = nlohmann::ordered_json;

/// One list of the vocabulary. All rows have the same keys.
struct section {
  std::string key;
  std::string title;
  std::vector<json> rows;
};

// What the vocabulary holds

template <typename Value>
std::vector<Value> without_repetitions(std::list<Value> const& values) {
  std::vector<Value> result;
  std::set<Value> seen;
  std::copy_if(values.begin(), values.end(), std::back_inserter(result),
               [&seen](Value value) { return seen.insert(value).second; });
  return result;
}

std::vector<FIO_FILE_TYPE> file_types(FIO_EDITOR_TYPE editor, long traits) {
  std::list<FIO_FILE_TYPE> types;
  fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, editor, traits);
  return {types.begin(), types.end()};
}

std::vector<FIO_EXTENSION_TYPE> extensions_of(FIO_FILE_TYPE type) {
  std::list<FIO_EXTENSION_TYPE> extensions;
  fio_get_extension_type_list(&extensions, FIO_EXTENSION_TYPE_ANY, type);
  return without_repetitions(extensions);
}

std::vector<FIO_EXTENSION_TYPE> extensions_with(FIO_EXTENSION_TYPE_FLAG trait) {
  std::list<FIO_EXTENSION_TYPE> extensions;
  fio_get_list_of_extensions_valid_for_trait(trait, &extensions);
  return without_repetitions(extensions);
}

/// The values of an enumeration of bits that have a text: none, single bits, all.
template <typename Value, typename Text>
std::vector<Value> values_with_text(Text text_of) {
  std::vector<Value> values;
  auto const add_if_named = [&values, text_of](unsigned bits) {
    auto const value = static_cast<Value>(bits);
    if (text_of(value) != nullptr) {
      values.push_back(value);
    }
  };
  add_if_named(0);
  for (unsigned bit = 1; bit != 0; bit <<= 1) {
    add_if_named(bit);
  }
  add_if_named(~0u);
  return values;
}

std::vector<FIO_EDITOR_TYPE> editors() { return values_with_text<FIO_EDITOR_TYPE>(fio_get_editor_type_string); }

std::vector<FIO_FILE_TYPE_FLAG> traits() {
  return values_with_text<FIO_FILE_TYPE_FLAG>(fio_get_file_type_trait_string);
}

std::vector<FIO_EXTENSION_TYPE_FLAG> extension_traits() {
  return values_with_text<FIO_EXTENSION_TYPE_FLAG>(fio_get_extension_type_trait_string);
}

template <typename Value>
bool contains(std::vector<Value> const& values, Value value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

// Picking

struct arguments {
  std::string format = "text";
  std::optional<std::string> type;
  std::optional<std::string> extension;
  std::optional<std::string> editor;
  std::optional<std::string> trait;
};

/// Of `values`, those that `given` means by their number or by their text.
template <typename Value, typename Text>
std::vector<Value> meant_by(std::string const& given, std::vector<Value> const& values, Text text_of,
                            char const* what) {
  std::vector<Value> meant;
  std::copy_if(values.begin(), values.end(), std::back_inserter(meant),
               [&given, text_of](Value value) { return given == std::to_string(value) || given == text_of(value); });
  if (meant.empty()) {
    throw std::invalid_argument(std::string("no ") + what + " is \"" + given + '"');
  }
  return meant;
}

std::vector<FIO_FILE_TYPE> of_editor_and_trait(arguments const& given) {
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

template <typename Condition>
void keep_if(std::vector<FIO_FILE_TYPE>& types, Condition condition) {
  types.erase(std::remove_if(types.begin(), types.end(), [condition](FIO_FILE_TYPE type) { return !condition(type); }),
              types.end());
}

std::string dotted(std::string const& text) {
  bool const is_number = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  return is_number || text.empty() || text.front() == '.' ? text : '.' + text;
}

/// What is to be written: file types, and of their extensions all or those that were asked for.
struct selection {
  std::vector<FIO_FILE_TYPE> types;
  std::vector<FIO_EXTENSION_TYPE> extensions;
};

selection pick(arguments const& given) {
  selection picked;
  picked.types = of_editor_and_trait(given);
  if (given.type) {
    auto const wanted =
        meant_by(*given.type, file_types(FIO_EDITOR_TYPE_ALL_FILES, -1), fio_get_file_type_name, "file type");
    keep_if(picked.types, [&wanted](FIO_FILE_TYPE type) { return contains(wanted, type); });
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

// Rows

json or_null(std::string const& text) { return text.empty() ? json() : json(text); }

json type_row(FIO_FILE_TYPE type) {
  std::vector<std::string> extensions;
  for (FIO_EXTENSION_TYPE const extension : extensions_of(type)) {
    extensions.emplace_back(fio_get_extension_string(extension));
  }
  FIO_EXTENSION_TYPE const default_extension = fio_get_default_extension_type(type);
  document_class const* const document = class_of(type);
  return {{"value", static_cast<int>(type)},
          {"name", fio_get_file_type_name(type)},
          {"description", fio_get_file_description(type)},
          {"extensions", extensions},
          {"default_extension", default_extension == FIO_EXTENSION_TYPE_INVALID
                                    ? json()
                                    : json(fio_get_extension_string(default_extension))},
          {"editor", or_null(editor_of(type))},
          {"traits", traits_of(type)},
          {"document_class", document != nullptr ? json(document->name) : json()},
          {"filter", fio_get_file_type_filter(type, false)},
          {"plural_filter", fio_get_file_type_filter(type, true)}};
}

json extension_row(FIO_EXTENSION_TYPE extension) {
  FIO_FILE_TYPE const type = fio_get_file_type(extension);
  std::vector<std::string> texts;
  for (FIO_EXTENSION_TYPE_FLAG const trait : extension_traits()) {
    if (trait != FIO_EXTENSION_TYPE_FLAG_ALL_EXTENSIONS && contains(extensions_with(trait), extension)) {
      texts.emplace_back(fio_get_extension_type_trait_string(trait));
    }
  }
  return {{"value", static_cast<int>(extension)},
          {"text", fio_get_extension_string(extension)},
          {"file_type", static_cast<int>(type)},
          {"file_type_name", fio_get_file_type_name(type)},
          {"traits", texts},
          {"filter", or_null(fio_get_extension_type_filter(extension, false))},
          {"plural_filter", or_null(fio_get_extension_type_filter(extension, true))}};
}

/// A value with its text and the number of the picked types that have it.
template <typename Value, typename Has>
void add_value(section& values, Value value, char const* text, std::vector<FIO_FILE_TYPE> const& types, Has has) {
  if (auto const count = std::count_if(types.begin(), types.end(), has)) {
    values.rows.push_back({{"value", value}, {"text", text}, {"file_types", count}});
  }
}

section editor_section(selection const& picked) {
  section result = {"editors", "Editors", {}};
  for (FIO_EDITOR_TYPE const editor : editors()) {
    add_value(result, static_cast<unsigned>(editor), fio_get_editor_type_string(editor), picked.types,
              [editor](FIO_FILE_TYPE type) { return fio_get_editor_type(type) == editor; });
  }
  return result;
}

section trait_section(selection const& picked) {
  section result = {"traits", "Traits of file types", {}};
  for (FIO_FILE_TYPE_FLAG const trait : traits()) {
    add_value(result, static_cast<int>(trait), fio_get_file_type_trait_string(trait), picked.types,
              [trait](FIO_FILE_TYPE type) { return fio_test_trait_of(type, trait); });
  }
  return result;
}

section extension_trait_section(selection const& picked) {
  section result = {"extension_traits", "Traits of extensions", {}};
  for (FIO_EXTENSION_TYPE_FLAG const trait : extension_traits()) {
    std::vector<FIO_EXTENSION_TYPE> const with_trait = extensions_with(trait);
    auto const count =
        std::count_if(picked.extensions.begin(), picked.extensions.end(),
                      [&with_trait](FIO_EXTENSION_TYPE extension) { return contains(with_trait, extension); });
    if (count != 0) {
      result.rows.push_back({{"value", static_cast<int>(trait)},
                             {"text", fio_get_extension_type_trait_string(trait)},
                             {"extensions", count}});
    }
  }
  return result;
}

/// The classes of the picked types; those of no file type are written only with the whole vocabulary.
section class_section(selection const& picked, bool whole) {
  section result = {"document_classes", "Document classes", {}};
  for (document_class const& document : document_classes) {
    FIO_FILE_TYPE const type = fio_get_file_type(*document.clsid);
    bool const serves_a_type = type != FIO_FILE_TYPE_INVALID;
    if (serves_a_type ? contains(picked.types, type) : whole) {
      result.rows.push_back({{"name", document.name},
                             {"identifier", fio_clsid_to_str(*document.clsid, FIO_CLSID_FORMAT_TEXT)},
                             {"file_type", serves_a_type ? json(static_cast<int>(type)) : json()}});
    }
  }
  return result;
}

std::vector<section> sections_of(selection const& picked, bool whole) {
  section types = {"file_types", "File types", {}};
  std::transform(picked.types.begin(), picked.types.end(), std::back_inserter(types.rows), type_row);
  section extensions = {"extensions", "Extensions", {}};
  std::transform(picked.extensions.begin(), picked.extensions.end(), std::back_inserter(extensions.rows),
                 extension_row);
  return {types,
          extensions,
          editor_section(picked),
          trait_section(picked),
          extension_trait_section(picked),
          class_section(picked, whole)};
}

// Output

std::string cell_of(json const& value) {
  if (value.is_array()) {
    return value.empty() ? "-" : joined(value.get<std::vector<std::string>>());
  }
  if (value.is_null()) {
    return "-";
  }
  return value.is_string() ? value.get<std::string>() : value.dump();
}

/// The rows of a section below a row of its keys in words.
std::vector<table_row> table_of(section const& written_out) {
  std::vector<table_row> rows(1);
  for (auto const& [key, value] : written_out.rows.front().items()) {
    rows.front().push_back(key);
    std::replace(rows.front().back().begin(), rows.front().back().end(), '_', ' ');
  }
  for (json const& row : written_out.rows) {
    rows.emplace_back();
    std::transform(row.begin(), row.end(), std::back_inserter(rows.back()), cell_of);
  }
  return rows;
}

void write_text(std::vector<section> const& sections) {
  char const* gap = "";
  for (section const& part : sections) {
    if (!part.rows.empty()) {
      std::cout << gap << part.title << "\n\n";
      write_table(std::cout, table_of(part));
      gap = "\n";
    }
  }
}

void write_json(std::vector<section> const& sections) {
  json whole;
  for (section const& part : sections) {
    whole[part.key] = part.rows;
  }
  std::cout << whole.dump(2) << '\n';
}

std::string markdown_line(table_row const& cells) { return "| " + joined(cells, " | ") + " |\n"; }

// Stars, underscores and bars mean something in Markdown.
std::string escaped(std::string const& text) {
  std::string result;
  for (char const character : text) {
    result.append(character == '*' || character == '|' || character == '_' ? 1 : 0, '\\').append(1, character);
  }
  return result;
}

void write_markdown(std::vector<section> const& sections) {
  std::cout << "# The vocabulary of files\n\n"
               "What `vocabulary --format markdown` writes: every file type and every extension, with all that the "
               "library\nanswers about them. A document class that serves several types stands for the first of them "
               "alone, and a `-`\nmeans that there is none.\n";
  for (section const& part : sections) {
    if (part.rows.empty()) {
      continue;
    }
    std::vector<table_row> rows = table_of(part);
    std::cout << "\n## " << part.title << "\n\n" << markdown_line(rows.front());
    std::cout << markdown_line(table_row(rows.front().size(), "---"));
    std::for_each(rows.begin() + 1, rows.end(), [](table_row& row) {
      std::transform(row.begin(), row.end(), row.begin(), escaped);
      std::cout << markdown_line(row);
    });
  }
}

// The program

int run(arguments const& given) {
  selection const picked = pick(given);
  bool const whole = !given.type && !given.extension && !given.editor && !given.trait;
  std::vector<section> const sections = sections_of(picked, whole);
  if (given.format == "json") {
    write_json(sections);
  } else if (given.format == "markdown") {
    write_markdown(sections);
  } else {
    write_text(sections);
  }
  require_written_output();
  return picked.types.empty() ? nothing_picked : written;
}

} // namespace

int main(int count, char** values) try {
  arguments given;
  CLI::App app("Writes the vocabulary of files.", "vocabulary");
  app.add_option("--format", given.format, "how to write it")->check(CLI::IsMember({"text", "json", "markdown"}));
  app.add_option("--type", given.type, "only this file type, by value or name");
  app.add_option("--extension", given.extension,
                 "only file types with this extension, by value or text (\"vhd\" or \".vhd\", as it is spelled)");
  app.add_option("--editor", given.editor, "only file types of this editor, by value or text");
  app.add_option("--trait", given.trait, "only file types with this trait, by value or text");
  try {
    app.parse(count, values);
  } catch (CLI::Success const& help) {
    app.exit(help);
    require_written_output();
    return written;
  }
  return run(given);
} catch (std::exception const& error) {
  std::cerr << "vocabulary: " << error.what() << '\n';
  return failed;
}
