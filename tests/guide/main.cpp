// Runs the blocks whose numbers, with commas between them, are the first argument: -1 is the examples of the headers.
// The other arguments are those of the block's own main.

#include <cstdlib>

int run_block(int number, int argc, char** argv);

int main(int argc, char** argv) {
  int status = 0;
  for (char* rest = argv[1]; *rest != '\0' && status == 0; rest += *rest == ',' ? 1 : 0) {
    status = run_block(static_cast<int>(std::strtol(rest, &rest, 10)), argc - 1, argv + 1);
  }
  return status;
}
