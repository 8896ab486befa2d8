#!/bin/sh
# Builds the library with other compilers, standards and options in build/compilers/ROW, runs fio_test over each, and
# compiles the headers as their users do, in C++23 too. Prints a line for each row; arguments are the only rows to be run.
# Where the tests are "shared" they are those of the first row. Installs what is missing, on Debian, as root or through
# sudo. The last line is the sum: "compilers: N rows, N failed".

. "$(dirname -- "$0")/common.sh"

# A row in each line: its name, compiler, standard, whose tests it runs, and options.
rows() {
  cat <<END
gcc-12            g++-12     17 own     -O2
gcc-12-cxx20      g++-12     20 own     -O2
gcc-11            g++-11     17 own     -O2
gcc-11-cxx20      g++-11     20 shared  -O2
clang-14          clang++-14 17 own     -O2
clang-14-cxx20    clang++-14 20 shared  -O2
clang-16          clang++-16 17 own     -O2
clang-16-cxx20    clang++-16 20 own     -O2
gcc-12-O0         g++-12     17 shared  -O0
gcc-12-O1         g++-12     17 shared  -O1
gcc-12-O3         g++-12     17 shared  -O3
clang-14-O0       clang++-14 17 shared  -O0
clang-14-O1       clang++-14 17 shared  -O1
clang-14-O3       clang++-14 17 shared  -O3
no-strict-alias   g++-12     17 shared  -O2 -fno-strict-aliasing
assertions        g++-12     17 shared  -O2 -D_GLIBCXX_ASSERTIONS
debug-containers  g++-12     17 own     -O1 -D_GLIBCXX_DEBUG
headers-gcc-11    g++-11     -  headers -O2
headers-gcc-12    g++-12     -  headers -O2
headers-clang-14  clang++-14 -  headers -O2
headers-clang-16  clang++-16 -  headers -O2
END
}

need_packages $packages_to_build libgtest-dev googletest g++-11 g++-12 clang-14 clang-16
folder=$repository/build/compilers
mkdir -p "$folder"

# Other containers need a GoogleTest that has them too.
build_googletest() {
  cmake -S /usr/src/googletest -B "$folder/$row-gtest" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="$options" -DBUILD_GMOCK=OFF &&
    cmake --build "$folder/$row-gtest" && cmake --install "$folder/$row-gtest" --prefix "$folder/$row-prefix"
}

build_row() {
  if [ "$row" = debug-containers ]; then build_googletest || return 1; fi
  if [ "$tests" = own ]; then target=fio_test with_tests=ON; else target=ccl_fio with_tests=OFF; fi
  cmake -S . -B "$folder/$row" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_STANDARD="$standard" \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="$options" -DCMAKE_PREFIX_PATH="$folder/$row-prefix" \
    -DCCL_BUILD_TESTS="$with_tests" -DCCL_BUILD_EXAMPLES=OFF -DCCL_BUILD_TOOLS=OFF -DCCL_BUILD_TCL=OFF \
    -DCCL_BUILD_PYTHON=OFF && cmake --build "$folder/$row" --target "$target"
}

run_tests() {
  case $tests in
  own) program=$folder/$row/tests/fio_test ;;
  shared) program=$folder/gcc-12/tests/fio_test ;;
  esac
  LD_LIBRARY_PATH=$folder/$row/ccl GTEST_BRIEF=1 "$program"
}

# Each public header alone, and programs that use them.
compile_headers() {
  for version in 17 20 2b; do
    for source in ccl/*/*.h tests/headers/*ing_errors.cpp tests/headers/using_std.cpp; do
      "$compiler" -x c++ -std=c++$version $options -fsyntax-only -Wall -Wextra -Wpedantic -Werror -I. \
        -include "$source" /dev/null || return 1
    done
  done
}

# Sets `result` to what a row comes to.
run_row() {
  case $tests in
  headers)
    result="headers in C++17, C++20 and C++23"
    compile_headers || result="FAILED: the headers"
    ;;
  *)
    if ! build_row; then
      result="FAILED: the build"
    elif ! run_tests; then
      result="FAILED: the tests"
    else
      result="$(sed -n 's/^\[  PASSED  \] //p' "$folder/$row.log" | tail -n 1) passed"
    fi
    ;;
  esac
}

wanted=" $* "
number=0
failed=0
while read -r row compiler standard tests options; do
  case $wanted in
  *" $row "* | "  ") ;;
  *) continue ;;
  esac
  number=$((number + 1))
  run_row >"$folder/$row.log" 2>&1 </dev/null
  printf '%-17s %-11s C++%-3s %-8s %-32s %s\n' "$row" "$compiler" "$standard" "$tests" "$options" "$result"
  case $result in
  FAILED*)
    failed=$((failed + 1))
    tail -n 20 "$folder/$row.log" >&2
    ;;
  esac
done <<END
$(rows)
END
echo "compilers: $number rows, $failed failed"
[ "$failed" = 0 ]
