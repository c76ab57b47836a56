# shellcheck shell=bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Shared by run, test, check and bench: where the checkout is, the packages, and what to say on a failure.
# The scripts that source it use what looks unused here:
# shellcheck disable=SC2034

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs=$root/build/logs
cores=$(nproc 2>/dev/null || echo 2)

# The one list of Debian packages, by what needs them.
build_packages=(
    g++ cmake ninja-build
    qtbase5-dev qtmultimedia5-dev libqt5charts5-dev libqt5svg5-dev
    libgsl-dev # statistics and fits of the companions
    libsndfile1-dev # sounds as files
    libpulse-dev # asks the sound server
    libqt5multimedia5-plugins # the sound backends, loaded at run time
)
test_packages=(
    pulseaudio pulseaudio-utils # a sound server without a sound card, and its recorder
    xvfb xauth # a display without a screen
    openbox xdotool # a window manager for it, and what presses keys and buttons
    xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils # a display with two screens
    python3-jsonschema # holds the records of runs against their schema
    pipewire pipewire-bin pipewire-pulse wireplumber dbus dbus-daemon # the other sound server
    libpipewire-0.3-dev # and its clock
)
package_packages=(
    dpkg-dev file # what a program depends on, found in its libraries
    pandoc weasyprint # the guide for the browser and on paper
)
package_check_packages=(
    lintian desktop-file-utils appstream
    xvfb xauth xdotool imagemagick # a picture of the installed application
)
picture_packages=(
    imagemagick # puts pictures of windows on one sheet
)
document_packages=(
    r-base-core python3 # the examples of the user guide
    python3-yaml # the citation file
    pandoc weasyprint # the guide for the browser and on paper,
    chromium poppler-utils # and what opens the two
)
page_packages=(
    chromium # opens the report's page
)
bench_packages=(
    libbenchmark-dev libfftw3-dev libkissfft-dev python3
)
check_packages=(
    git
    clang-format-14 clang-tidy-14 clang-14 libclang-rt-14-dev clazy cppcheck shellcheck
    valgrind libc6-dbg # valgrind replaces functions of the C library by their debug names
    gcovr
)

# say TEXT: progress, marked so that it stands out among the output of the tools.
say()
{
    printf '== %s\n' "$1"
}

# fail WHAT WHAT_TO_DO: ends the script.
fail()
{
    printf '\nerror: %s\n  what to do: %s\n' "$1" "$2" >&2
    exit 1
}

# logged LOG COMMAND...: runs the command; its output goes to build/logs/LOG and to the terminal.
logged()
{
    local log=$logs/$1
    shift
    mkdir -p "$logs"
    "$@" 2>&1 | tee "$log"
}

# quietly LOG COMMAND...: the same, but the terminal sees the log's end only if the command fails.
quietly()
{
    local log=$logs/$1 status=0
    shift
    mkdir -p "$logs"
    "$@" >"$log" 2>&1 || status=$?
    if ((status != 0)); then
        tail -n 30 "$log" >&2
    fi
    return "$status"
}

# missing_packages PACKAGE...: those that are not installed, one a line.
missing_packages()
{
    local package
    for package in "$@"; do
        if [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) != installed ]]; then
            printf '%s\n' "$package"
        fi
    done
}

# install_packages PACKAGE...: installs what is missing, and runs nothing when all are there.
install_packages()
{
    if ! command -v dpkg-query >/dev/null; then
        say "this is not a Debian system: its equivalents of these packages are needed: $*"
        return
    fi

    local missing as_root=(env)
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi

    local install=(apt-get install -y --no-install-recommends "${missing[@]}")
    if ! command -v apt-get >/dev/null; then
        fail "these packages are missing, and there is no apt-get: ${missing[*]}" \
            "install them or their equivalents, then start this script again"
    fi
    if ((EUID != 0)); then
        command -v sudo >/dev/null || fail \
            "these packages are missing, and only root can install them: ${missing[*]}" \
            "as root: apt-get update && ${install[*]}"
        as_root=(sudo)
        # Without a terminal nobody can type a password: refuse instead of waiting for one.
        [[ -t 0 ]] || as_root+=(-n)
        as_root+=(env)
    fi

    say "installing with apt-get: ${missing[*]} (log: build/logs/install.log)"
    as_root+=(DEBIAN_FRONTEND=noninteractive)
    quietly update.log "${as_root[@]}" apt-get update ||
        say "the package lists could not be updated; trying with the old ones"
    quietly install.log "${as_root[@]}" "${install[@]}" </dev/null || fail \
        "these packages could not be installed: ${missing[*]}" \
        "see build/logs/install.log; as root: apt-get update && ${install[*]}"
}

# configure PRESET
configure()
{
    say "configuring ($1)"
    quietly "configure-$1.log" cmake -S "$root" --preset "$1" || fail \
        "CMake could not configure the preset $1" \
        "see build/logs/configure-$1.log; rm -r build/$1 starts anew"
}

# build PRESET [OPTION...]
build()
{
    local preset=$1
    shift
    configure "$preset"
    say "building ($preset, $cores at a time)"
    logged "build-$preset.log" cmake --build --preset "$preset" -j "$cores" "$@" || fail \
        "the preset $preset does not build" \
        "the first error stands in build/logs/build-$preset.log; rm -r build/$preset starts anew"
}

# tell_skipped FOLDER: of the tests that build/FOLDER ran last, names those that skipped something;
# where CI is set, one without a reason in tests/allowed-skips is a failure.
tell_skipped()
{
    local line log=$root/build/$1/Testing/Temporary/LastTest.log status=0
    while IFS= read -r line; do
        say "not run: $line"
        if [[ -n ${CI:-} ]] && ! grep -qxF -- "${line#*) }" "$root/tests/allowed-skips"; then
            status=1
        fi
    done < <(sed -n 's/^SKIP   : //p' "$log" | sort -u)
    ((status == 0)) || fail "tests were skipped" \
        "install what they miss, or give the reason in tests/allowed-skips"
}
