#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# killed.sh PANEL-REPLAY SOURCES WORK [MOMENTS]
#
# Kills a run of 40 photos (kill -9) at MOMENTS moments (default: 10), from its first to its last photo, and goes on with
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
noted() { # how many lines the journal has; no other process, which would take longer than a photo
    local lines=()
    { mapfile -t lines <"$1/.panel-replay.journal"; } 2>/dev/null || true
    count=${#lines[@]}
}
has_ended() { # until we have waited for it, it is a zombie
    local state=Z
    { read -r _ _ state _ <"/proc/$1/stat"; } 2>/dev/null || true
    [[ $state == Z ]]
}
cp -r photos tree
"$replay" "${arguments[@]}" -o whole

killed=0 midway=0 late=0
RANDOM=7
for ((moment = 0; moment < moments; ++moment)); do
    rm -rf tree out
    cp -r photos tree
    out=out
    (( moment % 2 )) && out=tree
    "$replay" "${arguments[@]}" -o "$out" &
    process=$!
    count=0
    until (( count >= moment * 40 / moments )) || has_ended "$process"; do noted "$out"; done
    sleep "0.00$((RANDOM % 10))" # in different steps of a photo's way
    kill -9 "$process" 2>/dev/null || true
    { wait "$process" && code=0 || code=$?; } 2>/dev/null
    noted "$out"
    if (( code != 137 || count >= 40 )); then # too late: once more, on a busy machine many times
        ((--moment, ++late < 20 * moments)) || fail "too few were killed at work"
        continue
    fi
    ((++killed))
    (( count > 0 && count < 40 )) && ((++midway))
    (( moment % 3 == 0 && count > 0 )) && printf '{"job":"to' >>"$out/.panel-replay.journal"
    "$replay" "${arguments[@]}" -o "$out" --resume 2>log || fail "moment $moment: $(cat log)"
    diff --recursive --exclude='.panel-replay.journal' whole "$out" || fail "moment $moment, after $count photos"
done

# Two at once, as when a machine that was taken for lost was not: whoever comes second must leave the photo alone.
rm -rf tree
cp -r photos tree
for process in 1 2; do "$replay" "${arguments[@]}" -o tree --resume 2>"log$process" & done
wait
"$replay" "${arguments[@]}" -o tree --resume 2>log || fail "after two at once: $(cat log)"
diff --recursive --exclude='.panel-replay.journal' whole tree || fail "after two at once: $(cat log1 log2)"

echo "Killed $killed times, $midway of them between the first photo and the last: always the files of an undisturbed run"
(( midway > moments / 2 )) || fail "too few were killed at work"
