#!/usr/bin/env bash
# Installs the build into a scratch prefix, then runs a batch with the installed program from an
# unrelated folder: it must find its template under share/ and write the photos it was asked to.
# Usage: installed-batch.sh CMAKE BUILD_DIR SAMPLES_DIR
set -euo pipefail
cmake=$1 build=$2 samples=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
"$cmake" --install "$build" --prefix "$scratch/prefix" >/dev/null
for f in bin/vantorel share/vantorel/data/template.txt share/vantorel/data/commands.txt \
         share/vantorel/data/errors.txt share/vantorel/data/index.html share/applications/vantorel.desktop \
         share/icons/hicolor/scalable/apps/vantorel.svg share/man/man1/vantorel.1; do
    [ -e "$scratch/prefix/$f" ] || { echo "not installed: $f" >&2; exit 1; }
done
mkdir "$scratch/photos" "$scratch/elsewhere"
cp "$samples"/*.jpg "$scratch/photos/"
cd "$scratch/elsewhere"
photos=${scratch//\//\\}\\photos
"$scratch/prefix/bin/vantorel" "/folder:$photos" "/fx.ResizeAspect 200, 200, False" \
    '/fx.SaveFileNameAddPrefix "small_"' /fx.savefile /exit
made=$(ls "$scratch/photos" | grep -c '^small_')
[ "$made" -eq "$(ls "$samples"/*.jpg | wc -l)" ] || { echo "made $made photos" >&2; exit 1; }
echo "installed program ran the batch: $made photos"
