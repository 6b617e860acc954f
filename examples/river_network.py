"""From the survey of the Corvane River to its network: names, beds, flows, water surfaces.

Places are (branch, cross section of the branch), both from 1. Units: ft, cfs, ft above mean sea
level.
"""

from corvane_river import BOTTOM_INVERT, BRANCHES
from open_channel import step_up


def section_at(place):
    return BRANCHES[place[0] - 1].sections[place[1] - 1]


def node(place):
    """The running number through all branches and the name of a cross section."""
    above = sum(len(branch.sections) for branch in BRANCHES[:place[0] - 1])
    return above + place[1], section_at(place).name


def tributaries(number, place):
    """Numbers of the branches that flow into that cross section of branch `number`."""
    return [other for other, branch in enumerate(BRANCHES, 1)
            if (branch.downstream, branch.junction) == (number, place)]


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


def route_flow(branches, number, headwater, entering):
    """Flows from the headwaters down; the sections at confluences have the joined flow.

    `headwater[number]` comes into a branch from above, `entering.get((number, place), 0)` at a
    cross section, negative where water is taken. Gives what leaves the branch.
    """
    flow = headwater.get(number, 0)
    for place, section in enumerate(branches[number - 1].sections, 1):
        flow += sum(route_flow(branches, other, headwater, entering)
                    for other in tributaries(number, place))
        flow += entering.get((number, place), 0)
        section.flow = round(flow, 2)
        flow += section.lateral
    return flow


def raise_water(branch, surface, channels):
    """Water surfaces and depths up from `surface`, which is the last section's."""
    last = branch.sections[-1]
    last.surface = surface
    for lower, upper in zip(branch.sections[::-1], branch.sections[-2::-1]):
        upper.surface = step_up(upper, lower, channels)
    for section in branch.sections:
        section.depth = round(section.surface - section.invert, 2)


def find_surfaces(branches, channels):
    """Water surfaces of all branches for their flows, up from normal depth at the river's end."""
    stem = branches[0]
    last = stem.sections[-1]
    normal = channels[last.lookup].normal_depth(last.flow, last.manning, last.slope)
    raise_water(stem, last.invert + normal, channels)
    for branch in branches[1:]:
        raise_water(branch, stem.sections[branch.junction - 1].surface, channels)


def build_network(channels):
    """Fills in the computed fields of all sections, from the mouth of the river upward."""
    stem = BRANCHES[0]
    lay_bed(stem, BOTTOM_INVERT - stem.sections[-1].slope * stem.sections[-1].length)
    for branch in BRANCHES[1:]:
        lay_bed(branch, stem.sections[branch.junction - 1].grade)
    initial = {number: branch.headwater for number, branch in enumerate(BRANCHES, 1)}
    route_flow(BRANCHES, 1, initial, {})
    find_surfaces(BRANCHES, channels)
