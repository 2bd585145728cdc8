"""Writes mutants into the bytes of a source."""

INCLUDE = b"#include <mutation_switch.h>\n"
LINES_ADDED = 1


def with_plain(source, mutant):
    """The source with the one change in it."""
    for start, end, text in sorted(mutant.plain, reverse=True):
        source = source[:start] + text.encode() + source[end:]
    return source


def with_switches(source, mutants):
    """The source with all the changes, each of them off until its number is asked for.

    Ranges are nested or apart, as the expressions and statements of the source are. No line moves,
    but for the include before the first one.
    """
    ordered = sorted(mutants, key=lambda mutant: (mutant.start, -mutant.end))
    # At one place, what ends goes before what begins; inner ends go before outer ones.
    pieces = []
    for place, mutant in enumerate(ordered):
        switch = {name: text.replace("@NUMBER@", f"{mutant.number}ul") if isinstance(text, str) else text
                  for name, text in mutant.switch.items()}
        pieces.append((mutant.start, 1, place, switch["before"], mutant.start))
        pieces.append((mutant.end, 0, -place, switch["behind"], mutant.end))
        if "token" in switch:
            start, end, text = switch["token"]
            pieces.append((start, 2, place, text, end))
    result = [INCLUDE]
    done = 0
    for start, _, _, text, end in sorted(pieces):
        result += [source[done:start], text.encode()]
        done = end
    return b"".join(result + [source[done:]])
