#include "tests/sweeps/system_call_symbols.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>
#include <fnmatch.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include "ccl/fio/fio_file_sys.h"
#include "tests/sweeps/system_call_doubles.h"
#include "tests/sweeps/system_call_errors.h"

namespace system_call {
namespace {

void replace_all(std::string& text, std::string const& old, std::string const& replacement) {
  for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += replacement.size()) {
    text.replace(at, old.size(), replacement);
  }
}

// In this order: each stands in the next.
constexpr std::pair<char const*, char const*> short_forms[] = {
    {"std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >", "string"},
    {"std::__cxx11::list<FIO_PATH, std::allocator<FIO_PATH> >", "list<FIO_PATH>"},
    {"std::vector<string, std::allocator<string > >", "vector<string>"},
};

// A table of the file, as far as it lies in the file at all.
template <typename Row>
std::vector<Row> rows(std::string const& file, std::uint64_t offset, std::uint64_t count) {
  std::vector<Row> read;
  if (offset <= file.size() && count <= (file.size() - offset) / sizeof(Row)) {
    read.resize(count);
    std::memcpy(read.data(), file.data() + offset, count * sizeof(Row));
  }
  return read;
}

// The families of operations that reach the file system, and the one other member that reads the environment.
constexpr char const* families[] = {
    "FIO_FILE_SYSTEM::*",
    "FIO_FIND::*",
    "FIO_DIRECTORY_*",
    "FIO_RECURSIVE_DIRECTORY_ITERATOR::*",
    "fio_get_unc_full_path*",
    "FIO_PATH::become_absolute*",
    "FIO_PATH::become_simplified*",
    "FIO_PATH::canonical*",
    "FIO_PATH::cd(*",
    "FIO_PATH::operator==*",
    "FIO_PATH::operator!=*",
    "FIO_PATH::operator<*",
};

bool is_of_a_family(std::string const& operation) {
  return std::any_of(std::begin(families), std::end(families), [&operation](char const* family) {
    return ::fnmatch(family, operation.c_str(), FNM_NOESCAPE) == 0;
  });
}

} // namespace

std::string demangled(std::string const& symbol) {
  int status = 0;
  std::unique_ptr<char, decltype(&std::free)> const text(abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status),
                                                         &std::free);
  std::string name = status == 0 ? text.get() : symbol;
  std::size_t const tag = name.find("[abi:cxx11]");
  if (tag != std::string::npos) {
    name.erase(tag, std::strlen("[abi:cxx11]"));
  }
  for (auto const& [long_form, short_form] : short_forms) {
    replace_all(name, long_form, short_form);
  }
  return name;
}

std::vector<std::string> dynamic_symbols(bool defined) {
  auto* const function = &fio_get_unc_full_path;
  Dl_info library = {};
  ::dladdr(reinterpret_cast<void const*>(function), &library);
  std::ifstream stream(library.dli_fname, std::ios::binary);
  std::string const file{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  std::vector<std::string> names;
  for (Elf64_Ehdr const& header : rows<Elf64_Ehdr>(file, 0, 1)) {
    auto const sections = rows<Elf64_Shdr>(file, header.e_shoff, header.e_shnum);
    for (Elf64_Shdr const& section : sections) {
      if (section.sh_type != SHT_DYNSYM || section.sh_link >= sections.size()) {
        continue;
      }
      for (Elf64_Sym const& symbol : rows<Elf64_Sym>(file, section.sh_offset, section.sh_size / sizeof(Elf64_Sym))) {
        char const* const name = file.c_str() + sections[section.sh_link].sh_offset + symbol.st_name;
        if ((symbol.st_shndx != SHN_UNDEF) == defined && *name != '\0') {
          names.emplace_back(name);
        }
      }
    }
  }
  return names;
}

std::vector<std::string> complaints_about_imports() {
  std::vector<std::string> complaints;
  std::vector<std::string> const imports = dynamic_symbols(false);
  if (imports.empty()) {
    complaints.emplace_back("the library's dynamic symbols cannot be read");
  }
  for (std::string const& symbol : imports) {
    std::string name = demangled(symbol);
    if (!reason_why_it_cannot_fail(name).empty()) {
      continue;
    }
    name.erase(std::min(name.find('('), name.size()));
    if (disturbances_of(name).empty()) {
      complaints.push_back("the library calls " + name + ", whose errors are in no table");
    } else if (!is_doubled(symbol)) {
      complaints.push_back("the library calls " + name + ", which has no double");
    }
  }
  return complaints;
}

std::vector<std::string> complaints_about_exports(std::vector<std::string> const& swept) {
  std::set<std::string> exported;
  std::ifstream list(FIO_SYMBOLS);
  for (std::string kind, symbol; list >> kind >> symbol;) {
    if (kind == "T") {
      exported.insert(demangled(symbol));
    }
  }
  std::vector<std::string> complaints;
  if (exported.empty()) {
    complaints.emplace_back("the list of exported symbols cannot be read");
  }
  for (std::string const& symbol : dynamic_symbols(true)) {
    exported.insert(demangled(symbol));
  }
  std::set<std::string> const rows_of_sweep(swept.begin(), swept.end());
  for (std::string const& operation : exported) {
    if (is_of_a_family(operation) && rows_of_sweep.count(operation) == 0) {
      complaints.push_back("no row for " + operation);
    }
  }
  for (std::string const& operation : rows_of_sweep) {
    if (!is_of_a_family(operation) || exported.count(operation) == 0) {
      complaints.push_back("a row for " + operation + ", which is no exported operation on the file system");
    }
  }
  return complaints;
}

} // namespace system_call
