#include "tools/ccl-fio/json.h"

#include <fmt/format.h>

#include <string_view>

#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/utf8.h"

namespace tool {

json name_to_json(std::string const& name) {
  if (is_utf8(name)) {
    return name;
  }
  std::string encoded;
  for (std::string_view rest = name; !rest.empty();) {
    character const first = first_character(rest);
    if (first.valid && first.code != '%') {
      encoded.append(rest.substr(0, first.size));
    } else {
      encoded += fmt::format("%{:02X}", static_cast<unsigned>(first.code));
    }
    rest.remove_prefix(first.size);
  }
  return {{"percent_encoded", encoded}};
}

json name_or_null(std::string const& name) { return name.empty() ? json() : name_to_json(name); }

void write_json(json const& document) { write(document.dump(2) + '\n'); }

} // namespace tool
