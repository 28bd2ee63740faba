#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# many.sh PANEL-REPLAY SOURCES WORK
#
# What tools/replay-many does with 100,000 photos, with 3,000: each is done once and the second time none; the memory grows
# by little more than their names, and the calls to the system by as many for each photo, however many there are.
set -euo pipefail
replay=$(realpath -- "$1") sources=$(realpath -- "$2") work=$3
if [[ -w /dev/shm ]]; then # no disk to wait for
    work=$(mktemp -d -p /dev/shm)
    trap 'rm -rf "$work"' EXIT
fi
rm -rf "$work"
mkdir -p "$work"
cd "$work"
fail() { echo "FAILED: $*" >&2; exit 1; }

table=$(TMPDIR=$PWD REPLAY=$replay "$sources/tools/replay-many" 500 3000)
echo "$table"
[[ $(awk -F'|' '$2 > 0 { printf "%d ", $4 }' <<<"$table") == "500 0 3000 0 " ]] || fail "not each photo was done once"
awk -F'|' '$2 == 500 { few = $7 } $2 == 3000 { many = $7; if (many - few > 6) exit 1 }' <<<"$table" ||
    fail "the memory grows by more than 6 MiB for 2500 photos"

if ! strace -qq -o /dev/null true 2>/dev/null; then
    echo "Calls were not counted: there is no strace that may trace"
    exit 0
fi
calls() { # of a run of so many photos and of one that finds them done
    rm -rf photos out counts
    mkdir photos
    head -c "$(($1 * 23))" <(yes 'P6 2 2 255 twelve byte') | split --bytes=23 --suffix-length=5 --additional-suffix=.ppm - photos/
    for round in 1 2; do
        strace -f --seccomp-bpf -qq -c -o counts -e trace=%file,read,write,openat,close,lseek,getdents64 \
            "$replay" apply "$sources/samples/recipes/HBLevelsWidget.json" photos -o out --resume --jobs 1 >/dev/null 2>&1
        awk '$NF == "total" { print $4 }' counts
    done
}
mapfile -t counts < <(calls 100; calls 200; calls 400)
echo "Calls for 100, 200 and 400 photos: ${counts[0]} ${counts[2]} ${counts[4]}; again: ${counts[1]} ${counts[3]} ${counts[5]}"
for round in 0 1; do
    few=$((counts[2 + round] - counts[round])) many=$((counts[4 + round] - counts[2 + round]))
    (( few > 0 && many * 10 < few * 25 )) || fail "the calls grow faster than the photos"
done
