#include "tools/ccl-fio/vocabulary.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <map>
#include <set>
#include <utility>

#include "ccl/fio/fio.h"

namespace tool {

namespace {

template <typename Value>
std::vector<Value> without_repetitions(std::list<Value> const& values) {
  std::vector<Value> result;
  std::set<Value> seen;
  std::copy_if(values.begin(), values.end(), std::back_inserter(result),
               [&seen](Value value) { return seen.insert(value).second; });
  return result;
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

bool is_known(type_facts const& facts) { return facts.type != FIO_FILE_TYPE_INVALID; }

std::string class_name_of(FIO_FILE_TYPE type) {
  document_class const* const document = class_of(type);
  return document == nullptr ? std::string() : document->name;
}

std::vector<std::string> texts_of(type_facts const& facts) {
  FIO_FILE_TYPE const type = facts.type;
  if (!is_known(facts)) {
    return std::vector<std::string>(fact_columns().size());
  }
  return {fio_get_file_type_name(type),
          fio_get_extension_string(facts.extension),
          editor_of(type),
          std::to_string(type),
          fio_get_file_description(type),
          class_name_of(type),
          joined(traits_of(type)),
          fio_get_file_type_filter(type, true)};
}

json object_of(type_facts const& facts) {
  json object;
  for (char const* const key : {"file_type", "file_type_name", "description", "extension_type", "extension", "editor",
                                "traits", "document_class", "clsid", "filter"}) {
    object[key] = nullptr;
  }
  if (!is_known(facts)) {
    return object;
  }
  FIO_FILE_TYPE const type = facts.type;
  object["file_type"] = static_cast<int>(type);
  object["file_type_name"] = fio_get_file_type_name(type);
  object["description"] = fio_get_file_description(type);
  object["extension_type"] = static_cast<int>(facts.extension);
  object["extension"] = fio_get_extension_string(facts.extension);
  object["editor"] = name_or_null(editor_of(type));
  object["traits"] = traits_of(type);
  if (document_class const* const document = class_of(type)) {
    object["document_class"] = document->name;
    object["clsid"] = fio_clsid_to_str(*document->clsid, FIO_CLSID_FORMAT_TEXT);
  }
  object["filter"] = fio_get_file_type_filter(type, true);
  return object;
}

/// The result of `Make` for these facts, which is made once: many files have one type.
template <typename Result, Result (*Make)(type_facts const&)>
Result const& remembered(type_facts const& facts) {
  static std::map<std::pair<int, int>, Result> results;
  auto const [place, is_new] = results.try_emplace({facts.type, facts.extension});
  if (is_new) {
    place->second = Make(facts);
  }
  return place->second;
}

} // namespace

#define NAMED_CLASS(name, ...) {"VFC_CLSID_" #name, &VFC_CLSID_##name},
std::vector<document_class> const& document_classes() {
  static std::vector<document_class> const classes = {FIO_CLSID_LIST(NAMED_CLASS)};
  return classes;
}
#undef NAMED_CLASS

document_class const* class_of(FIO_FILE_TYPE type) {
  std::vector<document_class> const& classes = document_classes();
  auto const found = std::find_if(classes.begin(), classes.end(), [type](document_class const& candidate) {
    return fio_get_file_type(*candidate.clsid) == type;
  });
  return type == FIO_FILE_TYPE_INVALID || found == classes.end() ? nullptr : &*found;
}

std::string editor_of(FIO_FILE_TYPE type) {
  FIO_EDITOR_TYPE const editor = fio_get_editor_type(type);
  return editor == FIO_EDITOR_TYPE_NONE ? std::string() : std::string(fio_get_editor_type_string(editor));
}

std::vector<std::string> traits_of(FIO_FILE_TYPE type) {
  std::vector<std::string> texts;
  for (unsigned bit = 1; bit != 0; bit <<= 1) {
    auto const trait = static_cast<FIO_FILE_TYPE_FLAG>(bit);
    char const* const text = fio_get_file_type_trait_string(trait);
    if (text != nullptr && fio_test_trait_of(type, trait) &&
        std::find(texts.begin(), texts.end(), text) == texts.end()) {
      texts.emplace_back(text);
    }
  }
  return texts;
}

std::vector<FIO_EDITOR_TYPE> editors() { return values_with_text<FIO_EDITOR_TYPE>(fio_get_editor_type_string); }

std::vector<FIO_FILE_TYPE_FLAG> traits() {
  return values_with_text<FIO_FILE_TYPE_FLAG>(fio_get_file_type_trait_string);
}

std::vector<FIO_EXTENSION_TYPE_FLAG> extension_traits() {
  return values_with_text<FIO_EXTENSION_TYPE_FLAG>(fio_get_extension_type_trait_string);
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

std::string joined(std::vector<std::string> const& texts) {
  std::string result;
  for (std::string const& text : texts) {
    result.append(result.empty() ? "" : ", ").append(text);
  }
  return result;
}

std::vector<column> fact_columns() {
  return {{"type", true},        {"extension"}, {"editor", true}, {"number"},
          {"description", true}, {"class"},     {"traits", true}, {"filter", true}};
}

void append_facts(std::vector<cell>& row, type_facts const& facts) {
  for (std::string const& text : remembered<std::vector<std::string>, texts_of>(facts)) {
    row.push_back({text});
  }
}

void append_facts(json& object, type_facts const& facts) { object.update(remembered<json, object_of>(facts)); }

} // namespace tool
