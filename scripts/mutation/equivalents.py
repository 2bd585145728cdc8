"""The reviewed list of mutants that cannot show.

An entry is four lines, `file:`, `kind:`, `change:` and `line:` (the text of the source's line), and
one that says why, `reason:`; a blank line ends it. In `file`, `change` and `line`, `...` is any text.
Lines that begin with '#' are comments.
"""
import re
from pathlib import Path

NAMES = ("file", "kind", "change", "line", "reason")


class Equivalent:
    def __init__(self, values):
        self.values = values
        self.patterns = [
            re.compile(".*".join(re.escape(part) for part in values[name].split("...")))
            for name in NAMES[:4]]

    def covers(self, mutant):
        texts = (mutant.file, mutant.kind, mutant.change, mutant.text)
        return all(pattern.fullmatch(text) for pattern, text in zip(self.patterns, texts))


def read(path):
    """The entries; ValueError for one that is not complete."""
    entries, values = [], {}
    for place, line in enumerate(Path(path).read_text().splitlines() + [""], 1):
        if line.startswith("#"):
            continue
        if line.strip():
            name, colon, text = line.partition(":")
            if not colon or name not in NAMES or name in values or not text.strip():
                raise ValueError(f"{path}:{place}: not the next line of an entry: {line}")
            values[name] = text.strip()
        elif values:
            missing = [name for name in NAMES if name not in values]
            if missing:
                raise ValueError(f"{path}:{place}: the entry has no {', '.join(missing)}")
            entries.append(Equivalent(values))
            values = {}
    return entries


def reason_for(mutant, entries):
    """Why the mutant cannot show; None when it should."""
    return next((entry.values["reason"] for entry in entries if entry.covers(mutant)), None)


def without_mutant(entries, mutants):
    """The entries whose source has changed since."""
    return [entry for entry in entries if not any(entry.covers(mutant) for mutant in mutants)]
