#!/usr/bin/env python3
"""What the art's build script does with good and bad sources."""
import json
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
sys.dont_write_bytecode = True

import build_art  # noqa: E402

PLATE = '<svg xmlns="http://www.w3.org/2000/svg" width="{{w}}" height="{{h}}"><rect width="{{w}}" height="{{h}}" ' \
        'fill="rgb({{face}})"/></svg>'
TOKENS = {"tokens": {"face": "1,2,3", "icon_grid": 46, "icon_stroke": 4, "icon_least_stroke": 2},
          "materials": {"red": {"face": "200,0,0"}}}


class Sources:
    """A folder of sources with one template, and the folder that they are drawn into."""

    def __init__(self, root, pixmaps, icons=(), waiting=()):
        self.folder = pathlib.Path(root) / "sources"
        self.output = pathlib.Path(root) / "output"
        for name in ("templates", "icons"):
            (self.folder / name).mkdir(parents=True)
        (self.folder / "templates" / "plate.svg").write_text(PLATE)
        (self.folder / "icons" / "plate.svg").write_text(PLATE)
        (self.folder / "tokens.json").write_text(json.dumps(TOKENS))
        self.write_manifest(pixmaps, icons, waiting)

    def write_manifest(self, pixmaps, icons=(), waiting=()):
        (self.folder / "manifest.json").write_text(json.dumps(
            {"pixmaps": list(pixmaps), "files": [], "icons": list(icons), "waiting": list(waiting)}))

    def build(self):
        return build_art.build(self.folder, self.output, "rsvg-convert")


def family(**images):
    return {"template": "plate", "size": [8, 6], "images": images}


class BuildArtTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name

    def test_a_second_run_draws_nothing(self):
        sources = Sources(self.root, [family(One={}, Two={"material": "red"})])
        self.assertEqual(sources.build(), 2)
        self.assertEqual(sources.build(), 0)

    def test_only_the_changed_image_is_drawn_again(self):
        sources = Sources(self.root, [family(One={}, Two={})])
        sources.build()
        sources.write_manifest([family(One={}, Two={"material": "red"})])
        self.assertEqual(sources.build(), 1)

    def test_a_lost_image_is_drawn_again(self):
        sources = Sources(self.root, [family(One={})])
        sources.build()
        (sources.output / "png" / "One.png").unlink()
        self.assertEqual(sources.build(), 1)
        self.assertEqual(build_art.png_size(sources.output / "png" / "One.png"), (8, 6))

    def test_an_image_that_left_the_manifest_leaves_the_output(self):
        sources = Sources(self.root, [family(One={}, Two={})])
        sources.build()
        sources.write_manifest([family(One={})])
        sources.build()
        self.assertEqual([path.name for path in (sources.output / "png").iterdir()], ["One.png"])
        self.assertNotIn("Two", (sources.output / "CommonUIArt.qrc").read_text())

    def test_the_own_value_stands_over_material_and_token(self):
        sources = Sources(self.root, [family(One={"material": "red", "face": "9,9,9"}, Two={"material": "red"}, Three={})])
        sources.build()
        drawn = {name: (sources.output / "svg" / f"{name}.svg").read_text() for name in ("One", "Two", "Three")}
        self.assertIn("rgb(9,9,9)", drawn["One"])
        self.assertIn("rgb(200,0,0)", drawn["Two"])
        self.assertIn("rgb(1,2,3)", drawn["Three"])

    def test_the_runtime_manifest_has_a_line_for_each_name_and_icon(self):
        icons = [{"sizes": [46, 20], "images": {"icon-plate": {}}}]
        sources = Sources(self.root, [family(One={"names": ["a", "b"], "stretch": [1, 2, 3, 4], "opaque": True})], icons)
        sources.build()
        lines = [line for line in (sources.output / "Manifest.tsv").read_text().splitlines() if not line.startswith("#")]
        self.assertEqual(lines, ["pixmap\ta\tOne.png\t1\t2\t3\t4\t0\t1\t1", "pixmap\tb\tOne.png\t1\t2\t3\t4\t0\t1\t1",
                                 "icon\ticon-plate\t20,46"])

    def test_faults_name_the_place(self):
        faults = {
            "no material 'brass'": [family(One={"material": "brass"})],
            "no template": [family(One={"template": "missing"})],
            "'One' stands twice": [family(One={}), family(Two={"names": ["One"]}), family(Three={"names": ["One"]})],
        }
        for text, pixmaps in faults.items():
            with self.subTest(text), tempfile.TemporaryDirectory() as root:
                with self.assertRaisesRegex(build_art.ArtError, text):
                    Sources(root, pixmaps).build()

    def test_a_name_cannot_be_drawn_and_waiting(self):
        with self.assertRaisesRegex(build_art.ArtError, "drawn and waiting"):
            Sources(self.root, [family(One={})], waiting=["One"]).build()

    def test_an_unknown_value_is_a_fault(self):
        sources = Sources(self.root, [family(One={})])
        (sources.folder / "templates" / "plate.svg").write_text(PLATE.replace("face", "fase"))
        with self.assertRaisesRegex(build_art.ArtError, "plate.svg for One.*fase"):
            sources.build()

    def test_sections_appear_by_their_value(self):
        text = "{{#on}}a{{#off}}b{{/off}}{{^off}}c{{/off}}{{/on}}{{^on}}d{{/on}}{{1 + 0.5}}"
        self.assertEqual(build_art.expand(text, {"on": 1, "off": 0}, "here"), "ac1.5")
        self.assertEqual(build_art.expand(text, {"on": 0, "off": 0}, "here"), "d1.5")


if __name__ == "__main__":
    unittest.main()
