#!/bin/sh
# Runs the same loops in vbsrun and in python3 (best of three runs each) and prints the ratio of
# CPU time (user + system, so that other load on the machine matters less) vbsrun / python3;
# below 1 means vbsrun is faster.
# Usage: bench/vbscript/run.sh [path/to/vbsrun]   (build RelWithDebInfo first)
set -e
here=$(cd "$(dirname "$0")" && pwd)
vbsrun=${1:-$here/../../build/bin/vbsrun}
runs=${RUNS:-3}
[ -x "$vbsrun" ] || { echo "vbsrun not found: $vbsrun" >&2; exit 2; }
# The interpreter itself, not a launcher in front of it (a pyenv shim is a shell script, whose
# own start-up would be timed with Python's).
python=$(python3 -c 'import sys; print(sys.executable)')
# cpu TOOL FILE: CPU seconds of one run. Counted as the difference around the run: a process
# started through a launcher already has the launcher's children on its books.
cpu() {
    "$python" -c 'import resource, subprocess, sys
def used():
    r = resource.getrusage(resource.RUSAGE_CHILDREN)
    return r.ru_utime + r.ru_stime
before = used()
subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, check=True)
print(used() - before)' "$1" "$2"
}
# best TOOL FILE: the smallest CPU time of $runs runs, in seconds.
best() {
    b=""
    i=0
    while [ $i -lt "$runs" ]; do
        t=$(cpu "$1" "$2")
        b=$(awk -v t="$t" -v b="$b" 'BEGIN { if (b == "" || t < b) b = t; print b }')
        i=$((i + 1))
    done
    echo "$b"
}
# cycles TOOL FILE: CPU cycles of one run when perf is there (steadier than times on a busy box).
cycles() {
    perf stat -x, -e cycles "$1" "$2" 2>&1 >/dev/null | awk -F, '/cycles/ && $1 ~ /^[0-9]+$/ { print $1 }'
}
have_perf=no
if command -v perf >/dev/null 2>&1 && [ -n "$(cycles "$python" "$here/calls.py" 2>/dev/null)" ]; then
    have_perf=yes
fi
printf '%-10s %10s %10s %8s' loop vbsrun_s python3_s ratio
[ $have_perf = yes ] && printf ' %12s' cycle_ratio
printf '\n'
for name in arith strings arrays calls objects; do
    out_v=$("$vbsrun" "$here/$name.vbs")
    out_p=$("$python" "$here/$name.py")
    [ "$out_v" = "$out_p" ] || echo "  note: outputs differ for $name: '$out_v' vs '$out_p'"
    v=$(best "$vbsrun" "$here/$name.vbs")
    p=$(best "$python" "$here/$name.py")
    awk -v n="$name" -v v="$v" -v p="$p" 'BEGIN { printf "%-10s %10.3f %10.3f %8.2f", n, v, p, v / p }'
    if [ $have_perf = yes ]; then
        cv=$(cycles "$vbsrun" "$here/$name.vbs")
        cp=$(cycles "$python" "$here/$name.py")
        awk -v a="$cv" -v b="$cp" 'BEGIN { printf " %12.2f", a / b }'
    fi
    printf '\n'
done
