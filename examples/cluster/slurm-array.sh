#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# sbatch [--array=1-N] slurm-array.sh RECIPE PHOTOS RESULTS
#
# A job array over a folder of photos: each task does its share. Reports go to RESULTS-reports.

#SBATCH --job-name=panel-replay
#SBATCH --array=1-8
#SBATCH --cpus-per-task=2
#SBATCH --mem=4G
#SBATCH --time=08:00:00
# When its node fails, a task starts again on another one, and leaves out what is done.
#SBATCH --requeue
# So long before the end of its time a task is told to stop, and stops at a whole file.
#SBATCH --signal=B:TERM@30
#SBATCH --open-mode=append
#SBATCH --output=panel-replay-%A_%a.log

set -euo pipefail
(( $# == 3 )) || { echo "usage: sbatch slurm-array.sh RECIPE PHOTOS RESULTS" >&2; exit 2; }
recipe=$1 photos=$2 results=$3

# A report for each start: one that was cut short stays as it is.
reports=${results%/}-reports
mkdir -p -- "$reports"
report=$reports/part-$SLURM_ARRAY_TASK_ID-$SLURM_JOB_ID-${SLURM_RESTART_COUNT:-0}.jsonl

# What the task was given, not what the node has. The pictures are not all that a process needs memory for.
bounds=(--jobs "${SLURM_CPUS_PER_TASK:-1}")
[[ -z ${SLURM_MEM_PER_NODE:-} ]] || bounds+=(--memory "$((SLURM_MEM_PER_NODE / 2))M")

# In place of the shell, which would keep the signal to itself.
exec panel-replay apply "$recipe" "$photos" --recursive -o "$results" --resume --shard auto "${bounds[@]}" --json \
    >"$report"
