#include "tests/model/duel.h"

#include <exception>
#include <functional>
#include <utility>

#include "tests/support/platform_double.h"

namespace {

std::uint64_t comparison_count = 0;

struct query {
  char const* name;
  std::function<std::string(FIO_PATH const&)> real;
  std::function<std::string(path_model const&)> model;
};

template <typename Action>
query row(char const* name, Action action) {
  return {name, action, action};
}

std::string truth(bool value) { return value ? "true" : "false"; }

// Everything that can be seen of a path. The separator shows in what becomes of a `/`.
std::vector<query> const& queries() {
  static std::vector<query> const rows = {
      row("fullpath()", [](auto const& p) { return p.fullpath(); }),
      row("operator std::string", [](auto const& p) { return p.operator std::string(); }),
      row("operator char const*", [](auto const& p) { return std::string(static_cast<char const*>(p)); }),
      row("the separator", [](auto const& p) { return p.sync_path_separators("/"); }),
      row("is_legal_length()", [](auto const& p) { return truth(p.is_legal_length()); }),
      row("get_path_components(DIRECTORY)", [](auto const& p) { return p.get_path_components(2); }),
      row("get_path_components(BASE)", [](auto const& p) { return p.get_path_components(4); }),
      row("get_path_components(EXTENSION)", [](auto const& p) { return p.get_path_components(8); }),
      row("get_path_components(all)", [](auto const& p) { return p.get_path_components(-1); }),
      row("get_path_components(none)", [](auto const& p) { return p.get_path_components(0x71); }),
      row("has_drive()", [](auto const& p) { return truth(p.has_drive()); }),
      row("has_directory()", [](auto const& p) { return truth(p.has_directory()); }),
      row("has_extension()", [](auto const& p) { return truth(p.has_extension()); }),
      row("absolute()", [](auto const& p) { return truth(p.absolute()); }),
      row("directory_path()", [](auto const& p) { return truth(p.directory_path()); }),
      row("drive()", [](auto const& p) { return p.drive(); }),
      row("directory()", [](auto const& p) { return p.directory(); }),
      row("full_directory()", [](auto const& p) { return p.full_directory(); }),
      row("base()", [](auto const& p) { return p.base(); }),
      row("extension()", [](auto const& p) { return p.extension(); }),
      row("filename()", [](auto const& p) { return p.filename(); }),
      row("tail()", [](auto const& p) { return p.tail(); }),
      row("levels()", [](auto const& p) { return std::to_string(p.levels()); }),
      row("[-1]", [](auto const& p) { return p[-1]; }),
      row("[0]", [](auto const& p) { return p[0]; }),
      row("[1]", [](auto const& p) { return p[1]; }),
      row("[levels() - 1]", [](auto const& p) { return p[p.levels() - 1]; }),
      row("[levels()]", [](auto const& p) { return p[p.levels()]; }),
      row("legal(-1)", [](auto const& p) { return truth(p.legal(-1)); }),
      row("legal(levels() - 1)", [](auto const& p) { return truth(p.legal(p.levels() - 1)); }),
      row("legal(levels())", [](auto const& p) { return truth(p.legal(p.levels())); }),
  };
  return rows;
}

std::string joined(std::vector<std::string> const& messages) {
  std::string result = std::to_string(messages.size()) + " messages";
  for (std::string const& message : messages) {
    result += "; " + message;
  }
  return result;
}

// The answer of the real side, or what it threw.
template <typename Action>
std::string guarded(Action action) {
  try {
    return action();
  } catch (std::exception const& thrown) {
    return std::string("throws: ") + thrown.what();
  } catch (platform_double::internal_error const& thrown) {
    return "internal error: " + thrown.condition;
  }
}

} // namespace

std::string text_of(std::vector<step> const& steps, difference const& found) {
  std::vector<step> const played(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(found.steps_played));
  return lines_of(played) + "  " + found.where + "\n    the library: " + literal(found.real) +
         "\n    the model:   " + literal(found.model) + '\n';
}

duel::duel() {
  real_side::set_old_simplify(false);
  model_side::set_old_simplify(false);
  real_side::set_current_directory("/a");
  model_side::set_current_directory("/a");
}

std::uint64_t duel::comparisons() { return comparison_count; }

std::optional<difference> duel::compare(std::string const& where, std::string const& real, std::string const& model) {
  comparison_count += 2; // the value and the messages
  std::vector<std::string> const real_messages = real_side::take_messages();
  std::vector<std::string> const model_messages = model_side::take_messages();
  if (real != model) {
    return difference{0, where, real, model};
  }
  if (real_messages != model_messages) {
    return difference{0, "the debug messages of " + where, joined(real_messages), joined(model_messages)};
  }
  return std::nullopt;
}

std::optional<difference> duel::play(step const& what) {
  step_kind const& kind = kind_of(what);
  std::string const real = guarded([&] { return kind.real(m_real, what); });
  return compare(kind.form, real, kind.model(m_model, what));
}

std::optional<difference> duel::look_at(std::size_t path) {
  for (query const& asked : queries()) {
    std::string const real = guarded([&] { return asked.real(*m_real.paths[path]); });
    if (auto found = compare(asked.name, real, asked.model(*m_model.paths[path]))) {
      found->where += " of p" + std::to_string(path);
      return found;
    }
  }
  return std::nullopt;
}

std::optional<difference> play(std::vector<step> const& steps, looks when) {
  duel both;
  std::size_t played = 0;
  std::optional<difference> found;
  auto const part_at = [&](std::optional<difference> parted) {
    found = std::move(parted);
    if (found) {
      found->steps_played = played;
    }
    return found.has_value();
  };
  for (step const& what : steps) {
    ++played;
    if (part_at(both.play(what))) {
      return found;
    }
    bool const looked_at = when == looks::always;
    if (looked_at && (part_at(both.look_at(what.target)) || part_at(both.look_at(what.source)))) {
      return found;
    }
  }
  std::size_t const last_looks = when == looks::always ? paths_of_a_scene : when == looks::at_end ? 1 : 0;
  for (std::size_t path = 0; path < last_looks; ++path) {
    if (part_at(both.look_at(path))) {
      return found;
    }
  }
  return found;
}
