"""What a run found."""
from dataclasses import dataclass
import json

CAUGHT, SURVIVED = "caught", "survived"
EQUIVALENT, REFUSED = "cannot show", "does not compile"


@dataclass
class Result:
    mutant: object
    outcome: str
    by: str = ""  # the test that caught it, or the reason why it cannot show

    def line(self):
        said = {CAUGHT: f"caught by {self.by}", SURVIVED: "SURVIVED", REFUSED: REFUSED,
                EQUIVALENT: f"cannot show: {self.by}"}[self.outcome]
        return f"{self.mutant.label()}: {said}"


class Report:
    def __init__(self):
        self.results = []

    def add(self, result):
        self.results.append(result)

    def count(self, outcome, folder=None):
        return sum(result.outcome == outcome and folder in (None, result.mutant.folder)
                   for result in self.results)

    def share(self, folder=None):
        """Of those that can show, how many percent are caught; 100 of none."""
        caught, survived = self.count(CAUGHT, folder), self.count(SURVIVED, folder)
        return 100.0 * caught / (caught + survived) if caught + survived else 100.0

    def table(self):
        folders = sorted({result.mutant.folder for result in self.results})
        lines = [f"{'folder':28}{'mutants':>9}{'caught':>9}{'survived':>10}"
                 f"{'cannot show':>13}{'caught %':>10}"]
        for name, folder in [(folder, folder) for folder in folders] + [("all", None)]:
            caught, survived, equivalent = (
                self.count(outcome, folder) for outcome in (CAUGHT, SURVIVED, EQUIVALENT))
            lines.append(f"{name:28}{caught + survived + equivalent:>9}{caught:>9}{survived:>10}"
                         f"{equivalent:>13}{self.share(folder):>10.1f}")
        refused = self.count(REFUSED)
        if refused:
            lines.append(f"{refused} more do not compile and are no mutants.")
        return "\n".join(lines)

    def survivors(self):
        return [result for result in self.results if result.outcome == SURVIVED]

    def write_json(self, path):
        rows = [{"file": result.mutant.file, "line": result.mutant.line, "kind": result.mutant.kind,
                 "change": result.mutant.change, "text": result.mutant.text,
                 "occurrence": result.mutant.occurrence, "folder": result.mutant.folder,
                 "outcome": result.outcome, "by": result.by} for result in self.results]
        with open(path, "w") as stream:
            json.dump(rows, stream, indent=1)
            stream.write("\n")


def surviving_keys(path):
    """The keys of the mutants that survived an earlier run."""
    with open(path) as stream:
        rows = json.load(stream)
    return {(row["file"], row["kind"], row["change"], row["text"], row["occurrence"])
            for row in rows if row["outcome"] == SURVIVED}
