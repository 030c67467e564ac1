# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by run, test and bench/run; sourced from the top folder of the project.

# install_packages SECTION...: installs the packages in these sections of packages.txt that are missing, and only those.
install_packages() {
    local wanted=() missing=() package section
    for section in "$@"; do
        mapfile -t -O "${#wanted[@]}" wanted < <(
            sed -n "/^\[$section\]\$/,/^\[/ { s/#.*//; /^\[/d; /^[[:space:]]*\$/d; p }" packages.txt)
    done
    for package in "${wanted[@]}"; do
        dpkg-query -W -f '${Status}\n' "$package" 2>/dev/null | grep -q ' installed$' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    echo "installing: ${missing[*]}"
    "${sudo[@]}" apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >/dev/null
}

# build PRESET [TARGET...]: configures when needed and builds; the compiler's words are shown when it fails.
build() {
    local preset=$1
    shift
    local log
    log=$(mktemp)
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}
