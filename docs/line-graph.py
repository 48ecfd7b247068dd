#!/usr/bin/env python3
"""Draws the states that the line was seen in: line-graph.py <file of CALIDORA_LINE_GRAPH> <picture.svg>"""
import math
import sys
from collections import defaultdict
from html import escape

WIDTH, HEIGHT = 1200, 900
BOX = (150, 34)

# Where each code stands, by column and row: raising, connected, transfer, closing, calls.
PLACES = {
    "ModemSetup/2": (0, 2), "Dialling/2": (0, 4), "SimulatorRaising/2": (0, 6),
    "Idle/-1": (1, 0), "Idle/0": (1, 3), "Polling/0": (1, 5), "HangingUp/2": (1, 7), "SimulatorClosing/2": (1, 8),
    "Idle/1": (2, 3), "Polling/1": (2, 5),
    "Reading/2": (3, 2), "WritingRam/2": (3, 3), "MergingRam/2": (3, 4), "WritingEeprom/2": (3, 5), "MergingEeprom/2": (3, 6),
    "Checking/2": (3, 7),
    "CallWaiting/2": (0, 0), "CallAnswering/2": (2, 0), "FirstBlock/2": (3, 0), "SecondBlock/2": (2, 1),
}


def place(node):
    column, row = PLACES.get(node, (2, 8))
    return 130 + column * 310, 60 + row * 95


def edge(start, end, events):
    (x1, y1), (x2, y2) = place(start), place(end)
    length = math.hypot(x2 - x1, y2 - y1) or 1
    # The way back bends to the other side.
    bend = 0.16 * length
    cx, cy = (x1 + x2) / 2 - (y2 - y1) / length * bend, (y1 + y2) / 2 + (x2 - x1) / length * bend
    shrink = min(0.9, 48 / length)
    sx, sy = x1 + (cx - x1) * shrink, y1 + (cy - y1) * shrink
    ex, ey = x2 + (cx - x2) * shrink, y2 + (cy - y2) * shrink
    label = escape(f"{start} to {end}: " + ", ".join(sorted(events)))
    weight = 0.6 + 0.35 * math.log(1 + len(events))
    return (f'<path d="M{sx:.0f},{sy:.0f} Q{cx:.0f},{cy:.0f} {ex:.0f},{ey:.0f}" fill="none" stroke="#5b7a99" '
            f'stroke-opacity="0.55" stroke-width="{weight:.1f}" marker-end="url(#head)"><title>{label}</title></path>')


def node_box(node):
    x, y = place(node)
    code, status = node.rsplit("/", 1)
    colour = {"-1": "#f4d6d2", "0": "#e7ecf1", "1": "#d6ecd9", "2": "#fbeac4"}.get(status, "#ffffff")
    return (f'<rect x="{x - BOX[0] / 2:.0f}" y="{y - BOX[1] / 2:.0f}" width="{BOX[0]}" height="{BOX[1]}" rx="6" fill="{colour}" '
            f'stroke="#44566b"/><text x="{x}" y="{y + 5}" text-anchor="middle">{escape(code)} \u00b7 {status}</text>')


def main():
    edges = defaultdict(set)
    with open(sys.argv[1], encoding="utf-8") as lines:
        for line in lines:
            if line.strip():
                start, event, end = line.rstrip("\n").split("\t")
                edges[start, end].add(event)
    nodes = sorted({node for pair in edges for node in pair})
    body = [edge(start, end, events) for (start, end), events in sorted(edges.items())] + [node_box(n) for n in nodes]
    with open(sys.argv[2], "w", encoding="utf-8") as picture:
        picture.write(
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" font-family="DejaVu Sans, sans-serif" '
            'font-size="13"><defs><marker id="head" viewBox="0 0 8 8" refX="7" refY="4" markerWidth="7" markerHeight="7" '
            'orient="auto"><path d="M0,0 L8,4 L0,8 z" fill="#5b7a99"/></marker></defs>'
            f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>\n' + "\n".join(body) + "\n</svg>\n")
    print(f"{len(nodes)} states, {len(edges)} ways")


main()
