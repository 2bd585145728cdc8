"""The mutation runner: see docs/mutation.md."""
from pathlib import Path
import argparse
import dataclasses
import hashlib
import json
import os
import signal
import sys

import equivalents
import report
import sample
from mutant import Mutant
from tree import BuildFailed, Tree
from trial import Trial

HOME = Path(__file__).resolve().parent
DONE, SURVIVORS, USAGE, BROKEN = 0, 1, 2, 3


def say(text):
    print(text, flush=True)


def parse_arguments(arguments):
    parser = argparse.ArgumentParser(prog="mutate", description=(
        "Changes the library in one small place at a time, runs the tests of the place's folder, then "
        "all others, and tells which changes no test notices. Exit status: 0 enough were caught, "
        "1 too few, 2 usage, 3 the tests fail without a mutant, or nothing can be built."))
    parser.add_argument("--sample", type=int, metavar="N", help="try N mutants; all by default")
    parser.add_argument("--folder", metavar="F", help="only those of src/F and the folders in it")
    parser.add_argument("--seed", default="1", help="another seed is another sample")
    parser.add_argument("--json", metavar="FILE", help="write every result there")
    parser.add_argument("--again", metavar="FILE",
                        help="only the survivors of an earlier run, out of its JSON file")
    parser.add_argument("--check-equivalents", action="store_true",
                        help="only those that are listed as unable to show: that they are not caught")
    parser.add_argument("--list", action="store_true", help="list the mutants, try none")
    parser.add_argument("--require", type=float, default=95.0, metavar="PERCENT",
                        help="how many of those that can show must be caught (95)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="compilers at a time")
    parser.add_argument("--project", default=str(HOME / "project.json"), metavar="FILE",
                        help="what to mutate")
    return parser.parse_args(arguments)


def find_mutants(project):
    """Of the whole project. What was found in a source that has not changed is taken from last time."""
    import scan  # needs libclang
    found, store = [], project.build / "found"
    store.mkdir(parents=True, exist_ok=True)
    scanner = b"".join((HOME / name).read_bytes() for name in ("scan.py", "mutant.py"))
    for file in project.files():
        content = (project.root / file).read_bytes()
        kept = store / hashlib.sha256(scanner + file.encode() + b"\0" + content).hexdigest()
        if kept.exists():
            mutants = [Mutant(**values) for values in json.loads(kept.read_text())]
        else:
            mutants, errors = scan.scan(project.root, file, project.compiler_arguments())
            for error in errors:
                say(f"{file}: {error}")
            kept.write_text(json.dumps([dataclasses.asdict(mutant) for mutant in mutants]))
        for mutant in mutants:
            mutant.folder = project.folder_of(file)
        found += mutants
    return found


def is_in(folder, wanted):
    return wanted is None or folder == wanted or folder.startswith(wanted + "/")


def choose(mutants, options, entries):
    chosen = [mutant for mutant in mutants if is_in(mutant.folder, options.folder)]
    if options.again:
        keys = report.surviving_keys(options.again)
        chosen = [mutant for mutant in chosen if mutant.key() in keys]
    if options.check_equivalents:
        chosen = [mutant for mutant in chosen if equivalents.reason_for(mutant, entries)]
    return sample.choose(chosen, options.sample, options.seed) if options.sample else chosen


def run(project, mutants, chosen, entries, found, options):
    """All with the tests of their folders, then those that are left with all other tests."""
    trial = Trial(Tree(project, options.jobs), mutants, project.build / "scratch")

    def record(mutant, outcome, by=""):
        found.add(report.Result(mutant, outcome, by))
        say(found.results[-1].line())

    left = []
    for mutant in chosen:
        reason = equivalents.reason_for(mutant, entries)
        if reason:
            record(mutant, report.EQUIVALENT, reason)
        else:
            left.append(mutant)
    for programs_for in (trial.own_programs, trial.other_programs):
        pending, left = left, []
        for mutant, outcome in trial.run(pending, programs_for, say):
            if outcome is None:
                record(mutant, report.REFUSED)
            elif outcome.passed:
                left.append(mutant)
            else:
                record(mutant, report.CAUGHT, outcome.test)
    for mutant in left:
        record(mutant, report.SURVIVED)


def finish(found, options):
    if options.json:
        found.write_json(options.json)
    say("\n" + found.table())
    if options.check_equivalents:
        wrong = found.count(report.CAUGHT)
        say(f"\n{wrong} of the list of those that cannot show were caught.")
        return SURVIVORS if wrong else DONE
    for result in found.survivors():
        say(f"survived: {result.mutant.label()}")
    return DONE if found.share() >= options.require else SURVIVORS


def main(arguments):
    # To be ended is to be interrupted: what was found is reported.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    options = parse_arguments(arguments)
    from project import Project
    project = Project(options.project)
    entries = equivalents.read(project.equivalents)
    mutants = find_mutants(project)
    for entry in equivalents.without_mutant(entries, mutants):
        say(f"{project.equivalents.name}: no mutant is like this one any more: "
            f"{entry.values['file']}: {entry.values['line']}")
    chosen = choose(mutants, options, entries)
    say(f"{len(chosen)} of {len(mutants)} mutants")
    if options.list:
        for mutant in chosen:
            say(mutant.label())
        return DONE
    try:
        found = report.Report()
        run(project, mutants, chosen, [] if options.check_equivalents else entries, found, options)
    except BuildFailed as failure:
        say(str(failure))
        return BROKEN
    except KeyboardInterrupt:
        say("interrupted")
    return finish(found, options)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
