"""Rows of the example's files, and the layouts of its time series, as the program writes them."""

TERMINATOR = " 9999 \t 1 \t 1 \t 0 "
CONSTITUENTS = {"FLOW": 0, "TEMP": 1, "CBODU1": 2, "NH3-N": 4, "NO3-N": 5, "ORTHO-P": 7, "DO": 10}
STAIR_STEP, LINEAR = 0, 1
TEMPERATURE_DIFFERENCE = 0


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
