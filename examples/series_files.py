"""Rows of the example's files, and the layouts of its time series, as the program writes them."""

import struct
from dataclasses import dataclass

TERMINATOR = " 9999 \t 1 \t 1 \t 0 "
CONSTITUENTS = {"FLOW": 0, "TEMP": 1, "CBODU1": 2, "NH3-N": 4, "NO3-N": 5, "ORTHO-P": 7, "DO": 10}
STAIR_STEP, LINEAR = 0, 1
TEMPERATURE_DIFFERENCE = 0
RATING_TABLE = 99999  # in place of the number of steps
WET_BULB = "WET"


def number(value):
    """The shortest text of a number, at most 7 significant digits."""
    text = f"{value:.7g}"
    if "e" in text:
        raise ValueError(f"{value} needs an exponent")
    return text


def row(*values):
    return "\t".join(number(value) for value in values)


def printed(*values):
    """Numbers with a blank on both sides, the first of which gives way to a minus sign."""
    return "\t".join((" " if value >= 0 else "") + number(value) + " " for value in values)


def record(step):
    return step.year, step.month, step.day, step.hour


def lat_lines(description, inflows, names, steps, values, factors):
    """Lateral inflows: `inflows` are (node, section name), `names` those of the columns.

    `values[i][t]` is the row of inflow i at step t, `factors[i]` its conversion factors.
    """
    columns = "\t".join(names)
    yield from description
    yield row(len(steps), len(inflows), LINEAR, len(names) - 1)
    yield from (printed(node) for node, _ in inflows)
    yield from (printed(CONSTITUENTS[name]) for name in names[1:])
    yield from names[1:]
    yield "SCALE_FACTORS\t" + columns
    yield from (row(*[1] * len(names)) for _ in inflows)
    yield "CONVERSION_FACTORS\t" + columns
    yield from (row(*own) for own in factors)
    for t, step in enumerate(steps):
        yield row(*record(step))
        yield from (row(*series[t]) for series in values)
    yield TERMINATOR
    yield from (name for _, name in inflows)


def wit_lines(description, withdrawals, steps, values):
    """Withdrawals: `withdrawals` are (node, section name), `values[i][t]` cfs."""
    yield from description
    yield printed(len(steps), len(withdrawals), STAIR_STEP)
    yield from (printed(node, 1, 1) for node, _ in withdrawals)
    for t, step in enumerate(steps):
        yield printed(*record(step))
        yield row(*(series[t] for series in values))
    yield TERMINATOR
    yield from (name for _, name in withdrawals)


def pow_lines(description, units, steps, values):
    """Heat loads: `units` are ((node, section name), the same of the intake).

    `values[i][t]` is (cfs, warming in degrees C).
    """
    yield from description
    yield printed(len(steps), len(units), STAIR_STEP, TEMPERATURE_DIFFERENCE)
    yield from (printed(outfall[0], 1, 1, 1, 1, intake[0]) for outfall, intake in units)
    for t, step in enumerate(steps):
        yield printed(*record(step))
        yield row(*(series[t][0] for series in values))
        yield row(*(series[t][1] for series in values))
    yield TERMINATOR
    for outfall, intake in units:
        yield from (outfall[1], intake[1])


def bcf_lines(description, branch, steps, values):
    """What happens at an end of a branch, negative for its downstream end: a row a step."""
    ones = row(*[1] * len(values[0]))
    yield from description
    yield row(branch, len(steps), LINEAR)
    yield from (ones, ones)
    for step, series in zip(steps, values):
        yield row(*record(step), *series)


def rating_lines(description, branch, points):
    """A rating table: `points` are (depth in ft, cfs)."""
    yield from description
    yield row(branch, RATING_TABLE, LINEAR)
    yield from (row(1), row(1), printed(len(points)))
    yield from (row(*point) for point in points)


def met_lines(description, dust, angles, reach, steps, values):
    """Weather over a `reach`, (node, section name) of its ends."""
    yield from description
    yield printed(dust)
    yield printed(*angles)
    yield printed(LINEAR, *(node for node, _ in reach), len(steps)) + "\t" + WET_BULB
    for step, series in zip(steps, values):
        yield printed(*record(step)) + "\t" + row(*series)
    yield TERMINATOR
    yield from (name for _, name in reach)


@dataclass
class Results:
    """Results of a model: `values[t][segment]` are those of all variables."""

    seconds: int  # from 1 January 1901 to the time origin
    days: list[float]  # from the time origin
    variables: list[tuple[str, str]]  # name, units
    segments: list[str]
    values: list[list[tuple[float, ...]]]


def text_field(text, size):
    return (text.encode("ascii") + b"\0").ljust(size)[:size]


def extremes(values):
    return struct.pack("<2f", min(values), max(values))


def bmd_bytes(results):
    """A binary modeling file."""
    places, kinds = range(len(results.segments)), range(len(results.variables))
    series = [[[step[place][kind] for step in results.values] for place in places]
              for kind in kinds]
    counts = struct.pack("<3i", len(places), len(results.days), len(kinds))
    header = struct.pack("<3s2BfI37x", b"BMD", 15, 0, 2.0, results.seconds) + counts
    return b"".join([
        header, struct.pack("<2d", results.days[0], results.days[-1]),
        *(text_field(name, 18) + text_field(units, 12) for name, units in results.variables),
        *(struct.pack(f"<{len(kinds)}f", *place) for step in results.values for place in step),
        struct.pack(f"<{len(results.days)}d", *results.days),
        *(extremes([value for place in kind for value in place]) for kind in series),
        *(extremes(place) for kind in series for place in kind),
        *(text_field(name, 15) for name in results.segments)])
