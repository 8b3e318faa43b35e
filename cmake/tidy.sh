#!/usr/bin/env bash
# tidy.sh BUILD_FOLDER: clang-tidy over every source that the build compiles.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t sources < <(git ls-files 'src/*.cpp' 'bridges/*.cpp')
# clang does not read the precompiled headers that g++ made.
database=$(mktemp -d)
trap 'rm -rf "$database"' EXIT
sed -E 's/-Winvalid-pch//g; s/-include [^ ]*cmake_pch\.hxx//g' "$1/compile_commands.json" \
    > "$database/compile_commands.json"
printf '%s\0' "${sources[@]}" | xargs -0 -n 4 -P "$(nproc)" clang-tidy --quiet -p "$database" 2>/dev/null
echo "clang-tidy: ${#sources[@]} files are clean"
