#!/bin/sh
# Builds the Debian packages into build/packages: the two libraries, the debug symbols of each, the headers, the
# command, the Tcl commands, the module for Python, and the documentation. The same sources give the same bytes;
# SOURCE_DATE_EPOCH, or else the last commit, is the time of all that is in them. Installs what is missing, on Debian, as
# root or through sudo.

. "$(dirname -- "$0")/common.sh"

need_packages $packages_to_build $packages_to_bind doxygen doxygen-awesome-css dpkg-dev file

: "${SOURCE_DATE_EPOCH:=$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)}"
export SOURCE_DATE_EPOCH

# What stands in the packages does not depend on who builds them.
umask 022
export LC_ALL=C

packages=$repository/build/packages
work=$repository/build/package/packing

# Packs once more what CPack has packed: it calls ldconfig from scripts where the trigger is enough, and what it makes
# of debug symbols has the paths of its own folder among the checksums and no documentation.
pack() {
  tree=$work/tree
  rm -rf "$tree"
  dpkg-deb --raw-extract "$1" "$tree"
  for script in postinst postrm; do
    ! grep -qs ldconfig "$tree/DEBIAN/$script" || rm "$tree/DEBIAN/$script"
  done
  package=$(dpkg-deb --field "$1" Package)
  case $package in
  *-dbgsym)
    sed -i '/^Package-Type:/d' "$tree/DEBIAN/control"
    find "$tree/usr/lib/debug" -type f -exec chmod 644 {} +
    mkdir -p "$tree/usr/share/doc"
    ln -s "${package%-dbgsym}" "$tree/usr/share/doc/$package"
    ;;
  esac
  (cd "$tree" && find usr -type f -print | sort | xargs md5sum >DEBIAN/md5sums)
  find "$tree" -exec touch --no-dereference --date "@$SOURCE_DATE_EPOCH" {} +
  name=$(basename -- "$1")
  dpkg-deb --root-owner-group --threads-max=1 -Zxz --build "$tree" "$packages/${name%.*}.deb"
}

say "building"
rm -rf "$packages" "$work"
mkdir -p "$packages" "$work"
build package
say "packing"
log=$repository/build/packages.log
trap 'tail -n 20 "$log" >&2' EXIT
cpack --config build/package/CPackConfig.cmake -B "$work" >"$log" 2>&1
for file in "$work"/*.deb "$work"/*.ddeb; do
  pack "$file" >>"$log" 2>&1
done
trap - EXIT
rm -rf "$work"
ls "$packages"
