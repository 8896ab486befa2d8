#!/usr/bin/python3
"""Lists the sources of a design, and archives them: each under its path below the design, with its times.

    archive_sources.py DESIGN ARCHIVE
"""

import os
import sys

import ccl_fio


def sources_of(design: ccl_fio.Path) -> list[tuple[ccl_fio.Path, ccl_fio.FileType]]:
    """The source files below a directory by their paths, with their types."""
    sources = []
    for entry in ccl_fio.RecursiveDirectoryIterator(design):
        file_type = ccl_fio.FileType.of(entry)
        if not entry.is_directory and ccl_fio.FileTypeTrait.SOURCE_FILES in file_type.traits:
            sources.append((ccl_fio.Path(entry), file_type))
    return sorted(sources)


def archive(sources: list[tuple[ccl_fio.Path, ccl_fio.FileType]], design: ccl_fio.Path, target: str) -> None:
    """Copies the sources, each of them below the target as it stands below the design."""
    for path, _ in sources:
        place = ccl_fio.Path(os.path.join(target, path.relative_to(design)))
        ccl_fio.create(place.directory)
        ccl_fio.copy(path, place, overwrite=True, preserve_time=True)


def main(arguments: list[str]) -> int:
    if len(arguments) != 2:
        print("usage: archive_sources.py DESIGN ARCHIVE", file=sys.stderr)
        return 2
    # A path is relative to another one only if both are absolute.
    design = ccl_fio.Path(arguments[0]).canonical()
    # What cannot be read looks empty to a walk.
    if design is None or not ccl_fio.exists(os.path.join(design, "*")):
        print(f"archive_sources.py: {arguments[0]}: not a directory that can be read", file=sys.stderr)
        return 1
    sources = sources_of(design)
    for path, file_type in sources:
        name = str(path.relative_to(design)).encode("utf-8", "backslashreplace").decode()
        print(f"{name:24}{file_type.text:34}{file_type.editor.text}")
    try:
        archive(sources, design, arguments[1])
    except OSError as error:
        print(f"archive_sources.py: {error}", file=sys.stderr)
        return 1
    print(f"{len(sources)} files archived")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
