#!/usr/bin/python3
"""Holds what we read of .cube, Truelight and XML tables against what OpenColorIO reads.

    opencolorio_test.py path/to/print_table

The tables are made here, the same ones each time. Entries have to be equal to the bit, but for
those that both sides scale; domains, which OpenColorIO turns into a matrix, nearly so.
"""
import os
import random
import struct
import subprocess
import sys
import tempfile

import PyOpenColorIO as ocio

dice = random.Random(11)


# ---- Tables

def number():
    """A number as programs write it: mostly fixed point, some with an exponent, a sign, no zero."""
    value = dice.choice([dice.random(), dice.uniform(-0.2, 1.3), dice.uniform(-70, 70)])
    text = dice.choice(["%.6f", "%.10f", "%.3f", "%g", "%.9e", "%.17g", "%d"]) % value
    return text[1:] if text.startswith("0.") and dice.random() < 0.1 else text


def triples(count):
    return [[number() for _ in range(3)] for _ in range(count)]


def plain(rows):
    return "".join(" ".join(row) + "\n" for row in rows)


def odd(rows):
    """Tabs, blanks at both ends, empty lines and comments."""
    text = ""
    for row in rows:
        text += dice.choice(["", "  ", "\t"]) + dice.choice([" ", "\t", "   "]).join(row)
        text += dice.choice(["", " ", "\t "]) + "\n"
        text += dice.choice(["", "", "", "\n", "# a comment\n"])
    return text


def xml(size):
    data = "".join(struct.pack("<f", float(v)).hex().upper() for row in triples(size ** 3)
                   for v in row)
    lines = "\n".join(data[i:i + 128] for i in range(0, len(data), 128))
    return ('<?xml version="1.0" ?>\n<look>\n  <LUT>\n    <size>"%d"</size>\n    <data>"\n%s"</data>\n'
            '  </LUT>\n</look>\n' % (size, lines))


def truelight(width, length=0):
    text = "# Truelight Cube v2.0\n# iDims 3\n# oDims 3\n# width %d %d %d\n" % ((width,) * 3)
    if length:
        text += "# lutLength %d\n\n" % length
        steps = ["%.6f" % (i * (width - 1) / (length - 1)) for i in range(length)]
        text += "# InputLUT\n" + plain([[s, s, s] for s in steps]) + "\n"
    return text + "# Cube\n" + plain(triples(width ** 3)) + "# end\n"


def cases():
    """Name, extension, text."""
    for size in (2, 3, 5, 16, 17, 33):
        yield "3D of %d" % size, ".cube", "LUT_3D_SIZE %d\n%s" % (size, plain(triples(size ** 3)))
    for size in (2, 3, 16, 33, 1024, 4096):
        yield "1D of %d" % size, ".cube", "LUT_1D_SIZE %d\n%s" % (size, plain(triples(size)))
    for kind, count in (("1D", 4), ("3D", 64)):
        rows = triples(count)
        head = "TITLE \"with a # and LUT_1D_SIZE 9 inside\"\nLUT_%s_SIZE 4\n" % kind
        domain = "DOMAIN_MIN -0.125 0 0.1\nDOMAIN_MAX 2 1.5 13.25\n"
        yield kind + " with a domain", ".cube", head + domain + plain(rows)
        yield kind + ", domain before the size", ".cube", domain + head + plain(rows)
        yield kind + ", odd spacing", ".cube", "\n#\n" + head + "\n" + odd(rows)
        yield kind + ", CR LF", ".cube", (head + domain + odd(rows)).replace("\n", "\r\n")
        yield kind + ", range", ".cube", "LUT_%s_SIZE 4\nLUT_%s_INPUT_RANGE -0.5 2.25\n%s" % (
            kind, kind, plain(rows))
    for line, cube in ((2, 2), (17, 3), (1024, 5)):
        sizes = "LUT_1D_SIZE %d\nLUT_3D_SIZE %d\n" % (line, cube)
        data = plain(triples(line)) + plain(triples(cube ** 3))
        ranges = "LUT_1D_INPUT_RANGE 0.0 4.0\nLUT_3D_INPUT_RANGE -1 3.5\n"
        yield "1D of %d with 3D of %d" % (line, cube), ".cube", sizes + data
        yield "1D of %d with 3D of %d, ranges" % (line, cube), ".cube", sizes + ranges + data
    for width, length in ((2, 0), (3, 0), (17, 0), (2, 2), (3, 9), (5, 1024)):
        text = truelight(width, length)
        name = "Truelight of %d, input of %d" % (width, length)
        yield name, ".cub", text
        yield name + ", CR LF", ".cub", text.replace("\n", "\r\n")
    for size in (2, 3, 8, 17):
        yield "XML of %d" % size, ".look", xml(size)


# ---- Both readings, as a list of (kind, size, domain, entries), in the order they work

def our_tables(program, path):
    lines = subprocess.run([program, path], check=True, capture_output=True, text=True).stdout
    tables = []
    for line in lines.splitlines():
        words = line.split()
        if words[0] in ("1D", "3D"):
            domain = [float(word) for word in words[2:]]
            tables.append((words[0], int(words[1]), (domain[:3], domain[3:]), []))
        else:
            bits = [int(word, 16) for word in words]
            tables[-1][3].append(struct.unpack("<3f", struct.pack("<3I", *bits)))
    if path.endswith(".cub"):  # the cube comes first, and its input as a sub-table
        tables.reverse()
    return tables


def domain_of(matrix):
    """What the matrix takes to 0 and to 1."""
    scale = [matrix.getMatrix()[5 * axis] for axis in range(3)]
    offset = list(matrix.getOffset())[:3]
    return ([-offset[i] / scale[i] for i in range(3)],
            [(1 - offset[i]) / scale[i] for i in range(3)])


def their_tables(path):
    config = ocio.Config.CreateRaw()
    group = config.getProcessor(ocio.FileTransform(path)).createGroupTransform()
    tables = []
    domain = ([0.0] * 3, [1.0] * 3)
    for step in group:
        if isinstance(step, ocio.MatrixTransform):
            domain = domain_of(step)
            continue
        if isinstance(step, ocio.Lut1DTransform):
            size = step.getLength()
            entries = [tuple(step.getValue(i)) for i in range(size)]
            tables.append(("1D", size, domain, entries))
        elif isinstance(step, ocio.Lut3DTransform):
            size = step.getGridSize()
            entries = [tuple(step.getValue(r, g, b))
                       for b in range(size) for g in range(size) for r in range(size)]
            tables.append(("3D", size, domain, entries))
        else:
            raise TypeError("unexpected " + type(step).__name__)
        domain = ([0.0] * 3, [1.0] * 3)
    return tables


def differences(ours, theirs, is_scaled):
    if [table[:2] for table in ours] != [table[:2] for table in theirs]:
        yield "%s instead of %s" % ([table[:2] for table in ours], [table[:2] for table in theirs])
        return
    for (kind, size, our_domain, our_entries), (_, _, their_domain, their_entries) in zip(
            ours, theirs):
        for mine, peer in zip(sum(our_domain, []), sum(their_domain, [])):
            if abs(mine - peer) > 1e-5 * max(1, abs(peer)):
                yield "%s of %d: domain %s, not %s" % (kind, size, our_domain, their_domain)
        slack = 1e-6 if is_scaled and kind == "1D" else 0
        if len(our_entries) != len(their_entries):
            yield "%s of %d: %d entries" % (kind, size, len(our_entries))
        for i, (mine, peer) in enumerate(zip(our_entries, their_entries)):
            if any(abs(a - b) > slack for a, b in zip(mine, peer)):
                yield "%s of %d: entry %d is %s, not %s" % (kind, size, i, mine, peer)
                break


def main(program):
    count = faults = 0
    with tempfile.TemporaryDirectory() as folder:
        for name, extension, text in cases():
            count += 1
            path = os.path.join(folder, "table%d%s" % (count, extension))
            with open(path, "w", newline="") as file:
                file.write(text)
            for difference in differences(our_tables(program, path), their_tables(path),
                                          extension == ".cub"):
                faults += 1
                print("%s: %s" % (name, difference))
    print("%d tables, %d differences (OpenColorIO %s)" % (count, faults, ocio.GetVersion()))
    return faults > 0 or count == 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
