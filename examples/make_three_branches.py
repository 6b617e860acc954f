#!/usr/bin/env python3
"""Makes the example project "three_branches", a made-up river that is ready to open.

The survey of the river stands in corvane_river.py, a year along it in corvane_year.py. The rest is
computed from them here, so that the numbers agree: inverts from the slopes, flows from the
headwaters and the distributed inflows, initial depths from a backwater computation, area
coefficients from the shapes.

    make_three_branches.py            write the files, print the plausibility table
    make_three_branches.py --check    write nothing, compare the files instead

The exit code is 1 when a check fails, and nothing is written then, or when a file differs.
Units: ft, cfs, ft above mean sea level.
"""

import argparse
import pathlib
import sys

sys.dont_write_bytecode = True  # leaves no cache among the examples
from corvane_river import BOTTOM_INVERT, BRANCHES, MILE_AT_BOTTOM, SHAPES
import corvane_year as year
from open_channel import BETA, GRAVITY, Channel, froude, rating_curve, step_up
from series_files import CONSTITUENTS, lat_lines, pow_lines, printed, row, wit_lines

FOLDER = pathlib.Path(__file__).resolve().parent / "three_branches"
PROJECT_FILE = "three_branches.prj"
HYDRO_FILE, LIBRARY_FILE = "corvane_river.hnp", "corvane_shapes.xsg"
FLOW_FILE, QUALITY_FILE = "corvane_flows.lat", "corvane_loads.lat"
WITHDRAWAL_FILE, PLANT_FILE = "corvane_works.wit", "corvane_plant.pow"
MOST_BYTES = 1_000_000  # of all files

THETA, TOLERANCE = 0.6, 0.01
START, SUMMER, END = (2025, 4, 1, 0), (2025, 7, 1, 0), (2025, 11, 1, 0)
SEED_YEAR = 2024
TIME_STEPS = [(*START, 900), (*SUMMER, 600)]  # s
PRINT_STEPS = [(*START, 24), (*SUMMER, 6)]  # h
ROUGHNESS_PER_FOOT = 0.0005  # N2: roughness lost with each foot of depth

DESCRIPTION = "Corvane River below the Ashlar Fork, with Quillet Creek; a made-up river"
TITLE = "Corvane River, Ashlar Fork and Quillet Creek, April to October 2025"
LIBRARY_TITLE = [
    "Corvane River, Ashlar Fork and Quillet Creek: typical channel shapes",
    "Stations from the left bank looking downstream, depths below the highest point, ft",
    "A made-up river; most shapes stand for several cross sections",
]


# From the tables to the network --------------------------------------------------------------


def lay_bed(branch, mouth):
    """Names and inverts; `mouth` is the bed at the end of the last reach, ft msl."""
    mile, bed = branch.bottom_mile, mouth
    if branch.downstream == 0:  # the mile at the bottom is that of the last section
        mile -= branch.sections[-1].length / 5280
    for section in reversed(branch.sections):
        mile += section.length / 5280
        bed = section.grade = bed + section.slope * section.length
        section.invert = round(section.grade - section.pool, 2)
        section.name = f"{branch.prefix} {mile:.2f}"


def tributaries(number, place):
    """Numbers of the branches that flow into that cross section of branch `number`."""
    return [other for other, branch in enumerate(BRANCHES, 1)
            if (branch.downstream, branch.junction) == (number, place)]


def route_flow(number):
    """Initial flows from the headwaters down; the sections at confluences have the joined flow."""
    branch = BRANCHES[number - 1]
    flow = branch.headwater
    for place, section in enumerate(branch.sections, 1):
        flow += sum(route_flow(other) for other in tributaries(number, place))
        section.flow = round(flow, 2)
        flow += section.lateral
    return flow


def raise_water(branch, surface, channels):
    """Initial water surfaces and depths up from `surface`, which is the last section's."""
    last = branch.sections[-1]
    last.surface = surface
    for lower, upper in zip(branch.sections[::-1], branch.sections[-2::-1]):
        upper.surface = step_up(upper, lower, channels)
    for section in branch.sections:
        section.depth = round(section.surface - section.invert, 2)


def build_network(channels):
    """Fills in the computed fields of all sections, from the mouth of the river upward."""
    stem = BRANCHES[0]
    lay_bed(stem, BOTTOM_INVERT - stem.sections[-1].slope * stem.sections[-1].length)
    for branch in BRANCHES[1:]:
        lay_bed(branch, stem.sections[branch.junction - 1].grade)
    route_flow(1)
    last = stem.sections[-1]
    normal = channels[last.lookup].normal_depth(last.flow, last.manning, last.slope)
    raise_water(stem, last.invert + normal, channels)
    for branch in BRANCHES[1:]:
        raise_water(branch, stem.sections[branch.junction - 1].surface, channels)


# The files -----------------------------------------------------------------------------------


def project_lines():
    none = "NULL"
    no_boundaries = [printed(0), ""]
    return [f"HYDRODYNAMIC_INPUT_FILE: {HYDRO_FILE}", f"WATER_QUALITY_INPUT_FILE: {none}",
            "VESKH_AUXILLARY_FILES:", *no_boundaries, FLOW_FILE,
            WITHDRAWAL_FILE, LIBRARY_FILE, "",
            "VESKQ_AUXILLARY_FILES:", *no_boundaries, printed(0), QUALITY_FILE,
            PLANT_FILE, "",
            "PROJECT_DESCRIPTION:", DESCRIPTION, "",
            "OTHER_FILES:", printed(0), ""]


def hydro_lines(channels):
    count = sum(len(branch.sections) for branch in BRANCHES)
    lines = [TITLE, row(count, len(BRANCHES), *START, *END, SEED_YEAR),
             row(BETA, GRAVITY, MILE_AT_BOTTOM, THETA, TOLERANCE)]
    for steps in (PRINT_STEPS, TIME_STEPS):
        lines += [printed(len(steps)), *(row(*step) for step in steps)]
    for place, branch in enumerate(BRANCHES, 1):
        lines += branch_lines(place, branch, channels)
    return lines + [printed(0), "", FLOW_FILE, WITHDRAWAL_FILE, LIBRARY_FILE]


def branch_lines(place, branch, channels):
    last = branch.sections[-1]
    value, angle = 0, branch.angle  # 0: the model computes the stage from the confluence
    if branch.rating:
        value, angle = rating_curve(last, channels[last.lookup])
    lines = [printed(place), branch.name, "Q", "R" if branch.rating else "H",
             row(len(branch.sections), branch.downstream, branch.junction, branch.headwater,
                 value, angle)]
    for section in branch.sections:
        channel = channels[section.lookup]
        lines += [section.name, section.lookup,
                  row(section.length, section.flow, section.depth, section.lateral,
                      section.invert, channel.c1, channel.c2, channel.c3, section.manning,
                      section.loss, *roughness_formula(section), int(section.printed))]
    return lines


def roughness_formula(section):
    """N1 and N2 of n = N1 - N2 H, which gives the section's n at the initial depth."""
    return round(section.manning + ROUGHNESS_PER_FOOT * section.depth, 4), ROUGHNESS_PER_FOOT


def library_lines():
    lines = [*LIBRARY_TITLE, printed(len(SHAPES))]
    for shape in SHAPES:
        points = shape.points()
        lines += [f"{shape.name:<8.8}    {shape.description} ", printed(len(points))]
        lines += [f"{depth:.2f}\t{station:.2f}" for station, depth in points]
    return lines


def node(place):
    """The running number through all branches and the name of a cross section."""
    number, section = place
    above = sum(len(branch.sections) for branch in BRANCHES[:number - 1])
    return above + section, BRANCHES[number - 1].sections[section - 1].name


def series_files():
    """The auxiliary files, by name."""
    hours, days = year.hours(), year.days()
    inflows = [node(inflow.place) for inflow in year.INFLOWS]
    flows = [year.flow_series(inflow) for inflow in year.INFLOWS]
    loads = [year.quality_series(inflow) for inflow in year.INFLOWS]
    factors = [year.conversion_factors(inflow) for inflow in year.INFLOWS]
    works = [node(each.place) for each in year.WITHDRAWALS]
    units = [(node(unit.outfall), node(year.INTAKE)) for unit in year.UNITS]
    names = list(CONSTITUENTS)
    return {
        FLOW_FILE: lat_lines(head("lateral inflows", "whole cfs, by the hour"), inflows, names[:1],
                             hours, flows, [(1,)] * len(flows)),
        QUALITY_FILE: lat_lines(head("lateral inflows and what they carry", "by the hour"),
                                inflows, names, hours, loads, factors),
        WITHDRAWAL_FILE: wit_lines(head("withdrawals", "waterworks and irrigation, by the day"),
                                   works, days,
                                   [year.withdrawal_series(each) for each in year.WITHDRAWALS]),
        PLANT_FILE: pow_lines(head("heat loads", "two units with one intake, by the day"), units,
                              days, [year.heat_series(unit) for unit in year.UNITS]),
    }


def head(what, how):
    return [f"Corvane River, {what} of {year.YEAR}", how, "A made-up year"]


# Plausibility --------------------------------------------------------------------------------


def table_lines(channels):
    """One line per cross section: what the model starts from, and how it agrees with the shapes."""
    head = ("section      lookup     slope   invert    flow  depth normal ratio    vel     Fr"
            "    area  A(H)")
    for branch in BRANCHES:
        yield f"\n{branch.name}\n{head}"
        for section, slope in zip(branch.sections, bed_slopes(branch)):
            s, channel = section, channels[section.lookup]
            normal = channel.normal_depth(s.flow, s.manning, s.slope)
            area = channel.wetted(s.depth)[0]
            yield (f"{s.name:<12} {s.lookup:<8} {slope:7.5f} {s.invert:8.2f} {s.flow:7.1f} "
                   f"{s.depth:6.2f} {normal:6.2f} {s.depth / normal:5.2f} {s.flow / area:6.2f} "
                   f"{froude(s.flow, channel, s.depth):6.2f} {area:7.1f} "
                   f"{100 * channel.misfit(s.depth):+4.1f}%")


def bed_slopes(branch):
    """From invert to invert, pools included; the last one is the general slope."""
    pairs = zip(branch.sections, branch.sections[1:])
    slopes = [(upper.invert - lower.invert) / upper.length for upper, lower in pairs]
    return slopes + [branch.sections[-1].slope]


def shape_lines(channels):
    yield "\nshape     points bankfull  area  width      C1     C2    C3  greatest misfit"
    for shape in SHAPES:
        channel = channels[shape.name]
        area, _, width = channel.wetted(shape.banks)
        yield (f"{shape.name:<8} {len(shape.points()):7} {shape.banks:8.1f} {area:6.0f} "
               f"{width:6.1f} {channel.c1:7.2f} {channel.c2:6.2f} {channel.c3:5.2f}"
               f"  {100 * greatest_misfit(channel):5.1f}%")


def greatest_misfit(channel):
    """From a quarter of bankfull to bankfull."""
    return max(abs(channel.misfit(channel.banks * part / 40)) for part in range(10, 41))


def failures(channels):
    """What a river engineer or the editor would object to; empty when all is well."""
    sections = [section for branch in BRANCHES for section in branch.sections]
    names = [section.name for section in sections]
    checks = {
        "names are unique": len(set(names)) == len(names),
        "names have 1 to 12 characters": all(1 <= len(name) <= 12 for name in names),
        "every shape of the library is used": {s.lookup for s in sections} == set(channels),
        "library names have 1 to 8 characters, no blanks":
            all(len(shape.name) <= 8 and shape.name.split() == [shape.name] for shape in SHAPES),
        "shapes have 12 to 25 points, stations rise, depths change":
            all(good_points(shape.points()) for shape in SHAPES),
        "slopes fall downstream, pools left out":
            all(falling([s.slope for s in branch.sections]) for branch in BRANCHES),
        "the water surface falls downstream":
            all(falling([s.surface for s in branch.sections]) for branch in BRANCHES),
        "depths are within a factor of 1.5 of Manning's equation": all(
            1 / 1.5 < s.depth / channels[s.lookup].normal_depth(s.flow, s.manning, s.slope) < 1.5
            for s in sections),
        "Froude numbers are below 0.8":
            all(froude(s.flow, channels[s.lookup], s.depth) < 0.8 for s in sections),
        "flows stay within the banks": all(s.depth < channels[s.lookup].banks for s in sections),
        "area formulas are within 10 % of the shapes":
            all(greatest_misfit(channel) < 0.1 for channel in channels.values()),
        "inflows never run dry":
            all(flow > 0 for each in year.INFLOWS for flow, in year.flow_series(each)),
        "withdrawals and the plant leave half of the initial flow": all(
            flow < 0.5 * section_at(place).flow for place, flow in water_taken()),
        "discharge is continuous": all(continuous(place + 1) for place in range(len(BRANCHES))),
        "beds meet within 1 ft at the confluences":
            all(abs(bed_step(branch)) < 1 for branch in BRANCHES if branch.downstream),
    }
    return [text for text, holds in checks.items() if not holds]


def section_at(place):
    return BRANCHES[place[0] - 1].sections[place[1] - 1]


def water_taken():
    """Each place that water is taken from, and the most that is taken there, cfs."""
    for works in year.WITHDRAWALS:
        yield works.place, max(year.withdrawal_series(works))
    yield year.INTAKE, sum(unit.flow for unit in year.UNITS)


def good_points(points):
    steps = list(zip(points, points[1:]))
    return (12 <= len(points) <= 25 and points[0][1] == points[-1][1] == 0
            and all(a[0] < b[0] and a[1] != b[1] for a, b in steps))


def falling(values):
    return all(a > b for a, b in zip(values, values[1:]))


def bed_step(branch):
    """From a tributary's last bed down to that of the confluence, ft."""
    junction = BRANCHES[branch.downstream - 1].sections[branch.junction - 1]
    return branch.sections[-1].invert - junction.invert


def continuous(number):
    """Whether each flow is what comes from above: the headwater, the reach, the tributaries."""
    branch = BRANCHES[number - 1]
    coming = branch.headwater
    for place, section in enumerate(branch.sections, 1):
        coming += sum(BRANCHES[other - 1].sections[-1].flow for other in tributaries(number, place))
        if abs(section.flow - coming) > 0.001:
            return False
        coming = section.flow + section.lateral
    return True


def unknown_shapes(channels):
    """Lookup names of the tables that the library lacks, with which nothing can be computed."""
    lookups = {section.lookup for branch in BRANCHES for section in branch.sections}
    return [f"no shape in the library is called {name}" for name in sorted(lookups - set(channels))]


def differing_files(files):
    for name, data in files.items():
        path = FOLDER / name
        if not path.is_file() or path.read_bytes() != data:
            yield f"{name} differs from what the tables give"


def write_files(files):
    FOLDER.mkdir(exist_ok=True)
    for name, data in files.items():
        (FOLDER / name).write_bytes(data)


def file_bytes(lines):
    return "".join(line + "\r\n" for line in lines).encode("ascii")


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--check", action="store_true", help="compare the files, write none")
    check = arguments.parse_args().check

    channels = {shape.name: Channel(shape) for shape in SHAPES}
    if unknown := unknown_shapes(channels):
        sys.exit("\n".join(unknown))
    build_network(channels)
    print("\n".join([*shape_lines(channels), *table_lines(channels)]))
    files = {PROJECT_FILE: file_bytes(project_lines()),
             HYDRO_FILE: file_bytes(hydro_lines(channels)),
             LIBRARY_FILE: file_bytes(library_lines()),
             **{name: file_bytes(lines) for name, lines in series_files().items()}}
    wrong = [f"check failed: {text}" for text in failures(channels)]
    if sum(len(data) for data in files.values()) > MOST_BYTES:
        wrong.append(f"check failed: all files have {MOST_BYTES} bytes at most")
    if check:
        wrong += differing_files(files)
    elif not wrong:
        write_files(files)
    print("\n" + ("\n".join(wrong) or "all checks hold"))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
