"""The water quality of the Corvane River, which is made up: coefficients and initial water.

Coefficients stand under the names that the model has for them, in the order of the file; tables of
what is special to a branch or to a kind of channel follow. Concentrations stand in the order of the
constituents from temperature to Arb-2. Units: degrees C, mg/L, coliforms per 100 mL, cfs.
"""

from corvane_river import BRANCHES
import corvane_year as year
from river_network import tributaries

TITLE = "Corvane River, Ashlar Fork and Quillet Creek, water quality, April to October 2025"

# CBODu2, NBODu and the two arbitrary constituents are not simulated.
BYPASS = [False] * 12 + [True] * 4

GLOBAL = {
    "TH_K1": 1.047, "TH_KDN": 1.047, "TH_K1N": 1.047, "TH_KNH3": 1.085, "TH_KDN02": 1,
    "TH_BENP": 1.074, "TH_BENN": 1.074, "TH_SOD": 1.065, "TH_K2": 1.024, "TH_COLIF": 1.047,
    "TH_ADN2": 1.047, "TH_BOD2": 1.047, "TH_ARB1": 1, "TH_ARB2": 1, "TH_AGRO": 1.047,
    "TH_ADIE": 1.047, "TH_MGRO": 1, "TH_MDIE": 1, "TH_NBOD": 1.047, "TH_SORP": 1.04,
    "TH_BHEAT": 1,
    "APCONT": 0.01, "ANCONT": 0.075, "MPCONT": 0.01, "MNCONT": 0.075,
    "ONEQUI": 0.35, "ONITRI": 4.57, "OPDECY": 1.59, "OFEDEC": 0.14, "OMNDEC": 0.15,
    "DAWN": 5.2, "SUNSET": 18.7, "ELEV0": 640,
    "NDOSAT": 0, "IOPT_EL": 0, "ICOVAR": 1,
}

BRANCH = {
    "IDAM0": 0, "DAMK0": 0, "ADN": 0.1, "AKN": 0.3, "ATB": 0, "ATS": 0, "APO4": 0.05,
    "KALGDK": 0.1, "KALGGRO": 1.5, "KNCBDN": 0.1, "KOALDK": 0.1, "KOCBDN": 0.1, "KOCB1": 0.5,
    "KON": 0.5, "TDUM": 0, "TSINK": 10, "KMNDK": 0.1, "KFEDK": 0.5, "OXIDAT": 2,
    "HNEFSW": 0, "KNPOOL": 0.05, "KPO4X": 0.01, "KDNO2": 0.05, "ACK": 0.1,
    "LAMBDA0": 0.5, "LAMBDA1": 0.0088, "LAMBDA2": 0.054, "ALPHA0": 50, "XONS": 0.02,
    "CBODSR": 0.05, "FCBOD": 0.8, "KPDK": 0.1, "KPSET": 0.02, "RBODSR": 0, "FCRBOD": 0,
    "RBODDO": 0, "ADN2": 0, "SRNDOB": 0, "DONBOD": 0, "AKARB1": 0, "AKARB2": 0,
    "KLITE": 3, "QWIND0": 0,
}
OF_BRANCH = {
    1: {"AKN": 0.4, "LAMBDA0": 0.6, "QWIND0": 1},  # wide enough for the wind
    2: {"IDAM0": 1, "DAMK0": 0.045, "KALGGRO": 1.2},  # the dam aerates what it releases
    3: {"AKN": 0.2, "ACK": 0.15, "LAMBDA0": 0.8},
}

XSECT = {
    "DISPC": 80, "DISPK": 0, "AK1": 0.25, "KRBOD": 0, "AKNBOD": 0, "ACOLIDK": 0.8,
    "SOD": 0.5, "BENPO4": 0.002, "BENNH3": 0.02,
    "MACROB": 0, "MACGRO": 0, "MACDKY": 0, "CANOPY": 0,
    "KREAER": 0, "AG": 0, "K1": 0, "K2": 0, "TSIV": 0,
}
OF_KIND = {  # by what stands behind the stream in the name of the shape
    "GORGE": {"DISPC": 50, "SOD": 0.2, "TSIV": 0.054},
    "HEAD": {"DISPC": 40, "SOD": 0.8},
    "RIFF": {"DISPC": 60, "SOD": 0.3},
    "RUN": {"DISPC": 90, "SOD": 0.6},
    "POOL": {"DISPC": 140, "SOD": 1.5, "BENNH3": 0.05, "AG": 12.9, "K1": 0.5, "K2": 1.5},
    "BRDG": {"SOD": 0.4},
    "GAGE": {"SOD": 0.2},
}
CANOPY = {1: 0.1, 2: 0.3, 3: 0.45}  # by branch

PLACES = (1, 1, 2, 3, 2, 3, 3, 3, 2, 1, 0, 2, 0, 0, 0, 0)  # decimals of concentrations
SEEPAGE = {  # what the distributed inflow of a branch carries
    1: (9, 1, 0.1, 0.02, 1.2, 0.01, 0.02, 0.05, 0.2, 7, 5, 0, 0, 0, 0, 0),
    2: (8, 0.8, 0.1, 0.02, 0.3, 0.01, 0.01, 0.04, 0.1, 8, 2, 0, 0, 0, 0, 0),
    3: (9.5, 1.5, 0.3, 0.05, 2.4, 0.02, 0.03, 0.08, 0.3, 6, 20, 0, 0, 0, 0, 0),
}


def branch_kinetics(number):
    return list({**BRANCH, **OF_BRANCH[number]}.values())


def xsect_kinetics(number, section):
    kind = section.lookup[3:].rstrip("12")
    return list({**XSECT, "CANOPY": CANOPY[number], **OF_KIND[kind]}.values())


def mixed(parts):
    """The flow and the water of several (flow, water) that come together."""
    flow = sum(part for part, _ in parts)
    return flow, [sum(part * values[i] for part, values in parts) / flow
                  for i in range(len(PLACES))]


def initial_waters(number, hour):
    """The water at each cross section of a branch, and what leaves it, as (flow, water).

    What comes from above is that of the boundary file at the hour of the year; the waters of the
    branches that come in and the seepage of each reach join it. Nothing has decayed yet.
    """
    coming = [(row[0], row[1:]) for each in year.HEADWATERS if each.branch == number
              for row in [year.boundary_series(each)[hour // year.HEADWATER_STEP]]]
    waters = []
    for place, section in enumerate(BRANCHES[number - 1].sections, 1):
        coming += [initial_waters(other, hour)[1] for other in tributaries(number, place)]
        flow, water = mixed(coming)
        waters.append([round(value, places) for value, places in zip(water, PLACES)])
        coming = [(flow, water), (section.lateral, SEEPAGE[number])]
    return waters, mixed(coming)
