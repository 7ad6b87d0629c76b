#!/usr/bin/env python3
"""Draws every widget kind at its defaults and at an extreme setting, one picture a palette group.

usage: tools/contact-sheets.py [PROGRAM_FOLDER [OUTPUT_FOLDER]]
The program folder (build/bin) must hold panel-export and the widget library; the pictures go to
docs/images. Run it after a change of the library or the render script, and look at them.
"""
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

WIDTH, MARGIN, GAP, CAPTION = 960, 24, 24, 18
ROOT = Path(__file__).resolve().parent.parent
PLAIN, MUTED = "#e8eef4", "#9fb0c0"

# The extreme setting of each kind. Kinds that are not named here are shown at half and double size.
EXTREMES = {
    "Rectangle": dict(angle=12, border=18, border_color="#eb5757"),
    "Circle": dict(point_size=96, border=3, border_color="#e8eef4"),
    "Ring": dict(thickness=40, sweep=300, rounded=0),
    "Line": dict(thickness=12, y2_coordinate=40),
    "Arrow": dict(thickness=4, head=24, ends="both", y2_coordinate=40),
    "Polyline": dict(thickness=10, closed=1),
    "Polygon": dict(pointlist="40,0;52,60;0,22;80,22;28,60", border=2),
    "Text": dict(text="A text that is far too long for its place"),
    "Number": dict(value=-1234567.5, decimals=3, width=120),
    "Paragraph": dict(text="Text that has more to say than there is room for ends where the room ends",
                      width=120, height=44),
    "DigitalClock": dict(seconds=1, twelve_hours=1, width=170),
    "Button": dict(text="A caption far too long", symbol_name="power", style="outline"),
    "ImageButton": dict(enabled=0, width=40, height=40),
    "Toggle": dict(checked=0, enabled=0, font=30, width=120),
    "Checkbox": dict(enabled=0, text="A caption that is cut at its end"),
    "Radio": dict(checked=0, text="A caption that is cut at its end"),
    "Slider": dict(value=1000, pressed=1, thickness=14),
    "SliderV": dict(value=-5, enabled=0),
    "Dial": dict(radius=20, value=100),
    "Scrollbar": dict(width=140, height=8, value=100),
    "Keys": dict(keys_text="1,2,3,4,5,6,7,8,9,10,11,12", pressed_key="7", gap=2),
    "Keypad": dict(keys_text="Yes;No", pressed_key="No", height=90),
    "Stepper": dict(value=-99999.5, width=120, enabled=0),
    "Segments": dict(options="One,Two,Three,Four,Five,Six,Seven", selected=6),
    "Field": dict(text="A long text with the caret behind it", focused=1),
    "Dropdown": dict(open=1, text="A choice that is cut"),
    "Progress": dict(value=1),
    "Gauge": dict(radius=34, value=1000),
    "ArcGauge": dict(radius=34, value=100),
    "TargetDial": dict(radius=40, value=26, target=14, value_color="#f2b33d"),
    "Level": dict(value=100, segments=9, gap=6),
    "Led": dict(lit=0),
    "SevenSegment": dict(text="-88.8", width=90, on_color="#eb5757"),
    "LineChart": dict(values="0,9,1,8,2,7", minimum=0, maximum=0, width=120, height=60, labels=""),
    "BarChart": dict(values="1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16", minimum=0, maximum=0, marked=16,
                     gap=2, labels="", width=120, height=60),
    "Battery": dict(value=8, charging=1, width=88, height=40),
    "Signal": dict(value=0, bars=8, width=60, height=40),
    "Spinner": dict(radius=32, thickness=14, sweep=350),
    "Clock": dict(radius=18, time="23:59:59"),
    "List": dict(entries="A long title that is cut,and a detail;Two", selected=2, width=160, row_height=30,
                 height=70),
    "Table": dict(striped=1, width=180, cells="A long head,B,C;1,2,3;4,5,6;7,8,9"),
    "Bitmap": dict(angle=30, width=48, height=48),
    "Media": dict(width=40, height=24),
    "Symbol": dict(symbol_name="snowflake", width=64, height=64, thickness=1),
    "Gradient": dict(direction=45, corner=64, first_color="#f2b33d", last_color="#eb5757"),
    "Card": dict(title="A title that is far too long", symbol_name="flame", border=2, height=40),
    "Badge": dict(text="A status too long", symbol_name="warning", badge_color="#f2b33d", strength=255),
    "Separator": dict(width=9, height=60, thickness=9),
    "PageDots": dict(pages=12, page=11),
}


def extent(kind, values):
    """Left, top, width and height of a kind's rectangle about its position."""
    number = lambda name: int(float(values[name]))
    if "radius" in values or "point_size" in values:
        r = number("radius") if "radius" in values else number("point_size") // 16
        return -r, -r, 2 * r, 2 * r
    if "x2_coordinate" in values:
        return 0, 0, number("x2_coordinate"), max(number("y2_coordinate"), 8)
    if "pointlist" in values:
        points = [p.split(",") for p in values["pointlist"].split(";")]
        return 0, 0, max(int(p[0]) for p in points), max(int(p[1]) for p in points)
    if "heightfromfont" in values:
        h = {27: 20, 30: 36}[number("font")]
        return 0, -10 * h // 32, number("width"), 20 * h // 16
    if float(values.get("angle", 0)) % 360:
        side = int((number("width") ** 2 + number("height") ** 2) ** 0.5)
        return (number("width") - side) // 2, (number("height") - side) // 2, side, side
    return 0, 0, number("width"), number("height")


class Sheet:
    """One screen, filled from left to right and from top to bottom."""

    def __init__(self, name):
        self.screen = ET.Element("Kiv_Screen_T", name=name, color="#10161d", screen_bm_ts="")
        self.x, self.y, self.row, self.next_id = MARGIN, MARGIN, 0, 1

    def put(self, tag, x, y, **values):
        values = {key: str(value) for key, value in values.items()}
        self.screen.insert(0, ET.Element(tag, id=str(self.next_id), x_coordinate=str(x),
                                         y_coordinate=str(y), **values))
        self.next_id += 1

    def place(self, kind, caption, defaults, extreme):
        boxes = [extent(kind, {**defaults, **{k: str(v) for k, v in values.items()}})
                 for values in ({}, extreme)]
        width = max(boxes[0][2] + GAP + boxes[1][2], 110)
        height = max(boxes[0][3], boxes[1][3])
        if self.x + width > WIDTH - MARGIN:
            self.x, self.y, self.row = MARGIN, self.y + self.row + CAPTION + GAP + 8, 0
        x = self.x
        for box, values in zip(boxes, ({}, extreme)):
            left, top = x - box[0], self.y - box[1]
            corners = {}
            if "x2_coordinate" in defaults:
                second = {**defaults, **values}
                corners = dict(x2_coordinate=left + int(second["x2_coordinate"]),
                               y2_coordinate=top + int(second["y2_coordinate"]))
            self.put(kind, left, top, **{**values, **corners})
            x += box[2] + GAP
        self.put("Kiv_Text_T", self.x, self.y + height + 8, text=caption, font=26, width=width,
                 height=CAPTION, text_color=MUTED)
        self.x += width + GAP + 8
        self.row = max(self.row, height)

    def height(self):
        return self.y + self.row + CAPTION + 8 + MARGIN


def sheet_of(group):
    sheet = Sheet(group.get("name"))
    for widget in group.findall("widget"):
        kind = widget.get("type")
        defaults = {p.get("name"): p.get("value") for p in widget.find("properties")}
        sheet.place(kind, widget.get("name"), defaults, EXTREMES[kind[4:-2]])
    return sheet


def main():
    programs = Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/bin")
    output = Path(sys.argv[2] if len(sys.argv) > 2 else ROOT / "docs/images")
    output.mkdir(parents=True, exist_ok=True)
    for group in ET.parse(programs / "widget-library.xml").getroot().findall("toolboxgroup"):
        sheet = sheet_of(group)
        project = ET.Element("Kiv_Project_T", name="Contact sheet", platform="QX113", width=str(WIDTH),
                             height=str(sheet.height()), working_directory=".")
        sheet.screen.set("name", "widgets-" + group.get("name").lower().replace(" ", "-"))
        project.append(sheet.screen)
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "sheet.nyx"
            ET.ElementTree(project).write(file, encoding="utf-8")
            subprocess.run([programs / "panel-export", file, "--png", output], check=True)


if __name__ == "__main__":
    main()
