#!/usr/bin/env bash
# Builds the library and its gallery for Windows, and runs it under Wine.
#
#   scripts/gallery.sh [--page NAME]   shows it in a window, where there is a display
#   scripts/gallery.sh --shots DIR [--scale DOTS]
#                                      saves a picture of every page, drawn for so many dots an inch, and prints
#                                      the paths; the way taken without a display, too, into build/shots
#                                      --scheme light, dark, contrast or system is how it looks, in both, --direction
#                                      ltr or rtl where it begins, and --system light, classic or contrast how the
#                                      system looks: with a visual style, without one, or with a contrast theme's colours
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

GALLERY=$BUILD/windows/bin/gallery.exe

show_window() {
    prepare_wine Y "$SYSTEM"
    say "the gallery is on display $DISPLAY; close its window to end"
    "$WINE" "$GALLERY" "$@"
}

save_pictures() {
    local dir=$1 size=1280x1024
    shift
    [[ " $* " != *" --scale "* ]] || size=3200x2600 # the window grows with the dots
    mkdir -p "$dir"
    start_display $size
    prepare_wine N "$SYSTEM"
    xdotool mousemove "$((${size%x*} - 1))" "$((${size#*x} - 1))" # no control is to look as if the pointer were on it
    # The page "List" shows the system's own files, which are as old as the prefix.
    find "$WINEPREFIX/drive_c/windows" -exec touch --no-dereference --date=2026-03-14T12:00:00Z {} +
    export TZ=UTC
    run_wine 120 "$GALLERY" --shots "$(windows_path "$dir")" "$@" >/dev/null || die "the gallery failed"
    find "$dir" -name '*.png' | sort
}

# take_system ARG...: leaves in OPTIONS what is the gallery's own.
take_system() {
    while (($#)); do
        if [[ $1 == --system ]]; then
            [[ ${2:-} =~ ^(light|classic|contrast)$ ]] || die "--system is light, classic or contrast"
            SYSTEM=$2
            shift
        else
            OPTIONS+=("$1")
        fi
        shift
    done
}

SYSTEM=light
OPTIONS=()
take_system "$@"
set -- "${OPTIONS[@]}"
"$ROOT/scripts/setup.sh" build run
say "building"
build windows gallery
if [[ ${1:-} == --shots ]]; then
    [[ -n ${2:-} ]] || die "usage: scripts/gallery.sh [--page NAME | --shots DIR [--scale DOTS] [--scheme SCHEME]...]"
    save_pictures "$(realpath -m "$2")" "${@:3}"
elif [[ -n ${DISPLAY:-} ]] && xdotool getdisplaygeometry >/dev/null 2>&1; then
    show_window "$@"
else
    say "no display here, so the pages are saved as pictures"
    save_pictures "$BUILD/shots"
fi
