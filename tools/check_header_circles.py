#!/usr/bin/env python3
"""Fails when headers of the project include one another in a circle, and prints the circle.

Usage: check_header_circles.py HEADER...
Headers are included by name alone, so the base name is what connects them; two headers of one name fail too.
"""
import os
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def read_includes(paths):
    """The names that each header includes, of those that are given."""
    includes = {}
    for path in paths:
        name = os.path.basename(path)
        if name in includes:
            sys.exit(f"two headers are named {name}: the second is {path}")
        with open(path, encoding="utf-8") as header:
            includes[name] = [os.path.basename(found) for found in INCLUDE.findall(header.read())]
    return {name: [used for used in names if used in includes] for name, names in includes.items()}


def find_circle(includes):
    """The first circle as a list of names that ends with its beginning, or None."""
    done = set()
    for start in sorted(includes):
        trail = [(start, iter(includes[start]))] if start not in done else []
        on_trail = [start]
        while trail:
            name, rest = trail[-1]
            used = next(rest, None)
            if used is None:
                done.add(name)
                trail.pop()
                on_trail.pop()
            elif used in on_trail:
                return on_trail[on_trail.index(used):] + [used]
            elif used not in done:
                trail.append((used, iter(includes[used])))
                on_trail.append(used)
    return None


def main():
    circle = find_circle(read_includes(sys.argv[1:]))
    if circle:
        sys.exit("headers include one another: " + " -> ".join(circle))


if __name__ == "__main__":
    main()
