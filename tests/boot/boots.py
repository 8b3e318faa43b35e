# SPDX-License-Identifier: MIT
"""Message files made for a test, booted, and what the screen shows.

A boot is a machine of tests/desktop/boot_check; here the archive is put together, keys are pressed
while it runs, and single pixels are asked for."""

import gzip
import importlib.machinery
import importlib.util
import pathlib
import struct
import subprocess
import tempfile

HERE = pathlib.Path(__file__).resolve().parent


def load_boot_check():
    path = HERE.parent / "desktop" / "boot_check"
    loader = importlib.machinery.SourceFileLoader("boot_check", str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("boot_check", loader))
    loader.exec_module(module)
    return module


boot_check = load_boot_check()

SIZE = (800, 600)
GROUND = 0x405870  # the background of most boots: one colour, so that every blend is known
ENTRIES = ("First", "Second", "Third", "Fourth")
TOLERANCE = 12  # levels of 255 between a blend as reckoned and as seen


def jpeg(width, height, drawing, quality=95, sampling="4:2:0"):
    """A picture as the engine takes them; drawing: words for convert."""
    made = subprocess.run(
        ["convert", "-size", f"{width}x{height}", *drawing, "-sampling-factor", sampling, "-quality",
         str(quality), "-type", "TrueColor", "jpg:-"], check=True, stdout=subprocess.PIPE)
    return made.stdout


def plain(width, height, colour):
    return jpeg(width, height, [f"xc:#{colour:06x}"])


def records(values):
    """The bytes of a level file from numbers and values."""
    return b"".join(struct.pack("<I", value & 0xFFFFFF | number << 24) for number, value in values.items())


def level_name(number):
    return f"ZUK{number:04d}.CFG"


def cpio(members):
    out = bytearray()
    for name, data in [*members.items(), ("TRAILER!!!", b"")]:
        path = name.encode() + b"\0"
        out += struct.pack("<13H", 0o070707, 0, 0, 0o100644, 0, 0, 1, 0, 0, 0, len(path),
                           len(data) >> 16, len(data) & 0xFFFF)
        for part in (path, data):
            out += part + b"\0" * (len(part) & 1)
    return bytes(out) + b"\0" * (-len(out) % 512)


def block_font(width=6, height=12, letters=94):
    """A font in which every letter is a full block with a gap of two pixels behind it."""
    codes = range(0x21, 0x21 + letters)

    def glyph(columns, rows, advance):
        bits = []
        for value, size in ((0, 2), (7, 3), (columns, 8), (rows, 8), (0, 8), (0, 8), (advance, 8)):
            bits += [value >> bit & 1 for bit in range(size)]
        bits += [1] * (columns * rows)
        bits += [0] * (-len(bits) % 8)
        return bytes(sum(bit << i for i, bit in enumerate(bits[at:at + 8])) for at in range(0, len(bits), 8))

    entries, glyphs = b"", b""
    start = 11 + 5 * (len(codes) + 1)
    for code, data in [(0x20, glyph(0, 0, width))] + [(c, glyph(width, height, width + 2)) for c in codes]:
        entries += (code | (start + len(glyphs)) << 21).to_bytes(5, "little")
        glyphs += data
    return struct.pack("<IIBBb", 0xD2828E06, len(codes) + 1, height, 0, height + 2) + entries + glyphs


def engine_with(name):
    """The engine with more words in front of its start."""
    engine, data = (HERE.parent.parent / room for room in ("engine", "data"))
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        for file in (*engine.glob("*.inc"), HERE / name):
            (folder / file.name).symlink_to(file)
        whole = (engine / "main.bc").read_text().replace("\nparams.read\n", f"\n%% include {name}\nparams.read\n")
        (folder / "main.bc").write_text(whole)
        subprocess.run(["cmake", f"-DCATALOGUE={data}/catalogue/0409_SETTINGS", f"-DOUTPUT={folder}/catalogue.inc",
                        "-P", engine / "catalogue.cmake"], check=True)
        subprocess.run(["gfxboot-compile", "-O", "-l", "log", "-c", "main.bc", "init"], cwd=folder, check=True)
        return (folder / "init").read_bytes()


class Template:
    """The members of the template, to be changed before the boot."""

    def __init__(self, data_folder):
        packed = (pathlib.Path(data_folder) / "GFX.GZ").read_bytes()
        self.members = dict(boot_check.members(gzip.decompress(packed)))

    def plain_ground(self, colour=GROUND):
        self.members["back.jpg"] = plain(*SIZE, colour)

    def levels(self, number, values):
        """Values over those of the file that is there."""
        self.members[level_name(number)] = self.members.get(level_name(number), b"") + records(values)


def menu(entries=ENTRIES, timeout=0):
    """syslinux.cfg; timeout in tenths of a second."""
    return boot_check.menu_text(entries).replace("timeout 0", f"timeout {timeout}")


def boot_sector(colour):
    """What is booted in place of a system: a text screen full of one of the sixteen colours."""
    code = bytes.fromhex("fc b80300 cd10 b800b8 8ec0 31ff b820") + bytes([colour << 4]) + bytes.fromhex(
        "b9d007 f3ab f4 ebfd")
    return code.ljust(510, b"\0") + b"\x55\xaa"


class Screen:
    """A screen dump."""

    def __init__(self, dump):
        self.width, self.height, self.pixels = dump

    def at(self, x, y):
        place = (y * self.width + x) * 3
        return int.from_bytes(self.pixels[place:place + 3], "big")

    def part(self, x, y, width, height):
        """The bytes of a rectangle, to see whether it changes."""
        rows = ((y + row) * self.width + x for row in range(height))
        return b"".join(self.pixels[3 * start:3 * (start + width)] for start in rows)

    def places(self, rectangle, colour, tolerance):
        """Where a rectangle has about that colour, in reading order."""
        part = self.part(*rectangle)
        pixels = list(zip(part[0::3], part[1::3], part[2::3]))
        wanted = {pixel for pixel in set(pixels) if near(int.from_bytes(bytes(pixel), "big"), colour, tolerance)}
        x, y, width, _ = rectangle
        return [(x + at % width, y + at // width) for at, pixel in enumerate(pixels) if pixel in wanted] if wanted else []


def blend(colour, transparency, ground=GROUND):
    """What the editor's stage shows: the ground's share is the transparency."""
    share = min(transparency, 255)
    mixed = ((ground >> s & 255) * share + (colour >> s & 255) * (255 - share) for s in (16, 8, 0))
    red, green, blue = (round(m / 255) for m in mixed)
    return red << 16 | green << 8 | blue


def near(one, other, tolerance=TOLERANCE):
    return all(abs((one >> s & 255) - (other >> s & 255)) <= tolerance for s in (16, 8, 0))


class Boot:
    """A running machine; ends with its block."""

    def __init__(self, members, config=None, memory=128, others=()):
        self.folder = tempfile.TemporaryDirectory(prefix="engine_boot")
        folder = pathlib.Path(self.folder.name)
        image = boot_check.build_image(folder, cpio(members), ENTRIES, config or menu(), others)
        self.machine = boot_check.Machine(folder, image, memory)
        self.dump = folder / "screen.ppm"

    def screen(self):
        self.machine.screenshot(self.dump)
        return Screen(boot_check.read_ppm(self.dump))

    def wait(self, wanted, seconds=40, smallest=480):
        """The screen once `wanted` is true of it and it is that high, or the last one."""
        end = self.machine.seconds() + seconds
        while True:
            screen = self.screen()
            try:
                if screen.height >= smallest and wanted(screen):
                    return screen
            except IndexError:  # the screen is not yet as large as what is asked for
                pass
            if self.machine.late(end):
                return screen
            self.machine.pause(0.1)

    def keys_kept(self):
        """Where the BIOS takes the next key from what it keeps for the loader, and where it puts one."""
        told = self.machine.order("human-monitor-command", **{"command-line": "xp /2hx 0x41a"})
        first, end = told.split(":")[1].split()
        return first, end

    def press(self, *keys):
        """One after the other, each when the loader has taken the one before."""
        for key in keys:
            parts = [{"type": "qcode", "data": part} for part in key.split("+")]
            _, end = self.keys_kept()
            self.machine.order("send-key", keys=parts, **{"hold-time": 30})
            late = self.machine.seconds() + 2  # by then something else has taken it
            while not self.machine.late(late):
                first, now = self.keys_kept()
                if now != end and first == now:
                    break
                self.machine.pause(0.02)

    def until(self, key, wanted):
        """Presses a key until it shows: before the loader listens, which is when all is drawn, keys are lost."""
        for attempt in range(8):
            self.press(key)
            screen = self.wait(wanted, 1.5)
            if attempt:  # the key before may just be late, and this one still at work
                self.machine.pause(1)
                screen = self.screen()
            if wanted(screen):
                return screen
        raise AssertionError(f"nothing comes of {key}")

    def rests(self, screen):
        """Whether what it showed a moment before was about the same: then the loader may listen."""
        self.machine.pause(0.6)  # the ring takes so long
        return boot_check.at_rest(self.screen().pixels, screen.pixels, boot_check.MOVING_SHARE)

    def awake(self):
        """Opens the help and closes it again: from now on keys are heard."""
        corner = (719, 539)
        ground = self.wait(lambda s: s.at(*corner) != 0 and self.rests(s)).at(*corner)  # black before the background
        self.until("f1", lambda s: s.at(*corner) != ground)
        return self.until("f1", lambda s: s.at(*corner) == ground)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.machine.__exit__()
        self.folder.cleanup()
