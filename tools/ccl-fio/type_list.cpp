#include "tools/ccl-fio/type_list.h"

#include <algorithm>
#include <iterator>

#include "ccl/fio/fio.h"
#include "tools/ccl-fio/json.h"
#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/vocabulary.h"

namespace tool {

namespace {

/// One list of the vocabulary. All rows have the same keys.
struct section {
  std::string key;
  std::string title;
  std::vector<json> rows;
};

template <typename Value>
bool contains(std::vector<Value> const& values, Value value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

// Rows

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
          {"editor", name_or_null(editor_of(type))},
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
          {"filter", name_or_null(fio_get_extension_type_filter(extension, false))},
          {"plural_filter", name_or_null(fio_get_extension_type_filter(extension, true))}};
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
              [trait](FIO_FILE_TYPE type) {
                return trait == FIO_FILE_TYPE_FLAG_ALL_FILES || fio_test_trait_of(type, trait);
              });
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
section class_section(selection const& picked) {
  section result = {"document_classes", "Document classes", {}};
  for (document_class const& document : document_classes()) {
    FIO_FILE_TYPE const type = fio_get_file_type(*document.clsid);
    bool const serves_a_type = type != FIO_FILE_TYPE_INVALID;
    if (serves_a_type ? contains(picked.types, type) : picked.whole) {
      result.rows.push_back({{"name", document.name},
                             {"identifier", fio_clsid_to_str(*document.clsid, FIO_CLSID_FORMAT_TEXT)},
                             {"file_type", serves_a_type ? json(static_cast<int>(type)) : json()}});
    }
  }
  return result;
}

std::vector<section> sections_of(selection const& picked) {
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
          class_section(picked)};
}

// Output

std::string text_of(json const& value) {
  if (value.is_array()) {
    return joined(value.get<std::vector<std::string>>());
  }
  if (value.is_null()) {
    return "";
  }
  return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string words_of(std::string key) {
  std::replace(key.begin(), key.end(), '_', ' ');
  return key;
}

void write_text(section const& part, bool all_columns) {
  table contents = {{}, part.rows.front().size() > 3 ? std::size_t{3} : part.rows.front().size(), {}};
  for (auto const& [key, value] : part.rows.front().items()) {
    contents.columns.push_back({words_of(key), true});
  }
  for (json const& row : part.rows) {
    auto& cells = contents.rows.emplace_back();
    std::transform(row.begin(), row.end(), std::back_inserter(cells),
                   [&contents](json const& value) { return cell{contents.keep(text_of(value))}; });
  }
  write(styled(part.title, style::heading, stdout) + "\n\n");
  write_table(contents, all_columns);
}

// Stars, underscores and bars mean something in Markdown.
std::string markdown_cell(json const& value) {
  std::string const text = text_of(value);
  std::string result;
  for (char const character : text.empty() ? "-" : text) {
    result.append(character == '*' || character == '|' || character == '_' ? 1 : 0, '\\').append(1, character);
  }
  return result;
}

void write_markdown(section const& part) {
  std::string titles = "|";
  std::string line = "|";
  for (auto const& [key, value] : part.rows.front().items()) {
    titles += ' ' + words_of(key) + " |";
    line += " --- |";
  }
  write("\n## " + part.title + "\n\n" + titles + '\n' + line + '\n');
  for (json const& row : part.rows) {
    std::string cells = "|";
    for (json const& value : row) {
      cells += ' ' + markdown_cell(value) + " |";
    }
    write(cells + '\n');
  }
}

void write_json(std::vector<section> const& sections) {
  json whole;
  for (section const& part : sections) {
    whole[part.key] = part.rows;
  }
  tool::write_json(whole);
}

} // namespace

void write_lists(selection const& picked, std::string const& format, bool all_columns) {
  std::vector<section> const sections = sections_of(picked);
  if (format == "json") {
    write_json(sections);
    return;
  }
  bool const markdown = format == "markdown";
  if (markdown) {
    write(
        "# The vocabulary of files\n\n"
        "What `ccl-fio type --list --format markdown` writes: every file type and every extension, with all that the\n"
        "library says of them. A document class that serves several types stands for the first of them alone, and a "
        "`-`\nmeans that there is none.\n");
  }
  char const* gap = "";
  for (section const& part : sections) {
    if (part.rows.empty()) {
      continue;
    }
    if (markdown) {
      write_markdown(part);
    } else {
      write(gap);
      write_text(part, all_columns);
      gap = "\n";
    }
  }
}

} // namespace tool
