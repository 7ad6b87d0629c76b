#!/usr/bin/env bash
# Takes new and changed texts of the sources over into the .ts files; what is no longer used goes.
#   resources/languages/update.sh [FOLDER]     into the files of another folder
set -eu -o pipefail
cd "$(dirname "$0")/../.."
folder=${1:-resources/languages}
find modules app -name '*.cpp' -o -name '*.h' | grep -v /tests/ | LC_ALL=C sort >"$folder/sources.lst"
trap 'rm -f "$folder/sources.lst"' EXIT
lupdate -silent -no-obsolete -locations none "@$folder/sources.lst" -ts "$folder"/NYX_{de,zh_CN}.ts
