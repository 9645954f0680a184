"""The table and the chart that a run of the benchmark leaves."""

from statistics import median

WIDTH, HEIGHT, MARGIN = 720, 400, 60
COLOURS = ["#0b5fa5", "#d1495b", "#66a182", "#edae49", "#8d6a9f", "#5c5c5c", "#a0a0a0"]


class Table:
    """Rows of text, each printed as soon as it is known."""

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


def draw_chart(file, job, series):
    """series: {program: [(files, microseconds a file), ...]}, as an SVG with logarithmic files."""
    from math import log10
    points = [point for line in series.values() for point in line]
    if not points:
        return
    right = max(log10(count) for count, _ in points)
    left = min(log10(count) for count, _ in points)
    top = max(value for _, value in points) * 1.1

    def place(count, value):
        across = (log10(count) - left) / max(right - left, 0.01)
        return (MARGIN + across * (WIDTH - 4 * MARGIN),
                HEIGHT - MARGIN - value / top * (HEIGHT - 2 * MARGIN))
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" '
             'font-family="sans-serif" font-size="12">',
             f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>',
             f'<text x="{MARGIN}" y="24" font-size="14">{job.capitalize()}: microseconds a '
             'file, start-up included, against the number of files</text>']
    for count in sorted({count for count, _ in points}):
        x, _ = place(count, 0)
        parts.append(f'<text x="{x:.0f}" y="{HEIGHT - MARGIN + 20}" text-anchor="middle">'
                     f'{count:,}</text>')
    for share in range(5):
        value = top * share / 4
        _, y = place(10 ** left, value)
        parts.append(f'<line x1="{MARGIN}" x2="{WIDTH - 3 * MARGIN}" y1="{y:.0f}" y2="{y:.0f}" '
                     f'stroke="#ddd"/><text x="{MARGIN - 6}" y="{y + 4:.0f}" text-anchor="end">'
                     f'{value:.0f}</text>')
    for (name, line), colour in zip(series.items(), COLOURS):
        places = [place(*point) for point in sorted(line)]
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
        x, y = places[-1]
        parts.append(f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"/>'
                     f'<text x="{x + 8:.0f}" y="{y + 4:.0f}" fill="{colour}">{name}</text>')
    parts.append("</svg>")
    file.write_text("\n".join(parts) + "\n", encoding="utf-8")
