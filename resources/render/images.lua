-- The file of an image: <folder>/<base name>_<FORMAT>.raw when it was converted. Raw files and
-- media were only copied (`suffix`, or no format) and keep their names.
function asset_path(folder, basename, format, suffix)
  local as_is = suffix == "raw" or not format
  local file = basename .. (as_is and "." .. suffix or "_" .. format .. ".raw")
  return folder == "" and file or folder .. "/" .. file
end

-- What stands where an image will be.
function placeholder(x, y, w, h, name, caption)
  panel(x, y, w, h, 6, palette.surface, min(1, w / 4, h / 4), palette.outline)
  local room = caption ~= "" and w >= 60 and h >= 64
  local size = clamp(min(w, h) * 0.4, 0, 40)
  symbol(name, x + w / 2, y + h / 2 - (room and 8 or 0), size, palette.muted)
  if room then
    label(caption, x + 6, round(y + h / 2 + size / 2 - 2), w - 12, 18, 26, palette.muted, "center")
  end
end

-- A converted image, or nil when there is none; the reason is reported.
function converted_image(folder, basename, format, suffix, w, h)
  if basename == "" then
    report("no image is set")
  elseif format == "None" then
    report("the format None shows no image")
  elseif w < 1 or h < 1 then
    report("the width and height of the image '" .. basename .. "' are not known")
  else
    return load_bitmap(asset_path(folder, basename, format, suffix), format, w, h)
  end
end

-- An image scaled to a box and tinted; the placeholder when there is none.
function show_image(picture, x, y, w, h, tint, filter, symbol_name, caption)
  if not picture then
    return placeholder(x, y, w, h, symbol_name, caption)
  end
  color(tint)
  bitmap(picture, x, y, { width = w, height = h, filter = filter })
end
