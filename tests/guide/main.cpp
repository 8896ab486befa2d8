// Runs the blocks whose numbers, with commas between them, are the first argument. The other arguments are those of the
// block's own main. Without an argument it tries the examples of the headers.

#include <cstdlib>

int run_block_1(int number, int argc, char** argv);
int run_block_2(int number, int argc, char** argv);
int try_header_examples();

int main(int argc, char** argv) {
  if (argc == 1) {
    return try_header_examples() == 0 ? 0 : 1;
  }
  int status = 0;
  for (char* rest = argv[1]; *rest != '\0' && status == 0; rest += *rest == ',' ? 1 : 0) {
    int const number = static_cast<int>(std::strtol(rest, &rest, 10));
    auto* const run = number % 2 == 0 ? run_block_1 : run_block_2;
    status = run(number, argc - 1, argv + 1);
  }
  return status;
}
