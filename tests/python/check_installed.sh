#!/bin/sh
# check_installed.sh CMAKE BUILD FOLDER PYTEST...: installs what the package for Python needs to a prefix with a blank in its
# name, moves it, and runs the tests there, where no library is but those of the prefix.

set -eu

cmake=$1
build=$2
folder=$3
shift 3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM

for component in platform fio python; do
  "$cmake" --install "$build" --prefix "$scratch/at first" --component "$component" >/dev/null
done
mv "$scratch/at first" "$scratch/a prefix that moved"

unset LD_LIBRARY_PATH
export PYTHONPATH="$scratch/a prefix that moved/$folder"
python=$1
loaded=$("$python" -B -c 'import ccl_fio; print(*{line.split(None, 5)[5] for line in open("/proc/self/maps") if "libccl_" in line}, end="")')
printf '%s' "$loaded" | grep -q "^ *$scratch/a prefix that moved/" && ! printf '%s' "$loaded" | grep -v "^ *$scratch/" || {
  echo "loaded: $loaded"
  exit 1
}
"$@"
