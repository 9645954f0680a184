"""The table and the chart that a run of the benchmark leaves."""

from math import ceil, floor, log10
from statistics import median


class Table:
    """Rows of text, each printed and written down as soon as it is known."""

    def __init__(self, file, title):
        self.file = file
        self.lines = [title, "", "| What | Figure | Bar | |", "|---|---|---|---|"]

    def add(self, what, figure, bar="", met=None):
        """A figure, and whether it reaches its bar."""
        verdict = "" if met is None else ("yes" if met else "**no**")
        self.lines.append(f"| {what} | {figure} | {bar} | {verdict} |")
        print(f"  {what}: {figure}" + (f"  (bar: {bar}: {verdict})" if bar else ""))
        self.file.write_text("\n".join(self.lines) + "\n", encoding="utf-8")


def slope(times, small, large):
    """Microseconds a file beyond what a start costs: medians at two sizes."""
    return (median(times[large]) - median(times[small])) / (large - small) * 1e6


class Chart:
    """Time a file against the number of files, a panel for each job and a line for each program,
    as an SVG in which both axes are logarithmic. Written anew with each point, so that what has
    been measured is there whatever comes after."""

    PANEL, HEIGHT, MARGIN, GAP, TOP = 250, 260, 60, 30, 60
    LEGEND_COLUMN, LEGEND_LINE = 180, 18
    COLOURS = {"Ambrio /S": "#0b5fa5", "engine alone": "#4a9c5d", "bare loop": "#8d6a9f",
               "bare loop that polls": "#c58fd0", "xcopy": "#d1495b",
               "rsync -a (native)": "#c98a00", "cp -au (native)": "#777777"}
    OTHERS = "#222222"

    def __init__(self, file):
        self.file = file
        self.jobs = {}
        self.low, self.high = 0, 1  # of the scale, as powers of ten

    def add(self, job, program, files, microseconds):
        """One point: what a job took the program for each of so many files, start-up included."""
        self.jobs.setdefault(job, {}).setdefault(program, []).append((files, microseconds))
        self.file.write_text("\n".join(self._lines()) + "\n", encoding="utf-8")

    def _points(self):
        return [point for series in self.jobs.values() for line in series.values()
                for point in line]

    def _lines(self):
        values = [value for _, value in self._points()]
        self.low, self.high = floor(log10(min(values))), ceil(log10(max(values)))
        self.high = max(self.high, self.low + 1)
        width = 2 * self.MARGIN + len(self.jobs) * (self.PANEL + self.GAP) - self.GAP
        columns = (width - self.MARGIN) // self.LEGEND_COLUMN
        programs = list(dict.fromkeys(program for series in self.jobs.values()
                                      for program in series))
        legend = self.TOP + self.HEIGHT + 42
        height = legend + ceil(len(programs) / columns) * self.LEGEND_LINE
        yield (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
               f'viewBox="0 0 {width} {height}" font-family="sans-serif" font-size="12">')
        yield f'<rect width="{width}" height="{height}" fill="white"/>'
        yield (f'<text x="{self.MARGIN}" y="22" font-size="14">Microseconds a file, start-up '
               'included, against the number of files</text>')
        for number, (job, series) in enumerate(self.jobs.items()):
            yield from self._panel(self.MARGIN + number * (self.PANEL + self.GAP), job, series,
                                   number == 0)
        for number, program in enumerate(programs):
            x = self.MARGIN + number % columns * self.LEGEND_COLUMN
            y = legend + number // columns * self.LEGEND_LINE
            yield (f'<line x1="{x}" x2="{x + 18}" y1="{y - 4}" y2="{y - 4}" '
                   f'stroke="{self._colour(program)}" stroke-width="3"/>'
                   f'<text x="{x + 24}" y="{y}">{program}</text>')
        yield "</svg>"

    def _colour(self, program):
        return self.COLOURS.get(program, self.OTHERS)

    def _down(self, value):
        share = (log10(value) - self.low) / (self.high - self.low)
        return self.TOP + self.HEIGHT * (1 - share)

    def _panel(self, left, job, series, has_scale):
        right, bottom = left + self.PANEL, self.TOP + self.HEIGHT
        counts = sorted({count for line in series.values() for count, _ in line})
        span = max(log10(counts[-1]) - log10(counts[0]), 0.01)

        def across(count):
            inset = 24
            share = (log10(count) - log10(counts[0])) / span
            return left + inset + share * (self.PANEL - 2 * inset)
        yield f'<text x="{left}" y="{self.TOP - 12}" font-weight="bold">{job.capitalize()}</text>'
        for power in range(self.low, self.high + 1):
            y = self._down(10 ** power)
            yield f'<line x1="{left}" x2="{right}" y1="{y:.1f}" y2="{y:.1f}" stroke="#ddd"/>'
            if has_scale:
                yield (f'<text x="{left - 6}" y="{y + 4:.1f}" text-anchor="end">'
                       f'{10 ** power:,}</text>')
        for count in counts:
            yield (f'<text x="{across(count):.1f}" y="{bottom + 18}" text-anchor="middle">'
                   f'{count:,}</text>')
        for program, line in series.items():
            places = [(across(count), self._down(value)) for count, value in sorted(line)]
            path = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
            colour = self._colour(program)
            yield (f'<polyline points="{path}" fill="none" stroke="{colour}" '
                   f'stroke-width="{3 if program == "Ambrio /S" else 1.5}"/>')
            for x, y in places:
                yield f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>'
