#!/usr/bin/env python3
"""Writes tests/golden/general/getEigenVector3d.txt.

A second wording of the power iteration and of the shifted QR method for symmetric 3x3 matrices. It
takes only sums, products, quotients and square roots, which IEEE 754 rounds one way, so its bits
hold on every machine. The closed form is left out: its sine and cosine are the C library's.

    python3 tests/golden/generators/getEigenVector3d.py > tests/golden/general/getEigenVector3d.txt
"""

import math
import random

AXES = range(3)


def identity():
    return [[1.0 if row == column else 0.0 for column in AXES] for row in AXES]


def product(a, b):
    result = [[0.0] * 3 for _ in AXES]
    for row in AXES:
        for column in AXES:
            total = 0.0
            for k in AXES:
                total = total + a[row][k] * b[k][column]
            result[row][column] = total
    return result


def transposed(m):
    return [[m[column][row] for column in AXES] for row in AXES]


def image(m, v):
    return [0.0 + v[0] * m[row][0] + v[1] * m[row][1] + v[2] * m[row][2] for row in AXES]


def length(v):
    return math.sqrt(0.0 + v[0] * v[0] + v[1] * v[1] + v[2] * v[2])


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def iterate_powers(m):
    v = [1.0, 1.0, 1.0]
    for _ in range(500):
        w = image(m, v)
        size = length(w)
        u = [c / size for c in w]
        step = length([a - b for a, b in zip(v, u)])
        v = u
        if step < 1e-7:
            break
    return v


def inverse(matrix):
    a = [row[:] for row in matrix]
    r = identity()

    def snap(value):
        return 0.0 if abs(value) < 1e-12 else value

    def add_row(target, factor, source):
        for m in (a, r):
            for c in AXES:
                m[target][c] = snap(factor * m[source][c] + m[target][c])

    for i in AXES:
        if a[i][i] == 0.0:
            donors = [row for row in AXES if a[row][i] != 0.0]
            if not donors:
                return None
            add_row(i, 1.0, donors[0])
    for pivot in AXES:
        for row in AXES:
            if row == pivot:
                continue
            if a[pivot][pivot] == 0.0:
                donors = [j for j in range(pivot + 1, 3)
                          if all(a[j][c] == 0.0 for c in range(pivot)) and a[j][pivot] != 0.0]
                if not donors:
                    return None
                add_row(pivot, 1.0, donors[0])
            factor = -a[row][pivot] / a[pivot][pivot]
            if abs(factor) > 1e-12:
                add_row(row, factor, pivot)
    for i in AXES:
        if a[i][i] != 1.0:
            factor = 1.0 / a[i][i]
            for m in (a, r):
                m[i] = [snap(value * factor) for value in m[i]]
    return r


def power(m):
    first = iterate_powers(m)
    r = inverse(m)
    if r is None:
        return None
    second = iterate_powers(r)
    values = [length(image(m, v)) for v in (second, cross(first, second), first)]
    return first, second, values


def reduce(a):
    alpha = -math.sqrt(a[1][0] * a[1][0] + a[2][0] * a[2][0])
    if a[1][0] < 0.0:
        alpha = -alpha
    if abs(alpha) < 1e-8:
        h = [row[:] for row in a]
        h[1][0] = h[2][0] = h[0][1] = h[0][2] = 0.0
        return h, identity()
    u = [0.0, a[1][0] - alpha, a[2][0]]
    half = (u[1] * u[1] + u[2] * u[2]) * 0.5
    p = identity()
    for row in AXES:
        for column in AXES:
            p[row][column] = p[row][column] - u[row] * u[column] / half
    return product(product(p, a), p), p


def find_shift(h):
    code = 4 * (h[0][0] >= h[2][2]) + 2 * (h[2][2] >= h[1][1]) + (h[1][1] >= h[0][0])
    if code in (0, 7):
        return 0.0
    i, j = {1: (0, 2), 2: (1, 0), 3: (0, 1), 4: (2, 1), 5: (2, 0), 6: (1, 2)}[code]
    b, a = h[i][i], h[j][j]
    s = a + b
    q = h[i][j] * h[j][i]
    d = math.sqrt(max(0.0, s * s - 4.0 * (a * b - q)))
    upper, lower = (s + d) / 2, (s - d) / 2
    shift = upper if abs(lower - b) > abs(upper - b) else lower
    return 0.0 if shift < 0.01 else shift


def rotate_rows(h, row):
    g = identity()
    x, y = h[row][row], h[row + 1][row]
    if abs(y) < 1e-8:
        return g
    r = math.sqrt(x * x + y * y)
    if x < 0.0:
        r = -r
    c, s = x / r, -y / r
    g[row][row] = g[row + 1][row + 1] = c
    g[row][row + 1], g[row + 1][row] = -s, s
    for column in AXES:
        upper, lower = h[row][column], h[row + 1][column]
        h[row][column] = c * upper - s * lower
        h[row + 1][column] = s * upper + c * lower
    return g


def shifted_qr(matrix):
    h, basis = reduce(matrix)
    counter = 500
    while True:
        h = [[0.0 if v * v < 1.0000000000000001e-16 else v for v in row] for row in h]
        shift = find_shift(h)
        for i in AXES:
            h[i][i] = h[i][i] - shift
        first = rotate_rows(h, 0)
        second = rotate_rows(h, 1)
        eigenvalues = [h[i][i] + shift for i in AXES]
        back = transposed(product(second, first))
        h = product(h, back)
        basis = product(basis, back)
        if shift > 0.0:
            for i in AXES:
                h[i][i] = h[i][i] + shift
        if counter < 1:
            break
        counter -= 1
        total = 0.0
        for row in AXES:
            for column in AXES:
                if row != column:
                    total = total + abs(h[row][column])
        if not total > 1e-8:
            break
    sizes = [abs(v) for v in eigenvalues]
    largest = 0 if sizes[0] > sizes[1] else 1
    smallest = 1 - largest
    if sizes[smallest] > sizes[2]:
        smallest = 2
    elif sizes[2] >= sizes[largest]:
        largest = 2
    column = lambda i: [basis[row][i] for row in AXES]
    return column(largest), column(smallest), sorted(sizes)


def matrices():
    yield 4, 1, -2, 3, 0.5, 5
    yield 2, -1, 0.25, 7, 3, 1.5
    yield 0, 1, 3, 0, 2, 0
    yield -6, 0.1, 0.2, 1, 0.3, 2
    yield 1, 0, 0, 2, 0, 3
    yield 0, 0, 0, 0, 0, 0
    yield 0, 1, 1, 0, 1, 0  # an empty diagonal
    yield 1, 1, 1, 1, 2, 5  # a pivot that vanishes
    yield 1, 0, 0, 1e13, 0, 1e13  # an inverse that is snapped
    yield 3, 0, 0, -3, 0, 1  # opposite eigenvalues: all passes are used up
    draw = random.Random(20261122)
    for i in range(90):
        size = 10.0 ** draw.uniform(-3, 3) if i % 3 == 0 else 1.0
        entry = (lambda: float(draw.randint(-3, 3))) if i % 3 == 1 else \
                (lambda: draw.uniform(-5.0, 5.0) * size)
        yield tuple(entry() for _ in range(6))


def main():
    print("# getEigenVector3d xx xy xz yy yz zz algorithm -> found first(3) second(3) values(3)")
    print("# Nothing follows `found` where it is 0. Written by generators/getEigenVector3d.py.")
    for xx, xy, xz, yy, yz, zz in matrices():
        cells = [float(v) for v in (xx, xy, xz, yy, yz, zz)]
        xx, xy, xz, yy, yz, zz = cells
        matrix = [[xx, xy, xz], [xy, yy, yz], [xz, yz, zz]]
        for number, algorithm in enumerate((power, shifted_qr)):
            try:
                result = algorithm([row[:] for row in matrix])
            except ZeroDivisionError:  # where the library goes on with NaN
                continue
            numbers = [] if result is None else [v for part in result for v in part]
            print("getEigenVector3d", *(v.hex() for v in cells), number, "->",
                  0 if result is None else 1, *(v.hex() for v in numbers))


main()
