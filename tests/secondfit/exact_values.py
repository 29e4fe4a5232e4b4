#!/usr/bin/env python3
"""The fits of the sets in this folder to their data as held in single precision, in fractions:
    tests/secondfit/exact_values.py > tests/secondfit/held_values.txt
Powers are products of doubles from the left, then rounded to single, as the test forms them."""
import decimal
import pathlib
import struct
from fractions import Fraction

decimal.getcontext().prec = 60


def single(value):
    return Fraction(struct.unpack("f", struct.pack("f", value))[0])


def read(path):
    case, degree, intercept = [], 0, 0
    for line in path.read_text().splitlines():
        key, *rest = line.split()
        if key == "degree":
            degree = int(rest[0])
        elif key == "intercept":
            intercept = int(rest[0])
        elif key == "case":
            case.append([float(text) for text in rest])
    x, y = [], []
    for first, *others in case:
        while len(others) < degree:
            others.append(others[-1] * others[0])
        x.append([Fraction(1)] * intercept + [single(value) for value in others])
        y.append(single(first))
    return x, y, intercept


def inverse(matrix):
    k = len(matrix)
    rows = [row + [Fraction(int(i == j)) for j in range(k)] for i, row in enumerate(matrix)]
    for i in range(k):
        rows[i] = [value / rows[i][i] for value in rows[i]]
        for r in range(k):
            if r != i:
                rows[r] = [a - rows[r][i] * b for a, b in zip(rows[r], rows[i])]
    return [row[k:] for row in rows]


def fit(x, y):
    k = range(len(x[0]))
    g = inverse([[sum(row[i] * row[j] for row in x) for j in k] for i in k])
    xy = [sum(row[i] * value for row, value in zip(x, y)) for i in k]
    b = [sum(g[i][j] * xy[j] for j in k) for i in k]
    return b, g, [sum(b[j] * row[j] for j in k) for row in x]


def squares(values):
    return sum(value * value for value in values)


def figures(x, y, intercept):
    n, k = len(y), len(x[0])
    b, g, fitted = fit(x, y)
    e = [a - f for a, f in zip(y, fitted)]
    mean = sum(y) / n
    sse, ssr = squares(e), squares(f - mean for f in fitted)
    yield from (("coefficient", j, b[j], 1) for j in range(k))
    yield from (("standardError", j, sse / (n - k) * g[j][j], 2) for j in range(k))
    yield "sse", 0, sse, 1
    yield "ssr", 0, ssr, 1
    yield "sst", 0, squares(value - mean for value in y), 1
    if sse:
        yield "f", 0, ssr / (k - intercept) / (sse / (n - k)), 1
        yield "durbinWatson", 0, squares(a - c for a, c in zip(e[1:], e)) / sse, 1
    full = g if intercept else fit([[Fraction(1)] + row for row in x], y)[1]
    for j in range(1, len(full)):
        column = [row[j - 1 + intercept] for row in x]
        if k > 1:
            ss = squares(value - sum(column) / n for value in column)
            yield "inflation", j - 1 + intercept, full[j][j] * ss, 1
    for i in (0, n - 1):
        h = sum(x[i][p] * g[p][q] * x[i][q] for p in range(k) for q in range(k))
        yield "residual", i, e[i], 1
        yield "leverage", i, h, 1
        if sse:
            yield "internal", i, e[i] ** 2 / (sse / (n - k) * (1 - h)), 2 if e[i] > 0 else -2
            yield "studentized", i, e[i] ** 2 * (n - k - 1) / (sse * (1 - h) - e[i] ** 2), 2 if e[i] > 0 else -2


def text(value, root):
    result = decimal.Decimal(value.numerator) / decimal.Decimal(value.denominator)
    if abs(root) == 2:
        result = result.sqrt().copy_sign(root)
    return f"{result:.20e}"


for path in sorted(pathlib.Path(__file__).parent.glob("sets/*.txt")):
    for name, index, value, root in figures(*read(path)):
        print(path.stem, name, index, text(value, root))
