"""The weather over the Corvane River in 2025, a made-up year, by the hour.

Waves of a few days pass over the seasons; where a storm of corvane_year.py rains, the sky is
covered, the air damp and the pressure low.
"""

import math

from corvane_year import COLDEST_DAY, STORMS, WARMEST_HOUR

DUST = 0.06  # attenuation of sunlight
LATITUDE, LONGITUDE, MERIDIAN = 43.2, 76.4, 75  # degrees north and west
MEAN_PRESSURE = 29.25  # inches of mercury, at 640 ft above sea level

RAIN_HOURS = 10  # from the first drop of a storm to the last one
LEAST_DEPRESSION = 0.1  # degrees F that the wet bulb is colder than the air, at the least


def waves(hour, *periods):
    """Fronts that come and go: waves of some days each, from -1 to 1."""
    return sum(math.sin(2 * math.pi * hour / (24 * days)) for days in periods) / len(periods)


def storminess(hour):
    """From 0 to 1 at the height of a storm, a day to either side of it."""
    middles = ((day - 1) * 24 + start + RAIN_HOURS / 2 for (day, start), _ in STORMS)
    return math.exp(-min(abs(hour - middle) / 12 for middle in middles) ** 2)


def clouds(hour):
    """Share of the sky."""
    fair = 0.42 + 0.55 * waves(hour, 3.7, 5.3, 11)
    return min(1.0, max(0.0, fair + storminess(hour)))


def wind(hour):
    """mph: gusty in the afternoon and before a front."""
    afternoon = math.cos(2 * math.pi * (hour - 15) / 24)
    return max(1.0, 7 + 2.5 * afternoon + 3 * waves(hour, 2.9, 6.1) + 6 * storminess(hour))


def pressure(hour):
    return MEAN_PRESSURE + 0.22 * waves(hour, 4.3, 7.9) - 0.35 * storminess(hour)


def dry_bulb(hour):
    """Degrees F; a covered sky levels the day out."""
    season = -math.cos(2 * math.pi * (hour / 24 - COLDEST_DAY) / 365)
    time_of_day = math.cos(2 * math.pi * (hour - WARMEST_HOUR) / 24)
    swing = 11 * (1 - 0.6 * clouds(hour))
    return 48 + 24 * season + swing * time_of_day + 9 * waves(hour, 5.9, 9.1)


def humidity(hour):
    """Percent: damp at night and under clouds."""
    time_of_day = math.cos(2 * math.pi * (hour - WARMEST_HOUR) / 24)
    return min(98.0, 66 - 18 * time_of_day * (1 - 0.5 * clouds(hour)) + 18 * (clouds(hour) - 0.4))


def wet_bulb(fahrenheit, percent):
    """Degrees F, by R. Stull, J. Appl. Meteor. Climatol. 50 (2011), 2267: good to about 1 K."""
    t = (fahrenheit - 32) / 1.8
    celsius = (t * math.atan(0.151977 * math.sqrt(percent + 8.313659)) + math.atan(t + percent)
               - math.atan(percent - 1.676331)
               + 0.00391838 * percent ** 1.5 * math.atan(0.023101 * percent) - 4.686035)
    return celsius * 1.8 + 32


def weather_row(hour):
    """Cloud cover, wind, dry bulb, wet bulb, pressure."""
    dry = round(dry_bulb(hour), 1)
    wet = min(round(wet_bulb(dry, humidity(hour)), 1), round(dry - LEAST_DEPRESSION, 1))
    return (round(clouds(hour), 1), round(wind(hour), 1), dry, wet, round(pressure(hour), 2))


def weather_series():
    return [weather_row(hour) for hour in range(365 * 24)]
