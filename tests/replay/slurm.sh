#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
#
# slurm.sh PANEL-REPLAY SOURCES WORK
#
# A Slurm of its own on this machine, two nodes on the loopback, and on it the job array of examples/cluster over 200 photos:
# once undisturbed, and once with a node that is lost in the middle. Each must give what one machine gives. Ends with 77, and
# the reason, where that cannot be tried. Leaves nothing running; the logs stay in WORK.
set -euo pipefail
replay=$(dirname -- "$(realpath -- "$1")") sources=$(realpath -- "$2") work=$(realpath -m -- "$3")
export PATH=$replay:$PATH:/usr/sbin:/sbin LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen

skip() { echo "Skipped: $*"; exit 77; }
fail() { echo "FAILED: $*" >&2; tail -n 15 "$work"/*.log >&2 || true; exit 1; }

(( EUID == 0 )) || skip "a Slurm that starts jobs needs root"
for program in munged slurmctld slurmd sbatch squeue; do
    command -v "$program" >/dev/null || skip "$program is not installed (tools/install-dependencies test)"
done

rm -rf "$work"
mkdir -p "$work"/{state,photos/{a,b}}
cd "$work"

# ---- A cluster ----

free_port() { # of those that the system gives to nobody by itself
    local port
    for ((port = 6000 + $$ * 7 % 20000 + $1; ; port += 13)); do
        (: <>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || { echo "$port"; return; }
    done
}

# The path of a socket must be short.
secrets=$(mktemp -d)
pids=()
declare -A node_pid
end() {
    local code=$?
    trap - EXIT
    scancel --user=root 2>/dev/null || true
    kill -9 $(all_on node1) $(all_on node2) $(children "${pids[@]}") 2>/dev/null || true
    rm -rf "$secrets"
    exit "$code"
}
# The processes and all below them.
children() {
    local pid
    for pid; do
        echo "$pid"
        children $(cat "/proc/$pid"/task/*/children 2>/dev/null)
    done
}
# The processes of a node's jobs: nobody's children, but they know where they are.
jobs_on() {
    local environs
    mapfile -t environs < <(grep -lzxF "SLURMD_NODENAME=$1" /proc/[0-9]*/environ 2>/dev/null)
    (( ${#environs[@]} )) && grep -lzxF "SLURM_CONF=$SLURM_CONF" "${environs[@]}" 2>/dev/null | tr -dc '0-9\n'
}
# With what has started them.
all_on() {
    local pid
    for pid in $(jobs_on "$1"); do
        echo "$pid"
        sed -n 's/^PPid:[[:space:]]*//p' "/proc/$pid/status" 2>/dev/null
    done
}

cat >slurm.conf <<CONF
ClusterName=test
SlurmctldHost=localhost(127.0.0.1)
SlurmctldPort=$(free_port 0)
SlurmUser=root
SlurmdUser=root
AuthType=auth/munge
AuthInfo=socket=$secrets/socket,cred_expire=5
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/spool-%n
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/slurmd-%n.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
MpiDefault=none
SwitchType=switch/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
JobCompType=jobcomp/none
ReturnToService=2
SlurmdTimeout=4
SlurmdParameters=config_overrides
SchedulerParameters=sched_interval=1,batch_sched_delay=0,bf_interval=1
NodeName=node1 NodeHostname=localhost NodeAddr=127.0.0.1 Port=$(free_port 1) CPUs=1 RealMemory=1000
NodeName=node2 NodeHostname=localhost NodeAddr=127.0.0.1 Port=$(free_port 2) CPUs=1 RealMemory=1000
PartitionName=all Nodes=node1,node2 Default=YES MaxTime=INFINITE State=UP
CONF
echo CgroupPlugin=cgroup/v1 >cgroup.conf # asks for none as long as nothing uses it; the other kind does
export SLURM_CONF=$work/slurm.conf

trap end EXIT
trap 'exit 143' TERM INT HUP
head -c 1024 /dev/urandom >"$secrets/key"
chmod 600 "$secrets/key"
chmod 711 "$secrets"
munged --foreground --origin=127.0.0.1 --key-file="$secrets/key" --socket="$secrets/socket" --pid-file="$secrets/pid" \
    --seed-file="$secrets/seed" --log-file="$secrets/log" >munged.log 2>&1 &
pids+=($!)
disown
slurmctld -D >slurmctld.log 2>&1 &
pids+=($!)
disown
start_node() {
    slurmd -D -N "$1" >>"slurmd-$1.log" 2>&1 &
    node_pid[$1]=$!
    pids+=($!)
    disown
}
start_node node1
start_node node2
# wait_for SECONDS WHAT COMMAND...
wait_for() {
    local end=$((SECONDS + $1)) what=$2
    until "${@:3}"; do
        (( SECONDS < end )) || fail "$what did not come"
        sleep 0.05
    done
}
both_idle() { [[ $(sinfo --noheader --Node --format=%T 2>/dev/null) == $'idle\nidle' ]]; }
wait_for 30 "a cluster of two nodes" both_idle

# ---- What one machine does ----

for ((i = 0; i < 200; ++i)); do
    folder=photos; (( i % 3 == 0 )) && folder=photos/a; (( i % 3 == 1 )) && folder=photos/b/$((i % 7))
    mkdir -p "$folder"
    { printf 'P6 300 200 255\n'; yes "photo $i" | head -c 180000 || true; } >"$folder/$i.ppm" # yes ends by a signal
done
# Long enough to be lost in the middle.
step=$(sed -n '/^        {/,/^        }/p' "$sources/samples/recipes/HBHueSaturationWidget.json")
{
    printf '{"format": "adjustment-recipe", "version": 1, "steps": [\n'
    for ((i = 0; i < 80; ++i)); do printf '%s,\n' "$step"; done
    printf '%s]}\n' "$step"
} >recipe.json
panel-replay apply recipe.json photos --recursive -o one-machine
find photos -type f >list.txt

# ---- The same on the cluster ----

# submit RESULTS
submit() { sbatch --parsable --array=1-8 --cpus-per-task=1 --mem=200M "$sources/examples/cluster/slurm-array.sh" recipe.json photos "$1"; }
is_over() { [[ -z $(squeue --noheader --jobs="$1" 2>/dev/null) ]]; }
# check RESULTS
check() {
    diff --recursive --exclude='.panel-replay*.journal' one-machine "$1" || fail "$1 is not what one machine gives"
    panel-replay merge "$1"-reports/part-*.jsonl --files-from list.txt >"$1.jsonl" 2>"$1.txt" ||
        fail "$1: the reports lack something: $(cat "$1.txt")"
    [[ ! -s $1.txt ]] || fail "$1: $(cat "$1.txt")"
    [[ $(grep -c '"type":"file"' "$1.jsonl") == 200 ]] || fail "$1: the report does not name each photo once"
}

job=$(submit undisturbed)
wait_for 120 "the end of the array" is_over "$job"
check undisturbed
(( $(ls undisturbed-reports | wc -l) == 8 )) || fail "there are not eight reports"

# A task on the second node that has done some of its photos, and waits for its end.
find_victim() {
    local report
    victims=$(jobs_on node2) || return 1
    kill -STOP $victims 2>/dev/null || true
    task=$(squeue --noheader --states=RUNNING --nodelist=node2 --format=%K --jobs="$job" 2>/dev/null)
    report=$(cat disturbed-reports/part-"$task"-*-0.jsonl 2>/dev/null || true)
    written=$(grep -c '"type":"file"' <<<"$report" || true)
    (( written >= 3 )) && [[ $report != *'"type":"summary"'* ]] && return
    kill -CONT $victims 2>/dev/null || true
    return 1
}
job=$(submit disturbed)
wait_for 60 "a task in the middle of its work" find_victim
kill -9 $(children "${node_pid[node2]}") $(all_on node2) # all that would go with the machine
wait_for 120 "the end of the array with one node" is_over "$job"
ls disturbed-reports/part-"$task"-*-1.jsonl >/dev/null || fail "task $task was not started again"
check disturbed
echo "200 photos on two nodes, as on one machine; again with node2 lost after $written photos of task $task," \
    "which was requeued. $SECONDS s."
