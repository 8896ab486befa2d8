"""The exceptions of the package. A failure that has an ``errno`` is the ``OSError`` that Python has for it."""

from __future__ import annotations

from typing import Iterable, Optional


class Error(OSError):
    """A failure without an ``errno``, or one that carries words.

    ``lines`` has the lines of its message, nested ones behind as many tabs as they are deep; ``filename`` and
    ``filename2`` are what it is about.
    """

    lines: tuple[str, ...]

    def __init__(self, lines: Iterable[str], filename: Optional[str] = None, filename2: Optional[str] = None) -> None:
        self.lines = tuple(lines)
        super().__init__(*self.lines[:1])
        self.filename = filename
        self.filename2 = filename2

    def __str__(self) -> str:
        names = [repr(name) for name in (self.filename, self.filename2) if name is not None]
        text = "\n".join(self.lines)
        return text if len(self.lines) != 1 or not names or text.endswith(".") else f"{text}: {' -> '.join(names)}"

    def __reduce__(self) -> tuple[object, ...]:
        return (type(self), (self.lines, self.filename, self.filename2))


class NotADirectory(Error, NotADirectoryError):
    """A path that should name a directory does not."""


class FailedToOpenDirectory(Error):
    """A directory cannot be listed."""


class FailedToRemoveDirectory(Error):
    """A directory cannot be removed."""
