#!/usr/bin/env bash
# make_font_seeds.sh FOLDER TEST_FONTS: inputs for fuzz_fonts, from the fonts of the tests and from pieces of
# installed ones that have the tables of many scripts.
set -eu
folder=$1
mkdir -p "$folder"
seed() { # name, choices, font
  { printf "$2"; cat "$3"; } >"$folder/$1"
}
for font in "$2"/*; do
  seed "$(basename "$font")" '\x20\x00\x00\x80\x00' "$font"
  seed "turned-$(basename "$font")" '\x20\x01\x01\xff\x00' "$font"
done
piece=$(mktemp)
noto=/usr/share/fonts/truetype/noto/Noto
subset() { # name, choices, font, characters
  hb-subset --unicodes="$4" --layout-features='*' --output-file="$piece" "$3" && seed "$1" "$2" "$piece"
}
subset arabic '\x14\x00\x00\x00\x01' ${noto}SansArabic-Regular.ttf 62D,627,628,631,645,64F,31,20
subset nastaliq '\x14\x02\x00\x00\x01' ${noto}NastaliqUrdu-Regular.ttf 62D,627,628,631
subset hebrew '\x14\x00\x01\x00\x01' ${noto}SansHebrew-Regular.ttf 5E9,5C1,62
subset hindi '\x14\x01\x02\x00\x02' ${noto}SansDevanagari-Regular.ttf 915,924,930,937,93F,94D
subset thai '\x14\x00\x03\x00\x03' ${noto}SansThai-Regular.ttf E01,E07,E25,E31,E33
subset latin '\xf0\x00\x00\x00\x00' ${noto}Sans-Regular.ttf 41,61,66,69,301,31,32,33,2026
subset chinese '\x30\x00\x00\x00\x03' /usr/share/fonts/truetype/wqy/wqy-microhei.ttc 4E2D,6587
rm -f "$piece"
