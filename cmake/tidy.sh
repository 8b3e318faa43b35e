#!/usr/bin/env bash
# tidy.sh [BUILD_FOLDER]: clang-tidy over every source of the editor and the bridges. The folder is
# only configured: a source is read by itself, without what g++ has precompiled.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t sources < <(git ls-files 'src/*.cpp' 'bridges/*.cpp')
database=${1:-build/tidy}
cmake -S . -B "$database" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_EXPORT_COMPILE_COMMANDS=ON \
    -DFENNEL_UNITY=OFF -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
printf '%s\0' "${sources[@]}" | xargs -0 -n 4 -P "${FENNEL_JOBS:-$(nproc)}" clang-tidy --quiet -p "$database" 2>/dev/null
echo "clang-tidy: ${#sources[@]} files are clean"
