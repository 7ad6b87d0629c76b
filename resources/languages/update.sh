#!/usr/bin/env bash
# Takes new and changed texts of the sources over into the .ts files; what is no longer used goes.
#   resources/languages/update.sh [FOLDER]     into the files of another folder
# The texts of the widget library are taken as if they stood in a source file: groups, names, tool
# tips, sections and captions, which stand in one line of it each, and the entries of enumerations as
# people read them, unless they are written in capitals.
set -eu -o pipefail
cd "$(dirname "$0")/../.."
folder=${1:-resources/languages}
trap 'rm -f "$folder/sources.lst" "$folder/library.cpp"' EXIT
{
  sed -nE 'h; s/.*<(toolboxgroup|widget) .*name="([^"]*)".*/\2/p; g; s/.*<tooltip>(.*)<\/tooltip>.*/\1/p
    g; s/.* section=\\?"([^"\]*)\\?".*/\1/p; g; s/.* caption="([^"]*)".*/\1/p
    g; s/.*<caption .*text="([^"]*)".*/\1/p' \
    resources/widgets.xml resources/assemble.cmake
  grep -ohE 'type="enum:[^"]*"' resources/widgets.xml | sed -E 's/^[^:]*:|"$//g' | tr '|' '\n' |
    sed -nE 's/@.*//; s/_/ /g; s/^[a-z]/\u&/p'
} | LC_ALL=C sort -u |
  sed -E 's/&lt;/</g; s/&gt;/>/g; s/&quot;/\\"/g; s/&amp;/\&/g; s/.*/QT_TRANSLATE_NOOP("WidgetLibrary", "&")/' \
    >"$folder/library.cpp"
{
  find modules app -name '*.cpp' -o -name '*.h' | grep -v /tests/ | LC_ALL=C sort
  echo "$folder/library.cpp"
} >"$folder/sources.lst"
lupdate -silent -no-obsolete -locations none "@$folder/sources.lst" -ts "$folder"/NYX_{de,zh_CN}.ts
