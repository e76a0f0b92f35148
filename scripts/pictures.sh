#!/usr/bin/env bash
# Takes the pictures of docs/pictures anew, so that they show what the library shows.
#
#   scripts/pictures.sh     all that are there, with which scripts/test.sh compares what the gallery shows; the page
#                           "Explorer" is not among them, since it shows the name of the user
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

shots=$BUILD/shots
rm -rf "$shots"
"$ROOT/scripts/gallery.sh" --shots "$shots" >/dev/null
for picture in "$ROOT"/docs/pictures/*.png; do
    if [[ -f $shots/${picture##*/} ]]; then
        cp "$shots/${picture##*/}" "$picture"
    else
        say "the gallery has no ${picture##*/}: left as it is"
    fi
done
