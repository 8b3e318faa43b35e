#!/usr/bin/env python3
"""Holds the order of the rooms of src: a room includes its own files and those of lower rooms."""
import re
import sys
from pathlib import Path

source = Path(__file__).resolve().parent.parent / "src"
storeys = ["base", "container", "params fonts menus", "document", "screen", "tools", "checks", "command", "editor", "app"]
height = {room: storey for storey, rooms in enumerate(storeys) for room in rooms.split()}
include = re.compile(r'^#include "(\w+)/', re.MULTILINE)
wrong = []
for path in sorted(source.glob("*/**/*.[ch]*")):
    own = path.relative_to(source).parts[0]
    for room in include.findall(path.read_text()):
        if height[room] > height[own]:
            wrong.append(f"{path.relative_to(source)}: {own} includes the higher room {room}")
print("\n".join(wrong) or "rooms: no room includes a higher one")
sys.exit(bool(wrong))
