#!/usr/bin/env bash
# Takes the pictures of docs/pictures anew, so that they show what the library shows.
#
#   scripts/pictures.sh          all that are there, with which scripts/test.sh compares what the gallery shows; the page
#                                "Explorer" is not among them, since it shows the name of the user
#   scripts/pictures.sh sheets   the contact sheets of docs/pictures/sheets: every page in Light, Dark and Contrast, at 96
#                                and at 192 dots an inch, in both directions, and every page without a visual style;
#                                the pictures that they are made of stay in build/sheets
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

SHEETS=$ROOT/docs/pictures/sheets
PAGES=(labels buttons choices text entry list trees ribbon dialogs explorer)
EXHIBITS=(dialog-instruction dialog-long-text dialog-six-buttons dialog-warning dialog-cert-secure dialog-cert-untrusted
    dialog-cert-invalid dialog-wizard-2 dialog-wizard-3 list-groups list-tiles list-icons combobox)

kept_pictures() {
    local shots=$BUILD/shots picture
    rm -rf "$shots"
    "$ROOT/scripts/gallery.sh" --shots "$shots" >/dev/null
    for picture in "$ROOT"/docs/pictures/*.png; do
        if [[ -f $shots/${picture##*/} ]]; then
            cp "$shots/${picture##*/}" "$picture"
        else
            say "the gallery has no ${picture##*/}: left as it is"
        fi
    done
}

# sheet NAME OPTION...: of the pictures that the gallery takes with these options.
sheet() {
    local name=$1 shots=$BUILD/sheets/$1
    shift
    rm -rf "$shots"
    "$ROOT/scripts/gallery.sh" --shots "$shots" "$@" >/dev/null
    "$ROOT/scripts/contact-sheet.py" "$SHEETS/$name.png" "$shots" "${PAGES[@]}" "${EXHIBITS[@]}"
    say "$name: $(stat -c %s "$SHEETS/$name.png") bytes"
}

sheets() {
    local scheme system dots direction
    mkdir -p "$SHEETS"
    for scheme in light dark contrast; do
        system=light
        [[ $scheme != contrast ]] || system=contrast
        for dots in 96 192; do
            for direction in ltr rtl; do
                sheet "$scheme-$dots-$direction" --scheme $scheme --system $system --scale $dots --direction $direction
            done
        done
    done
    sheet classic-96-ltr --system classic
}

case ${1:-} in
    "") kept_pictures ;;
    sheets) sheets ;;
    *) die "usage: scripts/pictures.sh [sheets]" ;;
esac
