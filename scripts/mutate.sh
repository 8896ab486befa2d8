#!/bin/sh
# Asks whether the tests would notice a mistake: makes small ones in the library, one at a time, and runs the tests over
# each. Installs what is missing, on Debian, as root or through sudo. The options are those of tests/mutation/mutate.py;
# the last line is the sum: "mutation: N mutants, K killed, E cannot be seen, S survive: P % killed".

. "$(dirname -- "$0")/common.sh"

case " $* " in
*" --help "* | *" -h "*) ;;
*)
  need_packages $packages_to_build $packages_to_check python3-clang-14
  say "building"
  build release
  build asan
  ;;
esac
exec /usr/bin/python3 -B "$repository/tests/mutation/mutate.py" "$@"
