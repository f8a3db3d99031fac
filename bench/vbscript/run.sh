#!/bin/sh
# Runs the same loops in vbsrun and in python3 and prints the time ratio (vbsrun / python3).
# Usage: bench/vbscript/run.sh [path/to/vbsrun]   (build RelWithDebInfo first)
set -e
here=$(cd "$(dirname "$0")" && pwd)
vbsrun=${1:-$here/../../build/bin/vbsrun}
[ -x "$vbsrun" ] || { echo "vbsrun not found: $vbsrun" >&2; exit 2; }
now() { date +%s.%N; }
printf '%-10s %10s %10s %8s\n' loop vbsrun_s python3_s ratio
for name in arith strings arrays calls; do
    t0=$(now); out_v=$("$vbsrun" "$here/$name.vbs"); t1=$(now)
    out_p=$(python3 "$here/$name.py"); t2=$(now)
    [ "$out_v" = "$out_p" ] || echo "  note: outputs differ for $name: '$out_v' vs '$out_p'"
    awk -v n="$name" -v a="$t0" -v b="$t1" -v c="$t2" \
        'BEGIN { v = b - a; p = c - b; printf "%-10s %10.3f %10.3f %8.2f\n", n, v, p, v / p }'
done
