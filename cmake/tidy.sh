#!/usr/bin/env bash
# tidy.sh [BUILD_FOLDER]: clang-tidy over every source of the editor and the bridges. The folder is
# only configured; the sources of a room are read as one, so that Qt's headers are read once a room.
set -euo pipefail
cd "$(dirname "$0")/.."
database=${1:-build/tidy}
cmake -S . -B "$database" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_EXPORT_COMPILE_COMMANDS=ON \
    -DFENNEL_UNITY=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
mapfile -t sources < <(python3 - "$database" <<'EOF'
import json, os, sys
database = os.path.abspath(sys.argv[1])
rooms = [os.path.join(place, room) + "/" for place in (database, os.getcwd()) for room in ("src", "bridges")]
for command in json.load(open(database + "/compile_commands.json")):
    name = command["file"]
    if name.startswith(tuple(rooms)) and "_autogen" not in name and (
            "/Unity/" in name or not name.startswith(database)):
        print(name)
EOF
)
printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P "${FENNEL_JOBS:-$(nproc)}" \
    clang-tidy --quiet -p "$database" --checks=-bugprone-suspicious-include --header-filter='/(src|bridges)/.*\.(h|cpp)$' 2>/dev/null
echo "clang-tidy: ${#sources[@]} rooms and single files are clean"
