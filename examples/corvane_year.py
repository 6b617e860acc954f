"""What flows into and out of the Corvane River in 2025, a made-up year.

Storms, and the waters and works along the river, as tables; the series follow from them. Places are
(branch, cross section of the branch). Units: cfs, degrees C, mg/L or, where a table says so, ug/L.
"""

import datetime
import math
from dataclasses import dataclass

YEAR = 2025
MELT_DAY, MELT_DAYS = 102, 24  # height of the snowmelt, and how far it spreads
COLDEST_DAY, WARMEST_HOUR = 25, 16
RISE = 6  # hours from the start of a storm to the peak of its runoff

# Start as (day of the year, hour), rain in inches.
STORMS = [((14, 5), 0.5), ((41, 18), 0.7), ((66, 2), 0.9), ((83, 11), 0.6), ((97, 20), 1.1),
          ((118, 7), 0.8), ((131, 15), 1.3), ((149, 17), 0.6), ((163, 19), 1.6), ((181, 16), 0.4),
          ((194, 18), 1.9), ((212, 20), 0.7), ((229, 17), 1.2), ((247, 4), 0.5), ((262, 9), 1.5),
          ((283, 13), 0.8), ((301, 1), 1), ((318, 22), 0.6), ((337, 8), 0.9), ((355, 14), 0.4)]


@dataclass
class Water:
    """Concentrations: of an inflow CBODu1, NH3-N, NO3-N and Ortho-P, of a headwater all of them."""

    dry: tuple[float, ...]  # between the storms
    washed: tuple[float, ...]  # in the runoff of a storm
    decimals: tuple[int, ...]
    factors: tuple[float, ...] = ()  # to mg/L; a headwater's are as they are


@dataclass
class Inflow:
    place: tuple[int, int]
    base: float  # cfs
    melt: float  # cfs on top of it at the height of the snowmelt
    runoff: float  # cfs at the peak, per inch of rain
    recession: float  # hours in which the runoff falls to 1/e
    daily: float  # share of the base by which it swings in a day
    warmth: tuple[float, float, float]  # mean, swing in a year, swing in a day
    water: Water


# A treatment plant, whose laboratory reports mg/L; the brooks' one reports nutrients in ug/L.
INFLOWS = [
    Inflow((1, 13), 4, 1.5, 2, 10, 0.3, (15, 5, 0.5),
           Water((12, 3, 8, 1.1), (15, 2, 3, 0.6), (0, 0, 1, 1), (1, 1, 1, 1))),
    Inflow((2, 4), 3, 14, 17, 14, 0, (8.5, 7.5, 1.5),
           Water((2, 30, 0.4, 12), (6, 120, 0.9, 60), (0, 0, 1, 0), (1, 0.001, 1, 0.001))),
    Inflow((3, 4), 1, 5, 8, 20, 0, (9.5, 8.5, 2),
           Water((2, 60, 1.4, 30), (7, 240, 2.8, 99), (0, 0, 1, 0), (1, 0.001, 1, 0.001))),
]


@dataclass
class Headwater:
    """What comes into a branch from above; `base` is set so that the model starts from its flow."""

    branch: int
    melt: float  # this and what follows as of an inflow
    runoff: float
    recession: float
    warmth: tuple[float, float, float]
    water: Water
    base: float = 0.0
    daily: float = 0.0


# The columns of a boundary file but for the flow, the temperature and the oxygen: CBODu1, Org-N,
# NH3-N, NO3-N, Org-P, Ortho-P, Mn, Fe; coliforms, algae, and four that are not modelled here.
BEFORE_OXYGEN = 8
DIGITS = (1, 2, 2, 1, 2, 2, 2, 2, 0, 1, 0, 0, 0, 0)
HEADWATERS = [
    Headwater(2, 120, 45, 40, (8.5, 6, 0.5),  # the release of the dam
              Water((1.8, 0.25, 0.03, 0.4, 0.01, 0.01, 0.03, 0.08, 8, 0.5, 0, 0, 0, 0),
                    (3.5, 0.5, 0.06, 0.6, 0.04, 0.03, 0.05, 0.2, 160, 0.3, 0, 0, 0, 0), DIGITS)),
    Headwater(3, 40, 30, 30, (10, 9, 2),
              Water((2.2, 0.4, 0.05, 1.1, 0.02, 0.03, 0.04, 0.15, 60, 0.8, 0, 0, 0, 0),
                    (6, 1, 0.18, 2.2, 0.09, 0.08, 0.08, 0.4, 900, 0.4, 0, 0, 0, 0), DIGITS)),
]
HEADWATER_STEP = 6  # hours


@dataclass
class Withdrawal:
    place: tuple[int, int]
    all_year: float
    summer: float  # on top of it at midsummer
    season: tuple[int, int]  # days of the year, the first and the last of the summer's demand


WITHDRAWALS = [Withdrawal((1, 11), 8.5, 4.5, (100, 290)),  # the town's waterworks
               Withdrawal((3, 7), 0, 6, (135, 262))]  # meadows under irrigation


@dataclass
class Unit:
    """One unit of the power plant, which are all fed by one intake."""

    outfall: tuple[int, int]
    flow: float
    warming: float
    overhaul: tuple[int, int]  # days of the year, the first and the last one out of service


INTAKE = (1, 15)
UNITS = [Unit((1, 16), 36, 7.5, (98, 126)), Unit((1, 17), 24, 8, (270, 291))]


def hours():
    start = datetime.datetime(YEAR, 1, 1)
    return [start + datetime.timedelta(hours=hour) for hour in range(365 * 24)]


def days():
    return hours()[::24]


def hour_of(*date):
    """Hour of the year, of a year, month, day and hour."""
    return (datetime.datetime(*date) - datetime.datetime(YEAR, 1, 1)) // datetime.timedelta(hours=1)


def storm_runoff(inflow, hour):
    """cfs at an hour of the year."""
    total = 0.0
    for (day, start), rain in STORMS:
        since = hour - (day - 1) * 24 - start
        if 0 < since <= RISE:
            total += rain * inflow.runoff * since / RISE
        elif since > RISE:
            total += rain * inflow.runoff * math.exp((RISE - since) / inflow.recession)
    return total


def dry_flow(inflow, hour):
    """cfs without storms; the daily swing is that of a town, low before dawn."""
    melt = math.exp(-(((hour / 24 - MELT_DAY) / MELT_DAYS) ** 2))
    swing = 1 - inflow.daily * math.cos(2 * math.pi * (hour - 4) / 24)
    return inflow.base * swing + inflow.melt * melt


def temperature(inflow, hour):
    mean, yearly, daily = inflow.warmth
    season = -math.cos(2 * math.pi * (hour / 24 - COLDEST_DAY) / 365)
    time_of_day = math.cos(2 * math.pi * (hour - WARMEST_HOUR) / 24)
    return max(0.0, mean + yearly * season + daily * time_of_day)  # what flows is no ice


def oxygen(celsius):
    """mg/L at nine tenths of saturation, for which 468 / (31.6 + T) is a rule of thumb."""
    return 0.9 * 468 / (31.6 + celsius)


def flow_series(inflow):
    """Flow by the hour, in whole cfs: one column."""
    return [(round(dry_flow(inflow, hour) + storm_runoff(inflow, hour)),)
            for hour in range(365 * 24)]


def quality_series(inflow):
    """Flow, temperature, CBODu1, NH3-N, NO3-N, Ortho-P and dissolved oxygen by the hour."""
    rows = []
    for hour, (flow,) in enumerate(flow_series(inflow)):
        warm = temperature(inflow, hour)
        rows.append((flow, round(warm), *mixed(inflow, hour), round(oxygen(warm), 1)))
    return rows


def mixed(inflow, hour):
    """Concentrations at an hour of the year."""
    dry, storm, water = dry_flow(inflow, hour), storm_runoff(inflow, hour), inflow.water
    return [round((dry * a + storm * b) / (dry + storm), places)
            for a, b, places in zip(water.dry, water.washed, water.decimals)]


def set_base(headwater, flow, hour):
    """Lets a headwater have that flow at an hour of the year."""
    headwater.base = 0.0
    headwater.base = flow - dry_flow(headwater, hour) - storm_runoff(headwater, hour)


def boundary_flow(headwater, hour):
    return round(dry_flow(headwater, hour) + storm_runoff(headwater, hour), 1)


def boundary_series(headwater):
    """Flow, temperature and all other constituents in the order of the columns of the file."""
    rows = []
    for hour in range(0, 365 * 24, HEADWATER_STEP):
        warm, others = temperature(headwater, hour), mixed(headwater, hour)
        rows.append((boundary_flow(headwater, hour), round(warm, 1), *others[:BEFORE_OXYGEN],
                     round(oxygen(warm), 1), *others[BEFORE_OXYGEN:]))
    return rows


def conversion_factors(inflow):
    return (1, 1, *inflow.water.factors, 1)


def withdrawal_series(works):
    """cfs by the day: the summer's demand follows the height of the sun."""
    first, last = works.season
    demand = [math.sin(math.pi * (day - first) / (last - first)) if first < day < last else 0
              for day in range(1, 366)]
    return [round(works.all_year + works.summer * part, 1) for part in demand]


def heat_series(unit):
    """cfs and warming by the day; a unit at rest has neither."""
    first, last = unit.overhaul
    return [(0, 0) if first <= day <= last else (unit.flow, unit.warming)
            for day in range(1, 366)]
