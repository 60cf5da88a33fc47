#!/bin/sh
# Measures the time from starting vordpm-host to the editor's main window being shown, on a
# sample library root made for the measurement. Each run starts a fresh process; the host
# prints when the window appears and closes it at once.
#
#   bench/host_startup.sh BUILD_DIR [RUNS]
#
# Prints per run the time since the process's main() began ("in-process") and since just
# before the program was started ("wall", including loading the program and its libraries),
# then the median of each. Runs headless unless QT_QPA_PLATFORM says otherwise.
set -eu

build=${1:?usage: host_startup.sh BUILD_DIR [RUNS]}
runs=${2:-10}
host="$build/host/vordpm-host"
[ -x "$host" ] || { echo "no $host: build the vordpm-host target first" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Settings and the remembered root go into the scratch folder, not the user's.
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
unset VORDPM_ROOT

# The first run makes the sample library in the (scratch) default root; it is not counted.
"$host" --measure-startup >/dev/null

inprocess="$work/in-process"
wall="$work/wall"
i=0
while [ "$i" -lt "$runs" ]; do
    before=$(date +%s%3N)
    output=$("$host" --measure-startup)
    shown=$(printf '%s\n' "$output" | sed -n 's/^shown-at-epoch-ms: //p')
    ms=$(printf '%s\n' "$output" | sed -n 's/^startup-ms: //p')
    [ -n "$ms" ] || { echo "the host showed no window" >&2; exit 1; }
    echo "run $((i + 1)): in-process ${ms} ms, wall $((shown - before)) ms"
    echo "$ms" >>"$inprocess"
    echo "$((shown - before))" >>"$wall"
    i=$((i + 1))
done

median() { sort -n "$1" | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
echo "median: in-process $(median "$inprocess") ms, wall $(median "$wall") ms (goal: under 1000 ms)"
