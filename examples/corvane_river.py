"""What a surveyor would bring home from the Corvane River, which is made up.

Channel shapes, and per branch the cross sections with their distances, bed slopes, roughness and
inflows. make_three_branches.py computes the rest. Units: ft, cfs, ft above mean sea level.
"""

from dataclasses import dataclass, field

MILE_AT_BOTTOM = 12.4  # river mile of the last cross section of the Corvane River
BOTTOM_INVERT = 612.4  # ft msl, its bed


@dataclass
class Shape:
    """A channel between a left and a right side; `banks` is the bankfull height over the thalweg.

    `toes` are the heights of the two bank toes, `bed` the points between them as (share of the
    bottom width, height). A side with `plain` 0 has no floodplain but goes up to the valley's edge.
    """

    name: str
    description: str
    valley: float  # height of the highest point over the thalweg
    banks: float
    bottom: float  # width between the toes
    slopes: tuple[float, float]  # horizontal to 1 vertical, left and right bank
    plains: tuple[float, float]  # floodplain widths
    toes: tuple[float, float]
    bed: list[tuple[float, float]]

    def points(self):
        """(station, depth) from the left bank to the right one."""
        left = self._side(0)
        bed = [(share * self.bottom, z) for share, z in self.bed]
        right = [(self.bottom - x, z) for x, z in reversed(self._side(1))]
        zero = left[0][0]
        return [(round(x - zero, 1), round(self.valley - z, 2)) for x, z in left + bed + right]

    def _side(self, side):
        """One side from its highest point to the toe, x from the toe, negative outward."""
        slope, plain, toe = self.slopes[side], self.plains[side], self.toes[side]
        top = -slope * (self.banks - toe)
        bank = [(top * 0.38, toe + 0.5 * (self.banks - toe)), (0.0, toe)]
        if plain == 0:
            edge = top - 1.6 * (self.valley - self.banks)
            ledge = top - 0.5 * (self.valley - self.banks)
            return [(edge, self.valley), (ledge, 0.4 * self.valley + 0.6 * self.banks),
                    (top, self.banks)] + bank
        foot = self.banks + 1.3
        edge = top - plain - 4.5 * (self.valley - foot)
        return [(edge, self.valley), (top - plain, foot), (top - 0.45 * plain, self.banks + 0.7),
                (top - 0.2 * plain, self.banks + 0.15), (top - 6, self.banks + 0.4),
                (top, self.banks)] + bank


SHAPES = [
    Shape("AF-GORGE", "Ashlar Fork, gorge below the dam, boulders, no floodplain", 14.2, 6.5, 48,
          (1.3, 1.1), (0, 0), (0.7, 0.9), [(0.22, 0.3), (0.45, 0), (0.7, 0.45)]),
    Shape("AF-RIFF", "Ashlar Fork, cobble riffle", 12.8, 5.6, 63,
          (2.4, 2.1), (85, 60), (0.55, 0.5), [(0.2, 0.3), (0.38, 0.1), (0.55, 0), (0.8, 0.25)]),
    Shape("AF-RUN", "Ashlar Fork, run between alder banks", 12.6, 5.9, 54,
          (2.2, 2), (110, 75), (0.7, 0.8), [(0.18, 0.35), (0.42, 0), (0.66, 0.2), (0.85, 0.5)]),
    Shape("AF-POOL", "Ashlar Fork, bend pool, cut bank on the right", 13.4, 6.6, 47,
          (3.1, 1.2), (120, 45), (1.3, 0.6), [(0.25, 0.95), (0.5, 0.4), (0.78, 0), (0.9, 0.15)]),
    Shape("QC-HEAD", "Quillet Creek, meadow reach, narrow", 8.6, 3.9, 26,
          (1.6, 1.8), (45, 60), (0.5, 0.4), [(0.3, 0.2), (0.52, 0), (0.75, 0.15)]),
    Shape("QC-RIFF", "Quillet Creek, gravel riffle", 9.4, 4.2, 35,
          (2.2, 2.3), (60, 70), (0.45, 0.5), [(0.2, 0.2), (0.48, 0), (0.7, 0.1), (0.86, 0.3)]),
    Shape("QC-RUN", "Quillet Creek, run with overhanging willows", 9.8, 4.5, 30,
          (1.9, 2), (75, 55), (0.6, 0.55), [(0.25, 0.3), (0.5, 0), (0.74, 0.25)]),
    Shape("QC-POOL", "Quillet Creek, pool with log jams, cut bank on the left", 10.3, 5, 28,
          (1.1, 2.9), (50, 90), (0.5, 1.1), [(0.15, 0.1), (0.3, 0), (0.55, 0.35), (0.8, 0.8)]),
    Shape("CR-RIFF1", "Corvane River above Quillet Creek, riffle with mid-channel bar", 14.6, 6.4,
          74, (2.6, 2.4), (140, 180), (0.6, 0.55),
          [(0.15, 0.25), (0.3, 0), (0.48, 0.65), (0.6, 0.6), (0.76, 0.1), (0.9, 0.3)]),
    Shape("CR-RUN1", "Corvane River above Quillet Creek, run", 14.9, 6.8, 66,
          (2.3, 2.2), (160, 130), (0.7, 0.75), [(0.2, 0.35), (0.44, 0), (0.65, 0.15), (0.84, 0.5)]),
    Shape("CR-POOL1", "Corvane River above Quillet Creek, bend pool, point bar on the left", 15.8,
          7.6, 60, (3.6, 1.3), (210, 70), (1.4, 0.7),
          [(0.2, 1.15), (0.42, 0.7), (0.64, 0.25), (0.8, 0), (0.93, 0.3)]),
    Shape("CR-RIFF2", "Corvane River below Quillet Creek, wide gravel riffle", 16.2, 7.2, 101,
          (2.8, 2.6), (230, 260), (0.6, 0.65),
          [(0.12, 0.35), (0.3, 0.15), (0.46, 0), (0.62, 0.2), (0.85, 0.4)]),
    Shape("CR-RUN2", "Corvane River below Quillet Creek, run, sand and gravel", 16.8, 7.9, 90,
          (2.5, 2.7), (280, 240), (0.8, 0.75), [(0.2, 0.4), (0.4, 0.1), (0.55, 0), (0.82, 0.45)]),
    Shape("CR-POOL2", "Corvane River below Quillet Creek, bend pool, cut bank on the right", 18.1,
          8.8, 80, (3.8, 1.4), (320, 110), (1.6, 0.9),
          [(0.18, 1.3), (0.4, 0.85), (0.62, 0.35), (0.79, 0), (0.92, 0.25)]),
    Shape("CR-BRDG", "Corvane River, road bridge, riprap on both abutments", 17.3, 8.6, 82,
          (1.5, 1.5), (0, 0), (0.9, 0.8), [(0.25, 0.4), (0.5, 0), (0.72, 0.2)]),
    Shape("CR-GAGE", "Corvane River, stream gage, bedrock control below", 17.6, 8.3, 86,
          (2, 1.8), (190, 0), (0.7, 0.8), [(0.22, 0.3), (0.43, 0.1), (0.58, 0), (0.8, 0.35)]),
]


@dataclass
class Section:
    """One cross section and the reach below it; the second block is computed."""

    length: float  # ft to the next section, of the last one to the receiving stream or the end
    slope: float  # of the bed in that reach, pools left out
    lookup: str
    manning: float
    loss: float
    lateral: float  # cfs, distributed inflow of the reach
    printed: bool
    pool: float = 0.0  # ft, bed below the general slope

    name: str = ""
    grade: float = 0.0  # ft msl, bed with pools left out
    invert: float = 0.0
    flow: float = 0.0
    surface: float = 0.0  # ft msl
    depth: float = 0.0


@dataclass
class Branch:
    name: str
    prefix: str  # of the section names, in front of the river mile
    bottom_mile: float
    headwater: float  # cfs at the start, from a boundary file; 0: the branch that comes in has it
    downstream: int  # branch number and section number of the confluence, 0 at the river's end
    junction: int
    angle: float  # deflection at the confluence, degrees
    end: str  # of the last section: rating curve R, rating table T, stage of the confluence H
    rows: list[tuple]
    sections: list[Section] = field(init=False)

    def __post_init__(self):
        self.sections = [Section(*row) for row in self.rows]


YES, NO = True, False
BRANCHES = [
    Branch("Corvane River", "CR", MILE_AT_BOTTOM, 0, 0, 0, 0, "T", [
        (1850, 0.00122, "CR-RUN1", 0.036, 0.1, 1, YES),
        (2140, 0.00118, "CR-RIFF1", 0.037, 0.1, 1.2, NO),
        (1960, 0.00115, "CR-RUN1", 0.036, 0.1, 1, NO),
        (2310, 0.00111, "CR-POOL1", 0.035, 0.2, 1.3, YES, 0.4),
        (1780, 0.00107, "CR-RIFF1", 0.037, 0.2, 1, NO),
        (2450, 0.00102, "CR-RUN1", 0.036, 0.1, 1.4, NO),
        (2060, 0.00097, "CR-RIFF1", 0.036, 0.1, 1.2, YES),
        (1920, 0.00091, "CR-POOL1", 0.035, 0.2, 1.1, NO, 0.5),
        (1240, 0.00086, "CR-RUN1", 0.035, 0.1, 0.7, NO),
        (2280, 0.00082, "CR-RUN2", 0.034, 0.2, 1.5, YES),
        (2630, 0.00077, "CR-RIFF2", 0.034, 0.1, 1.6, NO),
        (2350, 0.00072, "CR-RUN2", 0.033, 0.1, 1.5, NO),
        (2890, 0.00066, "CR-POOL2", 0.032, 0.2, 1.8, YES, 0.6),
        (1480, 0.00061, "CR-RIFF2", 0.033, 0.2, 0.9, NO),
        (900, 0.00057, "CR-BRDG", 0.032, 0.3, 0.5, YES),
        (3120, 0.00053, "CR-RUN2", 0.032, 0.2, 1.9, NO),
        (3460, 0.00048, "CR-POOL2", 0.031, 0.2, 2.1, NO, 0.4),
        (2700, 0.00044, "CR-RUN2", 0.031, 0.1, 1.7, NO),
        (100, 0.00042, "CR-GAGE", 0.03, 0.1, 0, YES),
    ]),
    Branch("Ashlar Fork", "AF", 0, 240, 1, 1, 0, "R", [
        (1120, 0.00198, "AF-GORGE", 0.043, 0.2, 0.5, YES),
        (1350, 0.00192, "AF-GORGE", 0.043, 0.2, 0.6, NO),
        (1480, 0.00185, "AF-RIFF", 0.041, 0.2, 0.7, NO),
        (1620, 0.00178, "AF-RUN", 0.039, 0.1, 0.8, YES),
        (1390, 0.00171, "AF-RIFF", 0.041, 0.1, 0.7, NO),
        (1750, 0.00163, "AF-RUN", 0.039, 0.1, 0.9, NO),
        (1540, 0.00156, "AF-POOL", 0.037, 0.2, 0.8, YES, 0.5),
        (1830, 0.00149, "AF-RIFF", 0.04, 0.2, 0.9, NO),
        (1670, 0.00141, "AF-RUN", 0.038, 0.1, 0.8, NO),
        (1910, 0.00134, "AF-RUN", 0.038, 0.1, 1, NO),
        (100, 0.00128, "AF-RIFF", 0.038, 0.1, 0, YES),
    ]),
    Branch("Quillet Creek", "QC", 0, 92, 1, 10, 40, "H", [
        (980, 0.0020, "QC-HEAD", 0.044, 0.2, 0.4, YES),
        (1160, 0.00194, "QC-HEAD", 0.044, 0.1, 0.5, NO),
        (1240, 0.00188, "QC-RUN", 0.042, 0.2, 0.5, NO),
        (1050, 0.00182, "QC-RIFF", 0.043, 0.1, 0.4, YES),
        (1410, 0.00175, "QC-RUN", 0.041, 0.1, 0.6, NO),
        (1290, 0.00168, "QC-POOL", 0.04, 0.2, 0.5, NO, 0.4),
        (1330, 0.0016, "QC-RIFF", 0.042, 0.2, 0.5, YES),
        (1520, 0.00152, "QC-RUN", 0.04, 0.1, 0.7, NO),
        (1180, 0.00145, "QC-RIFF", 0.041, 0.1, 0.5, NO),
        (1460, 0.00138, "QC-RUN", 0.039, 0.1, 0.6, NO),
        (400, 0.0013, "QC-RUN", 0.039, 0.1, 0, YES),
    ]),
]
