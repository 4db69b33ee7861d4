#!/bin/bash
# A batch on a cluster of one node, which is started for it on this machine:
#   slurm_test.sh TOOL
set -uo pipefail
XPJCONVERT=$(readlink -f "$1")
export XPJCONVERT
script=$(dirname "$(readlink -f "$0")")/../../contrib/slurm/convert.sbatch
# shellcheck source=SCRIPTDIR/documents.sh
. "$(dirname "$0")/documents.sh"
PATH=$PATH:/usr/sbin
work=$(mktemp -d)
cd "$work" || exit 2

# The daemons write their process ids themselves.
stop_cluster() {
    local daemon pid
    for daemon in slurmd slurmctld munged; do
        pid=$(cat "$work/$daemon.pid" 2>/dev/null) || continue
        kill "$pid" 2>/dev/null
        for _ in {1..100}; do
            kill -0 "$pid" 2>/dev/null || break
            sleep 0.1
        done
    done
    rm -rf "$work"
}
trap stop_cluster EXIT

free_ports() {
    python3 -c 'import socket
ends = [socket.create_server(("127.0.0.1", 0)) for _ in range(2)]
print(*[end.getsockname()[1] for end in ends])'
}

start_cluster() {
    local ports
    read -ra ports < <(free_ports)
    mkdir spool state
    head -c 128 /dev/urandom >munge.key
    chmod 600 munge.key
    munged --force --socket="$work/munge" --key-file="$work/munge.key" \
        --pid-file="$work/munged.pid" --log-file="$work/munged.log" \
        --seed-file="$work/munge.seed" 2>/dev/null || return
    cat >slurm.conf <<CONF
ClusterName=test
SlurmctldHost=$(hostname)(127.0.0.1)
SlurmUser=$(id -un)
SlurmdUser=$(id -un)
AuthType=auth/munge
AuthInfo=socket=$work/munge
SlurmctldPort=${ports[0]}
SlurmdPort=${ports[1]}
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/spool
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/slurmd.pid
SlurmctldLogFile=$work/slurmctld.log
SlurmdLogFile=$work/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
SchedulerParameters=batch_sched_delay=0,sched_interval=1
MpiDefault=none
ReturnToService=2
KillWait=5
NodeName=$(hostname) NodeAddr=127.0.0.1 CPUs=$(nproc) RealMemory=1024 State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES State=UP
CONF
    export SLURM_CONF=$work/slurm.conf
    slurmctld && slurmd || return
    for _ in {1..100}; do
        sinfo --noheader -o %T 2>/dev/null | grep -q idle && return
        sleep 0.1
    done
    return 1
}

submit() { sbatch --parsable --array=1-4 --cpus-per-task=1 --mem-per-cpu=0 "$@"; }
# Rows of all summaries of a job, by their result.
rows() { cat "projects/summaries/$1"-*.csv | grep -cE ",$2,[0-9]"; }

# Not every machine lets a test start daemons; then only the syntax of the script can be checked.
start_cluster || {
    tail -n 5 ./*.log
    echo 'THE CLUSTER DID NOT START: the job array is not tested here'
    bash -n "$script"
    exit
}
make_archive archive

# The tasks with a document that fails end with that status, and so does the wait for them.
job=$(submit --wait "$script" archive projects)
expect $? 12 'status of the first run'
expect "$(count_files projects '*.vlproj')" 198 outputs
expect "$(count_files projects '*.report.json')" 200 reports
expect "$(rows "$job" converted)" 198 'rows of what was converted'
expect "$(rows "$job" failed)" 2 'rows of what failed'
expect "$(grep -l 'failed' "xpjconvert-$job"_*.log | wc -l)" \
    "$(grep -l ',failed,' "projects/summaries/$job"-*.csv | wc -l)" 'logs with failures'

# A second run does what is missing.
rm projects/reel5/*.vlproj
missing=$((198 - $(count_files projects '*.vlproj')))
job=$(submit --wait "$script" archive projects --quiet)
expect $? 12 'status of the second run'
expect "$(rows "$job" converted)" "$missing" 'rows of what was missing'
expect "$(rows "$job" skipped)" $((198 - missing)) 'rows of what was there'
rm "archive/reel3/cut 3.xml" archive/reel4/*"'y'.xml"
submit --wait "$script" archive projects >/dev/null
expect $? 0 'status of a run without failures'

# What is canceled clears up: a document that never comes is waited for.
mkfifo pipe.xml
echo "$work/pipe.xml" >list
job=$(sbatch --parsable --array=1-1 --cpus-per-task=1 --mem-per-cpu=0 "$script" @list stopped)
for _ in {1..100}; do
    [ -e stopped/summaries ] && break
    sleep 0.1
done
sleep 0.5
scancel "$job"
for _ in {1..100}; do
    [ -e "stopped/summaries/$job-1.csv" ] && break
    sleep 0.1
done
expect "$(grep -c ',aborted,' "stopped/summaries/$job-1.csv")" 1 'rows of what was canceled'
expect "$(count_files stopped '*.part*')" 0 'incomplete files'

sbatch --wait --array=2-3 --mem-per-cpu=0 "$script" archive projects >/dev/null
expect $? 64 'status of an array that does not begin with 1'

[ "$failures" -eq 0 ] || tail -n 20 xpjconvert-*.log
[ "$failures" -eq 0 ]
