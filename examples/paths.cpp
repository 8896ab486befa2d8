// Paths are values: each edit goes to a component, and the text follows at once.

#include <ccl/fio/fio_path.h>

#include <iostream>
#include <string>

int main() {
  // Both separators divide, and runs of them are one.
  FIO_PATH path("rtl//core\\alu.v");
  std::cout << path.fullpath() << ": directory " << path.directory() << ", base " << path.base() << ", extension "
            << path.extension() << '\n';

  // Setters return the path, so that they can be chained.
  path.base("fpu").extension("sv", "");
  std::cout << "another name: " << path.fullpath() << '\n';
  path.cd("../lib");
  std::cout << "moved: " << path.fullpath() << '\n';

  // A search path, a project file or a dialog may say the same in different ways.
  FIO_PATH const given("/proj/rtl/../lib/alu.v");
  FIO_PATH const plain("/proj/lib/alu.v");
  std::cout << given.fullpath() << " and " << plain.fullpath() << (given == plain ? " are" : " are not")
            << " the same\n";
  std::cout << "from /proj/rtl: " << plain.get_relative_to("/proj/rtl") << '\n';

  FIO_PATH relative("../top.sdc");
  relative.become_absolute("/proj/rtl");
  std::cout << "../top.sdc in /proj/rtl: " << relative.fullpath() << '\n';

  // A text that is too long leaves an empty path. `if (path)` would be true: it tests a pointer.
  FIO_PATH const too_long(std::string(2000, 'x'));
  if (!too_long.is_legal_length()) {
    std::cout << "2000 characters are no path: \"" << too_long.fullpath() << "\"\n";
  }
}
