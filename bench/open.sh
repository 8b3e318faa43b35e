#!/bin/sh
# SPDX-License-Identifier: MIT
# The programs behind an open and a save, beside the ones that everybody has, on the same files in the
# same run: best time of several runs, and the ratio. Then the window (see bench_frame.cpp).
# usage: bench/open.sh [build/release]
set -eu
cd "$(dirname "$0")/.."
build=$(cd "${1:-build/release}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 - "$build" "$work" <<'PYTHON'
import os, subprocess, sys, time
build, work = sys.argv[1:]
cpio, zipper = build + "/bin/Tools/CPIO/cpio_bridge", build + "/bin/Tools/7-Zip/7zip_bridge"
theme = "/etc/bootsplash/themes/upstream/bootloader/message"

def best(command, cwd=work, runs=15):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        subprocess.run(command, cwd=cwd, check=True, stdout=subprocess.DEVNULL)
        times.append((time.perf_counter() - start) * 1e3)
    return min(times)

def row(name, ours, theirs):
    print(f"{name:44}{ours:9.2f}{theirs:9.2f}{ours / theirs:8.2f}")

def make(size):
    folder = f"{work}/m{size}"
    os.mkdir(folder)
    with open(theme, "rb") as archive:
        subprocess.run(["cpio", "-i", "--quiet"], stdin=archive, cwd=folder, check=True)
    names = sorted(os.listdir(folder))
    total, number = os.path.getsize(theme), 0
    picture = open(folder + "/back.jpg", "rb").read()
    while total < size:
        number += 1
        data = picture + os.urandom(200_000 - len(picture) % 200_000)
        open(f"{folder}/back_{number:02}.jpg", "wb").write(data)
        names.append(f"back_{number:02}.jpg")
        total += len(data)
    open(folder + "/#.lst", "w", newline="").write("".join(n + "\r\n" for n in names))
    subprocess.run([cpio, "ASSM", f"{work}/{size}", folder, "#.lst", ",0"], check=True)
    subprocess.run(["gzip", "-9k", f"{work}/{size}"], check=True)
    return folder

print(f"{'milliseconds, best of 15':44}{'ours':>9}{'theirs':>9}{'ratio':>8}")
row("bridge without work / true", best(["sh", "-c", f"{cpio} 2>/dev/null || :"]), best(["sh", "-c", "true || :"]))
for size in (450_000, 4_400_000):
    folder, plain, gz, out = make(size), f"{work}/{size}", f"{work}/{size}.gz", f"{work}/out{size}"
    os.mkdir(out)
    label = f"{size / 1e6:.2f} MB: "
    row(label + "cpio INFO / cpio -it", best([cpio, "INFO", plain, out, "#.lst", ",0"]),
        best(["sh", "-c", f"cpio -it --quiet < {plain}"]))
    row(label + "cpio EXTR / cpio -iu", best([cpio, "EXTR", plain, out, "#.lst", ",0"]),
        best(["sh", "-c", f"cpio -iu --quiet < {plain}"], cwd=out))
    row(label + "cpio ASSM / cpio -o", best([cpio, "ASSM", work + "/new", folder, "#.lst", ",0"]),
        best(["sh", "-c", f"tr -d '\\r' < '#.lst' | cpio -o --quiet -H bin > {work}/old"], cwd=folder))
    row(label + "7zip INFO / gzip -t", best([zipper, "INFO", gz, out, "#7zip.log", ",0"]), best(["gzip", "-t", gz]))
    row(label + "7zip EXTR / gzip -dc", best([zipper, "EXTR", gz, out, "#7zip.log", ",0"]),
        best(["sh", "-c", f"gzip -dc {gz} > {work}/un"]))
    row(label + "7zip ASSM / gzip -9", best([zipper, "ASSM", plain, work + "/new.gz", ",0"], runs=5),
        best(["sh", "-c", f"gzip -9c {plain} > {work}/old.gz"], runs=5))
    row(label + "  size in KB", os.path.getsize(work + "/new.gz") / 1e3, os.path.getsize(work + "/old.gz") / 1e3)
    four = [[zipper, "INFO", gz, out, "#7zip.log", ",0"], [zipper, "EXTR", gz, out, "#7zip.log", ",0"],
            [cpio, "INFO", plain, out, "#.lst", ",0"], [cpio, "EXTR", plain, out, "#.lst", ",0"]]
    script = " && ".join(" ".join(f"'{w}'" for w in c) for c in four)
    row(label + "all four / gzip -dc | cpio -i", best(["sh", "-c", script]),
        best(["sh", "-c", f"gzip -dc {gz} | cpio -iu --quiet"], cwd=out))
PYTHON
echo
if [ -x "$build/bench/bench_frame" ]; then
    "$build/bench/bench_frame" 2>/dev/null
else
    echo "build the target bench_frame for the window's own times"
fi
