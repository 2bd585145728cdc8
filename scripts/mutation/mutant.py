"""A mutant: one small change of one source file."""
from dataclasses import dataclass, field
import zlib

# The most mutants of one file; a mutant's number is the file's checksum times this, plus its place.
FILE_SPAN = 4096


@dataclass
class Mutant:
    file: str  # from the project's root on, with '/'
    kind: str
    change: str  # what becomes of what, on one line
    line: int
    last_line: int
    start: int  # in bytes
    end: int
    text: str  # the first line that changes, without the blanks around it
    plain: list  # [[start, end, text]]: the change written into the source
    # The change that is made when the program runs: what goes before and behind the range, and the
    # token in it that changes. None where the language wants a constant, or a list of a known length.
    switch: dict | None = None
    occurrence: int = 0  # among the mutants of this file that read the same
    number: int = 0
    folder: str = field(default="", compare=False)

    def key(self):
        """Names the mutant, also after lines have moved."""
        return (self.file, self.kind, self.change, self.text, self.occurrence)

    def label(self):
        return f"{self.file}:{self.line}: {self.kind}: {self.change}"


def number(mutants):
    """Numbers the mutants of one file, in their order, and counts those that read the same."""
    if len(mutants) >= FILE_SPAN:
        raise ValueError(f"{mutants[0].file}: more than {FILE_SPAN} mutants")
    seen = {}
    for place, mutant in enumerate(mutants):
        key = mutant.key()[:-1]
        mutant.occurrence = seen.get(key, 0)
        seen[key] = mutant.occurrence + 1
        mutant.number = zlib.crc32(mutant.file.encode()) * FILE_SPAN + place
