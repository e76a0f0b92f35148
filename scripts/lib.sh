# What the scripts share: messages, builds, a private display and Wine. Meant for `source`.

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=$ROOT/build
XVFB_PID=
WINE_IN_USE=

say() { printf '== %s\n' "$*"; }

die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# --- Builds

use_ccache() {
    command -v ccache >/dev/null || return 0
    export CMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER-ccache}
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
}

# build PRESET TARGET [CMAKE-OPTION...]: configures a preset and builds a target of it, in build/PRESET.
build() {
    local preset=$1 target=$2
    shift 2
    use_ccache
    (cd "$ROOT" && cmake --preset "$preset" "$@" >/dev/null && cmake --build --preset "$preset" --target "$target")
}

# --- A private display

# start_display [WIDTHxHEIGHT]: starts an Xvfb with the first free display number and ends it with the script.
start_display() {
    local file number i
    mkdir -p "$BUILD"
    file=$(mktemp "$BUILD/display.XXXXXX")
    Xvfb -displayfd 3 -screen 0 "${1:-1280x1024}x24" -nolisten tcp 3>"$file" >/dev/null 2>&1 &
    XVFB_PID=$!
    trap end_session EXIT
    for ((i = 0; i < 100; i++)); do
        number=$(<"$file")
        [[ -n $number ]] && break
        kill -0 $XVFB_PID 2>/dev/null || break
        sleep 0.1
    done
    rm -f "$file"
    [[ -n $number ]] || die "Xvfb did not start"
    export DISPLAY=:$number
}

# --- Wine

find_wine() {
    local candidate
    # Debian's own `wine` is a script that first complains where there is no 32-bit Wine.
    for candidate in /usr/lib/wine/wine64 wine64 wine; do
        command -v "$candidate" >/dev/null && WINE=$candidate && break
    done
    [[ -n ${WINE:-} ]] || die "Wine is not installed: run scripts/setup.sh"
    for candidate in /usr/lib/wine/wineserver wineserver; do
        command -v "$candidate" >/dev/null && WINESERVER=$candidate && return
    done
    die "Wine's server is not installed: run scripts/setup.sh"
}

# The values that the programs' look and speed rest on. $1: Y where a window manager decorates the windows, N
# on a bare display, where each framed window would wait for one in vain. $2: the system's look, as for prepare_wine.
wine_settings() {
    local styled=1
    [[ $2 != classic ]] || styled=0
    cat <<SETTINGS
Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]
"Managed"="$1"

[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]
"Segoe UI"="Open Sans"
"Calibri"="Carlito"
"Courier New"="DejaVu Sans Mono"

[HKEY_CURRENT_USER\\Control Panel\\Desktop]
"FontSmoothing"="2"
"FontSmoothingType"=dword:00000002
"FontSmoothingGamma"=dword:000003e8
"FontSmoothingOrientation"=dword:00000001

[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager]
"ThemeActive"="$styled"

[HKEY_CURRENT_USER\\Control Panel\\Colors]
$(system_colors "$2")
SETTINGS
}

# The system's colours in a look: those of Wine's style, those from before there were styles, or a contrast theme's.
system_colors() {
    local column names=(light classic contrast)
    for column in "${!names[@]}"; do
        [[ ${names[column]} != "$1" ]] || break
    done
    awk -F ' *[|] *' -v column=$((column + 2)) 'NF { printf "\"%s\"=\"%s\"\n", $1, $column }' <<COLORS
ButtonFace       | 245 245 245 | 212 208 200 | 0 0 0
ButtonHilight    | 255 255 255 | 255 255 255 | 255 255 255
ButtonLight      | 227 227 227 | 212 208 200 | 255 255 255
ButtonShadow     | 166 166 166 | 128 128 128 | 255 255 255
ButtonDkShadow   | 106 106 106 | 64 64 64    | 255 255 255
ButtonText       | 0 0 0       | 0 0 0       | 255 238 50
GrayText         | 166 166 166 | 128 128 128 | 166 166 166
Hilight          | 48 150 250  | 10 36 106   | 214 180 253
HilightText      | 255 255 255 | 255 255 255 | 43 43 43
HotTrackingColor | 224 224 224 | 0 0 200     | 128 128 255
InfoText         | 0 0 0       | 0 0 0       | 255 255 255
InfoWindow       | 255 255 255 | 255 255 225 | 0 0 0
Menu             | 255 255 255 | 212 208 200 | 0 0 0
MenuBar          | 255 255 255 | 212 208 200 | 0 0 0
MenuHilight      | 48 150 250  | 10 36 106   | 214 180 253
MenuText         | 0 0 0       | 0 0 0       | 255 255 255
Scrollbar        | 255 255 255 | 212 208 200 | 0 0 0
Window           | 255 255 255 | 255 255 255 | 0 0 0
WindowFrame      | 158 158 158 | 0 0 0       | 255 255 255
WindowText       | 0 0 0       | 0 0 0       | 255 255 255
COLORS
}

# The fonts that Wine is to see, the same on every machine. Of Open Sans just the plain and bold faces: Wine would
# take its light face for the regular one.
choose_fonts() {
    mkdir -p "$BUILD/fonts"
    ln -sf /usr/share/fonts/truetype/open-sans/OpenSans-{Regular,Bold,Italic,BoldItalic}.ttf \
        /usr/share/fonts/truetype/crosextra/Carlito-{Regular,Bold}.ttf "$BUILD/fonts/"
    # For combining marks and the scripts that Open Sans does not have.
    ln -sf /usr/share/fonts/truetype/noto/NotoSans{,Hebrew,Arabic,Devanagari,Thai}-Regular.ttf \
        /usr/share/fonts/truetype/vlgothic/VL-PGothic-Regular.ttf \
        /usr/share/fonts/truetype/ancient-scripts/Symbola_hint.ttf "$BUILD/fonts/"
    export FONTCONFIG_FILE=$BUILD/fonts/fonts.conf
    cat >"$FONTCONFIG_FILE" <<FONTS
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>$BUILD/fonts</dir>
  <dir>/usr/share/wine/fonts</dir>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir>$BUILD/fonts/cache</cachedir>
</fontconfig>
FONTS
}

# prepare_wine Y|N [LOOK]: makes the Wine prefix build/wine where there is none yet, with the settings above. Needs a
# display. LOOK is the system's: light (Wine's visual style; the usual one), classic (no visual style), or contrast
# (the style with a contrast theme's colours).
prepare_wine() {
    find_wine
    export WINEPREFIX=$BUILD/wine WINEARCH=win64 WINEDEBUG=${WINEDEBUG--all}
    export WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d;winemenubuilder.exe=d"
    choose_fonts
    WINE_IN_USE=1
    trap end_session EXIT
    local applied=$WINEPREFIX/gesso.reg wanted
    wanted=$(wine_settings "$1" "${2:-light}")
    [[ -f $applied && $(<"$applied") == "$wanted" ]] && return
    mkdir -p "$WINEPREFIX"
    if [[ ! -d $WINEPREFIX/drive_c/windows ]]; then
        say "preparing Wine in build/wine (once)"
        run_wine 180 wineboot -i >/dev/null 2>&1 || die "Wine could not set up $WINEPREFIX"
    fi
    printf '%s\n' "$wanted" >"$WINEPREFIX/drive_c/gesso.reg"
    run_wine 60 regedit /S 'C:\gesso.reg' || die "Wine did not take its settings"
    # The settings count for processes of a new server.
    "$WINESERVER" -k || true
    "$WINESERVER" -w || true
    mv "$WINEPREFIX/drive_c/gesso.reg" "$applied"
}

# run_wine SECONDS PROGRAM ARG...: what still runs after that time is ended, with status 124 or 137.
run_wine() {
    local seconds=$1
    shift
    timeout --kill-after=10 "$seconds" "$WINE" "$@"
}

# run_example PROGRAM DLL-FOLDER TITLE KEY: the program shows its window and ends well when the key is pressed.
run_example() {
    local program
    WINEPATH=$(windows_path "$2") run_wine 60 "$1" &
    program=$!
    timeout 30 xdotool search --sync --onlyvisible --name "^$3\$" >/dev/null || return
    sleep 0.5 # until the window has the focus
    xdotool key "$4"
    wait $program
}

# A Windows program's name for a file.
windows_path() {
    local path
    path=$(realpath -m "$1")
    printf 'Z:%s' "${path//\//\\}"
}

end_session() {
    if [[ -n $WINE_IN_USE ]]; then
        "$WINESERVER" -k 2>/dev/null
        "$WINESERVER" -w 2>/dev/null
    fi
    if [[ -n $XVFB_PID ]]; then
        kill "$XVFB_PID" 2>/dev/null
        wait "$XVFB_PID" 2>/dev/null
    fi
    return 0
}
