"""Runs test programs with mutants."""
from pathlib import Path

from programs import Outcome, Programs
from tree import BuildFailed


class Trial:
    """Over a copy of the project with all `mutants` in it."""

    def __init__(self, tree, mutants, scratch):
        self.tree = tree
        tree.fill(mutants)
        tree.configure()
        self.paths = tree.programs()
        self.programs = Programs(scratch)

    def own_programs(self, folder):
        return [path for path in self.paths if Path(path).parent == Path("tests") / folder]

    def other_programs(self, folder):
        own = self.own_programs(folder)
        return [path for path in self.paths if path not in own]

    def run(self, mutants, programs_for, say):
        """Yields each mutant with the outcome of the programs that are there for its folder; None when
        it does not compile."""
        paths = sorted({path for mutant in mutants for path in programs_for(mutant.folder)})
        self.prepare(paths, say)
        # A mutant that is built alone leaves its programs behind, which hold no switches in its source.
        for mutant in sorted(mutants, key=lambda mutant: not mutant.switch):
            own = [self.tree.out / path for path in programs_for(mutant.folder)]
            yield mutant, self.try_mutant(mutant, own) if own else Outcome(True)

    def prepare(self, paths, say):
        """The programs, which pass without a mutant."""
        if not paths:
            return
        self.tree.build_switched(paths, say)
        failures = self.programs.measure([self.tree.out / path for path in paths])
        if failures:
            raise BuildFailed("\n".join(f"fails without a mutant: {test}" for test in failures))

    def try_mutant(self, mutant, paths):
        if mutant.switch:
            return self.programs.try_mutant(paths, mutant.number)
        self.tree.put(mutant)
        try:
            targets = [str(path.relative_to(self.tree.out)) for path in paths]
            return self.programs.try_mutant(paths, 0) if self.tree.build(*targets)[0] else None
        finally:
            self.tree.take_back(mutant)
