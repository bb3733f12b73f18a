"""What a stage document shows: its triangles, their colours, and the box around them."""
import json
import math
from collections import Counter

IDENTITY = (1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)


class Measure:
    """What was found in one document."""

    def __init__(self):
        self.triangles = 0
        self.colors = Counter()  # (red, green, blue, alpha) in millionths: triangles
        self.low = [math.inf] * 3
        self.high = [-math.inf] * 3

    def include(self, corner, matrix):
        x, y, z = corner
        for axis in range(3):
            value = x * matrix[axis] + y * matrix[4 + axis] + z * matrix[8 + axis] + matrix[12 + axis]
            self.low[axis] = min(self.low[axis], value)
            self.high[axis] = max(self.high[axis], value)

    def diagonal(self):
        return math.dist(self.low, self.high) if self.triangles else 0.0

    def turned(self):
        """The box as it is once a load has taken y for the axis that is up."""
        (x0, y0, z0), (x1, y1, z1) = self.low, self.high
        return [x0, -z1, y0], [x1, -z0, y1]


def times(first, then):
    """The matrix that does one after the other, both acting on rows."""
    return tuple(sum(first[4 * row + k] * then[4 * k + column] for k in range(4)) for row in range(4) for column in range(4))


def number(value):
    return math.nan if value is None else value


def corners_of(drawable):
    """The triangles of a drawable as triples of places in its coordinates, those whole that its lists allow."""
    kind = drawable["type"]
    points = len(drawable.get("coords", [])) // 3
    count = drawable.get("numPrims", 0)
    if kind == "sglTriangleSet":
        found = [(3 * t, 3 * t + 1, 3 * t + 2) for t in range(count)]
    elif kind == "sglIndexedTriangleSet":
        index = drawable.get("coordIndex", [])
        found = [tuple(index[3 * t : 3 * t + 3]) for t in range(min(count, len(index) // 3))]
    elif kind in ("sglIndexedTriangleStripSet", "sglMonoIndexedTriangleStripSet"):
        index = drawable.get("coordIndex", [])
        found, start = [], 0
        for length in drawable.get("primLengths", [])[:count]:
            for j in range(start, start + length - 2):
                found.append(tuple(index[j : j + 3]))
            start += length
    else:
        found = []
    return [t for t in found if len(t) == 3 and max(t) < points]


def color_of(drawable):
    diffuse, alpha = (0, 0, 0), 1
    for state in drawable["states"]:
        if state["type"] == "sglMaterial":
            diffuse, alpha = state.get("diffuse", (0, 0, 0)), state.get("alpha", 0)
    return tuple(round(number(value) * 1e6) for value in (*diffuse, alpha))


def measure_drawable(measure, drawable, matrix):
    coords = [number(value) for value in drawable.get("coords", [])]
    shown = [t for t in corners_of(drawable) if len(set(t)) == 3]
    for triangle in shown:
        for place in triangle:
            measure.include(coords[3 * place : 3 * place + 3], matrix)
    measure.triangles += len(shown)
    if shown:
        measure.colors[color_of(drawable)] += len(shown)


def measure(text):
    """Measures a stage document, without its root's own placement, which no file holds. Triangles that use a point
    twice do not count."""
    found = Measure()
    assembly = json.loads(text)["assembly"]
    open_nodes = [(assembly, IDENTITY)] if assembly else []
    while open_nodes:
        node, outer = open_nodes.pop()
        if node["type"] == "mesh" and node.get("visible", True):
            for drawable in (node.get("geode") or {}).get("geometries", []):
                if drawable is not None and "states" in drawable:
                    measure_drawable(found, drawable, outer)
        if node["type"] == "group" and "matrix" in node:
            matrix = [number(value) for value in node["matrix"]]
            outer = times(matrix, outer)
        open_nodes += [(child, outer) for child in node.get("children", []) if child is not None]
    return found


def matched(colors, wanted):
    """Colours with those that are the same to the last digit that a file holds put in the wanted one's place."""
    found = Counter()
    for color, triangles in colors.items():
        near = (w for w in wanted if all(abs(a - b) <= 2 for a, b in zip(color, w)))
        found[color if color in wanted else next(near, color)] += triangles
    return found


def differences(before, after, tolerance):
    """What the document that was written and loaded again does not have as the first one had it, as lines. The box may
    be off by the tolerance, which is a part of its diagonal."""
    problems = []
    if after.triangles != before.triangles:
        problems.append(f"{after.triangles} triangles instead of {before.triangles}")
    colors = matched(after.colors, before.colors)
    if colors != before.colors:
        lost, new = before.colors - colors, colors - before.colors
        problems.append(f"colours: {dict(lost.most_common(3))} became {dict(new.most_common(3))}")
    if before.triangles and after.triangles:
        wanted = before.turned()
        off = max(abs(a - b) for got, want in zip((after.low, after.high), wanted) for a, b in zip(got, want))
        if not off <= tolerance * before.diagonal():
            problems.append(f"the box is off by {off:g}: {after.low} to {after.high}, wanted {wanted[0]} to {wanted[1]}")
    return problems
