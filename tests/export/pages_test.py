#!/usr/bin/python3
"""The pictures and the page of the schema of every detail, by what of them no version of Graphviz changes: the texts, links and
names of the diagram, the page's data and skeleton, the size of the pixels.

    pages_test.py BUILD      WB_RENEW_GOLDEN=1 writes the golden files; review the difference
"""
import json
import os
import pathlib
import re
import struct
import subprocess
import sys
import unittest
import xml.etree.ElementTree as xml
import zlib

SOURCE = pathlib.Path(__file__).resolve().parent.parent.parent
GOLDEN = SOURCE / "tests/export/golden"
WBIMPORT = pathlib.Path(sys.argv.pop(1)).resolve() / "host/wbimport"


def render(form):
    done = subprocess.run([WBIMPORT, "render", GOLDEN / "every_detail.json", "--format", form], capture_output=True)
    assert done.returncode == 0, done.stderr
    return done.stdout


def picture():
    return xml.fromstring(render("svg"))


def local(element):
    return element.tag.split("}")[1]


def outline(element, depth=0):
    """Groups with their titles, links and texts, a line each; where they lie and how they look is Graphviz's own."""
    lines = []
    for child in element:
        kind = local(child)
        names = [value for key, value in child.attrib.items() if key.split("}")[-1] in ("class", "href", "title")]
        text = (child.text or "").replace("\n", "|").strip(" \u00a0")
        if kind in ("g", "a"):
            lines.append("  " * depth + " ".join([kind, *names]))
            lines += outline(child, depth + 1)
        elif text:
            lines.append("  " * depth + f"{kind} {text}")
    return lines


class Golden(unittest.TestCase):
    maxDiff = None

    def compare(self, name, text):
        file = GOLDEN / name
        if os.environ.get("WB_RENEW_GOLDEN"):
            file.write_text(text)
        self.assertEqual(text, file.read_text())

    def test_svg(self):
        self.compare("every_detail.svg.txt", "\n".join(outline(picture())) + "\n")

    def test_html(self):
        page = render("html").decode()
        for part in ("style.css", "dom.js", "model.js", "sidebar.js", "layout.js", "pan_zoom.js", "diagram.js", "sql.js",
                     "table_page.js", "pages.js", "lists.js", "app.js"):
            text = (SOURCE / "export/html" / part).read_text().strip()
            self.assertEqual(page.count(text), 1, part)
            page = page.replace(text, f"[{part}]")
        data = re.search(r'<script[^>]*type="application/json"[^>]*>(.*?)</script>', page, re.S)
        pretty = json.dumps(json.loads(data[1]), ensure_ascii=False, indent=1)
        self.compare("every_detail.html.txt", page[:data.start(1)] + "\n" + pretty + "\n" + page[data.end(1):])

    def test_png(self):
        image, svg = render("png"), picture()
        self.assertEqual(image[:8], b"\x89PNG\r\n\x1a\n")
        chunks, at = [], 8
        while at < len(image):
            size, kind = struct.unpack(">I4s", image[at:at + 8])
            body = image[at + 8:at + 8 + size]
            self.assertEqual(struct.unpack(">I", image[at + 8 + size:at + 12 + size])[0], zlib.crc32(kind + body), kind)
            chunks.append((kind, body))
            at += 12 + size
        self.assertEqual((chunks[0][0], chunks[-1]), (b"IHDR", (b"IEND", b"")))
        width, height, depth, colours = struct.unpack(">IIBB", chunks[0][1][:10])
        # The same picture: 96 pixels an inch, where SVG has 72 points.
        for pixels, points in ((width, svg.get("width")), (height, svg.get("height"))):
            self.assertAlmostEqual(pixels, float(points.removesuffix("pt")) * 96 / 72, delta=3)
        rows = zlib.decompress(b"".join(body for kind, body in chunks if kind == b"IDAT"))
        samples = {2: 3, 6: 4}[colours] * depth // 8
        self.assertEqual(len(rows), height * (1 + width * samples))
        self.assertGreater(len(set(rows)), 16, "nothing is drawn")


if __name__ == "__main__":
    unittest.main()
