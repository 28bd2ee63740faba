#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# documented.sh PANEL-REPLAY SOURCES WORK
#
# Types the commands that the documents show ("    $ panel-replay ..."), one after the other, in a folder with the photos that
# they speak of. They must print what stands below them there.
set -euo pipefail
export PATH=$(dirname -- "$(realpath -- "$1")"):$PATH LC_ALL=C.UTF-8
export LSAN_OPTIONS="${LSAN_OPTIONS:-}:print_suppressions=0" # no message of the program's
sources=$(realpath -- "$2") work=$(realpath -m -- "$3")

make_photos() {
    rm -rf "$work"
    mkdir -p "$work/raw/harbour"
    cd "$work"
    local name
    for name in bridge harbour/boat harbour/crane; do
        { printf 'P6 120 90 255\n'; yes "$name" | head -c 32400 || true; } >"raw/$name.ppm" # yes ends by a signal
    done
    cat >warm.json <<'RECIPE'
{"format": "adjustment-recipe", "version": 1, "steps": [
    {"panel": "HBExposureWidget", "values": {"exposure": 0.7, "offset": 0.005}},
    {"panel": "HBTemperatureWidget", "record": "S01UZW1wZXJhdHVyZSAxLjAwMDAwAAAQzAAAAAAAAABQ"}]}
RECIPE
    sed 's/0\.7/0.9/' warm.json >warmer.json
    panel-replay apply warm.json raw --recursive -o photos --format jpg
    touch -d yesterday last-run
    rm -r raw
}

tried=0 faults=0
try() { # of $command and $expected
    [[ -n $command ]] || return 0
    local printed
    printed=$(bash -c "$command" 2>&1 || true)
    ((++tried))
    [[ $printed == "${expected%$'\n'}" ]] && return
    printf '%s\n    $ %s\nprints\n%s\nand not\n%s\n' "$document" "$command" "$printed" "$expected" >&2
    ((++faults))
}

for document in README.md docs/replay.md; do
    make_photos
    command='' expected=''
    while IFS= read -r line; do
        if [[ $line == '    $ '* ]]; then
            try
            command=${line#'    $ '} expected=''
        elif [[ $line == '    '* ]]; then
            expected+=${line#'    '}$'\n'
        else
            try
            command=''
        fi
    done <"$sources/$document"
    try
done
echo "Typed: $tried commands; faults: $faults"
(( tried >= 20 && faults == 0 ))
