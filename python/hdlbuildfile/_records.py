"""What is plain data: enumerations, exceptions and records."""
import enum
import errno
import os
import pathlib
from typing import TYPE_CHECKING, NamedTuple, Optional

if TYPE_CHECKING:
    from ._core import Build


class Language(enum.StrEnum):
    """A language of sources. Wherever one is wanted, its text does as well."""

    VERILOG = "Verilog"
    VHDL = "VHDL"
    BLUESPEC = "Bluespec"
    SYSTEMC = "SystemC"
    CPLUSPLUS = "C++"
    SPECMAN = "Specman"
    TESTBUILDER = "TestBuilder"
    NONE = "None"


class Severity(enum.StrEnum):
    """How bad a finding is, from NOTE to ERROR. Its text, compared with a member, is taken for that."""

    NOTE = "note"
    WARNING = "warning"
    ERROR = "error"

    def _compare(self, other: str) -> int:
        if other not in tuple(Severity):
            raise TypeError(f"{other!r} is no severity")
        order = list(Severity)
        return order.index(self) - order.index(Severity(other))

    def __lt__(self, other: str) -> bool:
        return self._compare(other) < 0

    def __le__(self, other: str) -> bool:
        return self._compare(other) <= 0

    def __gt__(self, other: str) -> bool:
        return self._compare(other) > 0

    def __ge__(self, other: str) -> bool:
        return self._compare(other) >= 0


class Error(Exception):
    """The base of what this module raises beyond Python's own exceptions."""


class ReadError(Error):
    """A file cannot be read: why, and where the fault stands if it is one of the text."""

    def __init__(self, file: str, line: Optional[int], column: Optional[int], reason: str) -> None:
        super().__init__(file, line, column, reason)
        self.file = pathlib.Path(file)
        self.line = line
        self.column = column
        self.reason = reason

    def __str__(self) -> str:
        return f"{Place(self.file, self.line, self.column)}: {self.reason}"


class MissingError(ReadError, FileNotFoundError):
    """A file that is to be read is not there."""

    def __init__(self, file: str, line: Optional[int], column: Optional[int], reason: str) -> None:
        super().__init__(file, line, column, reason)
        self.errno, self.strerror, self.filename = errno.ENOENT, reason, file


class WriteError(Error):
    """A file cannot be changed; it is as it was."""

    def __init__(self, file: str, reason: str) -> None:
        super().__init__(file, reason)
        self.file = pathlib.Path(file)
        self.reason = reason

    def __str__(self) -> str:
        return f"{self.file}: {self.reason}"


class ExistsError(WriteError, FileExistsError):
    """A file is where a new build is to be."""

    def __init__(self, file: str, reason: str) -> None:
        super().__init__(file, reason)
        self.errno, self.strerror, self.filename = errno.EEXIST, reason, file


class LockError(WriteError):
    """The lock of a file cannot be had: others kept it for too long, or there can be none."""


class ChangedError(WriteError):
    """Others changed or removed the file since it was read."""


class SourceGone(Error):
    """A source was removed from its build, or a reload found it no more."""

    def __init__(self, file: str) -> None:
        super().__init__(file)
        self.file = pathlib.Path(file)

    def __str__(self) -> str:
        return f"{self.file} is no source of the build any more"


class ConversionError(Error):
    """A build cannot be exported or imported: the findings tell why."""

    def __init__(self, findings: "list[Finding]") -> None:
        super().__init__(findings)
        self.findings = findings

    def __str__(self) -> str:
        return "\n".join(str(finding) for finding in self.findings)


class Place(NamedTuple):
    """Where something stands."""

    file: pathlib.Path
    #: From 1; None: the file as a whole.
    line: Optional[int] = None
    #: From 1, in bytes; None: the line as a whole.
    column: Optional[int] = None

    def __str__(self) -> str:
        numbers = [str(number) for number in (self.line, self.column) if number is not None]
        return ":".join([os.fspath(self.file), *numbers])


class Finding(NamedTuple):
    """What may be wrong."""

    #: "HB201", as the documentation has it.
    code: str
    #: The same as a word: "missing-file".
    name: str
    severity: Severity
    text: str
    place: Optional[Place]
    #: Names that need a line of their own.
    details: "tuple[str, ...]"
    #: What helps.
    cure: str

    def __str__(self) -> str:
        place = f"{self.place}: " if self.place else ""
        return f"{place}{self.severity}: {self.text} [{self.code}]"


class Top(NamedTuple):
    """A top-level component."""

    language: Language
    library: str
    entity: str
    architecture: Optional[str] = None

    def __str__(self) -> str:
        architecture = f"({self.architecture})" if self.architecture else ""
        return f"{self.library}.{self.entity}{architecture}"


class Format(NamedTuple):
    """A format of other tools."""

    name: str
    description: str
    #: What it carries besides the paths of its sources.
    holds: str


class Imported(NamedTuple):
    """A build that was made of files of another tool."""

    build: "Build"
    findings: "list[Finding]"


class PlanSource(NamedTuple):
    """The step that compiles a source."""

    path: pathlib.Path
    language: Language
    library: str
    #: Whether its modules count only when something instantiates them.
    is_library_file: bool
    #: The places in the plan of the sources that it waits for.
    needs: "tuple[int, ...]"


class PlanSettings(NamedTuple):
    """How the sources of one language are compiled, elaborated and run."""

    language: Language
    #: The year of a standard; None: nothing tells.
    standard: Optional[str]
    include_directories: "tuple[pathlib.Path, ...]"
    library_directories: "tuple[pathlib.Path, ...]"
    #: With the point.
    library_extensions: "tuple[str, ...]"
    defines: "dict[str, str]"
    # The words of each step that have no field of their own.
    compile_options: "tuple[str, ...]"
    elaborate_options: "tuple[str, ...]"
    run_options: "tuple[str, ...]"


class Plan(NamedTuple):
    """What a build means to a simulator."""

    #: Of the build file, without folder and extension.
    name: str
    folder: pathlib.Path
    #: In compile order.
    sources: "list[PlanSource]"
    tops: "list[Top]"
    settings: "list[PlanSettings]"
    #: What of the build is not in the plan.
    findings: "list[Finding]"
