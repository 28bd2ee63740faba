#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# interrupted.sh PANEL-REPLAY SOURCES WORK
#
# SIGTERM while the program hears nothing: its output is not taken, its input does not come, it has 200,000 files to look
# at, or a long photo at work. Each time it must end soon, with exit code 130, and say what it knows.
set -euo pipefail
replay=$(realpath -- "$1") recipes=$(realpath -- "$2")/samples/recipes work=$3
rm -rf "$work"
mkdir -p "$work"
cd "$work"
export LC_ALL=C.UTF-8
allowed=1500 # milliseconds; alone 400 at most, but the machine may be busy

{ printf 'P6 3000 2000 255\n'; yes picture | head -c 18000000 || true; } >large.ppm # yes ends by a signal
seq -f 'none-%.0f.ppm' 200000 >many.txt
head -n 3000 many.txt >some.txt
step=$(sed -n '/^        {/,/^        }/p' "$recipes/HBHueSaturationWidget.json")
{
    printf '{"format": "adjustment-recipe", "version": 1, "steps": [\n'
    for ((i = 0; i < 600; ++i)); do printf '%s,\n' "$step"; done
    printf '%s]}\n' "$step"
} >long.json
mkfifo full empty
exec 3<>full 4<>empty # open, but nobody reads what is written, nor writes

faults=0 slowest=0 out='' err=''
fault() { echo "$case: $*; standard error ends with: $(tail -n 2 err 2>/dev/null)" >&2; ((++faults)); }
# hears PID: whether it has begun to catch SIGTERM; a sanitizer's start alone takes a while.
hears() {
    local caught
    caught=$(sed -n 's/^SigCgt:[[:space:]]*//p' "/proc/$1/status")
    (( 16#$caught & 1 << 14 ))
}
# interrupt CASE SECONDS COMMAND...: SIGTERM so long after it hears that; standard output and error go to $out and $err.
interrupt() {
    case=$1
    rm -rf out err results
    "${@:3}" >"${out:-out}" 2>"${err:-err}" <empty &
    local process=$! code=0 begin took i
    for ((i = 0; i < 3000; ++i)); do
        hears "$process" && break
        sleep 0.01
    done
    sleep "$2"
    kill -0 "$process" || fault "it has ended before the signal"
    begin=${EPOCHREALTIME/./}
    kill -TERM "$process" || true
    wait "$process" || code=$?
    took=$(((${EPOCHREALTIME/./} - begin) / 1000))
    (( code == 130 )) || fault "exit code $code"
    (( took <= allowed )) || fault "ended after $took ms"
    (( took <= slowest )) || slowest=$took
}
says() { grep -q -e "$2" "$1" || fault "$1 does not say: $2"; }
ends_with_summary() { [[ $(tail -n 1 out) == *'"interrupted":true'*'"type":"summary"'* ]] || fault "no summary line"; }
apply=("$replay" apply)

out=full interrupt 'standard output is not taken' 1 "${apply[@]}" long.json --files-from some.txt -o results --json
says err 'interrupted; 0 written, 0 skipped, [0-9]* failed, [0-9]* not tried$'
err=full interrupt 'standard error is not taken' 1 "${apply[@]}" long.json --files-from some.txt -o results --json
ends_with_summary
out=full err=full interrupt 'neither is taken' 1 "${apply[@]}" long.json --files-from some.txt -o results --json

interrupt 'a list that does not come' 0.5 "${apply[@]}" long.json --files-from - -o results --json
says err 'interrupted; 0 written, 0 skipped, 0 failed$'
ends_with_summary
interrupt 'a report that does not come' 0.5 "$replay" merge -
says err 'panel-replay: interrupted$'
for moment in 0.1 0.3 0.6; do
    interrupt "many files, after $moment s" "$moment" "${apply[@]}" long.json --files-from many.txt -o results --json
    says err 'interrupted; 0 written, '
    ends_with_summary
done

interrupt 'failures that are known' 1 "${apply[@]}" long.json large.ppm none-1.ppm none-2.ppm -o results --format png --json
says err 'none-1.ppm: there is no such file'
says err 'interrupted; 0 written, 0 skipped, 2 failed, 1 not tried$'
says out '"input":"none-2.ppm".*"status":"failed"'
ends_with_summary
interrupt 'a sheet' 1 "$replay" sheet large.ppm -o results --format png
says err 'panel-replay: interrupted$'
[[ $(find results -type f | sort) == "$(sort out)" ]] || fault "files that are not told: $(find results -type f)"

echo "Faults: $faults; the slowest end after $slowest ms"
(( faults == 0 ))
