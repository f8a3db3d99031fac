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
# cpu TOOL FILE: CPU seconds of one run.
cpu() {
    python3 -c 'import resource, subprocess, sys
subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, check=True)
r = resource.getrusage(resource.RUSAGE_CHILDREN)
print(r.ru_utime + r.ru_stime)' "$1" "$2"
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
    perf stat -x, -e cycles "$1" "$2" 2>&1 >/dev/null | awk -F, '/cycles/ { print $1 }'
}
have_perf=no
if command -v perf >/dev/null 2>&1 && [ -n "$(cycles python3 "$here/calls.py" 2>/dev/null)" ]; then
    have_perf=yes
fi
printf '%-10s %10s %10s %8s' loop vbsrun_s python3_s ratio
[ $have_perf = yes ] && printf ' %12s' cycle_ratio
printf '\n'
for name in arith strings arrays calls objects; do
    out_v=$("$vbsrun" "$here/$name.vbs")
    out_p=$(python3 "$here/$name.py")
    [ "$out_v" = "$out_p" ] || echo "  note: outputs differ for $name: '$out_v' vs '$out_p'"
    v=$(best "$vbsrun" "$here/$name.vbs")
    p=$(best python3 "$here/$name.py")
    awk -v n="$name" -v v="$v" -v p="$p" 'BEGIN { printf "%-10s %10.3f %10.3f %8.2f", n, v, p, v / p }'
    if [ $have_perf = yes ]; then
        cv=$(cycles "$vbsrun" "$here/$name.vbs")
        cp=$(cycles python3 "$here/$name.py")
        awk -v a="$cv" -v b="$cp" 'BEGIN { printf " %12.2f", a / b }'
    fi
    printf '\n'
done
