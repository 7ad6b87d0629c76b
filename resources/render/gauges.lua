local DEGREE = math.pi / 180

-- An arc of a track whose stroke lies within the radius. Full turns are closed without caps.
function ring_arc(x, y, radius, thickness, start, sweep, c, butt)
  thickness = stroke(clamp(thickness, 0, radius))
  sweep = clamp(sweep, -360, 360)
  if thickness <= 0 or sweep == 0 then
    return
  end
  butt = butt or abs(sweep) >= 360 or thickness > radius * 0.6 -- round ends would meet
  color(c)
  line_width(thickness)
  arc(x, y, radius - thickness / 2, start, sweep, butt and "butt" or "round")
end

-- The point at an angle and a distance from a centre.
function polar(x, y, angle, r)
  angle = rad(angle)
  return x + r * cos(angle), y + r * sin(angle)
end
local polar = polar

-- `count` + 1 ticks from `start` over `sweep` degrees, between two radii. A full turn has `count`.
function ticks(x, y, inner, outer, start, sweep, count, width, c)
  count = clamp(count, 1, 360)
  if outer <= inner or outer <= 0 then
    return
  end
  color(c)
  line_width(width)
  local last = abs(sweep) >= 360 and count - 1 or count
  inner, outer = inner + width / 2, outer - width / 2 -- round ends stay between the radii
  for i = 0, last do
    local a = (start + sweep * i / count) * DEGREE
    local ca, sa = cos(a), sin(a)
    line(x + inner * ca, y + inner * sa, x + outer * ca, y + outer * sa)
  end
end

-- A pointer that narrows towards its tip, with a hub on the centre.
function needle(x, y, angle, length, hub, c, hub_color)
  if length <= 0 then
    return
  end
  local half = max(hub * 0.45, 1)
  local tip_x, tip_y = polar(x, y, angle, length)
  local tail_x, tail_y = polar(x, y, angle, -hub * 1.6)
  local a = rad(angle + 90)
  local dx, dy = cos(a), sin(a)
  color(c)
  polygon({
    tip_x - dx * 0.6, tip_y - dy * 0.6, tip_x + dx * 0.6, tip_y + dy * 0.6,
    tail_x + dx * half, tail_y + dy * half, tail_x - dx * half, tail_y - dy * half,
  })
  disc(x, y, hub)
  color(hub_color)
  disc(x, y, hub * 0.5)
end

-- What a circular gauge may show in its middle: a reading and a caption below it.
function dial_text(x, y, inner, value_text, unit, font, caption, caption_font, c, muted)
  local half = inner * 0.86
  local tall = caption ~= "" and inner > 24
  local height = min(HEIGHT[rom_font(font)], inner * 1.1)
  local top = y - height / 2 - (tall and HEIGHT[rom_font(caption_font)] * 0.35 or 0)
  reading(value_text, unit, x - half, round(top), half * 2, height, font, caption_font, c, muted, "center")
  if tall then
    local room = inner * 0.7
    label(caption, x - room, round(top + height), room * 2, min(HEIGHT[rom_font(caption_font)], inner * 0.5), caption_font, muted, "center")
  end
end

-- A clock's hand at `angle` degrees from twelve o'clock, with a tail behind the centre.
function clock_hand(x, y, angle, length, width, c, tail)
  local x1, y1 = polar(x, y, angle - 90, length)
  local x0, y0 = polar(x, y, angle - 90, -(tail or 0))
  color(c)
  line_width(width)
  line(x0, y0, x1, y1)
end

-- The figures of a gauge's major ticks: inside a circle of radius r, or outside of it.
function gauge_figures(x, y, r, outside, start, sweep, count, low, high, decimals, font, c)
  if r < 8 then
    return
  end
  font = rom_font(font)
  count = clamp(count, 1, 50)
  local last = abs(sweep) >= 360 and count - 1 or count
  local row = HEIGHT[font]
  local apart = max(row, text_width(font, decimal(high, decimals))) + 8
  local step = floor(count * apart / max(rad(abs(sweep)) * r, 1)) + 1 -- skips what would crowd
  local side = outside and 1 or -1
  for i = 0, last, step do
    local figure = decimal(low + (high - low) * i / count, decimals)
    local a = rad(start + sweep * i / count)
    -- A wide figure stands off further at the sides, so that its corner keeps the same distance.
    local wide = text_width(font, figure)
    local off = r + side * (row / 2 + max(wide - row, 0) / 2 * abs(cos(a)))
    label(figure, x + off * cos(a) - wide / 2 - 1, floor(y + off * sin(a) - row / 2), wide + 2, row, font, c, "center")
  end
end

-- Room that the figures of a gauge need beside it.
function gauge_margin(low, high, decimals, font)
  font = rom_font(font)
  local wide = max(text_width(font, decimal(low, decimals)), text_width(font, decimal(high, decimals)))
  return max(wide, HEIGHT[font]) + 3
end

local SEGMENTS = { -- bits 1 to 64: top, upper right, lower right, bottom, lower left, upper left, middle
  ["0"] = 63, ["1"] = 6, ["2"] = 91, ["3"] = 79, ["4"] = 102, ["5"] = 109, ["6"] = 125, ["7"] = 7,
  ["8"] = 127, ["9"] = 111, ["-"] = 64, ["_"] = 8, [" "] = 0, ["A"] = 119, ["b"] = 124, ["C"] = 57,
  ["c"] = 88, ["d"] = 94, ["E"] = 121, ["F"] = 113, ["H"] = 118, ["h"] = 116, ["L"] = 56, ["n"] = 84,
  ["o"] = 92, ["P"] = 115, ["r"] = 80, ["t"] = 120, ["U"] = 62, ["u"] = 28,
}

local function digit(bits, x, y, w, h, t, on, off)
  local l, r, top, mid, bottom = x + t / 2, x + w - t / 2, y + t / 2, y + h / 2, y + h - t / 2
  local g = t * 0.62 -- room that two segments leave each other
  line_width(t * 0.86)
  local function segment(bit, x0, y0, x1, y1)
    local c = bits & bit ~= 0 and on or off
    if c then
      color(c)
      line(x0, y0, x1, y1)
    end
  end
  segment(1, l + g, top, r - g, top)
  segment(2, r, top + g, r, mid - g)
  segment(4, r, mid + g, r, bottom - g)
  segment(8, l + g, bottom, r - g, bottom)
  segment(16, l, mid + g, l, bottom - g)
  segment(32, l, top + g, l, mid - g)
  segment(64, l + g, mid, r - g, mid)
end

-- A text of digits, some letters, "." and ":" as seven-segment figures, as large as the box allows.
-- `off` is the colour of segments that are not lit, or nil.
function seven_segments(s, x, y, w, h, on, off, halign)
  s = s:sub(1, 64)
  local units = 0 -- widths in tenths of a digit's height
  for ch in s:gmatch(".") do
    units = units + ((ch == "." or ch == ":") and 2 or 7)
  end
  if units == 0 or h < 8 then
    return
  end
  local height = min(h, w * 10 / units)
  if height < 8 then
    return
  end
  local unit = height / 10
  local t = unit * 1.25
  local left = x + (halign == "right" and w - units * unit or halign == "center" and (w - units * unit) / 2 or 0)
  local top = y + (h - height) / 2
  local lost = ""
  for ch in s:gmatch(".") do
    if ch == "." or ch == ":" then
      color(on)
      if ch == "." then
        disc(left + unit, top + height - t / 2, t / 2)
      else
        disc(left + unit, top + height * 0.3, t / 2)
        disc(left + unit, top + height * 0.7, t / 2)
      end
      left = left + 2 * unit
    else
      local lit = SEGMENTS[ch] or SEGMENTS[ch:upper()] or SEGMENTS[ch:lower()]
      lost = lit and lost or lost .. ch
      digit(lit or 0, left + unit * 0.75, top, unit * 5.5, height, t, on, off)
      left = left + 7 * unit
    end
  end
  if lost ~= "" then
    report("seven segments cannot show '" .. lost .. "'")
  end
end
