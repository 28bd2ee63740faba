#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# parallel-ssh.sh HOSTS RECIPE PHOTOS RESULTS [SHARES]
#
# The same without a scheduler: GNU parallel hands the shares to the hosts that the file HOSTS names, one a line, one
# share at a time. Paths mean the same on all hosts. More shares than hosts (default: 8) keep fast hosts busy.
set -euo pipefail
(( $# == 4 || $# == 5 )) || { echo "usage: parallel-ssh.sh HOSTS RECIPE PHOTOS RESULTS [SHARES]" >&2; exit 2; }
hosts=$1 recipe=$(realpath -- "$2") photos=$(realpath -- "$3") results=$(realpath -m -- "$4") shares=${5:-8}

reports=$results-reports
mkdir -p -- "$reports"

# The report is opened on the host, and named after it: a share that starts again elsewhere gets another one.
printf -v command '%q ' panel-replay apply "$recipe" "$photos" --recursive -o "$results" --resume --json
printf -v part '%q' "$reports/part"
command+="--shard {}/$shares >$part-{}-\$(uname -n)-\$\$.jsonl"

# A share whose host is lost, or that failed, is tried once more on another host.
seq "$shares" | parallel --sshloginfile "$hosts" --jobs 1 --retries 2 --joblog "$reports/joblog" "$command"
