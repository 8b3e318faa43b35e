#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The tools of the editor beside the programs that everybody has, on the same files.

    bench/beside.py BUILD_FOLDER

Each pair runs by turns, so that a busy machine is unfair to neither; the best time counts. Prints
"name milliseconds" lines, two for each pair: tool/NAME and peer/NAME. Where a file is made there are
two more with its size in KB, .../KB behind the name.
"""

import json
import os
import subprocess
import sys
import tempfile
import time

TURNS, BUDGET_SECONDS = 25, 4.0
THEME = "/etc/bootsplash/themes/upstream/bootloader/message"
FONTS = "/usr/share/fonts/truetype/dejavu"


def once(command, folder):
    start = time.perf_counter()
    subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return (time.perf_counter() - start) * 1e3


def pair(name, ours, peer, folder, made=None):
    """Both commands by turns until the turns or the time are spent; `made`: the files they write."""
    times, end = ([], []), time.perf_counter() + BUDGET_SECONDS
    while len(times[0]) < 3 or (len(times[0]) < TURNS and time.perf_counter() < end):
        times[0].append(once(ours, folder))
        times[1].append(once(peer, folder))
    for side, values, index in (("tool", times[0], 0), ("peer", times[1], 1)):
        print(f"{side}/{name} {min(values):.3f}")
        if made:
            print(f"{side}/{name}/KB {os.path.getsize(made[index]) / 1e3:.3f}")


def shell(line):
    return ["sh", "-c", line]


def make_message(work, size, cpio):
    """A folder with members for an archive of that size, the archive, and it gzipped."""
    folder = f"{work}/m{size}"
    os.mkdir(folder)
    with open(THEME, "rb") as archive:
        subprocess.run(["cpio", "-i", "--quiet"], stdin=archive, cwd=folder, check=True)
    names, total = sorted(os.listdir(folder)), os.path.getsize(THEME)
    picture = open(folder + "/back.jpg", "rb").read()
    while total < size:
        names.append(f"back_{len(names):02}.jpg")
        data = picture + os.urandom(200_000 - len(picture) % 200_000)
        open(f"{folder}/{names[-1]}", "wb").write(data)
        total += len(data)
    with open(folder + "/#.lst", "w", newline="") as out:
        out.write("".join(name + "\r\n" for name in names))
    plain = f"{work}/{size}"
    subprocess.run([cpio, "ASSM", plain, folder, "#.lst", ",0"], check=True)
    subprocess.run(["gzip", "-9k", plain], check=True)
    return folder, plain, plain + ".gz"


def archives(work, tools):
    cpio, zipper = tools + "/CPIO/cpio_bridge", tools + "/7-Zip/7zip_bridge"
    pair("start/cpio", [cpio], ["true"], work)
    pair("start/7zip", [zipper], ["true"], work)
    for size in (450_000, 4_400_000):
        folder, plain, gz = make_message(work, size, cpio)
        out, report = f"{work}/out{size}", ["#7zip.log", ",0"]
        os.mkdir(out)
        pair(f"cpio INFO/{size}", [cpio, "INFO", plain, out, "#.lst", ",0"],
             shell(f"cpio -it --quiet < {plain}"), out)
        pair(f"cpio EXTR/{size}", [cpio, "EXTR", plain, out, "#.lst", ",0"],
             shell(f"cpio -iu --quiet < {plain}"), out)
        pair(f"cpio ASSM/{size}", [cpio, "ASSM", work + "/new", folder, "#.lst", ",0"],
             shell(f"tr -d '\\r' < '#.lst' | cpio -o --quiet -H bin > {work}/old"), folder)
        pair(f"7zip EXTR/{size}", [zipper, "EXTR", gz, out, *report],
             shell(f"gzip -dc {gz} > {work}/un"), out)
        pair(f"7zip ASSM/{size}", [zipper, "ASSM", plain, work + "/new.gz", ",0"],
             shell(f"gzip -9c {plain} > {work}/old.gz"), work, (work + "/new.gz", work + "/old.gz"))


def pictures(work, tools):
    bridge = tools + "/nconvert/nconvert_bridge"
    subprocess.run(["convert", "-size", "1600x1200", "-seed", "7", "plasma:", "-attenuate", "0.2",
                    "+noise", "Gaussian", "-quality", "90", work + "/1600.jpg"], check=True)
    subprocess.run(["convert", work + "/1600.jpg", "-resize", "4000x3000", "-attenuate", "0.1",
                    "+noise", "Gaussian", "-quality", "90", work + "/4000.jpg"], check=True)
    for name, source, size in (("scale/50", 1600, (800, 600)), ("scale/90", 1600, (1440, 1080)),
                               ("scale/125", 1600, (2000, 1500)), ("import", 4000, (1024, 768))):
        width, height = map(str, size)
        pair(name, [bridge, "-out", "jpeg", "-overwrite", "-resize", width, height, "-q", "85", "-dpi", "72",
                    "-rexifthumb", "-rmeta", "-o", "ours.jpg", f"{source}.jpg", ",0"],
             ["convert", f"{source}.jpg", "-resize", f"{width}x{height}!", "-quality", "85", "peer.jpg"], work)


def fonts(work, tools):
    bridge = tools + "/MakeFont/mkfnt_bridge"
    for name, ranges in (("175", "0x20-0x7e_0x410-0x45f"), ("5000", "0x20-0x33ff")):
        added = [word for part in ranges.split("_") for word in ("-a", part)]
        pair(f"font/{name}", [bridge, ranges, "DejaVuSans", "19", "4", "0", "0", "ours.fnt", ",0"],
             ["gfxboot-font", "-f", "DejaVuSans:size=19", "-p", FONTS, *added, "peer.fnt"], work)


def boots(work, tools):
    """From the order to the standing picture, as the program itself tells."""
    bin_folder = tools + "/.."
    order = [bin_folder + "/fennel", "boot", bin_folder + "/data/GFX.GZ", "-o", work + "/boot.png", "--no-kvm", "--json"]
    told = [json.loads(subprocess.run(order, check=True, stdout=subprocess.PIPE).stdout) for _ in range(5)]
    print(f"tool/boot {min(boot['ms'] for boot in told):.3f}")


def by_hand(message, change, out):
    """An archive taken apart, changed by a line of shell, and packed again."""
    return shell(f"rm -rf hand && mkdir hand && cd hand && cpio -i --quiet < {message} && "
                 f"cpio -it --quiet < {message} > ../names && {change} && "
                 f"cpio -o --quiet -H bin < ../names > {out}")


def scripts(work, tools):
    """`fennel` beside cpio, convert and a line of shell that come to the same."""
    fennel = tools + "/../fennel"
    small, large = f"{work}/450000", f"{work}/4400000"
    only = "cpio -i --quiet --to-stdout"
    pair("fennel info", [fennel, "info", small], shell(f"{only} back.jpg < {small} | identify -"), work)
    pair("fennel list", [fennel, "list", small], shell(f"cpio -itv --quiet < {small}"), work)
    pair("fennel get", [fennel, "get", small, "mainmenu.pos"],
         shell(f"{only} gfxboot.cfg < {small} | grep mainmenu.pos"), work)
    line = "sed -i s/^mainmenu.pos=.*/mainmenu.pos=9,9/ gfxboot.cfg"
    pair("fennel set/4400000", [fennel, "set", large, "mainmenu.pos=9,9", "-o", "set"],
         by_hand(large, line, "../set"), work)
    subprocess.run([fennel, "new", "new"], cwd=work, check=True)
    pair("fennel render", [fennel, "render", "new", "-o", "new.png"],
         shell(f"{only} back.jpg < new | convert - new.png"), work)
    pair("fennel check", [fennel, "check", "new"], shell(f"{only} '*.jpg' < new | identify -"), work)
    # Ten a process on two cores, as people do it; a fortieth of a thousand, each from the original.
    sticks = [f"{work}/stick{i}" for i in range(25)]
    brand = ("printf '%s\\0' stick* | xargs -0 -n 10 -P 2 sh -c 'for m; do cp 450000 $m; done; "
             f"{fennel} replace \"$@\" back.jpg=4000.jpg && {fennel} set \"$@\" mainmenu.pos=9,9' _")
    hand = "; ".join(
        by_hand(f"{work}/450000", f"convert ../4000.jpg -resize 800x600! -sampling-factor 4:2:0 back.jpg && {line}",
                stick)[2] for stick in sticks)
    for stick in sticks:
        open(stick, "w").close()
    pair("fennel brand", shell(brand), shell(hand), work)


def main():
    tools = os.path.abspath(sys.argv[1]) + "/bin/Tools"
    with tempfile.TemporaryDirectory() as work:
        for part in (archives, pictures, fonts, boots, scripts):
            part(work, tools)


if __name__ == "__main__":
    main()
