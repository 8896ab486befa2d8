// Runs the operation of Qt whose number is the first argument.

#include <cstdlib>

int run_qt_block(int number, int argc, char** argv);

int main(int argc, char** argv) { return run_qt_block(std::atoi(argv[1]), argc - 1, argv + 1); }
