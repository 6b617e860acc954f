"""Hydraulics of an open channel with surveyed cross sections: normal depth, backwater, fits.

Units: ft, cfs, ft above mean sea level; `h` is always the depth over the thalweg.
"""

import math

GRAVITY = 32.174  # ft/s2
BETA = 1.02  # momentum correction; the backwater computation takes it for the energy as well


class Channel:
    """The hydraulic side of a shape."""

    def __init__(self, shape):
        self.banks = shape.banks
        points = shape.points()
        deepest = max(depth for _, depth in points)
        self._bed = [(station, deepest - depth) for station, depth in points]
        self.top = min(self._bed[0][1], self._bed[-1][1])
        self.c1, self.c2, self.c3 = self._fit()

    def wetted(self, h):
        """Area, wetted perimeter and surface width."""
        area = perimeter = width = 0.0
        for (x1, z1), (x2, z2) in zip(self._bed, self._bed[1:]):
            low, high = min(z1, z2), max(z1, z2)
            if h <= low:
                continue
            share = 1.0 if h >= high else (h - low) / (high - low)
            dx = (x2 - x1) * share
            dz = (high - low) * share
            area += dx * (h - low - dz / 2)
            perimeter += (dx * dx + dz * dz) ** 0.5
            width += dx
        return area, perimeter, width

    def conveyance(self, h, n):
        area, perimeter, _ = self.wetted(h)
        return 1.486 / n * area * (area / perimeter) ** (2 / 3)

    def normal_depth(self, flow, n, slope):
        """By Manning's equation."""
        return bisect(lambda h: self.conveyance(h, n) * slope ** 0.5 - flow, 0.05, self.top)

    def formula_area(self, h):
        return self.c1 * h + self.c2 * h ** self.c3

    def misfit(self, h):
        """Share by which the formula's area differs from the shape's."""
        return self.formula_area(h) / self.wetted(h)[0] - 1

    def _fit(self):
        """C1, C2, C3 of A = C1 H + C2 H^C3: least relative squares, from a quarter of bankfull."""
        depths = [self.banks * part / 20 for part in range(5, 21)]
        areas = [self.wetted(h)[0] for h in depths]
        best = min((fit_two_terms(depths, areas, step / 100) for step in range(105, 251)),
                   key=lambda fit: fit[0])
        return tuple(round(value, 2) for value in best[1:])


def fit_two_terms(depths, areas, power):
    """(error, C1, C2, power) of the best fit with that power and no negative coefficient."""
    rows = [(h / a, h ** power / a) for h, a in zip(depths, areas)]
    s11, s12, s22 = (sum(r[i] * r[j] for r in rows) for i, j in ((0, 0), (0, 1), (1, 1)))
    s1, s2 = sum(r[0] for r in rows), sum(r[1] for r in rows)
    det = s11 * s22 - s12 * s12
    pairs = [((s1 * s22 - s2 * s12) / det, (s2 * s11 - s1 * s12) / det), (0.0, s2 / s22)]
    c1, c2 = next(pair for pair in pairs if min(pair) >= 0)
    return sum((c1 * r[0] + c2 * r[1] - 1) ** 2 for r in rows), c1, c2, power


def bisect(function, low, high):
    """Where the rising `function` is 0."""
    if function(low) > 0 or function(high) < 0:
        raise ValueError("no solution between the bed and the top of the section")
    for _ in range(60):
        middle = (low + high) / 2
        low, high = (middle, high) if function(middle) < 0 else (low, middle)
    return (low + high) / 2


def energy(section, channel, surface):
    """Specific energy line, ft msl, and velocity head, ft."""
    head = BETA * (section.flow / channel.wetted(surface - section.invert)[0]) ** 2 / (2 * GRAVITY)
    return surface + head, head


def friction(section, channel, surface):
    """Slope of the energy line by Manning's equation."""
    return (section.flow / channel.conveyance(surface - section.invert, section.manning)) ** 2


def step_up(upper, lower, channels):
    """Water surface at `upper`, by the standard step method of subcritical flow."""
    here, below = channels[upper.lookup], channels[lower.lookup]
    line, head = energy(lower, below, lower.surface)
    lost = friction(lower, below, lower.surface)

    def excess(surface):
        own_line, own_head = energy(upper, here, surface)
        drop = upper.length * (friction(upper, here, surface) + lost) / 2
        return own_line - line - drop - upper.loss * abs(own_head - head)

    # Below a Froude number of 0.8 lies one solution at most.
    shallowest = bisect(lambda h: 0.8 - froude(upper.flow, here, h), 0.1, here.top)
    return bisect(excess, upper.invert + shallowest, upper.invert + here.top)


def froude(flow, channel, h):
    """Froude number."""
    area, _, width = channel.wetted(h)
    return flow / area / (GRAVITY * area / width) ** 0.5


def rating_table(section, channel, step):
    """(depth, discharge) of normal depths, `step` apart, up to the banks."""
    depths = [step * point for point in range(1, int(channel.banks / step) + 1)]
    return [(h, round(channel.conveyance(h, section.manning) * section.slope ** 0.5, 1))
            for h in depths]


def rating_curve(section, channel):
    """a and b of H = a Q^b, through the initial depth, bent like the curve of normal depths."""
    flows = (0.5 * section.flow, 3 * section.flow)
    low, high = (channel.normal_depth(q, section.manning, section.slope) for q in flows)
    b = round(math.log(high / low) / math.log(flows[1] / flows[0]), 3)
    return float(f"{section.depth / section.flow ** b:.4g}"), b
