# shellcheck shell=bash
# The Debian packages that building, running and testing need, and one function that installs what is missing.
# To be sourced; defines names and runs nothing.
# A name of the form a|b stands for the first of the two that the system offers.

# shellcheck disable=SC2034  # The scripts that source this file read the lists.
build_packages=(cmake ninja-build g++ pkg-config
    qt6-base-dev libgl-dev qcoro-qt6-dev libvips-dev libcli11-dev libgif-dev libimagequant-dev
    libsqlite3-dev libssl-dev zlib1g-dev)

# The fonts are those that pages without fonts of their own need: Latin, Arabic, Chinese, Japanese, Korean, emoji.
# The certificates are for fetching sitemaps.
run_packages=('chromium-headless-shell|chromium'
    fonts-dejavu-core fonts-hosny-amiri fonts-noto-cjk fonts-noto-color-emoji ca-certificates)

test_packages=(git libgtest-dev libgmock-dev libbenchmark-dev libtiff-dev procps
    clang-format clang-tidy-16 xvfb openbox xdotool python3)

is_installed() { [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed* ]]; }

# is_offered NAME: whether this system's package lists hold it.
is_offered() { apt-cache show "$1"; }

# first_that COMMAND NAME[|NAME...]: prints the first name for which COMMAND NAME succeeds.
first_that() {
    local name names
    IFS='|' read -ra names <<<"$2"
    for name in "${names[@]}"; do
        if "$1" "$name" >/dev/null 2>&1; then
            echo "$name"
            return 0
        fi
    done
    return 1
}

# ensure_packages NAME...: installs those that are missing, as root or with sudo; fails with a message where it cannot.
ensure_packages() {
    local wanted name missing=() chosen=() as_root=()
    for wanted in "$@"; do
        first_that is_installed "$wanted" >/dev/null || missing+=("$wanted")
    done
    ((${#missing[@]})) || return 0

    if ! command -v apt-get >/dev/null; then
        echo "These Debian packages, or their like, are needed and there is no apt-get here: ${missing[*]}" >&2
        return 1
    fi
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "Packages are missing. As root, run: apt-get install --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi

    echo "Installing ${missing[*]}"
    "${as_root[@]}" apt-get -qq update || return 1
    for wanted in "${missing[@]}"; do
        if ! name=$(first_that is_offered "$wanted"); then
            echo "This system offers no package $wanted" >&2
            return 1
        fi
        chosen+=("$name")
    done
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq install --no-install-recommends -y "${chosen[@]}"
}
