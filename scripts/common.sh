# Shared by ./run and ./test: says what is done, installs what is missing, configures and builds.
# Sourced by bash from the top of the checkout.

say() { printf '\033[1m== %s\033[0m\n' "$*"; }
fail() { printf 'error: %s\n' "$*" >&2; exit 1; }

jobs_count() { nproc 2>/dev/null || echo 2; }

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null 2>&1; then
        sudo "$@"
    else
        fail "not root and no sudo: ask an administrator to run: $*"
    fi
}

# Installs the packages of scripts/packages.txt that are not there yet.
install_packages() {
    local wanted missing
    wanted=$(sed 's/#.*//' scripts/packages.txt)
    # shellcheck disable=SC2086
    missing=$(comm -23 <(printf '%s\n' $wanted | sort -u) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
            sed -n 's/^installed //p' | sort -u))
    [ -n "$missing" ] || return 0
    command -v apt-get >/dev/null 2>&1 ||
        fail "this needs Debian's apt-get; install by hand: $(echo $missing)"
    say "Installing packages: $(echo $missing)"
    as_root apt-get update -q || fail "the package lists could not be fetched; is there a network?"
    # shellcheck disable=SC2086
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
        $missing || fail "some packages could not be installed (see above)"
}

# The property browser has no binary package; its sources are fetched once.
fetch_property_browser() {
    scripts/fetch-propertybrowser.sh || fail "the property browser is missing (see above)"
}

# build_preset NAME FOLDER [TARGET]: configures once, then builds what has changed.
build_preset() {
    local preset=$1 folder=$2
    if [ ! -f "$folder/build.ninja" ]; then
        say "Configuring ($preset)"
        cmake --preset "$preset" || fail "the configure step failed (preset $preset)"
    fi
    say "Building ($preset)"
    cmake --build "$folder" -j "$(jobs_count)" ${3:+--target "$3"} ||
        fail "the build failed (preset $preset)"
}
