#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# killed.sh PANEL-REPLAY SOURCES WORK [MOMENTS]
#
# Kills a run of 40 photos (kill -9) at MOMENTS moments (default: 10), spread over the time that it takes, and goes on with
# --resume; every second time the photos are replaced in place. The files must be those of an undisturbed run: none in part,
# none twice adjusted, none left over. Now and then the journal's last line is torn, as if the machine had stopped.
set -euo pipefail
replay=$(realpath -- "$1") recipe=$(realpath -- "$2")/samples/recipes/HBLevelsWidget.json work=$3 moments=${4:-10}
rm -rf "$work"
mkdir -p "$work/photos/inner"
cd "$work"
for ((i = 0; i < 40; ++i)); do
    folder=photos; (( i % 2 )) && folder=photos/inner
    { printf 'P6 120 90 255\n'; yes "photo $i" | head -c 32400 || true; } >"$folder/$i.ppm" # yes ends by a signal
done
arguments=(apply "$recipe" tree --recursive --overwrite)

fail() { echo "FAILED: $*" >&2; exit 1; }
now() { echo $((${EPOCHREALTIME/[.,]/})); } # in microseconds
cp -r photos tree
start=$(now)
"$replay" "${arguments[@]}" -o whole
span=$(($(now) - start))

killed=0 midway=0
for ((moment = 0; moment < moments; ++moment)); do
    rm -rf tree out
    cp -r photos tree
    out=out
    (( moment % 2 )) && out=tree
    "$replay" "${arguments[@]}" -o "$out" &
    process=$!
    micro=$((span * moment / moments))
    sleep "$((micro / 1000000)).$(printf %06d $((micro % 1000000)))"
    kill -9 "$process" 2>/dev/null && ((++killed))
    wait "$process" 2>/dev/null || true
    noted=$(cat "$out/.panel-replay.journal" 2>/dev/null | wc -l || true)
    (( noted > 0 && noted < 40 )) && ((++midway))
    (( moment % 3 == 0 && noted > 0 )) && printf '{"job":"to' >>"$out/.panel-replay.journal"
    "$replay" "${arguments[@]}" -o "$out" --resume 2>log || fail "moment $moment: $(cat log)"
    diff --recursive --exclude='.panel-replay.journal' whole "$out" || fail "moment $moment, at $micro of $span us"
done
echo "Killed $killed times, $midway of them midway, within $span us: always the files of an undisturbed run"
(( killed > moments / 2 && midway > moments / 4 )) || fail "too few were killed at work"
