local ELLIPSIS = "\u{2026}" -- all that is left of a text without room

local HEIGHT, ASCENT, CAP = {}, {}, {}
for font = 16, 34 do
  HEIGHT[font], ASCENT[font], CAP[font] = font_height(font), font_ascent(font), font_cap_height(font)
end

-- The nearest font number that exists.
function rom_font(font)
  return clamp(font, 16, 34)
end
local rom_font = rom_font

-- The font, or the largest smaller one of its family (fixed, bold, regular) whose line is at most
-- h high; nil when none is.
function font_within(font, h)
  font = rom_font(font)
  if HEIGHT[font] <= h then
    return font
  end
  local smallest = font < 20 and 16 or font < 26 and 20 or 26
  while HEIGHT[font] > h do
    if font == smallest then
      return nil
    end
    font = font - 1
  end
  return font
end
local font_within = font_within

-- Where the baseline of a line stands in a box: centred on the capitals where there is room, moved
-- inwards in a tight box.
local function baseline(font, y, h)
  local ascent = ASCENT[font]
  local lowest, highest = (y + h) // 1 - (HEIGHT[font] - ascent), y + ascent
  local base = (y + (h + CAP[font]) / 2 + 0.5) // 1
  base = base < lowest and base or lowest
  return base > highest and base or highest
end

-- How far a text's first letter reaches to the left of its pen. Only "j" does.
local function overhang(font, s)
  return s:byte() == 106 and CAP[font] * 0.09 or 0
end

-- One line of text in a box, on the middle of its capitals, cut with an ellipsis.
-- halign is "left", "center" or "right". Gives the text and the font that were drawn, or nothing.
function label(s, x, y, w, h, font, c, halign)
  font = s ~= "" and w >= 4 and font_within(font, h)
  if not font then
    return
  end
  local whole = s
  s = text_fit(font, s, w)
  if s == "" or s == ELLIPSIS and s ~= whole then
    return
  end
  local base = baseline(font, y, h)
  color(c)
  if halign == "center" then
    text(x + w / 2, base, font, s, "center")
  elseif halign == "right" then
    text(x + w, base, font, s, "right")
  else
    text(x + overhang(font, s), base, font, s)
  end
  return s, font
end
local label = label

-- The font, or the largest smaller one of its family in which a text is at most w wide; the
-- smallest when none is.
function font_across(font, s, w)
  local smallest = font < 20 and 16 or font < 26 and 20 or 26
  while font > smallest and text_width(font, s) > w do
    font = font - 1
  end
  return font
end
local font_across = font_across

-- A figure with its unit behind it on the same baseline, in a font and colour of its own. A figure
-- without room gets a smaller font, since a cut one would lie; the unit is left out instead.
function reading(s, unit, x, y, w, h, font, unit_font, c, unit_c, halign)
  font = s ~= "" and w >= 4 and font_within(font, h)
  if not font then
    return
  end
  font = font_across(font, s, w)
  unit_font = unit ~= "" and font_within(min(rom_font(unit_font), font < 26 and 34 or font), h)
  local gap = CAP[font] >= 24 and 5 or 3
  local figure_w = text_width(font, s)
  local unit_w = unit_font and gap + text_width(unit_font, unit) or 0
  if figure_w + unit_w > w then
    unit_w = 0
    s = text_fit(font, s, w)
    figure_w = text_width(font, s)
  end
  local left = x + overhang(font, s)
  if halign == "center" then
    left = round(x + (w - figure_w - unit_w) / 2)
  elseif halign == "right" then
    left = round(x + w - figure_w - unit_w)
  end
  local base = baseline(font, y, h)
  color(c)
  text(left, base, font, s)
  if unit_w > 0 then
    color(unit_c)
    text(left + figure_w + gap, base, unit_font, unit)
  end
end

-- A text that breaks at blanks and line ends; what does not fit in the height is cut.
function paragraph(s, x, y, w, h, font, c, halign, spacing)
  font = font_within(font, h)
  if not font or w < 4 then
    return
  end
  local height = HEIGHT[font]
  local pitch = height + clamp(spacing, 0, 100)
  local rows_left = floor((h - height) / pitch) + 1
  local function put(row)
    label(row, x, y, w, height, font, c, halign)
    y, rows_left = y + pitch, rows_left - 1
  end
  local sections = split_list(s, "\n")
  for i = 1, #sections do
    local row = ""
    local words = split_list(sections[i], " ")
    for k = 1, #words do
      local longer = row == "" and words[k] or row .. " " .. words[k]
      if row ~= "" and rows_left > 1 and text_width(font, longer) > w then
        put(row)
        row = words[k]
      elseif #longer < 1000 then
        row = longer -- the last row takes all the rest and ends in an ellipsis
      end
    end
    if rows_left > 0 then
      put(row)
    end
  end
end
