#!/usr/bin/env bash
# tools/parallel-batch with two jobs: its outputs equal a single run's byte for byte, and after
# the whole thing is killed half-way a second run finishes the rest, leaving the done ones alone.
# Usage: parallel-batch-test.sh REPO VANTOREL
set -euo pipefail
repo=$1
export VANTOREL=$2
command -v parallel >/dev/null || { echo "GNU parallel is not installed"; exit 77; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/in" "$scratch/one" "$scratch/many"
i=0
for copy in 1 2 3; do
    for photo in "$repo"/data/samples/*.jpg; do
        i=$((i + 1))
        cp "$photo" "$scratch/in/photo $i - $(basename "$photo")"
    done
done
find "$scratch/in" -type f | sort >"$scratch/list.txt"
bs() { printf '%s' "${1//\//\\}"; }
# Lingers on each photo, so that the kill below comes half-way.
job() {
    printf '%s\n' "/fx.ResizeAspect 240, 240, False" "/fx.Sharpen 40" \
        "/cmd:t = Timer : Do While Timer < t + 0.25 : Loop" "/cmd:SaveInFolder \"$(bs "$1")\"" \
        /fx.savefile
}
mapfile -t one < <(job "$scratch/one")
mapfile -t many < <(job "$scratch/many")

"$VANTOREL" "/filelist:$(bs "$scratch/list.txt")" "${one[@]}" /exit
[ "$(ls "$scratch/one" | wc -l)" -eq "$i" ] || { echo "the single run made $(ls "$scratch/one" | wc -l) of $i"; exit 1; }

# Killed after the first outputs appear.
setsid "$repo/tools/parallel-batch" -j 2 -n 3 "$scratch/list.txt" "${many[@]}" &
runner=$!
for _ in $(seq 200); do
    [ "$(ls "$scratch/many" | wc -l)" -ge 2 ] && break
    sleep 0.05
done
kill -TERM -- "-$runner" 2>/dev/null || true
wait "$runner" 2>/dev/null || true
sleep 0.2
done_before=$(ls "$scratch/many" | wc -l)
[ "$done_before" -lt "$i" ] || { echo "the run ended before it could be killed"; exit 1; }
ls -A "$scratch/many" | grep -q '^\.' && { echo "a half-written file was left"; exit 1; }
stamp=$(stat -c %Y.%y "$scratch/many/$(ls "$scratch/many" | head -1)")

"$repo/tools/parallel-batch" -j 2 -n 3 "$scratch/list.txt" "${many[@]}" 2>"$scratch/log"
grep -q "saves skipped" "$scratch/log" || { echo "nothing was skipped on the second run"; cat "$scratch/log"; exit 1; }
[ "$(stat -c %Y.%y "$scratch/many/$(ls "$scratch/many" | head -1)")" = "$stamp" ] \
    || { echo "a finished output was made again"; exit 1; }
diff -r "$scratch/one" "$scratch/many" >/dev/null || { echo "outputs differ from the single run"; exit 1; }
echo "parallel-batch: $done_before of $i done before the kill, all $i equal to a single run after the rerun"
