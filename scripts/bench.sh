#!/bin/sh
# Builds the library and its benchmarks, measures it beside its floor and its peers, and writes docs/performance.md with
# its charts: some ten minutes on an idle machine. Installs what is missing, on Debian, as root or through sudo; peers
# that cannot be installed are left out, and the report says so.
#
# With --check: counts the library's instructions and compares them with benchmarks/instructions.txt, in a minute. A
# workload that has become more than 3 % dearer fails. With --renew: writes that table anew. With --quick: a report whose
# times mean little, to look at its form.

. "$(dirname -- "$0")/common.sh"

packages_to_benchmark="libbenchmark-dev valgrind python3"
packages_to_report="python3-matplotlib strace pkgconf"
peers="libpoco-dev qt6-base-dev llvm-14-dev libapr1-dev libglib2.0-dev"
action=report
quick=
case $#,${1-} in
0,) ;;
1,--quick) quick=--quick ;;
1,--check) action=check ;;
1,--renew) action=renew ;;
*)
  echo "usage: bench.sh [--check | --renew | --quick]" >&2
  exit 2
  ;;
esac

need_packages $packages_to_build $packages_to_benchmark
if [ $action = report ]; then
  need_packages $packages_to_report
  for peer in $peers; do
    (need_packages "$peer") || say "$peer is no peer, then"
  done
fi

say "benchmark: building"
build benchmark
/usr/bin/python3 -B benchmarks/report/bench.py $action build/benchmark/benchmarks/fio_benchmark $quick
[ $action != report ] || /usr/bin/python3 -B tests/costs/speed.py --renew docs/performance.md docs/guide/speed.md
