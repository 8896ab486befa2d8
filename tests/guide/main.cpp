// Runs the block whose number is the first argument; the others are those of the block's own main. Without a number, the
// examples of the headers.

#include <cstdlib>

int run_block_1(int number, int argc, char** argv);
int run_block_2(int number, int argc, char** argv);
int try_header_examples();

int main(int argc, char** argv) {
  if (argc == 1) {
    return try_header_examples() == 0 ? 0 : 1;
  }
  int const number = std::atoi(argv[1]);
  auto* const run = number % 2 == 0 ? run_block_1 : run_block_2;
  return run(number, argc - 1, argv + 1);
}
