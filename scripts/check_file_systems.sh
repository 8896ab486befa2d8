#!/bin/sh
# Runs the tests that touch files on file systems of every kind, all of them or those named: each is made on an image in
# memory and mounted where nobody else sees it, and is gone with the script, however that ends. Prints what each file
# system does differently, and with --update puts that into docs/testing.md; with --differences it runs nothing else.
# What the kernel does not have is left out, and said. Needs root. Installs what is missing, on Debian.

. "$(dirname -- "$0")/common.sh"

all="ext4 ext4_casefold xfs btrfs tmpfs overlay bindfs disorderfs ntfs ntfs_nocase vfat squashfs"
programs="fio_test real_faults stress_threads stress_processes system_call_sweep"
packages_to_mount="e2fsprogs xfsprogs btrfs-progs squashfs-tools bindfs disorderfs ntfs-3g dosfstools"
rows=$repository/build/file_systems

# Outside: builds, and starts the script once more in a namespace of its own, whose first process ends all others.
check_all() {
  update=
  wanted=
  for argument in "$@"; do
    case $argument,$all in
    --update,*) update=yes ;;
    --differences,*) programs= ;;
    *,*"$argument"*) wanted="$wanted $argument" ;;
    *)
      echo "usage: check_file_systems.sh [--update] [--differences] [NAME...], of: $all" >&2
      exit 2
      ;;
    esac
  done
  if [ "$(id -u)" != 0 ]; then
    say "Only root can mount file systems."
    exit 1
  fi
  need_packages $packages_to_build $packages_to_check $packages_to_mount
  say "release: building"
  build release --target $programs file_system_differences

  mkdir -p "$rows"
  images=$(mktemp -d)
  inside=
  trap 'clean_up' EXIT
  trap 'exit 1' HUP INT TERM
  unshare --mount --pid --fork --kill-child --mount-proc --propagation private \
    "$0" --inside "$images" "$programs" ${wanted:-$all} &
  inside=$!
  status=0
  wait "$inside" || status=$?
  inside=
  [ -z "$update" ] || update_table
  exit "$status"
}

clean_up() {
  if [ -n "$inside" ]; then
    kill -KILL "$inside" || true
    wait "$inside" || true
  fi 2>/dev/null
  rmdir "$images"
}

update_table() {
  {
    printf '| file system | entry types | order | times | years | longest name, bytes | links | case | permissions'
    printf ' | bytes of names | directories renamed | removed "." |\n|---|---|---|---|---|---|---|---|---|---|---|---|\n'
    for name in $all; do
      [ ! -f "$rows/$name.row" ] || cat "$rows/$name.row"
    done
  } | replace_marked docs/testing.md "file systems"
}

# Makes an empty image of this size, as $image.
make_image() {
  image=$images/image
  rm -f "$image"
  truncate -s "$1" "$image"
}

mount_image() {
  mount -t "$1" -o loop "$image" "$place"
}

# The entries that stand on a file system before the tests come.
draw_old() {
  mkdir -p "$1/old/d"
  printf f >"$1/old/d/f"
  printf content >"$1/old/file"
  ln -s file "$1/old/link"
}

# Where a file system shows the directories of another one, that is an ext4.
mount_below() {
  make_image 1g
  mkfs.ext4 -q -F "$image"
  mkdir -p "$images/below"
  mount -o loop "$image" "$images/below"
  mkdir "$images/below/shown"
}

# Mounts a file system at $place, as it comes. $old is its directory that was there before.
mount_one() {
  old=
  case $1 in
  ext4)
    make_image 1g
    mkfs.ext4 -q -F "$image" && mount_image ext4
    ;;
  ext4_casefold)
    make_image 1g
    mkfs.ext4 -q -F -O casefold -E encoding=utf8 "$image" && mount_image ext4 && rmdir "$place/lost+found" &&
      chattr +F "$place"
    ;;
  xfs)
    make_image 1g
    mkfs.xfs -q "$image" && mount_image xfs
    ;;
  btrfs)
    make_image 1g
    mkfs.btrfs -q "$image" && mount_image btrfs
    ;;
  tmpfs)
    mount -t tmpfs tmpfs "$place"
    ;;
  overlay) # the upper layer in the place of a disk, the lower one cannot be written
    mount_below
    mkdir "$images/below/upper" "$images/below/work"
    old=$place/old
    mount_squashfs "$images/lower" &&
      mount -t overlay -o "lowerdir=$images/lower,upperdir=$images/below/upper,workdir=$images/below/work" \
        overlay "$place"
    ;;
  squashfs)
    old=$place/old
    mount_squashfs "$place"
    ;;
  bindfs)
    mount_below
    bindfs "$images/below/shown" "$place"
    ;;
  disorderfs) # reports no types
    mount_below
    disorderfs -q --multi-user=yes --reverse-dirents=yes --sort-dirents=yes --pad-blocks=0 \
      "$images/below/shown" "$place"
    ;;
  ntfs)
    make_image 1g
    mkntfs -q -F -Q "$image" && ntfs-3g -o permissions "$image" "$place"
    ;;
  ntfs_nocase)
    make_image 1g
    mkntfs -q -F -Q "$image" && lowntfs-3g -o permissions,ignore_case "$image" "$place"
    ;;
  vfat)
    make_image 1g
    mkfs.vfat "$image" && mount_image vfat
    ;;
  esac
}

mount_squashfs() {
  mkdir -p "$images/stored" "$1"
  draw_old "$images/stored"
  rm -f "$images/squashed"
  mksquashfs "$images/stored" "$images/squashed" -quiet -no-progress && mount -t squashfs -o loop "$images/squashed" "$1"
}

# The lines of the list for a program on this file system: the tests whose outcome there is another one.
differing() {
  sed -n "s/^$name $1 //p" tests/file_systems/differing.txt
}

# Runs a program on the file system without the tests that are listed, or only one of those.
run_program() {
  case $1 in
  fio_test)
    "$found" --gtest_brief=1 --gtest_filter="${2:--$(differing fio_test | tr '\n' ':')}"
    ;;
  real_faults)
    if [ $# = 2 ]; then
      "$found" --here "$2"
    else
      differing real_faults | sed 's/^by chance //; s/^/--except\n/' | tr '\n' '\0' | xargs -0 "$found" --here
    fi
    ;;
  stress_processes)
    case $name in
    bindfs | disorderfs | ntfs*) "$found" --small ;; # every call goes through another process
    *) "$found" ;;
    esac
    ;;
  *) "$found" ;;
  esac
}

# Says that something is not as expected, with the end of what was printed.
fail() {
  failed=$((failed + 1))
  say "FAILED: $*"
  tail -n 40 "$log" >&2
}

check_program() {
  found=$(find build/release/tests -type f -name "$1")
  log=$rows/$name.$1.log
  if [ "$(differing "$1")" = "*" ]; then
    say "$name: LEFT OUT: $1"
    return 0
  fi
  if run_program "$1" >"$log" 2>&1; then
    say "$name: $(tail -n 1 "$log")"
  else
    fail "$name: $1"
  fi
  differing "$1" | grep -v '^by chance ' >"$images/differing" || true
  while read -r test; do
    log=$images/log
    if run_program "$1" "$test" </dev/null >"$log" 2>&1; then
      fail "$name: $1: $test is listed in tests/file_systems/differing.txt, and passes"
    else
      different=$((different + 1))
    fi
  done <"$images/differing"
}

# One file system, from its making to its end.
check_one() {
  name=$1
  place=$images/$name
  different=0
  failed=0
  log=$rows/$name.log
  mkdir "$place"
  if ! mount_one "$name" >"$log" 2>&1; then
    say "$name: LEFT OUT: this machine cannot mount it: $(grep -v '^$\|dmesg' "$log" | tail -n 1)"
    printf '| %s | left out: this machine cannot mount it | | | | | | | | | | |\n' "$name" >"$rows/$name.row"
    unmount_all
    return 0
  fi
  if [ "$name" = squashfs ]; then
    TMPDIR=$images
  else
    chmod 1777 "$place"
    TMPDIR=$place
  fi
  export TMPDIR
  differences=$(find build/release/tests -type f -name file_system_differences)
  "$differences" "$name" ${old:+"$old"} >"$images/row" 2>"$log" || fail "$name: differences"
  say "$name: $(tail -n 1 "$log")"
  tee "$rows/$name.row" <"$images/row"
  if [ "$name" = squashfs ]; then
    say "$name: LEFT OUT: all other tests, as nothing can be made there"
  else
    for program in $programs; do
      check_program "$program"
    done
    say "$name: $failed failed, $different as listed in tests/file_systems/differing.txt"
  fi
  unset TMPDIR
  unmount_all
  [ "$failed" = 0 ]
}

# Everything that was mounted below the images; what was mounted last goes first. A process in the place of a file system
# may hold what it shows a moment longer.
unmount_all() {
  for mounted in "$place" "$images/lower" "$images/below"; do
    if mountpoint -q "$mounted"; then
      umount --lazy "$mounted"
    fi
  done
}

if [ "${1-}" != --inside ]; then
  check_all "$@"
fi

images=$2
programs=$3
shift 3
mount -t tmpfs -o mode=755 tmpfs "$images"
wrong=0
for name in "$@"; do
  check_one "$name" || wrong=$((wrong + 1))
done
[ "$wrong" = 0 ] || say "$wrong file systems with failures"
[ "$wrong" = 0 ]
