#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The boot engine on the real screen: every object where its records say, in the colour that the
editor's stage shows, following what is changed; time, keys and menus.

    test_engine.py DATA_FOLDER [TEST ...]

DATA_FOLDER holds the built template. Without KVM a boot takes a few seconds, so each checks much."""

import sys
import time
import unittest

from boots import (Boot, SIZE, GROUND, TOLERANCE, Template, blend, block_font, boot_sector, engine_with, jpeg,
                   level_name, menu, near, plain)

DATA = ""
WHITE = 0xFFFFFF


# Nothing that moves, so that the whole screen can be compared.
STILL = {0: {1: 0, 11: 0, 31: 0, 19: 0, 99: 0, 79: 1}, 1: {1: 0}, 2: {1: 0}, 3: {1: 0}, 8: {1: 0}}


class Panels:
    """Two sets of records, so that no place and no colour can stand in the engine by chance.

    Fields: file, the numbers of x, y, width, height, colour, transparency, and their two sets; None is
    what no record sets, in the sets its fixed value."""

    rows = {
        "clock": (0, (2, 3, None, None, 6, None),
                  (20, 10, 72, 22, 0x203010, 0), (620, 30, 72, 22, 0x701020, 0)),
        "date": (0, (12, 13, None, None, 16, None),
                 (140, 10, 72, 22, 0x103050, 0), (500, 30, 72, 22, 0x105010, 0)),
        "line": (0, (22, 23, 24, None, 26, None),
                 (10, 560, 400, 24, 0x330033, 0), (40, 500, 420, 24, 0x003333, 0)),
        "menu": (0, (42, 43, 54, None, 46, 47),
                 (300, 60, 260, 125, 0x102040, 100), (40, 90, 240, 138, 0x602010, 180)),
        "bar": (0, (42, 43, 54, None, 56, 57),
                (300, 60, 260, 24, 0xE0E0D0, 30), (40, 90, 240, 24, 0x20E0D0, 100)),
        "running line": (2, (2, 3, 4, 5, 6, 7),
                         (430, 560, 300, 30, 0x114411, 90), (60, 550, 500, 26, 0x551166, 20)),
        "linear timer": (4, (2, 3, 4, 5, 6, 7),
                         (600, 60, 20, 300, 0x551111, 60), (330, 400, 301, 15, 0x113355, 10)),
    }

    @staticmethod
    def records(which):
        files = {}
        for number, places, *sets in Panels.rows.values():
            values = dict(zip(places, sets[which]))
            files.setdefault(number, {}).update({k: v for k, v in values.items() if k is not None})
        return files


# What the two sets say beyond places and colours.
MORE = (
    {0: {1: 1, 11: 1, 40: 8, 41: 5, 48: 0xFFFF00, 58: 0x800000, 8: WHITE, 18: WHITE, 28: WHITE,
         32: 200, 33: 300, 34: 55, 35: 50, 38: 0xFF00FF, 31: 1, 66: 0x221144, 67: 128, 79: 1, 99: 0},
     2: {1: 1, 9: 0}, 3: {1: 1, 2: 300, 3: 300, 19: 1, 20: 0x00FF00, 99: 2},
     4: {1: 1, 18: 10, 19: 6, 20: 4, 21: 0xFFFF00, 23: 0, 37: 0},
     5: {1: 1, 2: 20, 3: 300, 4: 150, 5: 140, 17: 12, 18: 5, 19: 20, 21: 0x00FFFF, 23: 0, 36: 4, 37: 0},
     6: {1: 0}, 8: {1: 0}, 15: {1: 1, 2: 100, 3: 90, 6: 0x335511, 7: 40}},
    {0: {1: 1, 11: 1, 40: 6, 41: 6, 48: 0x00FF00, 58: 0x000080, 8: WHITE, 18: WHITE, 28: WHITE,
         32: 600, 33: 200, 34: 70, 35: 30, 38: 0xFF8000, 31: 1, 66: 0x441122, 67: 30, 79: 1, 99: 7},
     2: {1: 1, 9: 0}, 3: {1: 1, 2: 320, 3: 200, 19: 1, 20: 0xFF0000, 99: 5},
     4: {1: 1, 18: 8, 19: 9, 20: 3, 21: 0x00FFFF, 23: 90, 37: 0},
     5: {1: 1, 2: 320, 3: 250, 4: 120, 5: 120, 17: 16, 18: 3, 19: 15, 21: 0xFFFF00, 23: 100, 36: 99, 37: 0},
     6: {1: 0}, 8: {1: 0}, 15: {1: 1, 2: 30, 3: 60, 6: 0x553311, 7: 200}},
)
LOGO = (60, 40)


class EngineTest(unittest.TestCase):
    def template(self, *level_sets):
        made = Template(DATA)
        made.plain_ground()
        for levels in level_sets:
            for number, values in levels.items():
                made.levels(number, values)
        return made

    def colour(self, screen, x, y, wanted, why=""):
        seen = screen.at(x, y)
        self.assertTrue(near(seen, wanted), f"{why} {x},{y}: {seen:06x} is not {wanted:06x}")

    def rectangle(self, screen, name, rectangle, colour):
        """The right and the lower edge, where no letters stand, and what is outside all four."""
        x, y, width, height = rectangle
        inside = [(x + width - 1, y + row) for row in range(height)]
        inside += [(x + width - 1 - column, y + height - 1) for column in range(min(width, 60) // 3)]
        for at in inside:
            self.colour(screen, *at, colour, name)
        outside = [(x + width, y), (x + width, y + height - 1), (x - 1, y), (x - 1, y + height - 1),
                   (x + width - 1, y - 1), (x, y - 1), (x + width - 1, y + height)]
        for at in outside:
            self.assertFalse(near(screen.at(*at), colour), f"{name} reaches out to {at}")

    def shows(self, boot, check, seconds=40):
        """The first screen that passes: a dump may catch the engine at work. The last one's fault if none does."""
        end = boot.machine.seconds() + seconds
        while True:
            screen = boot.screen()
            try:
                check(screen)
                return screen
            except (AssertionError, IndexError):  # the screen may not yet be as large as what is asked for
                if boot.machine.late(end):
                    raise
            boot.machine.pause(0.2)

    def anywhere(self, screen, rectangle, colour, tolerance=4):
        return bool(screen.places(rectangle, colour, tolerance))

    @staticmethod
    def letters(screen, x, y, colour, most=90):
        """How many letters of the font of blocks stand there one after the other."""
        return next(i for i in range(most) if not all(near(screen.at(x + 8 * i + 3, y + row), colour, 8) for row in (1, 10)))

    @staticmethod
    def line_top(line, slit=0):
        """Of a line in that font, from the top of its panel."""
        return (line * (4 * (3 + slit) + 30) + 2) // 4


class Placed(EngineTest):
    def check(self, which):
        made = self.template(Panels.records(which), MORE[which])
        made.members["Logo_00.jpg"] = plain(*LOGO, 0xC02020)
        made.members["Logo_msk.jpg"] = plain(*LOGO, WHITE)
        more = MORE[which]
        half = ["xc:white", "-fill", "black", "-draw", "rectangle 48,0 99,29"]
        made.members[f"glass_0{more[3][99]}.jpg"] = jpeg(100, 30, half)
        if which == 1:  # the background that the number names
            made.members["back_07.jpg"] = made.members["back.jpg"]
            made.members["back.jpg"] = plain(*SIZE, WHITE)
        circle = more[5]
        with Boot(made.members) as boot:
            expected = blend(circle[21], circle[23])
            self.shows(boot, lambda s: (self.panels(s, which), self.objects(s, more, expected)))
            boot.awake()
            boot.press("f2")
            info = (more[15][2], more[15][3], 575, 375)
            ground = blend(more[15][6], more[15][7])
            self.shows(boot, lambda s: self.rectangle(s, "information panel", info, ground))
            boot.press("esc", "f1")
            ground = blend(more[0][66], more[0][67])
            self.shows(boot, lambda s: self.rectangle(s, "help panel", (80, 60, 640, 480), ground))
            boot.press("f1")
            self.shows(boot, lambda s: self.panels(s, which))  # all come back when it goes

    def panels(self, screen, which):
        for name, (_, _, *sets) in Panels.rows.items():
            *rectangle, colour, transparency = sets[which]
            if name == "menu":  # the bar lies over its first line
                rectangle[1] += 24
                rectangle[3] -= 24
            if name in ("clock", "date"):  # letters may reach over the right edge
                self.colour(screen, rectangle[0] + 1, rectangle[1] + 21, blend(colour, transparency), name)
                self.assertFalse(near(screen.at(rectangle[0] - 1, rectangle[1] + 21), colour), name)
                self.assertFalse(near(screen.at(rectangle[0], rectangle[1] + 22), colour), name)
            else:
                self.rectangle(screen, name, rectangle, blend(colour, transparency))

    def objects(self, screen, more, ring):
        x, y = more[0][32], more[0][33]
        for at in ((x, y), (x + LOGO[0] - 1, y), (x, y + LOGO[1] - 1), (x + LOGO[0] - 1, y + LOGO[1] - 1)):
            if not near(screen.at(*at), more[0][38]):  # the hand passes over all of it in a minute
                self.colour(screen, *at, 0xC02020, "logo")
        for at in ((x - 1, y), (x, y - 1), (x + LOGO[0], y), (x, y + LOGO[1])):
            self.assertFalse(near(screen.at(*at), 0xC02020), "logo")
        hand = (x + LOGO[0] // 2 - more[0][34], y + LOGO[1] // 2 - more[0][35],
                2 * more[0][34], 2 * more[0][35])
        self.assertTrue(self.anywhere(screen, hand, more[0][38]), "second hand")
        x, y = more[3][2], more[3][3]
        self.colour(screen, x + 5, y + 5, more[3][20], "glass")
        self.colour(screen, x + 40, y + 25, more[3][20], "glass")
        self.colour(screen, x + 60, y + 15, GROUND, "glass behind its mask")
        self.divisions(screen, more[4])
        circle = more[5]
        half = circle[18] // 2 + 1
        # the strokes at the top and at the right, from the ellipse inwards
        middle = (circle[2] + circle[4] // 2, circle[3] + circle[5] // 2)
        for depth in (1, circle[19] - 2):
            self.colour(screen, middle[0], circle[3] + half + depth, ring, "ring, top")
            self.colour(screen, circle[2] + circle[4] - half - depth, middle[1], ring, "ring, right")
        self.colour(screen, *middle, GROUND, "ring, middle")
        # the last of a group is half as long again
        longer = (circle[2] + circle[4] - half - circle[19] - circle[19] // 2 + 3, middle[1])
        self.colour(screen, *longer, ring if circle[36] == 4 else GROUND, "ring, group")

    def divisions(self, screen, linear):
        place = next(sets for name, (_, _, *sets) in Panels.rows.items() if name == "linear timer")
        x, y, width, height, colour, transparency = place[0 if linear is MORE[0][4] else 1]
        if width < height:
            size, step, cross = linear[19], linear[19] + linear[20], (width - linear[18]) // 2
            at = [(x + cross, y + step * 3), (x + cross, y + step * 3 + size - 1)]
            gap = (x + cross, y + step * 3 + size)
        else:
            size, step, cross = linear[18], linear[18] + linear[20], (height - linear[19]) // 2
            at = [(x + step * 3, y + cross), (x + step * 3 + size - 1, y + cross)]
            gap = (x + step * 3 + size, y + cross)
        ground = blend(colour, transparency)
        for point in at:
            self.colour(screen, *point, blend(linear[21], linear[23], ground), "division")
        self.colour(screen, *gap, ground, "between divisions")

    def test_first_set(self):
        self.check(0)

    def test_second_set(self):
        self.check(1)

    def test_switched_off(self):
        off = {0: {1: 0, 11: 0, 31: 0, 24: 0, 54: 300, 42: 253, 43: 170}, 15: {1: 0}}
        off.update({number: {1: 0} for number in range(1, 9)})
        off[7].update({2: 20, 3: 500, 6: WHITE})
        made = self.template(off)
        del made.members["Logo_00.jpg"]
        config = menu(timeout=900).replace("localboot 0x80", "kernel nothere")
        with Boot(made.members, config) as boot:
            boot.wait(lambda s: near(s.at(540, 190), blend(WHITE, 60)))
            boot.machine.pause(2)
            running = boot.screen()
            boot.awake()
            boot.press("f2")
            boot.machine.pause(0.5)
            screen = boot.screen()
            boot.press("ret")
            told = boot.wait(lambda s: not near(s.at(600, 400), GROUND))
            self.assertFalse(near(told.at(600, 400), GROUND), "messages come also where the panel is off")
            self.colour(told, 100, 520, GROUND, "no wait panel")
        menu_part = range(253, 553), range(170, 340)
        for y in range(0, SIZE[1], 2):
            for x in range(0, SIZE[0], 2):
                if x not in menu_part[0] or y not in menu_part[1]:
                    self.colour(running, x, y, GROUND, "nothing is on")
                    self.colour(screen, x, y, GROUND, "F2 opens nothing")

    def test_texts_and_fonts(self):
        """The colour of every text, each in a font of its own number."""
        colours = {"menu": 0xFFFF00, "bar": 0x800000, "clock": 0xF0F0F1, "date": 0x00FF00, "line": 0x00FFFF,
                   "help": 0xFF00FF, "info": 0xFF8000, "info, first line": 0x00FF80}
        more = {0: {1: 1, 11: 1, 31: 0, 40: 8, 41: 5, 48: colours["menu"], 58: colours["bar"], 8: colours["clock"],
                    18: colours["date"], 28: colours["line"], 66: 0, 67: 0, 68: colours["help"], 79: 1, 99: 0},
                2: {1: 0}, 3: {1: 0}, 6: {1: 0}, 8: {1: 0},
                4: {1: 1, 18: 9, 19: 9, 20: 4, 21: 0x808080, 23: 0, 37: 1},
                5: {1: 1, 2: 20, 3: 300, 4: 150, 5: 140, 17: 12, 18: 7, 19: 20, 21: 0x808080, 23: 0, 36: 99, 37: 1},
                15: {1: 1, 2: 100, 3: 90, 6: 0, 7: 0, 8: colours["info"], 17: colours["info, first line"]}}
        fonts = {0: {9: 7, 14: 7, 29: 7, 39: 7, 69: 7}, 15: {9: 7}}
        made = self.template(Panels.records(0), more, fonts)
        made.members["16x16_07.fnt"] = block_font()
        places = {name: tuple(sets[0][:4]) for name, (_, _, *sets) in Panels.rows.items()}
        with Boot(made.members) as boot:
            boot.wait(lambda s: near(s.at(559, 70), blend(0xE0E0D0, 30)))
            boot.awake()
            screen = boot.wait(lambda s: s.at(95, 310) != s.at(20, 310))  # the ring comes last
            for name in ("clock", "date", "line", "menu", "bar"):
                self.text(screen, name, places[name], colours[name])
            self.depth(screen)
            boot.press("f2")
            screen = boot.wait(lambda s: near(s.at(670, 460), 0))
            self.text(screen, "info, first line", (100, 90, 300, 20), colours["info, first line"])
            self.text(screen, "info", (100, 110, 300, 100), colours["info"])
            boot.press("esc", "f1")
            screen = boot.wait(lambda s: near(s.at(719, 539), 0))
            self.text(screen, "help", (80, 60, 300, 100), colours["help"])

    def text(self, screen, name, rectangle, colour):
        """Letters that are blocks of 6 by 12 in that colour."""
        x, y, width, height = rectangle
        self.assertTrue(any(
            all(near(screen.at(column + i % 6, row + i // 6), colour, 8) for i in range(0, 72, 5))
            for row in range(y, y + height - 11) for column in range(x, x + width - 5)
            if near(screen.at(column, row), colour, 8)), name)

    def depth(self, screen):
        """Light above and dark below on the divisions of the line, beside each other on the ring's."""
        x, y = 600 + (20 - 9) // 2, 60 + 13 * 3
        light, middle, dark = (screen.at(x + 4, y + row) & 255 for row in (0, 4, 8))
        self.assertTrue(light > middle > dark, f"line: {light} {middle} {dark}")
        light, middle, dark = (screen.at(95 + column, 300 + 10) & 255 for column in (-3, 0, 3))
        self.assertTrue(light > middle > dark, f"ring: {light} {middle} {dark}")


class Moving(EngineTest):
    """One boot that is watched for a while: what moves, how fast, and that it leaves nothing behind."""

    CALM, RARE, STRAY = 1, 2, 3  # sparks without pause, hardly ever, with ends that stray
    LETTERS = 0x00F0F1
    OVER = 0x306010  # date and linear timer, which lie over the hand and the running line
    COLOURS = [0x100000 * (i % 3 + 3) + 0x1000 * (i // 3 + 5) + 0x20 for i in range(19)]

    def made(self):
        glass = {20 + i: colour for i, colour in enumerate(self.COLOURS)}
        made = self.template({
            0: {1: 1, 2: 20, 3: 20, 6: 0, 8: WHITE, 11: 1, 12: 70, 13: 150, 16: self.OVER, 24: 0, 31: 1, 32: 40, 33: 100, 34: 60, 35: 60,
                38: 0xFF00FF, 42: 300, 43: 60, 54: 200, 79: 1, 99: 0, 19: 1, 20: 5, 66: 0x112233, 67: 0},
            1: self.sparks(),
            2: {1: 1, 2: 100, 3: 560, 4: 300, 5: 24, 6: 0, 7: 0, 8: self.LETTERS, 9: 4, 19: 7},
            3: {1: 1, 2: 600, 3: 200, 19: 19, 99: 2, **glass},
            4: {1: 1, 2: 340, 3: 550, 4: 40, 5: 40, 6: self.OVER, 7: 0}, 5: {1: 0}, 6: {1: 0}, 15: {1: 0},
            8: {1: 1, 2: 500, 3: 400, 4: 250, 5: 100, 11: 1, 12: 5, 13: 3, 18: 32, 19: 40, 99: 5}})
        for number in range(3):
            made.members[f"Logo_0{number}.jpg"] = plain(*LOGO, 0x400000 >> 8 * number)
        made.members["Logo_msk.jpg"] = plain(*LOGO, WHITE)
        made.members["glass_02.jpg"] = plain(100, 30, WHITE)
        made.members["ani_05.jpg"] = plain(96, 40, 0xF0F000)
        made.members["ani_05_msk.jpg"] = plain(96, 40, WHITE)
        made.members["16x16_07.fnt"] = block_font()
        made.members["RLineDef.txt"] = b"running text " * 4
        return made

    def sparks(self):
        """Each in a field of its own, from left above to right below."""
        values = {1: 8, 99: 100}
        for g in range(8):
            values.update({10 * g + 2: 40 + 90 * g, 10 * g + 3: 250 + 10 * g, 10 * g + 4: 80 + 90 * g,
                           10 * g + 5: 330 - 5 * g, 10 * g + 6: 20 if g == self.STRAY else 0,
                           10 * g + 7: {self.CALM: 0, self.RARE: 600}.get(g, 1)})
        return values

    @staticmethod
    def sprite(screen):
        """Where the animation stands in its area; its pictures are all of one colour."""
        return next(iter(screen.places((500, 400, 250, 100), 0xF0F000, 40)), None)

    def sprite_now(self, boot):
        """The same on the next screen that shows it whole."""
        while True:
            place = self.sprite(boot.screen())
            if place or boot.machine.late(400):
                return place

    def test_all(self):
        help_ground = 0x112233
        with Boot(self.made().members) as boot:
            screen = boot.wait(lambda s: near(s.at(719, 539), help_ground))
            self.colour(screen, 719, 539, help_ground, "help at the start")
            shown = time.monotonic()
            boot.wait(lambda s: not near(s.at(719, 539), help_ground))
            self.assertGreater(time.monotonic() - shown, 2, "the help stays five seconds")
            self.watch(boot)
            self.steered(boot)
            screen = boot.screen()
            x, y = self.sprite(screen)
            width = sum(near(screen.at(at, y + 5), 0xF0F000, 40) for at in range(500, 750))
            height = sum(near(screen.at(x + 5, at), 0xF0F000, 40) for at in range(390, 510))
            self.assertEqual((width, height), (32, 40), "one frame")

    def watch(self, boot):
        glasses, clocks, hands, lines, logos, places = (set() for _ in range(6))
        seen, begun, frames, blocks = [0] * 8, [0] * 8, 0, 0
        begin, served = time.monotonic(), boot.machine.seconds()
        while boot.machine.seconds() - served < 21:
            screen = boot.screen()
            glasses.add(screen.at(650, 215))
            clocks.add(screen.part(20, 20, 90, 22))
            # around the logo, which changes by itself
            hands.add(b"".join(screen.part(*part) for part in
                               ((8, 58, 124, 42), (8, 100, 32, 60), (100, 100, 32, 60), (8, 160, 124, 22))))
            lines.add(screen.part(100, 560, 300, 24))
            logos.add(screen.at(41, 101))
            frames += 1
            letters = "".join("#" if near(screen.at(x, 565), self.LETTERS) else "." for x in range(100, 400))
            blocks += ".######." in letters
            for g in range(8):
                lit = self.anywhere(screen, (30 + 90 * g, 242, 60, 96), 0xE8F0FF, 8)
                seen[g] += lit
                begun[g] += lit and near(screen.at(40 + 90 * g, 250 + 10 * g), 0xE8F0FF, 8)
            places |= {place for place in [self.sprite(screen)] if place}
            for at in ((141, 171), (71, 171), (340, 565), (379, 580)):
                self.colour(screen, *at, self.OVER, "what lies over them is there all the time")
            # nothing is left where the animation and the running line were, or beside them
            self.colour(screen, 505, 399, GROUND, "above the animation")
            self.colour(screen, 99, 570, GROUND, "beside the running line")
            self.colour(screen, 401, 570, GROUND, "beside the running line")
            boot.machine.pause(0.05)
        seconds, served = time.monotonic() - begin, boot.machine.seconds() - served
        for colour in self.COLOURS:
            self.assertTrue(any(near(seen, colour) for seen in glasses), f"glass {colour:06x}")
        # the guest's clock goes on while the machine has no processor
        self.assertTrue(served - 2.5 <= len(clocks) <= seconds + 2.5, f"each second once: {len(clocks)} {served}")
        self.assertTrue(served - 7 <= len(hands) <= seconds + 7, f"the hand goes with the clock: {len(hands)}")
        self.assertGreater(len(lines), 10, "the running line")
        self.assertGreater(blocks, frames / 4, "letters of the running line")
        for g in range(8):
            if g == self.RARE:
                self.assertLess(seen[g], frames / 10)
            else:
                self.assertGreater(seen[g], 0, f"spark {g + 1}")
                # the next piece of a line may lie over its begin now and then
                straight = begun[g] > 0.7 * seen[g]
                self.assertEqual(straight, g != self.STRAY, f"spark {g + 1} begins at its point")
                self.assertLess(seen[g], frames, f"spark {g + 1} goes")
        self.assertGreater(seen[self.CALM], frames / 3)
        self.assertGreater(len(places), 20, "the animation")
        self.assertGreater(max(x for x, _ in places) - min(x for x, _ in places), 150)
        self.assertGreater(max(y for _, y in places) - min(y for _, y in places), 30)
        self.assertTrue(all(500 <= x <= 750 - 32 and 400 <= y <= 500 - 40 for x, y in places))
        for number in range(3):
            self.assertTrue(any(near(c, 0x400000 >> 8 * number, 6) for c in logos), f"logo {number}")

    def steered(self, boot):
        """With the arrows the animation goes to one side, wherever it was going."""
        for key, way in (("left", -1), ("right", 1), ("left", -1)):
            for _ in range(20):  # far enough from that edge
                x = self.sprite_now(boot)[0]
                if 560 < x < 660:
                    break
                boot.machine.pause(0.1)
            first = self.sprite_now(boot)[0]
            boot.press(key)
            gone = furthest = 0
            # A slow machine hears the key late; at the edge it would turn by itself.
            for _ in range(60):
                boot.machine.pause(0.1)
                gone = way * (self.sprite_now(boot)[0] - first)
                furthest = min(furthest, gone)
                if gone >= furthest + 5 or furthest <= -50:
                    break
            self.assertTrue(gone >= furthest + 5 and furthest > -50, key)


class Countdown(EngineTest):
    """The three timers from the full timeout to its end."""

    def made(self, off):
        return self.template({
            # the second boot has its menu beyond the screen
            0: {1: 0, 11: 0, 31: 0, 42: 70000 if off else 300, 43: 60, 54: 200, 79: 1, 99: 0},
            4: {1: 1, 2: 300, 3: 400, 4: 200, 5: 10, 6: 0x111111, 7: 0, 18: 9, 19: 10, 20: 1, 21: 0xFFFF00,
                22: 0x0000FF, 23: 0, 24: 100, 37: 0, 38: off},
            5: {1: 1, 2: 40, 3: 40, 4: 200, 5: 200, 17: 60, 18: 5, 19: 20, 21: 0x00FFFF, 22: 0xFF0000, 23: 0,
                24: 100, 36: 99, 37: 0, 38: off},
            6: {1: 1, 2: 126, 3: 130, 8: 0xFF00FF, 9: 7 * off, 38: off},
            2: {1: 0}, 3: {1: 0}, 7: {1: 0},
            8: {1: off, 2: 500, 3: 420, 4: 250, 5: 60, 11: 0, 12: 1, 13: 0, 18: 32, 19: 40, 99: 5}})

    FIRST, LAST = (303, 405), (493, 405)
    PASSED, RING_PASSED = blend(0x0000FF, 100, 0x111111), blend(0xFF0000, 100)
    RING_LAST = (131, 53)  # in its last division
    NUMBER = (126, 130, 30, 22)

    def half_over(self, screen):
        self.colour(screen, *self.FIRST, self.PASSED, "passed")
        self.colour(screen, *self.LAST, 0xFFFF00, "to come")
        self.colour(screen, 140, 53, self.RING_PASSED, "ring, passed")
        self.colour(screen, *self.RING_LAST, 0x00FFFF, "ring, to come")
        self.assertTrue(self.anywhere(screen, self.NUMBER, 0xFF00FF, 20), "number")

    def ring(self, screen):
        """How many pixels of the ring are in one of its colours."""
        return sum(len(screen.places((40, 40, 200, 200), colour, TOLERANCE)) for colour in (0x00FFFF, self.RING_PASSED))

    def test_runs_and_stays(self):
        with Boot(self.made(0).members, menu(["The only one"], timeout=60)) as boot:
            whole = self.ring(boot.wait(lambda s: near(s.at(*self.RING_LAST), 0x00FFFF)))
            # all three draw one after the other
            self.shows(boot, self.half_over)
            boot.press("down")
            boot.machine.pause(0.5)
            before = boot.screen()
            boot.machine.pause(3.5)  # longer than what is left
            after = boot.screen()
            for part in ((300, 400, 200, 10), (40, 40, 200, 200)):
                self.assertEqual(before.part(*part), after.part(*part), "a key stops it")
            self.colour(after, *self.LAST, 0xFFFF00, "stays")
            self.colour(after, 490, 64, blend(WHITE, 60), "the only entry has the bar")
            self.assertGreater(self.ring(after), 0.97 * whole, "a division that passes leaves the others whole")

    def test_boots_the_default_entry_at_its_end(self):
        sectors = {"other.bs": boot_sector(4), "default.bs": boot_sector(2)}
        config = menu(timeout=60).replace("localboot 0x80", "kernel other.bs").replace("default entry0", "default entry2")
        config = config.replace("label Third\n  kernel other.bs", "label Third\n  kernel default.bs")
        last = []

        def booted(screen):
            if screen.height == SIZE[1] and near(screen.at(*self.FIRST), self.PASSED):
                last[:] = [screen]
            return screen.height == 400 and screen.at(300, 200) not in (0, 0xA8A8A8)

        with Boot(self.made(0).members, config, others=sectors) as boot:
            screen = boot.wait(booted, 60, smallest=400)
            self.assertEqual(screen.height, 400, "booted")
            self.colour(screen, 300, 200, 0x00A800, "the default entry")
        passed = sum(near(last[0].at(303 + 10 * i, 405), self.PASSED) for i in range(20))
        self.assertGreaterEqual(passed, 17, "the line ran to its end")

    def test_stopped_goes(self):
        made = self.made(1)
        made.members["ani_05.jpg"] = plain(96, 40, 0xF0F000)
        made.members["ani_05_msk.jpg"] = plain(96, 40, WHITE)
        made.members["16x16_07.fnt"] = block_font()
        with Boot(made.members, menu(timeout=300)) as boot:
            screen = boot.wait(lambda s: self.anywhere(s, self.NUMBER, 0xFF00FF, 20))
            self.colour(screen, 131, 141, 0xFF00FF, "the number in its own font")
            boot.press("left")
            screen = boot.wait(lambda s: near(s.at(*self.FIRST), GROUND))
            places = []
            for _ in range(8):
                boot.machine.pause(0.15)
                places.append(Moving.sprite(boot.screen()) or (0, 0))
            places = [place for place in places if place != (0, 0)]
            self.assertEqual(places, sorted(places), "the arrow does not turn the animation")
            for at in (self.FIRST, self.LAST, (140, 53)):
                self.colour(screen, *at, GROUND, "gone")
            screen = boot.wait(lambda s: not self.anywhere(s, self.NUMBER, 0xFF00FF, 20))
            self.assertFalse(self.anywhere(screen, self.NUMBER, 0xFF00FF, 20))


class User(EngineTest):
    """Keys and menus."""

    BAR = 0xF0F000

    def bar_line(self, screen, x=540, top=60, pitch=20, lines=10):
        """The line that the bar is in."""
        rows = [line for line in range(lines) if near(screen.at(x, top + pitch * line + 10), self.BAR)]
        return rows[0] if len(rows) == 1 else None

    def test_long_menu_and_its_values(self):
        made = self.template({0: {19: 0, 39: 0, 40: 3, 41: 5, 42: 300, 43: 300, 54: 250, 56: 0, 57: 255,
                                  75: 0, 76: 0x1B, 77: 2, 79: 0, 99: 0, 24: 500, 1: 0, 11: 0},
                              3: {1: 0}})
        entries = [f"Entry {number}" for number in range(12)]
        entries[3:3] = [f"[zuk0000] :56=0x{self.BAR:06X} :57=0", "[zuk0000] :43=60 :19=junk"]
        with Boot(made.members, menu(entries + ["technical", "technical too"])) as boot:
            screen = boot.wait(lambda s: self.bar_line(s) == 0)
            self.assertEqual(self.bar_line(screen), 0)
            self.colour(screen, 40, 582, GROUND, "only the menu at the start")
            boot.awake()
            for keys, line in ((["down"], 1), (["pgdn"], 4), (["up"], 3), (["home"], 0), (["end"], 4)):
                boot.press(*keys)
                screen = boot.wait(lambda s, wanted=line: self.bar_line(s) == wanted)
                self.assertEqual(self.bar_line(screen), line, keys)
            line = blend(0x33584F, 0)
            self.colour(screen, 500, 592, line, "a key brings the rest")
            last = screen.part(300, 60, 250, 100)
            boot.press("down")
            boot.machine.pause(0.4)
            self.assertEqual(boot.screen().part(300, 60, 250, 100), last, "the end is the end")
            # twelve entries, neither data nor technical ones: seven up from the last is the fifth
            for _ in range(11):
                boot.press("up")
            screen = boot.wait(lambda s: self.bar_line(s) == 0)
            self.assertEqual(self.bar_line(screen), 0)
            options = screen.part(32, 570, 400, 24)
            boot.press("a")
            boot.wait(lambda s: s.part(32, 570, 400, 24) != options)
            boot.press("backspace")
            screen = boot.wait(lambda s: s.part(32, 570, 400, 24) == options)
            self.assertEqual(screen.part(32, 570, 400, 24), options, "typed options go again")
            boot.press("esc")  # the exit key of this boot
            self.shows(boot, lambda s: self.assertEqual(s.height, 400, "text mode"))

    def test_thirty_titles_and_a_long_help(self):
        """Title and line of the help number i are i + 1 letters long, so that the screen tells which stands where."""
        chosen, other, slit, lines = 0x800000, 0xF0F000, 14, 10
        made = self.template(STILL, {0: {39: 7, 40: slit, 41: lines, 42: 300, 43: 60, 54: 260, 47: 255, 48: other, 56: self.BAR,
                                         57: 0, 58: chosen, 77: 0, 66: 0x202020, 67: 0, 68: 0x00F0F1, 69: 7},
                                     4: {1: 0}, 5: {1: 0}, 6: {1: 0}})
        made.members["16x16_07.fnt"] = block_font()
        count, long = self.TITLES, 130
        made.members["ZUK_Read.txt"] = "|".join("W" * (i % 70 + 1) for i in range(long)).encode()

        def menu_shows(first, bar):
            def check(screen):
                for line in range(lines):
                    at = 60 + self.line_top(line, slit)
                    colour = chosen if first + line == bar else other
                    self.assertEqual(self.letters(screen, 300, at, colour), first + line + 1, f"line {line}")
                    self.colour(screen, 558, at + 12, self.BAR if first + line == bar else GROUND, f"bar {bar}")
            return check

        def help_shows(first):
            def check(screen):
                shown = [self.letters(screen, 80, 60 + self.line_top(row), 0x00F0F1) for row in range(45)]
                self.assertEqual(shown, [(first + row) % 70 + 1 for row in range(45)])
            return check

        config = menu(["W" * (i + 1) for i in range(count)]).replace("localboot 0x80", "kernel other.bs")
        config = config.replace(f"label {'W' * 17}\n  kernel other.bs", f"label {'W' * 17}\n  kernel wanted.bs")
        with Boot(made.members, config, others={"other.bs": boot_sector(4), "wanted.bs": boot_sector(2)}) as boot:
            self.shows(boot, menu_shows(0, 0))
            before = boot.awake().pixels
            boot.press("f1")
            for keys, first in ((["down"], 1), (["down", "pgdn"], 47), (["up"], 46), (["end"], long - 45), (["pgup"], long - 90), (["home"], 0)):
                boot.press(*keys)
                self.shows(boot, help_shows(first))
            boot.press("esc")
            self.shows(boot, lambda s: self.assertTrue(s.pixels == before, "what was under the help is back"))
            steps = {"down": 1, "up": -1, "pgdn": lines, "pgup": -lines, "end": count, "home": -count}
            first = bar = 0
            # no more at a time than the BIOS keeps
            for key, times in (("down", 10), ("down", 10), ("down", count - 21), ("down", 1), ("up", 9), ("up", 1), ("up", 10),
                               ("up", count - 21), ("up", 1), ("pgdn", 1), ("pgdn", 1), ("end", 1), ("pgup", 1), ("home", 1)):
                for _ in range(times):
                    bar = min(max(bar + steps[key], 0), count - 1)
                    first = min(max(first, bar - lines + 1), bar)
                boot.press(*[key] * times)
                self.shows(boot, menu_shows(first, bar))
            boot.press("pgdn", "pgdn", *["up"] * 4, "ret")
            screen = boot.wait(lambda s: s.height == 400 and s.at(300, 200) not in (0, 0xA8A8A8), smallest=400)
            self.colour(screen, 300, 200, 0x00A800, "the entry that was chosen is booted")

    TITLES = 30

    PANEL = (30, 40, 575, 375)

    def missing_kernel(self, screen):
        self.rectangle(screen, "message", self.PANEL, 0x005500)
        self.rectangle(screen, "wait panel", (20, 480, 300, 60), 0x550055)
        self.assertTrue(self.anywhere(screen, (20, 480, 100, 17), 0xF0F001, 8), "wait, first line")
        self.assertTrue(self.anywhere(screen, (20, 497, 100, 20), 0x00FF00, 8), "wait, second line")

    def asked(self, stars):
        """The question with that many stars, and a caret behind them."""
        def check(screen):
            self.rectangle(screen, "question", self.PANEL, 0x005500)
            self.assertEqual(self.letters(screen, 30, 40, 0x00F0F1), len("Password"))
            self.assertEqual(self.letters(screen, 30, 40 + self.line_top(2), 0xF0F002), stars + 1)
        return check

    def test_messages_and_passwords(self):
        made = self.template(STILL, {0: {42: 300, 43: 60, 39: 0, 40: 3, 56: self.BAR, 57: 0},
                                     7: {1: 1, 2: 20, 3: 480, 4: 300, 5: 60, 6: 0x550055, 7: 0, 8: 0xF0F001, 9: 7, 11: 2, 22: 0x00FF00},
                                     15: {2: 30, 3: 40, 6: 0x005500, 7: 0, 8: 0xF0F002, 9: 7, 17: 0x00F0F1}})
        made.members["16x16_07.fnt"] = block_font()
        made.members["init"] = engine_with("asking.inc")
        config = menu(["One", "Two"]).replace("localboot 0x80", "kernel nothere")
        with Boot(made.members, config) as boot:
            boot.wait(lambda s: self.bar_line(s) == 0 and not near(s.at(124, 132), GROUND))  # the ring comes last
            before = boot.awake().pixels
            whole = lambda s: self.assertTrue(s.pixels == before, "the menu is whole again")
            boot.press("f3")
            self.shows(boot, self.asked(0))
            # neither keys of the menu nor what is too long
            boot.press("up", "f1", "f2", "tab", *"1234567")
            self.shows(boot, self.asked(7))
            boot.press("backspace", "backspace", "shift+8")
            self.shows(boot, self.asked(6))
            for wrong in ("ret", "esc"):
                boot.press(wrong)
                refused = lambda s: self.assertEqual(self.letters(s, 30, 40 + self.line_top(2), 0xF0F002), len("Refused"))
                self.shows(boot, refused)
                boot.press("ret")
                self.shows(boot, whole)
                boot.press("f3")
                self.shows(boot, self.asked(0))
            boot.press("shift+s", *"ecret", "spc", "1")
            self.shows(boot, self.asked(8))
            boot.press("ret")
            self.shows(boot, lambda s: self.assertEqual(self.bar_line(s), 1, "the right one"))
            boot.press("up")
            self.shows(boot, whole)
            boot.press("ret")
            self.shows(boot, self.missing_kernel)
            boot.press("ret")
            self.shows(boot, whole)


class Broken(EngineTest):
    """Members and menus as bad as can be: the menu stands and obeys."""

    BAR = (540, 186)  # right of the words, in the bar's upper part; a line further down outside of it

    def alive(self, members, titles, memory=128, ground=None):
        bar = blend(WHITE, 60, 0)  # white over anything is at least as light as this
        with Boot(members, menu(titles), memory) as boot:
            light = lambda s: min(s.at(*self.BAR) >> shift & 255 for shift in (0, 8, 16)) >= (bar & 255) - 12
            screen = boot.wait(lambda s: light(s) and boot.rests(s))
            self.assertTrue(light(screen), "the bar stands")
            if ground is not None:
                self.colour(screen, 790, 10, ground, "no background")
            for key in ("f1", "f2"):
                boot.until(key, lambda s: not light(s))
                boot.until("esc", light)
            boot.until("down", lambda s: not light(s))
            self.assertTrue(light(boot.until("home", light)), "the bar comes back")

    def test_little(self):
        made = Template(DATA)
        for name in ("16x16.fnt", "back.jpg", "RLineDef.txt", "ani_03_msk.jpg"):
            del made.members[name]
        made.members.update({"ZUK0001.CFG": b"", "ZUK0002.CFG": b"\1\0\0", "ZUK0003.CFG": b"\1\0\0\1\5",
                             "Logo_00.jpg": plain(1, 1, WHITE), "glass_02.jpg": b"no picture at all" * 9,
                             "ZUK_Read.txt": bytes(range(256)) * 4})
        for number in (4, 5, 7, 8):
            made.levels(number, {2: 5000, 3: 70000, 4: 0, 5: 0})
        made.levels(0, {2: 5000, 3: 70000, 12: 790, 13: 599, 22: 65535, 24: 0, 54: 65535, 32: 0xFFFFFF, 33: 0xFFFFFF, 34: 0, 35: 65535})
        self.alive(made.members, ["W" * 300, "Длинный заголовок " * 17, "[zuk0099] :1=1", "["])

    def test_no_entries(self):
        """Nothing but values, and a colour of more than 24 bits."""
        made = self.template({0: {19: 0, 47: 0, 77: 0, 99: 0}})
        with Boot(made.members, menu(["[zuk0000] :46=0x1123456"])) as boot:
            ground = lambda s: self.colour(s, 540, 180, 0x123456, "no bar")
            self.shows(boot, ground)
            boot.awake()
            boot.press("down", "end")
            self.shows(boot, ground)

    def test_much(self):
        made = Template(DATA)
        seed = 12345
        noise = bytearray()
        for _ in range(400):
            seed = (seed * 1103515245 + 12345) & 0x7FFFFFFF
            noise += (seed >> 7).to_bytes(4, "little")
        for number in (1, 2, 3, 4, 5, 6, 7, 8, 15):
            made.members[level_name(number)] = bytes(noise[number:])
        made.members["16x16.fnt"] = block_font(letters=5000)
        made.members["Logo_00.jpg"] = plain(4000, 3000, 0x206020)
        made.members["Logo_msk.jpg"] = plain(100, 200, WHITE)
        made.members["large"] = bytes(noise) * 4800
        # the decoder would make such a picture black
        made.members["back.jpg"] = jpeg(*SIZE, ["gradient:red-white", "-interlace", "Plane"])
        made.levels(0, {24: 65535, 32: 10, 33: 400, 34: 65535, 40: 3, 41: 65535})
        self.alive(made.members, [f"Entry {number}" for number in range(200)], 32, 0x102030)


def main():
    global DATA
    DATA = sys.argv.pop(1)
    unittest.main(verbosity=2, warnings="ignore")


if __name__ == "__main__":
    main()
