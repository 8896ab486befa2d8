# Shared by the scripts of this folder: where the repository is, and how what it needs gets onto the machine.
# To be sourced.

set -eu

repository=$(CDPATH= cd -- "$(dirname -- "$0")/.." && pwd -P)
cd "$repository"

# What it takes to build the library, its tools and its examples, and to check them, as Debian's packages.
packages_to_build="g++ cmake ninja-build libboost-dev libboost-filesystem-dev libcli11-dev nlohmann-json3-dev \
  libfmt-dev"
packages_to_bind="tcl-dev pybind11-dev python3-dev"
packages_to_check="$packages_to_bind libgtest-dev clang-format pkgconf abigail-tools mandoc doxygen gdb strace \
  tcl-thread python3 python3-pytest mypy"
packages_to_check_all="clang libclang-rt-14-dev clang-tidy valgrind qt6-base-dev chromium chromium-driver python3-selenium"
packages_to_measure="gcovr"
packages_to_cut_power="python3 python3-fusepy e2fsprogs xfsprogs mount"

say() {
  printf '== %s\n' "$*" >&2
}

# Installs those of the packages named that are missing, as root or through sudo; otherwise says which they are.
need_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "This machine has no Debian packages. Install what these are called here, and build with cmake: $*"
    exit 1
  fi
  missing=
  for package in "$@"; do
    case $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) in
    installed) ;;
    *) missing="$missing $package" ;;
    esac
  done
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" = 0 ]; then
    as_root=
  elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    as_root=sudo
  else
    say "These packages are missing and may not be installed by this user:$missing"
    say "As root: apt-get install --no-install-recommends$missing"
    exit 1
  fi
  say "installing$missing"
  log=$(mktemp)
  if ! { $as_root env DEBIAN_FRONTEND=noninteractive apt-get update &&
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing; } >"$log" 2>&1; then
    tail -n 20 "$log" >&2
    rm -f "$log"
    say "These packages could not be installed:$missing"
    exit 1
  fi
  rm -f "$log"
}

# Configures a preset, unless that was done since the presets were changed: the build sees other changes itself.
configure() {
  [ "build/$1/build.ninja" -nt CMakePresets.json ] || cmake --preset "$1"
}

# Configures and builds a preset: all of it, or what further arguments for the build say. Prints only what went wrong.
build() {
  preset=$1
  shift
  mkdir -p build
  if ! { configure "$preset" && cmake --build --preset "$preset" "$@"; } >"build/$preset.log" 2>&1; then
    tail -n 60 "build/$preset.log" >&2
    say "The build of '$preset' failed; all of it is in build/$preset.log"
    return 1
  fi
}

# Puts standard input in the place of what a page has between the marks of this name.
replace_marked() {
  {
    sed "/^<!-- $2 -->\$/q" "$1"
    printf '\n'
    cat
    printf '\n'
    sed -n "/^<!-- end of $2 -->\$/,\$p" "$1"
  } >"build/${1##*/}"
  cp "build/${1##*/}" "$1"
}
