#!/usr/bin/env bash
# Measures the player on a Cortex-M0+ at -Os: its own code, the compiler's helpers that it calls, and
# what the caller keeps for it in RAM. Needs gcc-arm-none-eabi; says so when it is missing.
set -eu -o pipefail
cd "$(dirname "$0")"
command -v arm-none-eabi-gcc >/dev/null || { echo "no arm-none-eabi-gcc (Debian: gcc-arm-none-eabi)" >&2; exit 1; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
compile="arm-none-eabi-gcc -mcpu=cortex-m0plus -mthumb -std=c99 -ffreestanding -Os -Wall -Wextra -Wpedantic -Wconversion -Werror -I."

$compile -c kiv_panel.c -o "$folder/player.o"
player=$(arm-none-eabi-size "$folder/player.o" | awk 'NR == 2 { print $1, $2 + $3 }')
# All of it linked, with a caller that does nothing.
echo 'void _start(void) {}' | $compile -x c -c - -o "$folder/start.o"
$compile -nostdlib "$folder/start.o" "$folder/player.o" -lgcc -o "$folder/linked"
linked=$(arm-none-eabi-size "$folder/linked" "$folder/start.o" | awk 'NR == 2 { a = $1 } NR == 3 { print a - $1 }')
echo '#include "kiv_panel.h"
kiv_panel panel;' | $compile -x c -c - -o "$folder/state.o"
state=$(arm-none-eabi-size "$folder/state.o" | awk 'NR == 2 { print $3 }')
depth=$($compile -fstack-usage -c kiv_panel.c -o "$folder/stack.o" &&
    sort -t$'\t' -k2,2nr "$folder/stack.su" | awk -F'\t' 'NR == 1 { sub(/.*:/, "", $1); print $2, "(" $1 ")" }')

arm-none-eabi-gcc --version | head -1
echo "player: ${player% *} bytes of text, ${player#* } of data"
echo "with the compiler's helpers (division, 64-bit product): $linked bytes of text"
echo "kiv_panel: $state bytes of RAM; largest stack frame: $depth"
[ "$linked" -le 4096 ] && [ "$state" -le 128 ] || { echo "over the budget: 4096 of text, 128 of RAM" >&2; exit 1; }
