"""The layout of the example's water quality input, as the program writes it."""

from series_files import printed, row

GLOBAL_LINES = (5, 5, 5, 5, 1, 4, 5, 3, 3)
BRANCH_LINES = (2, 2, 3, 2, 4, 3, 3, 5, 5, 4, 4, 2, 2, 1)  # and a logical
CONC_LINES = (12, 4)
XSECT_LINES = (2, 4, 3, 4, 5)


def group(values, lines):
    if len(values) != sum(lines):
        raise ValueError(f"{len(values)} values where there are {sum(lines)}")
    start = 0
    for count in lines:
        yield row(*values[start:start + count])
        start += count


def qnp_lines(title, period, kinetics, print_steps, bypass, branches, names):
    """`branches` are lines of each branch, `names` those of the other files at the end."""
    yield title
    yield row(*period)
    yield from group(kinetics, GLOBAL_LINES)
    yield printed(len(print_steps))
    yield from (row(*step) for step in print_steps)
    yield row(*map(int, bypass))
    for branch in branches:
        yield from branch
    yield from names


def branch_lines(number, name, kinetics, xsects):
    """`xsects` are (name, whether it is printed, initial, lateral concentrations, kinetics)."""
    yield printed(number)
    yield name
    yield from group(kinetics[:-1], BRANCH_LINES)
    yield ".TRUE." if kinetics[-1] else ".FALSE."
    for xsect_name, is_printed, initial, lateral, values in xsects:
        yield xsect_name
        yield row(int(is_printed))
        yield from group(initial, CONC_LINES)
        yield from group(lateral, CONC_LINES)
        yield from group(values, XSECT_LINES)
