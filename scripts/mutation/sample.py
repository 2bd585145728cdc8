"""Chooses mutants: the same ones for the same seed, from every folder."""
import hashlib
import math


def shares(sizes, total):
    """How many of `total` each folder gives: by the square root of its size, so that small folders
    count, too; never more than it has."""
    given = {name: 0 for name in sizes}
    open_names = {name for name, size in sizes.items() if size}
    while total > 0 and open_names:
        weight = sum(math.sqrt(sizes[name]) for name in open_names)
        wanted = {name: max(1, int(total * math.sqrt(sizes[name]) / weight)) for name in open_names}
        for name in sorted(open_names):
            more = min(wanted[name], sizes[name] - given[name], total)
            given[name] += more
            total -= more
        open_names = {name for name in open_names if given[name] < sizes[name]}
    return given


def choose(mutants, total, seed):
    """In the order of `mutants`. A mutant's place in the draw depends on itself alone: changing one
    source changes the sample of no other."""
    folders = {}
    for mutant in mutants:
        folders.setdefault(mutant.folder, []).append(mutant)
    given = shares({name: len(held) for name, held in folders.items()}, total)

    def draw(mutant):
        return hashlib.sha256(repr((seed, mutant.key())).encode()).digest()

    chosen = set()
    for name, held in folders.items():
        chosen.update(mutant.key() for mutant in sorted(held, key=draw)[:given[name]])
    return [mutant for mutant in mutants if mutant.key() in chosen]
