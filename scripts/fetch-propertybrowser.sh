#!/usr/bin/env bash
# Fetches the sources of the Qt Solutions property browser, for which Debian has no binary package,
# into build/third-party/qtpropertybrowser. They come, whole and ready for Qt 5, in Debian's source
# package tiled. The package lists of the machine stay as they are: the entry for source packages
# stands in a private list, made from the mirror that apt already uses.
#   scripts/fetch-propertybrowser.sh            run by ./run and ./test; does nothing the second time
set -eu -o pipefail
cd "$(dirname "$0")/.."

target=build/third-party/qtpropertybrowser
suite=bookworm
archive=tiled-qt_1.8.2.orig.tar.gz
sha256=5f7deb39d85f598add5eb82e4e3094c4832afe88243f3979128d22782ce04d6d
keyring=/usr/share/keyrings/debian-archive-keyring.gpg
way_out="With a copy of your own, set QTPROPERTYBROWSER_DIR in the environment to its folder (the one with src/qttreepropertybrowser.h)."

fail() { printf 'error: %s\n       %s\n' "$*" "$way_out" >&2; exit 1; }

if [ -f "$target/.complete" ] || [ -f "${QTPROPERTYBROWSER_DIR:-}/src/qttreepropertybrowser.h" ]; then
    exit 0
fi
command -v apt-get >/dev/null 2>&1 || fail "the property browser's sources come with apt-get, which is not here."

# The address of the archive that the machine's own package lists name for this release.
# shellcheck disable=SC2016 # $(…) is apt's own
mirror=$(apt-get indextargets --format '$(RELEASE) $(COMPONENT) $(ORIGIN) $(REPO_URI)' \
    'Created-By: Packages' 2>/dev/null | awk -v suite="$suite" \
    '$1 == suite && $2 == "main" && ($3 == "Debian" || $4 ~ /debian\/?$/) { print $4; exit }')
[ -n "$mirror" ] || fail "apt knows no Debian $suite archive on this machine."

work=$(mktemp -d "${TMPDIR:-/tmp}/propertybrowser.XXXXXX")
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"
mkdir -p "$work/lists/partial" "$work/cache/archives/partial"
signed_by=
[ ! -f "$keyring" ] || signed_by="[signed-by=$keyring] "
printf 'deb-src %s%s %s main\n' "$signed_by" "$mirror" "$suite" >"$work/sources.list"

# apt_quiet ARGUMENT…: apt-get on the private list; what it says is shown only when it fails,
# without the addresses of mirrors and proxies.
apt_quiet() {
    (cd "$work" && apt-get -q -o Dir::Etc::SourceList="$work/sources.list" \
        -o Dir::Etc::SourceParts=/dev/null -o Dir::State::Lists="$work/lists" \
        -o Dir::Cache="$work/cache" -o Acquire::Retries=3 "$@") >"$work/log" 2>&1 && return 0
    sed -E 's#([a-z]+://)[^/ ]+#\1…#g' "$work/log" >&2
    return 1
}

echo "Property browser: reading the list of source packages"
apt_quiet -o APT::Update::Error-Mode=any update || fail "the list of source packages could not be fetched; is there a network?"
echo "Property browser: fetching $archive (17 MB)"
apt_quiet source --download-only tiled || fail "the source package could not be fetched."

if [ ! -f "$work/$archive" ]; then
    found=$(find "$work" -maxdepth 1 -name '*.orig.tar.*' -printf '%f ')
    fail "Debian now has another version than $archive: ${found:-none}."
fi
echo "Property browser: checking and unpacking"
printf '%s  %s\n' "$sha256" "$work/$archive" | sha256sum --check --status ||
    fail "$archive is not the archive that this script knows (SHA-256 differs)."

# Unpacked beside the target and renamed, so that an interrupted run leaves nothing half done.
fresh=$target.new
rm -rf "$fresh" "$target"
mkdir -p "$fresh"
tar -xzf "$work/$archive" -C "$fresh" --strip-components=3 --wildcards '*/src/qtpropertybrowser/*'
[ -f "$fresh/src/qttreepropertybrowser.cpp" ] || fail "$archive does not hold the property browser."
touch "$fresh/.complete"
mv "$fresh" "$target"
echo "Property browser: ready in $target"
