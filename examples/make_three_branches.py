#!/usr/bin/env python3
"""Makes the example project "three_branches", a made-up river that is ready to open.

The survey of the river stands in corvane_river.py, a year along it in corvane_year.py and
corvane_weather.py, its water quality in corvane_quality.py. The rest is computed from them, so that
the numbers agree: inverts from the slopes, flows from the headwaters and the distributed inflows,
initial depths from a backwater computation, initial concentrations by mixing, area coefficients
from the shapes, the rating table from the section at the gage.

    make_three_branches.py            write the files, print the plausibility table
    make_three_branches.py --check    write nothing, compare the files instead

The exit code is 1 when a check fails, and nothing is written then, or when a file differs.
Units: ft, cfs, ft above mean sea level.
"""

import argparse
import pathlib
import sys

sys.dont_write_bytecode = True  # leaves no cache among the examples
import corvane_quality as quality
from corvane_river import BRANCHES, MILE_AT_BOTTOM, SHAPES
import corvane_weather as weather
import corvane_year as year
from open_channel import BETA, GRAVITY, Channel, froude, rating_curve, rating_table
import quality_file
from river_network import build_network, node, section_at, tributaries
from series_files import (CONSTITUENTS, bcf_lines, bmd_bytes, lat_lines, met_lines, pow_lines,
                          printed, rating_lines, row, wit_lines)
from steady_results import april

FOLDER = pathlib.Path(__file__).resolve().parent / "three_branches"
PROJECT_FILE = "three_branches.prj"
HYDRO_FILE, LIBRARY_FILE = "corvane_river.hnp", "corvane_shapes.xsg"
WATER_QUALITY_FILE = "corvane_quality.qnp"
FLOW_FILE, QUALITY_FILE = "corvane_flows.lat", "corvane_loads.lat"
WITHDRAWAL_FILE, PLANT_FILE = "corvane_works.wit", "corvane_plant.pow"
HEADWATER_FILES = {2: "ashlar_dam.bcf", 3: "quillet_meadow.bcf"}  # by branch
GAGE_BRANCH, GAGE_FILE = 1, "corvane_gage.bcf"
WEATHER_FILE, RESULT_FILE = "corvane_weather.met", "corvane_april.bmd"
MOST_BYTES = 2_000_000  # of all files

THETA, TOLERANCE = 0.6, 0.01
START, SUMMER, END = (2025, 4, 1, 0), (2025, 7, 1, 0), (2025, 11, 1, 0)
SEED_YEAR = 2024
TIME_STEPS = [(*START, 900), (*SUMMER, 600)]  # s
PRINT_STEPS = [(*START, 24), (*SUMMER, 6)]  # h
ROUGHNESS_PER_FOOT = 0.0005  # N2: roughness lost with each foot of depth
RATING_STEP = 0.5  # ft

DESCRIPTION = "Corvane River below the Ashlar Fork, with Quillet Creek; a made-up river"
TITLE = "Corvane River, Ashlar Fork and Quillet Creek, April to October 2025"
LIBRARY_TITLE = [
    "Corvane River, Ashlar Fork and Quillet Creek: typical channel shapes",
    "Stations from the left bank looking downstream, depths below the highest point, ft",
    "A made-up river; most shapes stand for several cross sections",
]


# The files -----------------------------------------------------------------------------------


def project_lines():
    return [f"HYDRODYNAMIC_INPUT_FILE: {HYDRO_FILE}",
            f"WATER_QUALITY_INPUT_FILE: {WATER_QUALITY_FILE}",
            "VESKH_AUXILLARY_FILES:", *hydro_file_lines(), "",
            "VESKQ_AUXILLARY_FILES:", *quality_file_lines(), "",
            "PROJECT_DESCRIPTION:", DESCRIPTION, "",
            "OTHER_FILES:", printed(0), ""]


def boundary_lines(files):
    """Names by branch, negative for the downstream end."""
    return [printed(len(files)), row(*files), *files.values()]


def hydro_file_lines():
    """The files of the hydrodynamic model, which project and network both name."""
    return [*boundary_lines({-GAGE_BRANCH: GAGE_FILE, **HEADWATER_FILES}),
            FLOW_FILE, WITHDRAWAL_FILE, LIBRARY_FILE]


def quality_file_lines():
    return [*boundary_lines(HEADWATER_FILES), printed(1), WEATHER_FILE, QUALITY_FILE, PLANT_FILE]


def quality_lines():
    branches = []
    for number, branch in enumerate(BRANCHES, 1):
        waters, _ = quality.initial_waters(number, year.hour_of(*START))
        branches.append(quality_file.branch_lines(
            number, branch.name, quality.branch_kinetics(number),
            [(section.name, section.printed, water, quality.SEEPAGE[number],
              quality.xsect_kinetics(number, section))
             for section, water in zip(branch.sections, waters)]))
    return quality_file.qnp_lines(quality.TITLE, (*START, *END), list(quality.GLOBAL.values()),
                                  PRINT_STEPS, quality.BYPASS, branches, quality_file_lines())


def hydro_lines(channels):
    count = sum(len(branch.sections) for branch in BRANCHES)
    lines = [TITLE, row(count, len(BRANCHES), *START, *END, SEED_YEAR),
             row(BETA, GRAVITY, MILE_AT_BOTTOM, THETA, TOLERANCE)]
    for steps in (PRINT_STEPS, TIME_STEPS):
        lines += [printed(len(steps)), *(row(*step) for step in steps)]
    for place, branch in enumerate(BRANCHES, 1):
        lines += branch_lines(place, branch, channels)
    return lines + hydro_file_lines()


def branch_lines(place, branch, channels):
    last = branch.sections[-1]
    value, angle = 0, branch.angle  # 0: the stage is that of the confluence, or of a table
    if branch.end == "R":
        value, angle = rating_curve(last, channels[last.lookup])
    lines = [printed(place), branch.name, "Q", branch.end,
             row(len(branch.sections), branch.downstream, branch.junction, 0, value, angle)]
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
        WEATHER_FILE: met_lines(head("weather", "by the hour"), weather.DUST,
                                (weather.LATITUDE, weather.LONGITUDE, weather.MERIDIAN),
                                [node((1, 1)), node((len(BRANCHES), len(BRANCHES[-1].sections)))],
                                hours, weather.weather_series()),
    }


def boundary_files(channels):
    """The boundary files, by name."""
    gage = BRANCHES[GAGE_BRANCH - 1].sections[-1]
    points = rating_table(gage, channels[gage.lookup], RATING_STEP)
    files = {GAGE_FILE: rating_lines([f"Rating table of the gage at {gage.name}",
                                      "depth in ft, flow in cfs", "A made-up river"],
                                     -GAGE_BRANCH, points)}
    steps = year.hours()[::year.HEADWATER_STEP]
    for each in year.HEADWATERS:
        what = f"headwater of the branch {BRANCHES[each.branch - 1].name}"
        how = f"all constituents, every {year.HEADWATER_STEP} hours"
        files[HEADWATER_FILES[each.branch]] = bcf_lines(head(what, how), each.branch, steps,
                                                        year.boundary_series(each))
    return files


def set_headwaters():
    """Lets the boundary files agree with the initial flows of the network."""
    for each in year.HEADWATERS:
        year.set_base(each, BRANCHES[each.branch - 1].headwater, year.hour_of(*START))


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
        "headwaters start from the initial flow, and keep half of it": all(
            year.boundary_flow(each, year.hour_of(*START)) == section_at((each.branch, 1)).flow
            < 2 * min(values[0] for values in year.boundary_series(each))
            for each in year.HEADWATERS),
        "the rating table agrees with the initial flow at the gage":
            abs(gage_misfit(channels)) < 0.02,
        "wet bulbs are colder than the air":
            all(wet < dry for _, _, dry, wet, _ in weather.weather_series()),
        "inflows never run dry":
            all(flow > 0 for each in year.INFLOWS for flow, in year.flow_series(each)),
        "withdrawals and the plant leave half of the initial flow": all(
            flow < 0.5 * section_at(place).flow for place, flow in water_taken()),
        "discharge is continuous": all(continuous(place + 1) for place in range(len(BRANCHES))),
        "beds meet within 1 ft at the confluences":
            all(abs(bed_step(branch)) < 1 for branch in BRANCHES if branch.downstream),
    }
    return [text for text, holds in checks.items() if not holds]


def gage_misfit(channels):
    """Share by which the table's flow at the initial depth differs from the initial flow."""
    gage = BRANCHES[GAGE_BRANCH - 1].sections[-1]
    points = rating_table(gage, channels[gage.lookup], RATING_STEP)
    (h1, q1), (h2, q2) = next(pair for pair in zip(points, points[1:]) if pair[1][0] >= gage.depth)
    return (q1 + (q2 - q1) * (gage.depth - h1) / (h2 - h1)) / gage.flow - 1


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
    set_headwaters()
    print("\n".join([*shape_lines(channels), *table_lines(channels)]))
    files = {PROJECT_FILE: file_bytes(project_lines()),
             HYDRO_FILE: file_bytes(hydro_lines(channels)),
             LIBRARY_FILE: file_bytes(library_lines()),
             WATER_QUALITY_FILE: file_bytes(quality_lines()),
             RESULT_FILE: bmd_bytes(april(channels)),
             **{name: file_bytes(lines)
                for name, lines in {**series_files(), **boundary_files(channels)}.items()}}
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
