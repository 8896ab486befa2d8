#include "tools/ccl-fio/type_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "ccl/fio/fio.h"
#include "tools/ccl-fio/vocabulary.h"
#include "type_page_template.h"

namespace tool {

namespace {

using types = std::vector<FIO_FILE_TYPE>;

/// A text as HTML has it, between tags or as the value of an attribute.
std::string html(std::string_view text) {
  std::string result;
  for (char const character : text) {
    switch (character) {
    case '&':
      result += "&amp;";
      break;
    case '<':
      result += "&lt;";
      break;
    case '>':
      result += "&gt;";
      break;
    case '"':
      result += "&quot;";
      break;
    default:
      result += character;
    }
  }
  return result;
}

/// What a person chooses by its text. Two values may have one text, and are chosen together.
struct choice {
  std::string text;
  unsigned values = 0;
  std::ptrdiff_t count = 0; ///< of the types that have any of the values
};

/// The choices among `values`, those that no type has left out.
template <typename Value, typename Text, typename Has>
std::vector<choice> choices_among(std::vector<Value> const& values, Text text_of, Has has, types const& all) {
  std::vector<choice> choices;
  for (Value const value : values) {
    auto const bits = static_cast<unsigned>(value);
    if (bits == 0 || bits == ~0u) {
      continue;
    }
    auto const same = std::find_if(choices.begin(), choices.end(),
                                   [text = text_of(value)](choice const& other) { return other.text == text; });
    choice& merged = same != choices.end() ? *same : choices.emplace_back(choice{text_of(value), 0, 0});
    merged.values |= bits;
  }
  for (choice& one : choices) {
    one.count = std::count_if(all.begin(), all.end(),
                              [&one, has](FIO_FILE_TYPE type) { return (has(type) & one.values) != 0; });
  }
  choices.erase(std::remove_if(choices.begin(), choices.end(), [](choice const& one) { return one.count == 0; }),
                choices.end());
  return choices;
}

unsigned editor_bits(FIO_FILE_TYPE type) { return static_cast<unsigned>(fio_get_editor_type(type)); }

unsigned trait_bits(FIO_FILE_TYPE type) {
  unsigned bits = 0;
  for (FIO_FILE_TYPE_FLAG const trait : traits()) {
    if (trait != FIO_FILE_TYPE_FLAG_ALL_FILES && fio_test_trait_of(type, trait)) {
      bits |= static_cast<unsigned>(trait);
    }
  }
  return bits;
}

std::string editor_options(types const& all) {
  auto const count_without =
      std::count_if(all.begin(), all.end(), [](FIO_FILE_TYPE type) { return editor_bits(type) == 0; });
  std::string options = fmt::format("<option value=\"\">All types ({})</option>\n", all.size());
  for (choice const& one : choices_among(editors(), fio_get_editor_type_string, editor_bits, all)) {
    options += fmt::format("<option value=\"{}\">{} ({})</option>\n", one.values, html(one.text), one.count);
  }
  return options + fmt::format("<option value=\"0\">No editor ({})</option>\n", count_without);
}

std::string trait_boxes(types const& all) {
  std::string boxes;
  for (choice const& one : choices_among(traits(), fio_get_file_type_trait_string, trait_bits, all)) {
    boxes += fmt::format(
        "<label><input type=\"checkbox\" name=\"trait\" value=\"{}\">{} <span class=\"of\">{}</span></label>\n",
        one.values, html(one.text), one.count);
  }
  return boxes;
}

std::string copy_button(std::string const& text, std::string_view what) {
  return fmt::format("<button type=\"button\" class=\"copy\" title=\"Copy this {}\">{}</button>", what, html(text));
}

std::string name_cell(FIO_FILE_TYPE type) {
  std::string_view const name = fio_get_file_type_name(type);
  std::string_view const description = fio_get_file_description(type);
  std::string cell = fmt::format("<a href=\"#type-{}\">{}</a>", static_cast<int>(type), html(name));
  return description == name ? cell : cell + fmt::format(" <small>described as {}</small>", html(description));
}

std::string extension_cell(FIO_FILE_TYPE type) {
  FIO_EXTENSION_TYPE const preferred = fio_get_default_extension_type(type);
  std::string cell;
  for (FIO_EXTENSION_TYPE const extension : extensions_of(type)) {
    bool const is_default = extension == preferred && preferred != FIO_EXTENSION_TYPE_INVALID;
    cell += fmt::format(is_default ? "<b title=\"default extension\">{}</b> " : "<span>{}</span> ",
                        html(fio_get_extension_string(extension)));
  }
  return cell;
}

std::string class_cell(FIO_FILE_TYPE type) {
  document_class const* const document = class_of(type);
  if (document == nullptr) {
    return {};
  }
  return fmt::format("<small>{}</small> {}", document->name,
                     copy_button(fio_clsid_to_str(*document->clsid, FIO_CLSID_FORMAT_TEXT), "class identifier"));
}

/// The roles are those that the elements have anyway, until a narrow window shows a row as a block.
std::string row_of(FIO_FILE_TYPE type) {
  std::string row = fmt::format(
      "<tr role=\"row\" id=\"type-{0}\" tabindex=\"-1\" data-editor=\"{1}\" data-traits=\"{2}\">"
      "<td role=\"cell\" class=\"number\">{0}</td><th role=\"rowheader\" scope=\"row\" class=\"name\">{3}</th>",
      static_cast<int>(type), editor_bits(type), trait_bits(type), name_cell(type));
  std::pair<std::string_view, std::string> const cells[] = {
      {"Extensions", extension_cell(type)},
      {"Editor", html(editor_of(type))},
      {"Traits", html(joined(traits_of(type)))},
      {"Class", class_cell(type)},
      {"Filter", copy_button(fio_get_file_type_filter(type, true), "filter")},
  };
  for (auto const& [title, content] : cells) {
    row += fmt::format("<td role=\"cell\" data-title=\"{}\">{}</td>", title, content);
  }
  return row + "</tr>\n";
}

void fill_in(std::string& page, std::string_view mark, std::string const& content) {
  page.replace(page.find(mark), mark.size(), content);
}

} // namespace

std::string type_page() {
  types const all = file_types(FIO_EDITOR_TYPE_ALL_FILES, -1);
  std::string rows;
  for (FIO_FILE_TYPE const type : all) {
    rows += row_of(type);
  }
  std::string page = type_page_template;
  fill_in(page, "<!-- editors -->", editor_options(all));
  fill_in(page, "<!-- traits -->", trait_boxes(all));
  fill_in(page, "<!-- count -->", fmt::format("{}", all.size()));
  fill_in(page, "<!-- rows -->", rows);
  return page;
}

} // namespace tool
