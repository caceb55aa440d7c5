#!/usr/bin/env python3
"""Turns the art templates into PNG files, a resource list and the run-time manifest.

usage: build_art.py --sources DIR --output DIR [--rsvg-convert PROGRAM]

DIR/tokens.json names the colours and measures of the look, DIR/manifest.json every
image and the template it is drawn from. A template is an SVG file with
{{expression}} where a value goes and {{#name}} ... {{/name}} around what is drawn
only when the value is neither zero nor empty ({{^name}} for the contrary).

Only what changed since the last run is rasterised again. Written below the output:
  svg/, png/          the drawings and their images
  Manifest.tsv        what the pixmap manager reads at run time
  Catalogue.tsv       every image with all that its test checks
  CommonUIArt.qrc     the list for rcc
"""
import argparse
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import re
import struct
import subprocess
import sys

PIXMAP_PREFIX = "/Images/Resources"
ICON_PREFIX = "/Icons/Resources"
TAG = re.compile(r"\{\{([^{}]*)\}\}")
SECTION = re.compile(r"\{\{([#^])(\w+)\}\}((?:(?!\{\{[#^]\2\}\}).)*?)\{\{/\2\}\}", re.DOTALL)
FUNCTIONS = {"min": min, "max": max, "round": round, "abs": abs}
CONTROL_KEYS = {"template", "size", "material", "stretch", "opaque", "scaleWhole", "scale", "text", "textInset",
                "names", "images", "sizes", "comment"}


class ArtError(Exception):
    """A fault in the sources, told to whoever draws."""


@dataclasses.dataclass
class Image:
    """One PNG file: what it is drawn from and what is known of it at run time."""
    file: str
    template: pathlib.Path
    size: tuple
    values: dict
    names: list = dataclasses.field(default_factory=list)
    icon: str = ""
    stretch: tuple = (0, 0, 0, 0)
    scale_whole: bool = False
    scale: float = 1.0
    opaque: bool = False
    text: str = ""
    text_inset: int = 0

    @property
    def stem(self):
        return self.file[:-len(".png")]


def format_value(value):
    if isinstance(value, float):
        return f"{value:.4f}".rstrip("0").rstrip(".")
    return str(value)


def evaluate(expression, values, where):
    try:
        return eval(expression, {"__builtins__": {}, **FUNCTIONS}, values)  # the sources are part of the program
    except Exception as fault:
        raise ArtError(f"{where}: {{{{{expression}}}}}: {fault}") from fault


def expand(text, values, where):
    """The template's text with its sections decided and its expressions worked out."""
    def section(match):
        wanted = bool(evaluate(match.group(2), values, where)) == (match.group(1) == "#")
        return match.group(3) if wanted else ""
    while True:
        text, count = SECTION.subn(section, text)
        if not count:
            break
    return TAG.sub(lambda match: format_value(evaluate(match.group(1), values, where)), text)


def load_json(path):
    try:
        return json.loads(path.read_text(encoding="utf-8"))
    except (OSError, ValueError) as fault:
        raise ArtError(f"{path}: {fault}") from fault


def values_for(tokens, entry, size, where):
    """The tokens, then the material, then what the entry itself says: the later stands."""
    values = dict(tokens["tokens"])
    material = entry.get("material")
    if material is not None:
        if material not in tokens["materials"]:
            raise ArtError(f"{where}: no material '{material}'")
        values.update(tokens["materials"][material])
    values.update({key: value for key, value in entry.items() if key not in CONTROL_KEYS})
    values.update(w=size[0], h=size[1])
    return values


def template_path(folder, name, where):
    path = folder / f"{name}.svg"
    if not path.is_file():
        raise ArtError(f"{where}: no template {path}")
    return path


def read_pixmaps(sources, tokens, families, named):
    """The images of a list of families; named tells whether each is a logical name unless it says otherwise."""
    images = []
    for family in families:
        for key, own in family["images"].items():
            entry = {**family, **own}
            values = values_for(tokens, entry, entry["size"], key)
            text = entry.get("text", values.get("text", ""))
            images.append(Image(
                file=f"{key}.png", template=template_path(sources / "templates", entry["template"], key),
                size=tuple(entry["size"]), values=values, names=entry.get("names", [key] if named else []),
                stretch=tuple(entry.get("stretch", (0, 0, 0, 0))), scale_whole=entry.get("scaleWhole", False),
                scale=entry.get("scale", 1.0), opaque=entry.get("opaque", False),
                text=text if "textInset" in entry else "", text_inset=entry.get("textInset", 0)))
    return images


def read_icons(sources, tokens, families):
    images = []
    grid = tokens["tokens"]["icon_grid"]
    for family in families:
        for key, own in family["images"].items():
            entry = {**family, **own}
            name = entry.get("template", key.removeprefix("icon-"))
            for side in entry["sizes"]:
                values = values_for(tokens, entry, (grid, grid), key)
                # A stroke keeps its least width on the screen, so a small icon is drawn with a thicker pen.
                values["stroke"] = max(values["icon_stroke"], values["icon_least_stroke"] * grid / side)
                images.append(Image(
                    file=f"{key}@{side}.png", template=template_path(sources / "icons", name, key),
                    size=(side, side), values=values, icon=key))
    return images


def check_unique(images, waiting):
    seen = set()
    for image in images:
        for name in [image.file, *image.names]:
            if name in seen:
                raise ArtError(f"'{name}' stands twice in the manifest")
            seen.add(name)
    for name in waiting:
        if name in seen:
            raise ArtError(f"'{name}' is drawn and waiting at once")
        seen.add(name)


def read_sources(sources):
    tokens = load_json(sources / "tokens.json")
    manifest = load_json(sources / "manifest.json")
    images = (read_pixmaps(sources, tokens, manifest["pixmaps"], True)
              + read_pixmaps(sources, tokens, manifest["files"], False)
              + read_icons(sources, tokens, manifest["icons"]))
    check_unique(images, manifest["waiting"])
    return images, manifest["waiting"]


def write_if_changed(path, text):
    if path.is_file() and path.read_text(encoding="utf-8") == text:
        return False
    path.write_text(text, encoding="utf-8")
    return True


def png_size(path):
    with path.open("rb") as file:
        head = file.read(24)
    if len(head) < 24 or head[:8] != b"\x89PNG\r\n\x1a\n":
        raise ArtError(f"{path}: not a PNG file")
    return struct.unpack(">II", head[16:24])


def rasterise(program, svg, png, size):
    """Draws beside the target and moves it into place, so that an interrupted build leaves no half image."""
    partial = png.with_suffix(".part")
    command = [program, "--width", str(size[0]), "--height", str(size[1]), "--output", str(partial), str(svg)]
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise ArtError(f"{svg}: {done.stderr.strip()}")
    if png_size(partial) != size:
        raise ArtError(f"{svg}: drawn {png_size(partial)} instead of {size}")
    partial.replace(png)


def draw(images, output, program):
    """Writes the drawings and rasterises those that changed; answers how many."""
    jobs = []
    for image in images:
        svg = output / "svg" / f"{image.stem}.svg"
        png = output / "png" / image.file
        text = expand(image.template.read_text(encoding="utf-8"), image.values, f"{image.template.name} for {image.stem}")
        stale = not png.is_file() or not svg.is_file() or svg.read_text(encoding="utf-8") != text
        if stale:
            png.unlink(missing_ok=True)
            svg.write_text(text, encoding="utf-8")
            jobs.append((program, svg, png, image.size))
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
        for _ in pool.map(lambda job: rasterise(*job), jobs):
            pass
    return len(jobs)


def remove_strangers(images, output):
    known = {image.stem for image in images}
    for folder in (output / "svg", output / "png"):
        for path in folder.iterdir():
            if path.stem not in known:
                path.unlink()


def icon_sizes(images):
    sizes = {}
    for image in images:
        if image.icon:
            sizes.setdefault(image.icon, []).append(image.size[0])
    return {name: sorted(sides) for name, sides in sorted(sizes.items())}


def runtime_manifest(images):
    lines = ["# pixmap\tname\tfile\tleft\ttop\tright\tbottom\tscale whole\tscale\topaque",
             "# icon\tname\tsizes"]
    for image in images:
        for name in image.names:
            lines.append("\t".join(["pixmap", name, image.file, *map(str, image.stretch), str(int(image.scale_whole)),
                                    format_value(float(image.scale)), str(int(image.opaque))]))
    for name, sides in icon_sizes(images).items():
        lines.append("\t".join(["icon", name, ",".join(map(str, sides))]))
    return "\n".join(lines) + "\n"


def catalogue(images, waiting):
    lines = ["# image\tfile\tnames\twidth\theight\tleft\ttop\tright\tbottom\tscale whole\topaque\ttext colour\ttext inset",
             "# icon\tfile\tname\tside", "# waiting\tname"]
    for image in images:
        if image.icon:
            lines.append("\t".join(["icon", image.file, image.icon, str(image.size[0])]))
        else:
            lines.append("\t".join(["image", image.file, " ".join(image.names), *map(str, image.size),
                                    *map(str, image.stretch), str(int(image.scale_whole)), str(int(image.opaque)),
                                    image.text, str(image.text_inset)]))
    lines += [f"waiting\t{name}" for name in waiting]
    return "\n".join(lines) + "\n"


def resource_list(images):
    def group(prefix, rows):
        return [f'<qresource prefix="{prefix}">', *rows, "</qresource>"]
    pixmaps = [f'<file alias="{image.file}">png/{image.file}</file>' for image in images if not image.icon]
    icons = [f'<file alias="{image.file}">png/{image.file}</file>' for image in images if image.icon]
    manifest = ['<file alias="Manifest.tsv">Manifest.tsv</file>']
    return "\n".join(["<RCC>", *group(PIXMAP_PREFIX, manifest + pixmaps), *group(ICON_PREFIX, icons), "</RCC>"]) + "\n"


def build(sources, output, program):
    images, waiting = read_sources(sources)
    for folder in ("svg", "png"):
        (output / folder).mkdir(parents=True, exist_ok=True)
    drawn = draw(images, output, program)
    remove_strangers(images, output)
    write_if_changed(output / "Manifest.tsv", runtime_manifest(images))
    write_if_changed(output / "Catalogue.tsv", catalogue(images, waiting))
    write_if_changed(output / "CommonUIArt.qrc", resource_list(images))
    return drawn


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sources", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    parser.add_argument("--rsvg-convert", default="rsvg-convert")
    options = parser.parse_args()
    try:
        build(options.sources, options.output, options.rsvg_convert)
    except (ArtError, OSError) as fault:
        sys.exit(f"build_art: {fault}")


if __name__ == "__main__":
    main()
