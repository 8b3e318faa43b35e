#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The picture of a boot against the boot itself, pixel by pixel.

    test_agreement.py BOOT_RENDER FENNEL DATA_FOLDER [CASE ...]

Prints the share of equal pixels of each message; what moves is left out, and how much that is."""

import operator
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import boots

THEMES = pathlib.Path("/etc/bootsplash/themes")
ENTRIES = ("Boot from this stick", "Boot from hard disk", "Memory test")
ENOUGH = 99.9  # of 100 pixels
CLOSE = 4  # levels of 255, in 32 bits
CLOCK, RUN_LINE, GLASS, ANIMATION, HAND = "5", "22", "23", "28", "4"
MOVING = (CLOCK, RUN_LINE, GLASS, ANIMATION, HAND)  # rows of the objects
REACH = {HAND: (10, 10), CLOCK: (0, 16)}  # beyond their rectangles: all around, to the right
PLACES = {0: {42: 40, 43: 60, 54: 330, 40: 6, 41: 5, 46: 0x400040, 47: 90, 56: 0x20E020, 57: 40, 48: 0xFFE000,
              58: 0x000060, 32: 620, 33: 420, 31: 0}, 2: {1: 0}, 8: {1: 0}, 4: {2: 420, 3: 40, 4: 14, 5: 300}, 5: {2: 560, 3: 60, 4: 200, 5: 120}}


def theme(name):
    """Its members; of gfxboot.cfg, which its engine takes seconds to read, the sections that count here, and without
    the screen of its own that begins a boot by chance."""
    path = THEMES / name / "bootloader" / "message"
    if not path.exists():
        return None
    members = dict(boots.boot_check.members(path.read_bytes()))
    sections = re.split(rb"(?m)^(?=\[)", members["gfxboot.cfg"])
    read = [section for section in sections if section.startswith((b"[base]", b"[800x600]", b"[boot]"))]
    return {**members, "gfxboot.cfg": b"".join(read).replace(b"penguin=-1", b"penguin=0")}


def render(members, titles, folder):
    """Width, height and pixels, and the rectangles of the objects by their row."""
    for name, data in members.items():
        (folder / name).write_bytes(data)
    picture = folder.parent / "render.png"
    words = [word for title in titles for word in ("--title", title)]
    told = subprocess.run([RENDER, folder, picture, *words], check=True, stdout=subprocess.PIPE, text=True).stdout
    ppm = folder.parent / "render.ppm"
    subprocess.run(["convert", picture, "-depth", "8", ppm], check=True)
    rows = {line.split()[0]: tuple(map(int, line.split()[1:])) for line in told.splitlines()}
    return boots.boot_check.read_ppm(ppm), rows


def far_apart(one, other, every=1):
    """The places of the pixels in which two screens differ by more than CLOSE, in each row or each so many."""
    width, _, a = one
    _, _, b = other
    row = 3 * width
    places = set()
    for start in range(0, len(a), row * every):
        differences = list(map(operator.sub, a[start:start + row], b[start:start + row]))
        if max(differences) > CLOSE or min(differences) < -CLOSE:
            places |= {(start + at) // 3 for at, size in enumerate(differences) if abs(size) > CLOSE}
    return places


def masked(rects, width):
    return {y * width + x for left, top, wide, high in rects
            for y in range(top, top + high) for x in range(left, left + wide)}


def reach(row, rect):
    x, y, width, height = rect
    around, right = REACH.get(row, (0, 0))
    return x - around, y - around, width + around + max(around, right), height + 2 * around


def share(members, titles):
    """Of all pixels that do not move those that agree, in per cent, the share of what moves, and the screen."""
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place) / "members"
        folder.mkdir()
        picture, rows = render(members, titles, folder)
        width, height, _ = picture
        moving = masked([reach(row, rect) for row, rect in rows.items() if row in MOVING], width)
        moving = moving if b"FENNEL-GFX engine " in members["init"] else set()
        fewest, enough_at = width * height, None
        with boots.Boot(members, boots.menu(titles)) as boot:
            def agrees(screen):
                nonlocal fewest, enough_at
                now = (screen.width, screen.height, screen.pixels)
                # A look at some rows tells whether it is worth while.
                if now[:2] == (width, height) and len(far_apart(picture, now, 30) - moving) < width * height // 300:
                    fewest = min(fewest, len(far_apart(picture, now) - moving))
                if enough_at is None and 100 * fewest < (100 - ENOUGH) * width * height:
                    enough_at = boot.machine.seconds()
                # the engine may still be at the last of it
                return not fewest or enough_at is not None and boot.machine.late(enough_at + 2)
            screen = boot.wait(agrees, 90)
    if (screen.width, screen.height) != (width, height):
        return 0.0, 0.0, screen
    still = width * height - len(moving)
    return 100 - 100 * fewest / still, 100 * len(moving) / (width * height), screen


class Agreement(unittest.TestCase):
    def holds(self, name, members, titles):
        with self.subTest(name):
            equal, moving, screen = share(members, titles)
            print(f"{name:40} {equal:8.3f} % equal, {moving:5.2f} % moves", flush=True)
            self.assertGreaterEqual(equal, ENOUGH)
            return screen


class Own(Agreement):
    """Our engine: the template, and one with everything elsewhere."""

    def test_template(self):
        self.holds("template", boots.Template(DATA).members, ENTRIES)

    def test_variant(self):
        variant = boots.Template(DATA)
        for number, values in PLACES.items():
            variant.levels(number, values)
        titles = [f"[{i}] Entry {i} of a longer menu" for i in range(9)] + ["Long " * 20]
        self.holds("template, all elsewhere, 10 titles", variant.members, titles)


class Cfg(Agreement):
    """Engines with gfxboot.cfg, with a font and a picture of our own."""

    def message(self, cfg):
        members = theme("KDE")
        if members is None:
            self.skipTest("Debian's themes are not installed")
        own = boots.Template(DATA).members
        return {**members, "16x16.fnt": own["16x16.fnt"], "back.jpg": own["back.jpg"], "gfxboot.cfg": cfg}

    def test_flat(self):
        """And what an upgrade makes of it: the menu as it was, to the pixel."""
        flat = self.message(b"menu_start_x=253\r\n#boot_show=1\r\n")
        many = [f"Title {i} of 12" for i in range(12)]
        for titles in (many, ["A title that is long " * 2, "Second", "Long " * 30]):
            before = self.holds(f"flat gfxboot.cfg, {len(titles)} titles", flat, titles)
        upgraded = self.upgraded(flat)
        self.assertIn(b"FENNEL-GFX engine ", upgraded["init"])
        self.assertNotIn("gfxboot.cfg", upgraded)
        # above the boot options, which only the older engine draws
        above = lambda screen: (screen.width, 470, screen.part(0, 0, screen.width, 470))
        with boots.Boot(upgraded, boots.menu(titles)) as boot:
            after = boot.wait(lambda s: not far_apart(above(before), above(s)), smallest=before.height)
            self.assertEqual(len(far_apart(above(before), above(after))), 0)

    def upgraded(self, members):
        with tempfile.TemporaryDirectory() as place:
            message = pathlib.Path(place) / "message"
            message.write_bytes(boots.cpio(members))
            subprocess.run([FENNEL, "upgrade", message], check=True)
            return dict(boots.boot_check.members(message.read_bytes()))

    def test_own_colours(self):
        cfg = theme("KDE")["gfxboot.cfg"] if theme("KDE") else b""
        for old, new in ((b"mainmenu.pos=-1,170", b"mainmenu.pos=90,200"),
                         (b"mainmenu.bar.color=0xffffff", b"mainmenu.bar.color=0x3060c0"),
                         (b"mainmenu.selected.fg=0x000000", b"mainmenu.selected.fg=0xffff80"),
                         (b"mainmenu.entries=8", b"mainmenu.entries=3")):
            cfg = cfg.replace(old, new)
        self.holds("sections, own place and colours", self.message(cfg), [f"Entry {i}" for i in range(6)])


class Debian(Agreement):
    def test_themes(self):
        for name in ("KDE", "SLED", "SLES", "openSUSE", "upstream"):
            if theme(name):
                wide = "A title that is wider than three hundred pixels"
                self.holds(f"Debian's {name}", theme(name), [*ENTRIES, wide])


if __name__ == "__main__":
    RENDER, FENNEL, DATA = sys.argv[1:4]
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]], warnings="ignore")
