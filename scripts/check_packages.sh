#!/bin/sh
# Builds the Debian packages, has them checked, installs them in a fresh root, builds and runs the first program of the
# README there in three ways, removes them, and sees that nothing is left. The last line is the sum: "N passed,
# N failed". Needs root, for the fresh root.

. "$(dirname -- "$0")/common.sh"

if [ "$(id -u)" != 0 ]; then
  say "left out: a fresh root is made by root alone"
  echo "0 passed, 0 failed"
  exit 0
fi

need_packages debootstrap lintian
scripts/package.sh >/dev/null

passed=0
failed=0
check() {
  name=$1
  shift
  if "$@" >"$scratch/output" 2>&1; then
    passed=$((passed + 1))
    say "passed: $name"
  else
    failed=$((failed + 1))
    cat "$scratch/output" >&2
    say "failed: $name"
  fi
}

scratch=$(mktemp -d)
root=$scratch/root
trap 'rm -rf --one-file-system "$scratch"' EXIT
trap 'exit 1' HUP INT TERM

in_root() {
  chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C DEBIAN_FRONTEND=noninteractive "$@"
}

# The files of the root, less what the package manager and the loader keep for themselves.
list_root() {
  (cd "$root" && find . -xdev \( -path ./var/lib/dpkg -o -path ./var/lib/apt -o -path ./var/cache -o -path ./var/log \
    -o -path ./tmp -o -path ./etc/ld.so.cache \) -prune -o -print | sort)
}

lintian_is_silent() {
  lintian --allow-root --fail-on error,warning build/packages/*.deb
}

has_no_runpath() {
  case $(in_root readelf -dW "$libraries/libccl_fio.so.0.1") in
  *RPATH* | *RUNPATH*) return 1 ;;
  *SONAME*) ;;
  *) return 1 ;;
  esac
}

prints_what_the_readme_says() {
  in_root sh -c "cd /tmp/design && $1" >"$scratch/printed" 2>&1
  cat "$scratch/printed"
  [ "$(cat "$scratch/printed")" = "lib/alu.v: Verilog HDL File" ]
}

finds_the_sources() {
  in_root sh -c 'cd /tmp/design && ccl-fio find -s "rtl;lib" -0 top.v alu.v' | tr '\0' ' ' >"$scratch/printed"
  cat "$scratch/printed"
  [ "$(cat "$scratch/printed")" = "rtl/top.v lib/alu.v " ]
}

# The descriptions of types are in the debug symbols alone.
debugger_finds_printers_and_symbols() {
  in_root env PYTHONDONTWRITEBYTECODE=1 gdb -nx -batch -ex 'output (FIO_FILE_TYPE)8' "$libraries/libccl_fio.so.0.1" \
    >"$scratch/printed" 2>&1
  cat "$scratch/printed"
  [ "$(cat "$scratch/printed")" = "FIO_FILE_TYPE_VHDL_FILE (VHDL File)" ]
}

# gdb looks at processes in /proc, which is mounted for it alone.
debugger_shows_what_the_page_says() {
  mkdir -p "$root/tmp/debugger/tree/only"
  touch "$root/tmp/debugger/tree/only/file"
  cp tests/gdb/objects.cpp tests/gdb/compare.sh docs/debugger.md "$root/tmp/debugger"
  unshare --mount sh -c 'mount -t proc proc "$1/proc" && chroot "$1" env -i PATH=/usr/bin:/bin LC_ALL=C \
    PYTHONDONTWRITEBYTECODE=1 sh -c "cd /tmp/debugger && g++ -std=c++17 -g -O2 objects.cpp -lccl_fio -o objects &&
      ./compare.sh debugger.md gdb -nx -batch -ex \"break look_at\" -ex run objects"' sh "$root"
}

prints_what_the_console_shows() {
  echo 'puts [package require ccl::fio]; puts [ccl::fio find -recursive {rtl lib} core.sv]' >"$root/tmp/console.tcl"
  in_root sh -c 'cd /tmp/design && tclsh /tmp/console.tcl' >"$scratch/printed"
  cat "$scratch/printed"
  [ "$(sed 1d "$scratch/printed")" = "rtl/core/core.sv" ]
}

passes_the_tests_of_python() {
  in_root python3 -B -m pytest -q -p no:cacheprovider --basetemp=/tmp/pytest /tmp/repository/tests/python
}

nothing_is_left() {
  list_root >"$scratch/after"
  diff "$scratch/before" "$scratch/after"
}

check "lintian has nothing to say" lintian_is_silent

say "making a fresh root"
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
{
  debootstrap --variant=minbase "$release" "$root" &&
    in_root apt-get install -y --no-install-recommends g++ cmake make pkgconf libboost-dev libboost-filesystem-dev \
      gdb python3-pytest
} >"$scratch/log" 2>&1 || {
  tail -n 20 "$scratch/log" >&2
  exit 1
}
list_root >"$scratch/before"

cp -r examples/design "$root/tmp/design"
mkdir -p "$root/tmp/packages" "$root/tmp/tool" "$root/tmp/repository/tests"
cp -r ccl docs examples "$root/tmp/repository"
cp -r tests/python "$root/tmp/repository/tests"
cp build/packages/*.deb "$root/tmp/packages"
awk '/^```cpp/ { on = 1; next } /^```/ && on { exit } on' README.md >"$root/tmp/tool/tool.cpp"
cat >"$root/tmp/tool/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.18)
project(tool LANGUAGES CXX)
find_package(ccl REQUIRED)
add_executable(tool tool.cpp)
target_link_libraries(tool PRIVATE ccl::fio)
END

check "the packages are installed" in_root sh -c 'apt-get install -y --no-install-recommends /tmp/packages/*.deb'
libraries=/usr/lib/$(dpkg-architecture -q DEB_HOST_MULTIARCH)
check "the library has no RUNPATH" has_no_runpath
check "the program is built with find_package, and runs" prints_what_the_readme_says \
  'cmake -S /tmp/tool -B /tmp/tool/build >/tmp/log && cmake --build /tmp/tool/build >/tmp/log && /tmp/tool/build/tool'
check "the program is built with pkg-config, and runs" prints_what_the_readme_says \
  'g++ -std=c++17 /tmp/tool/tool.cpp $(pkg-config --cflags --libs ccl) -o /tmp/configured && /tmp/configured'
check "the program is built with the compiler alone, and runs" prints_what_the_readme_says \
  'g++ -std=c++17 /tmp/tool/tool.cpp -lccl_fio -o /tmp/bare && /tmp/bare'
check "the command finds the sources of a design" finds_the_sources
check "the command has its manual page and its completion" test -s "$root/usr/share/man/man1/ccl-fio.1.gz" \
  -a -s "$root/usr/share/bash-completion/completions/ccl-fio"
check "Tcl has the commands by itself" prints_what_the_console_shows
check "the tests of the package for Python pass" passes_the_tests_of_python
check "the debug symbols are those of the library" in_root sh -c \
  "id=\$(readelf -n $libraries/libccl_fio.so.0.1 | sed -n 's/.*Build ID: \\(..\\)/\\1\\//p') && readelf -SW /usr/lib/debug/.build-id/\$id.debug | grep -q debug_info"
check "gdb finds the printers and the symbols" debugger_finds_printers_and_symbols
if unshare --mount mount -t proc proc "$root/proc" 2>/dev/null; then
  check "gdb shows what the page says" debugger_shows_what_the_page_says
else
  say "left out: gdb on a process, since /proc cannot be mounted here"
fi
check "the pages of reference are there" test -f "$root/usr/share/doc/libccl-fio-doc/html/index.html"
check "the packages are removed" in_root sh -c \
  'apt-get purge -y --auto-remove $(for file in /tmp/packages/*.deb; do dpkg-deb -f $file Package; done)'
check "nothing is left" nothing_is_left

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
