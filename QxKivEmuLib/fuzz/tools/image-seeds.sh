#!/bin/sh
# Writes the seeds of fuzz_images, small files of every layout that the decoders tell apart:
# image-seeds.sh QxKivEmuLib/fuzz/corpus/images. Needs ImageMagick.
set -eu
folder=$1
mkdir -p "$folder"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# seed NAME CHOICE FILE: the byte that chooses the kind (0 JPEG, 1 PNG, 2 AVI; 3 more is mono, 18
# more is no room at all).
seed() {
    { printf "\\$(printf '%03o' "$2")"; cat "$3"; } > "$folder/$1"
}
# number N: four bytes, the least significant first.
number() {
    for shift in 0 8 16 24; do
        printf "\\$(printf '%03o' $(($1 >> shift & 255)))"
    done
}

draw() {
    output=$1
    shift
    convert -seed 5 -size 13x9 plasma:red-blue "$@" -strip -define png:exclude-chunk=date,time "$work/$output"
}

draw plain.jpg -quality 80
draw progressive.jpg -interlace JPEG
draw grey.jpg -colorspace Gray
draw sampled.jpg -sampling-factor 4:2:0
draw cmyk.jpg -colorspace CMYK
draw restarts.jpg -define jpeg:restart-interval=1
for name in plain progressive grey sampled cmyk restarts; do
    seed "$name.jpg" 0 "$work/$name.jpg"
done
seed mono.jpg 3 "$work/plain.jpg"

draw plain.png -define png:color-type=2 -define png:bit-depth=8
draw deep.png -define png:color-type=6 -define png:bit-depth=16
draw interlaced.png -interlace PNG -define png:color-type=6
draw palette.png -colors 9 -define png:color-type=3 -transparent red
draw grey.png -colorspace Gray -posterize 4 -define png:color-type=0 -define png:bit-depth=2
draw gamma.png -define png:color-type=2 -gamma 0.5 -set gamma 0.6 -define png:include-chunk=gAMA
for name in plain deep interlaced palette grey gamma; do
    seed "$name.png" 1 "$work/$name.png"
done
convert "$work/plain.png" -set comment "$(head -c 4000 /dev/zero | tr '\0' x)" "$work/text.png"
seed text.png 1 "$work/text.png" # packed
{ # turned by 90 degrees
    head -c 2 "$work/plain.jpg"
    printf '\377\341\0\042Exif\0\0MM\0\052\0\0\0\010\0\001\001\022\0\003\0\0\0\001\0\006\0\0\0\0\0\0'
    tail -c +3 "$work/plain.jpg"
} > "$work/turned.jpg"
seed turned.jpg 0 "$work/turned.jpg"
seed mono.png 4 "$work/plain.png"
seed noroom.jpg 18 "$work/plain.jpg"
seed noroom.png 19 "$work/plain.png"
{ head -c 16 "$work/plain.png"; printf '\000\000\352\140\000\000\352\140'; tail -c +25 "$work/plain.png"; } \
    > "$work/bomb.png" # 60,000 x 60,000
seed bomb.png 1 "$work/bomb.png"

size=$(wc -c < "$work/plain.jpg")
padded=$((size + size % 2))
{
    printf 'RIFF'; number $((12 + 8 + 12 + 8 + padded)); printf 'AVI '
    printf 'JUNK'; number 3; printf 'abc\0'
    printf 'LIST'; number $((4 + 8 + padded)); printf 'movi'
    printf '00dc'; number "$size"; cat "$work/plain.jpg"
    [ "$padded" = "$size" ] || printf '\0'
} > "$work/film.avi"
seed film.avi 2 "$work/film.avi"
seed mono.avi 5 "$work/film.avi"
