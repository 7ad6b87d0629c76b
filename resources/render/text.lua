local ELLIPSIS = "\u{2026}" -- all that is left of a text without room

local HEIGHT, ASCENT, CAP = {}, {}, {}
for font = 16, 34 do
  HEIGHT[font], ASCENT[font], CAP[font] = font_height(font), font_ascent(font), font_cap_height(font)
end

-- Those of the project's own fonts, 0 to 15, can change from frame to frame.
local function ask_for(measure)
  return {__index = function(_, font)
    return measure(font)
  end}
end
setmetatable(HEIGHT, ask_for(font_height))
setmetatable(ASCENT, ask_for(font_ascent))
setmetatable(CAP, ask_for(font_cap_height))

-- The font, one of the project's own (below 16 then) or else the nearest in ROM.
function rom_font(font)
  return font >= 0 and font < 16 and font or clamp(font, 16, 34)
end
local rom_font = rom_font

-- The font, or the largest smaller one of its family (fixed, bold, regular) whose line is at most
-- h high; nil when none is. The project's own fonts have no family and stay as they are.
function font_within(font, h)
  font = rom_font(font)
  if font < 16 or HEIGHT[font] <= h then
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
-- inwards in a tight box. A line that is too high for it stands out above and below.
local function baseline(font, y, h)
  local ascent = ASCENT[font]
  local lowest, highest = (y + h) // 1 - (HEIGHT[font] - ascent), y + ascent
  local base = (y + (h + CAP[font]) / 2 + 0.5) // 1
  if lowest < highest and font < 16 then
    return base
  end
  base = base < lowest and base or lowest
  return base > highest and base or highest
end

-- How far a text's first letter reaches to the left of its pen. Only "j" does, of the fonts in ROM.
local function overhang(font, s)
  return s:byte() == 106 and font >= 16 and CAP[font] * 0.09 or 0
end

-- One line of text in a box, on the middle of its capitals, cut with an ellipsis.
-- halign is "left" (the right, for a text that reads from right to left), "center" or "right".
-- Gives the text and the font that were drawn, or nothing.
function label(s, x, y, w, h, font, c, halign)
  font = s ~= "" and w >= 4 and font_within(font, h)
  if not font then
    return
  end
  local whole = s
  s = text_fit(font, s, w)
  if s == "" or (s == ELLIPSIS or s == "...") and s ~= whole then
    return
  end
  local base = baseline(font, y, h)
  color(c)
  if halign == "center" then
    text(x + w / 2, base, font, s, "center")
  elseif halign == "right" or font < 16 and is_right_to_left(font, s) then
    text(x + w, base, font, s, "right")
  else
    text(x + overhang(font, s), base, font, s)
  end
  return s, font
end
local label = label

-- The font, or the largest smaller one of its family in which a text is at most w wide; the
-- smallest when none is. The project's own fonts stay as they are.
function font_across(font, s, w)
  if font < 16 then
    return font
  end
  local smallest = font < 20 and 16 or font < 26 and 20 or 26
  while font > smallest and text_width(font, s) > w do
    font = font - 1
  end
  return font
end
local font_across = font_across

-- A unit's font is not larger than the figure's of the same family.
local function unit_font_of(font, unit_font)
  unit_font = rom_font(unit_font)
  return (font < 26 or unit_font < 16) and unit_font or min(unit_font, font)
end

-- A figure with its unit behind it on the same baseline, in a font and colour of its own. A figure
-- without room gets a smaller font, since a cut one would lie; the unit is left out instead.
function reading(s, unit, x, y, w, h, font, unit_font, c, unit_c, halign)
  font = s ~= "" and w >= 4 and font_within(font, h)
  if not font then
    return
  end
  font = font_across(font, s, w)
  unit_font = unit ~= "" and font_within(unit_font_of(font, unit_font), h)
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

-- A text that breaks into lines; what does not fit in the height is cut. line_height is the distance
-- from line to line, 0 for the font's own, and most_lines 0 for as many as there is room for.
function paragraph(s, x, y, w, h, font, c, halign, spacing, line_height, most_lines)
  font = font_within(font, h)
  if not font or w < 4 then
    return
  end
  local pitch = clamp(line_height or 0, 0, 2048)
  pitch = (pitch > 0 and pitch or HEIGHT[font]) + clamp(spacing, 0, 100)
  color(c)
  halign = (halign == "center" or halign == "right") and halign or "start"
  text_box(x, y, w, h, font, s, halign, "top", pitch, most_lines)
end
