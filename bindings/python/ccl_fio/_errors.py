"""The exceptions of the package. A failure that has an ``errno`` is the ``OSError`` that Python has for it."""

from __future__ import annotations


class Error(OSError):
    """A failure without an ``errno``, or one that carries words.

    ``lines`` has the lines of its message, nested ones behind as many tabs as they are deep; ``filename`` and
    ``filename2`` are what it is about.
    """

    __module__ = "ccl_fio"
    lines: tuple[str, ...]

    def __init__(
        self, lines: list[str] | tuple[str, ...], filename: str | None = None, filename2: str | None = None
    ) -> None:
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

    __module__ = "ccl_fio"


class FailedToOpenDirectory(Error):
    """A directory cannot be listed."""

    __module__ = "ccl_fio"


class FailedToRemoveDirectory(Error):
    """A directory cannot be removed."""

    __module__ = "ccl_fio"
