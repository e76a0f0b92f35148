#!/usr/bin/env bash
# Builds all of the C++ library for the toolchain of cmake/msvc-x86_64.cmake, which the test program needs: hosts and
# the library itself make do with its headers. Debian has it compiled for Linux alone, so that its source package
# is fetched with apt-get (165 MB).
#
#   make-libcxx.sh LLVM SYSROOT DIR
#
# SYSROOT is what make-sysroot.sh made. DIR/cxx.lib is the result; where it was made of the same already, nothing is
# done.
set -euo pipefail

LLVM=$1 SYSROOT=$2 DIR=$3
HERE=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
PACKAGE=llvm-toolchain-19
SOURCES=(
    algorithm any atomic bind call_once charconv chrono condition_variable condition_variable_destructor error_category
    exception functional future hash ios ios.instantiations iostream locale memory mutex mutex_destructor new_handler
    new_helpers optional ostream random shared_mutex stdexcept string system_error thread typeinfo variant vector
    verbose_abort ryu/d2fixed ryu/d2s ryu/f2s support/win32/locale_win32 support/win32/support
    support/win32/thread_win32
)

# What the library is made of, beside its source: the sysroot tells its packages.
MADE_OF=$(cat "$SYSROOT/made" && cat "$HERE/make-libcxx.sh" "$HERE"/tests/*.cpp | sha256sum)
[[ ! -f $DIR/cxx.lib || ! -f $DIR/made || $(<"$DIR/made") != "$MADE_OF" ]] || exit 0
rm -rf "$DIR/obj"
mkdir -p "$DIR/obj" "$DIR/parts" "$DIR/lists/partial" "$DIR/source"

# Where the machine gets its packages from has their sources, too.
fetch_source() {
    local list
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*; do
        [[ -f $list ]] || continue
        sed 's/^Types:.*/Types: deb-src/; s/^deb /deb-src /' "$list" >"$DIR/parts/${list##*/}"
    done
    local apt=(apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$DIR/parts"
        -o Dir::State::lists="$DIR/lists" -o APT::Sandbox::User="$(id -un)" -o Dir::Cache::pkgcache=
        -o Dir::Cache::srcpkgcache=)
    "${apt[@]}" update
    (cd "$DIR/source" && "${apt[@]}" source --download-only "$PACKAGE" &&
        tar xf "$PACKAGE"_*.orig.tar.xz --wildcards '*/libcxx/src/*' && rm -f "$PACKAGE"_*.tar.xz "$PACKAGE"_*.dsc)
}

[[ -d $(echo "$DIR"/source/*/libcxx/src) ]] || fetch_source
SOURCE=$(echo "$DIR"/source/*/libcxx/src)

# compile SOURCE OBJECT
compile() {
    "$LLVM/bin/clang++" --target=x86_64-pc-windows-msvc -fms-compatibility-version=19.30 -fms-extensions -std=c++23 -O2 -w \
        -nostdinc -isystem "$SYSROOT/config" -isystem "$LLVM/include/c++/v1" -isystem "$LLVM/lib/clang/19/include" \
        -isystem "$HERE/include" -isystem /usr/include/wine/wine/msvcrt -isystem /usr/include/wine/wine/windows \
        -D_DLL -D_MT -DUNICODE -D_UNICODE -DWINE_UNICODE_NATIVE -D_LIBCPP_BUILDING_LIBRARY \
        -D_InterlockedCompareExchange128=no_compare_exchange_128 -include stdlib.h -include wctype.h -I"$SOURCE" \
        -c "$1" -o "$2"
}
export -f compile
export LLVM SYSROOT HERE SOURCE

for source in "$HERE"/tests/*.cpp; do
    compile "$source" "$DIR/obj/$(basename "$source" .cpp).obj"
done
printf '%s\n' "${SOURCES[@]}" | xargs -P "$(nproc)" -I @ bash -euc 'o=@; compile "$SOURCE/@.cpp" "$0/obj/${o//\//_}.obj"' "$DIR"
"$LLVM/bin/llvm-lib" "/out:$DIR/cxx.lib" "$DIR"/obj/*.obj
printf '%s\n' "$MADE_OF" >"$DIR/made"
