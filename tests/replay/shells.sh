#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# shells.sh PANEL-REPLAY SOURCES WORK
#
# The manual page and the shells' completions: every command and option is there, the page has no faults, and Tab offers what
# it should. What is not installed (mandoc, zsh, fish) is left out.
set -euo pipefail
manual=$(realpath -- "$(dirname -- "$1")")/manual
export PATH=$(dirname -- "$(realpath -- "$1")"):$PATH
rm -rf "$3"
mkdir -p "$3/home" "$3/output"
cd "$3"
export HOME=$PWD/home XDG_CONFIG_HOME=$PWD/home XDG_DATA_HOME=$PWD/home
touch warm.json warm.jpg

faults=0
fault() { echo "$*" >&2; ((++faults)); }

commands=$(panel-replay --help | sed -n '/^Commands/,/^$/s/^  \([a-z]\+\) .*/\1/p')
(( $(wc -w <<<"$commands") >= 10 )) || fault "--help lists no commands: $commands"
sed 's/\\-/-/g' "$manual/panel-replay.1" >plain.1
for command in $commands; do
    grep -q "^\.SS $command" plain.1 || fault "the page has no $command"
    for option in $(panel-replay "$command" --help | grep -o '^  \(-., \)\?--[a-z-]*' | grep -o -e '--.*'); do
        grep -q "fB$option\\\\fR" plain.1 || fault "the page has no $option"
        grep -q "^ *$command).*$option" "$manual/panel-replay.bash" || fault "bash: $command has no $option"
        grep -q "seen_subcommand_from $command' -l ${option#--} " "$manual/panel-replay.fish" ||
            fault "fish: $command has no $option"
        sed -n "/^ *$command)$/,/;;/p" "$manual/_panel-replay" | grep -q -e "$option[=[]" ||
            fault "zsh: $command has no $option"
    done
done
! command -v mandoc >/dev/null || mandoc -T lint -W error "$manual/panel-replay.1" || fault "the page has faults"
! command -v zsh >/dev/null || zsh -n "$manual/_panel-replay" || fault "zsh cannot read its completion"

. "$manual/panel-replay.bash"
offer_bash() {
    read -ra COMP_WORDS <<<"$1"
    [[ $1 != *' ' ]] || COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    _panel_replay
    printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd' '
}
offer_fish() { fish -c "source '$manual/panel-replay.fish'; complete -C '$1'" | cut -f1 | sort | paste -sd' '; }
shells=bash
! command -v fish >/dev/null || shells+=" fish"
while IFS='|' read -r typed offered; do
    for shell in $shells; do
        [[ $(offer_$shell "panel-replay $typed") == "$offered" ]] ||
            fault "$shell: \"$typed\" offers $(offer_$shell "panel-replay $typed"), not $offered"
    done
done <<'TABLE'
ap|apply
help mer|merge
--vers|--version
apply warm.json --on-conf|--on-conflict
apply warm.json --on-conflict s|skip
apply warm.json --on-conflict |fail overwrite rename skip
verify warm.json --res|
apply warm.json wa|warm.jpg warm.json
help --completion z|zsh
schema wa|
TABLE
[[ $(offer_bash "panel-replay apply --on-conflict = s") == skip ]] || fault "bash: --on-conflict=s offers no skip"
[[ $(offer_bash "panel-replay explain wa") == warm.json ]] || fault "bash: explain offers more than recipes"
[[ $(offer_bash "panel-replay apply -o o") == output ]] || fault "bash: -o offers no folder"
echo "Tried: the page, $shells; faults: $faults"
(( faults == 0 ))
