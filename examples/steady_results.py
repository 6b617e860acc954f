"""The river in April 2025 by the day, each computed as if it lasted.

Stands for the results of a model, which also knows the waves that run down a river. Units: ft, cfs.
"""

import copy
import datetime

from corvane_river import BRANCHES
import corvane_year as year
from river_network import find_surfaces, route_flow
from series_files import Results

ORIGIN = datetime.datetime(1901, 1, 1)
FIRST = datetime.datetime(2025, 4, 1)
DAYS = 30
VARIABLES = [("Flow", "cfs"), ("Depth", "ft"), ("Velocity", "ft/s"), ("Elevation", "ft msl")]


def entering(hour):
    """cfs that come in or are taken at cross sections, at an hour of the year."""
    day = hour // 24
    gains = {inflow.place: year.flow_series(inflow)[hour][0] for inflow in year.INFLOWS}
    for works in year.WITHDRAWALS:
        gains[works.place] = -year.withdrawal_series(works)[day]
    for unit in year.UNITS:
        flow = year.heat_series(unit)[day][0]
        gains[unit.outfall] = flow
        gains[year.INTAKE] = gains.get(year.INTAKE, 0) - flow
    return gains


def steady_day(date, channels):
    """The variables of all cross sections."""
    hour = year.hour_of(date.year, date.month, date.day)
    branches = copy.deepcopy(BRANCHES)
    headwater = {each.branch: year.boundary_flow(each, hour) for each in year.HEADWATERS}
    route_flow(branches, 1, headwater, entering(hour))
    find_surfaces(branches, channels)
    return [(s.flow, s.depth, round(s.flow / channels[s.lookup].wetted(s.depth)[0], 2),
             round(s.invert + s.depth, 2)) for branch in branches for s in branch.sections]


def april(channels):
    days = range(DAYS)
    names = [section.name for branch in BRANCHES for section in branch.sections]
    return Results(int((FIRST - ORIGIN).total_seconds()), list(days), VARIABLES, names,
                   [steady_day(FIRST + datetime.timedelta(days=day), channels) for day in days])
