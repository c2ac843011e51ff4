#!/usr/bin/env bash
# qtzq against two independent programs, on a real photo:
# - the tables of 'qtzq lut': ImageMagick's -hald-clut with the level-16
#   Hald image must give exactly the bytes of 'qtzq apply'; ffmpeg's lut3d
#   filter with the 65-point .cube (interpolating between its points) must
#   stay within LIMIT levels of 255;
# - files of several frames that ImageMagick writes (animated WebP,
#   multi-page TIFF): 'qtzq apply' notes that it takes the first, and its
#   result equals the result on ImageMagick's own first frame.
# Exits 77 (skipped) when a program or the photo is missing.
#
#   other_tools_check.sh QTZQ PHOTO WORKDIR
set -euo pipefail
qtzq=$1 photo=$2 work=$3
limit=2
if [[ ! -f $photo ]]; then echo "skipped: no $photo"; exit 77; fi
if ! convert -version 2>/dev/null | grep -q ImageMagick || ! command -v compare >/dev/null ||
   ! command -v ffmpeg >/dev/null; then
  echo "skipped: ImageMagick or ffmpeg is not installed"; exit 77
fi
rm -rf "$work" && mkdir -p "$work" && cd "$work"

# Largest difference of two images in levels of 255 (compare prints it in
# quantum units, then the fraction in brackets).
peak_difference() {
  local fraction
  fraction=$(compare -metric PAE "$1" "$2" null: 2>&1 | sed -n 's/.*(\(.*\)).*/\1/p' || true)
  awk -v f="$fraction" 'BEGIN { printf "%d", f * 255 + 0.5 }'
}

for look in film elegant 1101; do
  "$qtzq" apply "$look" "$photo" -o ours.png -q
  "$qtzq" lut "$look" -o hald.png
  convert "$photo" hald.png -hald-clut -depth 8 magick.png
  differing=$(compare -metric AE ours.png magick.png null: 2>&1 || true)
  echo "$look: ImageMagick -hald-clut: $differing pixels differ"
  [[ $differing == 0 ]]

  "$qtzq" lut "$look" --size 65 -o look.cube
  ffmpeg -loglevel error -y -i "$photo" -vf lut3d=file=look.cube -frames:v 1 ffmpeg.png
  peak=$(peak_difference ours.png ffmpeg.png)
  echo "$look: ffmpeg lut3d with 65 points: largest difference $peak (limit $limit)"
  ((peak <= limit))
done

convert "$photo" -resize 25% one.png
convert one.png -negate two.png
for file in frames.webp frames.tif; do
  convert one.png two.png -define webp:lossless=true "$file"
  "$qtzq" apply film "$file" -o ours.png 2>notes.txt
  grep -q "the first .* is used" notes.txt
  convert "$file[0]" first.png
  "$qtzq" apply film first.png -o theirs.png -q
  differing=$(compare -metric AE ours.png theirs.png null: 2>&1 || true)
  echo "$file: first frame, $differing pixels differ from ImageMagick's"
  [[ $differing == 0 ]]
done
