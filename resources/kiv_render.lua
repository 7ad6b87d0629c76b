-- The render script: what a screen's items become. `render` is called once for each frame; the
-- other functions are the looks that the widget kinds of widget-library.xml share.
--
-- Three rules keep every kind within its rectangle and free of errors, whatever the editor allows:
-- * values go through `number`, `clamp` and `fraction` before they become lengths or angles;
-- * texts go through `label`, which picks a font that fits the height and cuts to the width;
-- * what has no room is left out, never squeezed to less than nothing.
-- Boxes are x, y, w, h in pixels; c is a colour text; f a share from 0 to 1.

local floor, max, min, abs, huge = math.floor, math.max, math.min, math.abs, math.huge
local sin, cos, rad = math.sin, math.cos, math.rad
local color, disc, line, arc, text = color, disc, line, arc, text
local fill_rect, stroke_rect, line_width = fill_rect, stroke_rect, line_width
local polyline, polygon, text_fit, text_width = polyline, polygon, text_fit, text_width
local mix = mix

-- The colours that the library's defaults are taken from.
palette = {
  background = "#10161d",
  surface = "#1b2530",
  raised = "#263442",
  outline = "#3a4a5a",
  text = "#e8eef4",
  muted = "#9fb0c0",
  accent = "#2d9cdb",
  accent2 = "#27c2a0",
  warning = "#f2b33d",
  danger = "#eb5757",
}

local ELLIPSIS = "\u{2026}" -- all that is left of a text without room
local DISABLED = "#2c3946" -- what a disabled part fades to
local SHADE = "#05080b" -- what a pressed part darkens to
local DEGREE = math.pi / 180
local MAX_ITEMS = 512 -- entries of a list or points of a chart that are looked at

-- The frame -------------------------------------------------------------------------------------

function render(screen, items)
  if not pcall(clear, screen.color) then
    clear("#000000")
  end
  for i = 1, #items do
    draw_item(items[i])
  end
end

-- Values ----------------------------------------------------------------------------------------

function clamp(v, low, high)
  if v < low then
    return low
  end
  return v > high and high or v
end
local clamp = clamp

-- A number from a text such as "21.5"; `default` (0) when it is none or not finite.
function number(s, default)
  local v = tonumber(s)
  if not v or v ~= v or v >= huge or v <= -huge then
    return default or 0
  end
  return v
end
local number = number

-- Where a value stands between two limits, from 0 to 1. Limits may be reversed; equal ones give 0.
function fraction(value, low, high)
  value, low, high = number(value), number(low), number(high)
  local span = high - low
  if span == 0 or abs(span) >= huge then
    return 0
  end
  return clamp((value - low) / span, 0, 1)
end
local fraction = fraction

function round(v)
  return floor(v + 0.5)
end
local round = round

-- A stroke's width whose half is a whole number of sixteenths, so that its edge lies where asked.
local function stroke(v)
  return round(v * 8) / 8
end

-- A number as text with a fixed number of decimals; never "-0".
function decimal(value, decimals)
  local s = string.format("%." .. clamp(decimals or 0, 0, 6) .. "f", clamp(number(value), -1e12, 1e12))
  return s:find("[1-9]") and s or s:gsub("-", "")
end

-- Hours, minutes and seconds of a text "HH:mm:ss"; midnight when it is not a time.
function split_time(s)
  local h, m, sec = s:match("^(%d%d?):(%d%d?):?(%d*)")
  if not h then
    return 0, 0, 0
  end
  return tonumber(h) % 24, tonumber(m) % 60, (tonumber(sec) or 0) % 60
end

-- A text without blanks around it. Bytes instead of patterns, which are refused for long texts.
local function trimmed(s)
  local first, last = 1, #s
  while first <= last and s:byte(first) <= 32 do
    first = first + 1
  end
  while last >= first and s:byte(last) <= 32 do
    last = last - 1
  end
  return s:sub(first, last)
end

-- What stands before and behind the first separator; an empty second part when there is none.
local function split_once(s, separator)
  local at = s:find(separator, 1, true)
  if not at then
    return s, ""
  end
  return s:sub(1, at - 1), s:sub(at + 1)
end

-- The parts of a text between separators, without blanks around them; none for an empty text.
function split_list(s, separator)
  local parts, n, from = {}, 0, 1
  while s ~= "" do
    if n == MAX_ITEMS then
      report("only the first " .. MAX_ITEMS .. " parts of a list or text are drawn")
      break
    end
    local at = s:find(separator, from, true)
    n = n + 1
    parts[n] = trimmed(s:sub(from, at and at - 1))
    if not at then
      break
    end
    from = at + 1
  end
  return parts
end

-- The numbers of a text such as "3, 5, 8.5"; what is not a number counts as 0.
function split_values(s)
  local values = split_list(s, ",")
  for i = 1, #values do
    values[i] = number(values[i])
  end
  return values
end

-- Colours ---------------------------------------------------------------------------------------

-- The colour of a part that may be disabled.
function tone(c, enabled)
  return enabled == 0 and mix(c, DISABLED, 0.7) or c
end
local tone = tone

-- The colour of a text or mark on a part that may be disabled.
function ink(c, enabled)
  return enabled == 0 and mix(palette.muted, DISABLED, 0.4) or c
end

-- The colour of a face that may be pressed.
function face_tone(c, pressed, enabled)
  if enabled == 0 then
    return mix(c, DISABLED, 0.8)
  end
  return pressed ~= 0 and mix(c, SHADE, 0.28) or c
end

-- Texts -----------------------------------------------------------------------------------------

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

-- Shapes ----------------------------------------------------------------------------------------

-- A filled rectangle with a border that lies inside it. No border when its width is 0.
function panel(x, y, w, h, r, fill, border, border_color)
  if w <= 0 or h <= 0 then
    return
  end
  border = stroke(clamp(border or 0, 0, min(w, h) / 2))
  r = clamp(r, 0, min(w, h) / 2)
  local inset = border / 2
  color(fill)
  fill_rect(x + inset, y + inset, w - border, h - border, max(r - inset, 0))
  if border > 0 then
    color(border_color)
    line_width(border)
    stroke_rect(x + inset, y + inset, w - border, h - border, max(r - inset, 0))
  end
end
local panel = panel

-- A rectangle with fully round ends.
function pill(x, y, w, h, c)
  if w > 0 and h > 0 then
    color(c)
    fill_rect(x, y, w, h, min(w, h) / 2)
  end
end
local pill = pill

-- A disc with a border inside its radius.
function button_disc(x, y, r, fill, border, border_color)
  if r <= 0 then
    return
  end
  border = stroke(clamp(border or 0, 0, r))
  color(fill)
  disc(x, y, r - border / 2)
  if border > 0 then
    color(border_color)
    line_width(border)
    arc(x, y, r - border / 2, 0, 360, "butt")
  end
end

-- A track with round ends, filled from its start up to the share f. Vertical ones fill upwards.
function track(x, y, w, h, f, track_color, value_color, vertical)
  pill(x, y, w, h, track_color)
  if f <= 0 then
    return
  end
  if vertical then
    local length = max(h * f, min(w, h))
    pill(x, y + h - length, w, length, value_color)
  else
    pill(x, y, max(w * f, min(w, h)), h, value_color)
  end
end

-- A knob: a disc with a thin ring.
function knob(x, y, r, fill, ring)
  if r <= 0 then
    return
  end
  color(ring)
  disc(x, y, r)
  color(fill)
  disc(x, y, max(r - 2, r / 2))
end

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

-- The head of an arrow whose tip is at x2, y2.
function arrow_head(x1, y1, x2, y2, size)
  local a = math.atan(y2 - y1, x2 - x1)
  local bx, by = x2 - size * cos(a), y2 - size * sin(a)
  local dx, dy = size * 0.6 * sin(a), -size * 0.6 * cos(a)
  polyline({ bx + dx, by + dy, x2, y2, bx - dx, by - dy })
end

-- The points of a "pointlist" moved to their widget's position. What is no point is left out.
function placed_points(list, x, y)
  local well_formed, points = pcall(split_points, list, x, y)
  if well_formed then
    return points
  end
  points = {}
  local pairs_of = split_list(list, ";")
  for i = 1, #pairs_of do
    local px, py = split_once(pairs_of[i], ",")
    px, py = tonumber(px), tonumber(py)
    if px and py then
      points[#points + 1], points[#points + 2] = number(px) + x, number(py) + y
    end
  end
  return points
end

-- A filled flash with an edge that sets it off from what is behind.
function flash(x, y, size, c, edge)
  if size < 6 then
    return
  end
  local s = size / 24
  local points = { 13.2, 3, 5.5, 13.6, 11.4, 13.6, 10.6, 21, 18.5, 10.2, 12.5, 10.2 }
  for i = 1, #points, 2 do
    points[i], points[i + 1] = x + (points[i] - 12) * s, y + (points[i + 1] - 12) * s
  end
  color(edge)
  line_width(clamp(4 * s, 1, 6))
  polyline(points, true)
  color(c)
  polygon(points)
end

-- Turns what follows about the middle of a box when the angle asks for it.
function turn(angle, x, y, w, h)
  angle = number(angle) % 360
  if angle ~= 0 then
    rotate(angle, x + w / 2, y + h / 2)
  end
end

-- Symbols ---------------------------------------------------------------------------------------

-- Line drawings on a grid of 24 units. M starts a line, L goes on, C is a cubic curve, Z closes;
-- A is an arc (centre, radius, start, sweep), O a circle, D a filled disc.
local DRAWINGS = {
  power = "A 12 12.5 8 -58 296 M 12 3 L 12 11.5",
  home = "M 3.5 11.5 L 12 4 L 20.5 11.5 M 6 9.5 L 6 20 L 18 20 L 18 9.5 M 10 20 L 10 14.5 L 14 14.5 L 14 20",
  settings = "M 3.5 7 L 11.6 7 M 19.4 7 L 20.5 7 O 15.5 7 2.8 M 3.5 17 L 4.6 17 M 12.4 17 L 20.5 17 O 8.5 17 2.8",
  window = "M 4.5 4 L 19.5 4 L 19.5 20 L 4.5 20 Z M 12 4 L 12 20 M 4.5 12 L 19.5 12",
  menu = "M 4 6.5 L 20 6.5 M 4 12 L 20 12 M 4 17.5 L 20 17.5",
  search = "O 10.5 10.5 6.5 M 15.3 15.3 L 20.5 20.5",
  plus = "M 12 4.5 L 12 19.5 M 4.5 12 L 19.5 12",
  minus = "M 4.5 12 L 19.5 12",
  check = "M 4.5 12.5 L 9.8 17.8 L 19.5 6.5",
  close = "M 5.5 5.5 L 18.5 18.5 M 18.5 5.5 L 5.5 18.5",
  left = "M 15 5 L 8 12 L 15 19",
  right = "M 9 5 L 16 12 L 9 19",
  up = "M 5 15 L 12 8 L 19 15",
  down = "M 5 9 L 12 16 L 19 9",
  back = "M 20 12 L 4.5 12 M 11 5.5 L 4.5 12 L 11 18.5",
  refresh = "A 12 12 8 -30 300 M 19.4 3.6 L 19.2 8.2 L 14.6 7.8",
  play = "M 7.5 4.5 L 19 12 L 7.5 19.5 Z",
  pause = "M 8 5 L 8 19 M 16 5 L 16 19",
  stop = "M 6 6 L 18 6 L 18 18 L 6 18 Z",
  next = "M 6 5 L 15 12 L 6 19 Z M 18.5 5 L 18.5 19",
  previous = "M 18 5 L 9 12 L 18 19 Z M 5.5 5 L 5.5 19",
  volume = "M 4 9.5 L 7.5 9.5 L 12 5.5 L 12 18.5 L 7.5 14.5 L 4 14.5 Z A 12 12 4.5 -40 80 A 12 12 8.5 -45 90",
  info = "O 12 12 8.5 M 12 11.2 L 12 16.2 D 12 7.8 1.1",
  warning = "M 12 4 L 21 19.5 L 3 19.5 Z M 12 10 L 12 14 D 12 16.8 1",
  clock = "O 12 12 8.5 M 12 7 L 12 12 L 15.5 14.2",
  timer = "O 12 13.5 7.5 M 12 9.5 L 12 13.5 M 9.5 3 L 14.5 3 M 12 3 L 12 6",
  calendar = "M 4 6 L 20 6 L 20 20 L 4 20 Z M 4 10.5 L 20 10.5 M 8.5 3.5 L 8.5 7.5 M 15.5 3.5 L 15.5 7.5",
  bell = "M 4.5 17.5 L 19.5 17.5 L 18 15 L 18 11 C 18 7.4 15.4 5 12 5 C 8.6 5 6 7.4 6 11 L 6 15 Z M 12 3 L 12 5 M 10 20.7 L 14 20.7",
  lock = "M 5.5 11 L 18.5 11 L 18.5 20.5 L 5.5 20.5 Z M 8 11 L 8 8 C 8 5.4 9.7 3.6 12 3.6 C 14.3 3.6 16 5.4 16 8 L 16 11 D 12 15.7 1.3",
  person = "O 12 8 4 M 4.5 20.5 C 4.5 16.5 7.6 14.8 12 14.8 C 16.4 14.8 19.5 16.5 19.5 20.5",
  pin = "M 12 21 C 8 16.5 5.5 13.4 5.5 9.8 C 5.5 6 8.4 3.3 12 3.3 C 15.6 3.3 18.5 6 18.5 9.8 C 18.5 13.4 16 16.5 12 21 Z O 12 9.8 2.4",
  heart = "M 12 20 C 6.5 16 3.5 12.9 3.5 9.3 C 3.5 6.6 5.5 4.8 7.8 4.8 C 9.6 4.8 11.1 5.8 12 7.5 C 12.9 5.8 14.4 4.8 16.2 4.8 C 18.5 4.8 20.5 6.6 20.5 9.3 C 20.5 12.9 17.5 16 12 20 Z",
  star = "M 12 3.2 L 14.6 9 L 20.9 9.6 L 16.2 13.9 L 17.5 20.1 L 12 16.9 L 6.5 20.1 L 7.8 13.9 L 3.1 9.6 L 9.4 9 Z",
  wifi = "A 12 18.5 4.5 -135 90 A 12 18.5 9 -135 90 A 12 18.5 13.5 -135 90 D 12 18.5 1.3",
  contactless = "A 3.5 12 5 -38 76 A 3.5 12 10 -38 76 A 3.5 12 15 -38 76 D 4.5 12 1.3",
  flame = "M 12 3 C 13 7 18 9 18 14.6 C 18 18.2 15.3 21 12 21 C 8.7 21 6 18.4 6 14.8 C 6 12.4 7.2 10.8 8.4 9.4 C 8.7 11.2 9.4 12.2 10.3 12.6 C 9.7 9 10.3 5.4 12 3 Z",
  snowflake = "M 12 12 L 12 3 M 9.6 4.6 L 12 7 L 14.4 4.6 M 12 12 L 19.8 7.5 M 17.2 6.2 L 16.3 9.5 L 19.6 10.4 M 12 12 L 19.8 16.5 M 19.6 13.6 L 16.3 14.5 L 17.2 17.8 M 12 12 L 12 21 M 14.4 19.4 L 12 17 L 9.6 19.4 M 12 12 L 4.2 16.5 M 6.8 17.8 L 7.7 14.5 L 4.4 13.6 M 12 12 L 4.2 7.5 M 4.4 10.4 L 7.7 9.5 L 6.8 6.2",
  sun = "O 12 12 4 M 12 2.8 L 12 4.8 M 18.5 5.5 L 17.1 6.9 M 21.2 12 L 19.2 12 M 18.5 18.5 L 17.1 17.1 M 12 21.2 L 12 19.2 M 5.5 18.5 L 6.9 17.1 M 2.8 12 L 4.8 12 M 5.5 5.5 L 6.9 6.9",
  moon = "M 19.8 14.4 C 18.6 15 17.2 15.4 15.8 15.4 C 11.4 15.4 8 12 8 7.8 C 8 6.4 8.4 5 9 3.9 C 5.7 5.1 3.4 8.3 3.4 12 C 3.4 16.8 7.2 20.6 12 20.6 C 15.6 20.6 18.6 18 19.8 14.4 Z",
  cloud = "M 7 18.8 C 4.5 18.8 2.9 17.1 2.9 15 C 2.9 12.9 4.4 11.3 6.4 11 C 6.9 7.6 9.4 5.4 12.5 5.4 C 15.6 5.4 17.8 7.6 18.2 10.5 C 20 10.9 21.1 12.6 21.1 14.5 C 21.1 17 19.4 18.8 17 18.8 Z",
  drop = "M 12 3.3 C 9 6.6 5.8 11 5.8 14.7 C 5.8 18.3 8.5 21 12 21 C 15.5 21 18.2 18.3 18.2 14.7 C 18.2 11 15 6.6 12 3.3 Z",
  leaf = "M 5.6 18.4 C 3.4 10.6 8.6 5 20.4 3.8 C 21 14.6 14.6 20.6 5.6 18.4 Z M 3.5 21 C 6 16.2 9.4 12.8 14 10.2",
  fan = "M 12 9.6 C 8.8 8 9 3.2 12.6 3.2 C 16 3.2 15.8 7.4 13.9 10.4 M 14.1 13.2 C 17.1 11.2 21.1 13.8 19.3 16.9 C 17.6 19.9 14.1 17.6 12.4 14.4 M 9.9 13.2 C 10.1 16.8 5.9 19 4.1 15.9 C 2.4 12.9 6.1 11 9.7 11.2 O 12 12 2",
  thermometer = "M 14.5 13.6 L 14.5 5.8 C 14.5 4.3 13.4 3.2 12 3.2 C 10.6 3.2 9.5 4.3 9.5 5.8 L 9.5 13.6 A 12 17 4.2 -54 288 M 12 9 L 12 15 D 12 17 1.9",
  bulb = "M 9 17.5 C 9 15 6 13.6 6 9.6 C 6 6 8.7 3.3 12 3.3 C 15.3 3.3 18 6 18 9.6 C 18 13.6 15 15 15 17.5 Z M 10 20.8 L 14 20.8",
  bolt = "M 13.2 3 L 5.5 13.6 L 11.4 13.6 L 10.6 21 L 18.5 10.2 L 12.5 10.2 Z",
  plug = "M 9 3.5 L 9 8 M 15 3.5 L 15 8 M 6 8 L 18 8 L 18 11 C 18 14.5 15.6 16.8 12 16.8 C 8.4 16.8 6 14.5 6 11 Z M 12 16.8 L 12 21",
  car = "M 3.5 17.5 L 3.5 12.8 L 6.2 6.5 L 17.8 6.5 L 20.5 12.8 L 20.5 17.5 Z M 3.5 12.5 L 20.5 12.5 M 6 17.5 L 6 20 M 18 17.5 L 18 20 D 7.3 15 1.2 D 16.7 15 1.2",
  battery = "M 3 8 L 18 8 L 18 16 L 3 16 Z M 21 11 L 21 13 M 6 11 L 6 13 M 9 11 L 9 13",
  euro = "A 13.5 12 7 45 270 M 4.5 10.3 L 13.5 10.3 M 4.5 13.7 L 13.5 13.7",
  card = "M 3.5 6 L 20.5 6 L 20.5 18.5 L 3.5 18.5 Z M 3.5 10 L 20.5 10 M 7 14.8 L 11 14.8",
  chart = "M 5 20 L 5 13 M 12 20 L 12 5 M 19 20 L 19 9.5",
  cup = "M 4.5 9 L 16.5 9 L 16.5 14.5 C 16.5 18 14.2 20 10.5 20 C 6.8 20 4.5 18 4.5 14.5 Z M 16.5 10.5 C 20.8 10 20.8 15.6 16.2 15.6 M 8.5 3.2 L 8.5 5.8 M 12.5 3.2 L 12.5 5.8",
  espresso = "M 6 11 L 15 11 L 15 14 C 15 16.3 13.3 17.6 10.5 17.6 C 7.7 17.6 6 16.3 6 14 Z M 15 12 C 18 11.8 18 15.4 14.8 15.2 M 4 20.5 L 17 20.5 M 10.5 5 L 10.5 8",
  glass = "M 6.5 4 L 17.5 4 L 15.8 20.5 L 8.2 20.5 Z M 7.1 9.5 L 16.9 9.5 M 7.6 14 L 16.4 14",
  bean = "M 17.8 5.2 C 21.4 8.6 20.4 14.2 16.8 17.6 C 13.2 20.8 8.2 21.2 5.4 18.6 C 2.6 15.8 3.4 10.4 7 7 C 10.4 3.8 15 2.8 17.8 5.2 Z M 17.8 5.2 C 17.4 9.6 14.4 10.4 12 12 C 9.2 13.8 6.2 14.6 5.4 18.6",
  picture = "M 3.5 5 L 20.5 5 L 20.5 19 L 3.5 19 Z M 3.5 16.5 L 8.5 11.5 L 12.5 15.5 L 15.5 12.5 L 20.5 17 O 15.5 8.8 1.4",
  film = "M 3.5 5 L 20.5 5 L 20.5 19 L 3.5 19 Z M 10 9 L 15 12 L 10 15 Z M 6.5 5 L 6.5 19 M 17.5 5 L 17.5 19",
}

local CURVE_STEPS = 6

local function add_curve(points, x1, y1, x2, y2, x3, y3)
  local n = #points
  local x0, y0 = points[n - 1], points[n]
  for i = 1, CURVE_STEPS do
    local t = i / CURVE_STEPS
    local u = 1 - t
    local a, b, c, d = u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t
    points[n + 2 * i - 1] = a * x0 + b * x1 + c * x2 + d * x3
    points[n + 2 * i] = a * y0 + b * y1 + c * y2 + d * y3
  end
end

-- A drawing as a list of parts: { points = {…}, closed = … } or { "A" or "D", numbers… }.
local function parse_drawing(drawing)
  local parts, current = {}, nil
  for command, operands in drawing:gmatch("(%u)([^%u]*)") do
    local v = {}
    for figure in operands:gmatch("%S+") do
      v[#v + 1] = tonumber(figure)
    end
    if command == "M" then
      current = { points = { v[1], v[2] }, closed = false }
      parts[#parts + 1] = current
    elseif command == "L" then
      table.move(v, 1, 2, #current.points + 1, current.points)
    elseif command == "C" then
      add_curve(current.points, table.unpack(v))
    elseif command == "Z" then
      current.closed = true
    elseif command == "O" then
      parts[#parts + 1] = { "A", v[1], v[2], v[3], 0, 360 }
    else
      parts[#parts + 1] = { command, table.unpack(v) }
    end
  end
  return parts
end

local symbols = {}
for name, drawing in pairs(DRAWINGS) do
  symbols[name] = parse_drawing(drawing)
end

-- Draws a symbol about a centre, `size` wide and high. `weight` is the stroke's width and follows
-- the size when it is missing or 0. An unknown name, such as "none", draws nothing.
function symbol(name, x, y, size, c, weight)
  local parts = symbols[name]
  if not parts or size < 6 then
    return
  end
  local s = size / 24
  local left, top = x - size / 2, y - size / 2
  color(c)
  line_width(weight and weight > 0 and weight or clamp(1.75 * s, 1.25, 8))
  for i = 1, #parts do
    local part = parts[i]
    local points = part.points
    if points then
      local scaled = {}
      for k = 1, #points, 2 do
        scaled[k], scaled[k + 1] = left + points[k] * s, top + points[k + 1] * s
      end
      polyline(scaled, part.closed)
    elseif part[1] == "D" then
      disc(left + part[2] * s, top + part[3] * s, part[4] * s)
    else
      arc(left + part[2] * s, top + part[3] * s, part[4] * s, part[5], part[6], abs(part[6]) >= 360 and "butt" or "round")
    end
  end
end
local symbol = symbol

-- A symbol and a text side by side in the middle of a box; either may be missing.
function symbol_and_text(name, s, x, y, w, h, font, c)
  local known = symbols[name] and name or nil
  if not known then
    return label(s, x + 6, y, w - 12, h, font, c, "center")
  end
  if s == "" then
    return symbol(known, x + w / 2, y + h / 2, min(w, h, max(min(w, h) * 0.55, 16)), c)
  end
  local size = clamp(round(CAP[rom_font(font)] * 1.7), 6, max(h - 6, 6))
  local room = w - 12 - size - 6
  font = font_within(font, h)
  local fitted = font and room >= 4 and text_fit(font, s, room) or ""
  local text_w = fitted ~= "" and text_width(font, fitted) + 6 or 0
  local left = round(x + (w - size - text_w) / 2)
  symbol(known, left + size / 2, y + h / 2, min(size, w), c)
  if text_w > 0 then
    label(fitted, left + size + 6, y, text_w - 6 + 1, h, font, c)
  end
end

-- The face of a button in one of its styles; gives the colour of what stands on it.
function button_face(style, x, y, w, h, r, fill, text_c, pressed, enabled)
  local face = face_tone(fill, pressed, enabled)
  if style == "filled" then
    panel(x, y, w, h, r, face)
    return enabled == 0 and palette.muted or text_c
  end
  local c = enabled == 0 and mix(fill, DISABLED, 0.5) or fill
  if style == "tonal" or pressed ~= 0 then
    color(c, pressed ~= 0 and 90 or 46)
    fill_rect(x, y, w, h, clamp(r, 0, min(w, h) / 2))
  end
  if style == "outline" then
    local line_w = stroke(min(1.5, h / 4, w / 4))
    color(c)
    line_width(line_w)
    stroke_rect(x + line_w / 2, y + line_w / 2, w - line_w, h - line_w, clamp(r - line_w / 2, 0, min(w, h) / 2))
  end
  return c
end

-- Lists, tables and keys ------------------------------------------------------------------------

-- Splits a length into n parts with gaps, on whole pixels: gives start and size of part i (from 1).
function share(length, n, i, gap)
  local step = (length + gap) / n
  local start = round(step * (i - 1))
  return start, max(round(step * i) - gap - start, 0)
end

-- Rows and columns of keys: "1,2,3;4,5,6". The key whose text is `down` is drawn pressed.
function keys(layout, x, y, w, h, gap, r, font, fill, c, down, accent)
  local rows = split_list(layout, ";")
  for i = 1, min(#rows, 16) do
    local top, height = share(h, min(#rows, 16), i, gap)
    local row = split_list(rows[i], ",")
    local count = min(#row, 32)
    for k = 1, count do
      local left, width = share(w, count, k, gap)
      local hit = row[k] == down and down ~= ""
      panel(x + left, y + top, width, height, r, hit and accent or fill)
      local fitting = font_across(rom_font(font), row[k], width - 2)
      label(row[k], x + left + 1, y + top, width - 2, height, fitting, hit and palette.background or c, "center")
    end
  end
end

-- A row of a list: "title,detail".
function list_row(entry, x, y, w, h, pad, font, detail_font, c, detail_c, selected_c, r)
  if selected_c then
    panel(x + 2, y + 2, w - 4, h - 4, max(min(r, h / 2) - 2, 0), selected_c)
  end
  local title, detail = split_once(entry, ",")
  detail = trimmed(detail)
  local room = w - 2 * pad
  local detail_w = 0
  if detail ~= "" then
    detail_w = min(text_width(rom_font(detail_font), detail) + 1, room * 0.6)
    label(detail, x + w - pad - detail_w, y, detail_w, h, detail_font, detail_c, "right")
  end
  label(title, x + pad, y, room - (detail_w > 0 and detail_w + 8 or 0), h, font, c)
end

-- Where columns start and how wide they are, from their weights; missing weights count 1.
function column_edges(weights, count, w)
  local edges, total = {}, 0
  count = min(count, 32)
  for i = 1, count do
    weights[i] = clamp(weights[i] or 1, 0, 1000)
    total = total + weights[i]
  end
  local sum = 0
  for i = 1, count do
    local start = total > 0 and round(w * sum / total) or 0
    sum = sum + weights[i]
    edges[i] = { start, (total > 0 and round(w * sum / total) or 0) - start }
  end
  return edges
end

-- The cells of a row; the first column stands left, the others right.
function table_row(row, x, y, h, edges, font, c)
  local cells = split_list(row, ",")
  for i = 1, min(#cells, #edges) do
    local start, width = edges[i][1], edges[i][2]
    label(cells[i], x + start, y, i == 1 and width - 6 or width, h, font, c, i == 1 and "left" or "right")
  end
end

-- Charts ----------------------------------------------------------------------------------------

-- The limits that a chart uses: its own, or those of the values (and of `base`) when its own are
-- equal.
function chart_limits(values, low, high, base)
  low, high = number(low), number(high)
  if low ~= high then
    return low, high
  end
  low, high = base or huge, base or -huge
  for i = 1, #values do
    low, high = min(low, values[i]), max(high, values[i])
  end
  if low > high then
    return 0, 1
  end
  return low, high == low and low + 1 or high
end

-- Horizontal lines over a plot, one pixel wide on pixel centres.
function grid_lines(x, y, w, h, count, c)
  if count < 1 or w < 2 or h < 2 then
    return
  end
  color(c)
  for i = 0, min(count, 20) do
    fill_rect(x, round(y + (h - 1) * i / min(count, 20)), w, 1)
  end
end

-- Texts below a plot, each in the middle of its column.
function axis_labels(labels, x, y, w, h, font, c)
  local n = #labels
  for i = 1, n do
    label(labels[i], x + (i - 1) * w / n, y, w / n, h, font, c, "center")
  end
end

-- A line through values, with the area below it filled and its last point marked.
function line_plot(values, x, y, w, h, low, high, width, c, area, dot)
  local n = #values
  if n == 0 or w < 4 or h < 4 then
    return
  end
  local inset = max(width / 2, dot and 4 or 0)
  inset = min(inset, w / 2, h / 2)
  local left, top, wide, tall = x + inset, y + inset, w - 2 * inset, h - 2 * inset
  local points = {}
  for i = 1, n do
    points[2 * i - 1] = left + (n == 1 and wide or wide * (i - 1) / (n - 1))
    points[2 * i] = top + tall * (1 - fraction(values[i], low, high))
  end
  local last_x, last_y = points[2 * n - 1], points[2 * n]
  if area > 0 and n > 1 then
    local outline = table.move(points, 1, 2 * n, 1, {})
    table.move({ last_x, y + h, left, y + h }, 1, 4, 2 * n + 1, outline)
    color(c, area)
    polygon(outline)
  end
  color(c)
  line_width(width)
  if n > 1 then
    polyline(points)
  end
  if dot and inset >= 3 then
    disc(last_x, last_y, inset)
  end
end

-- One bar a value, from the bottom; the bar number `marked` (from 1) has a colour of its own.
function bar_plot(values, x, y, w, h, low, high, gap, r, c, marked, marked_c)
  local n = #values
  if n == 0 or h < 2 or w < n then
    return
  end
  gap = min(gap, w / n * 0.6)
  for i = 1, n do
    local left, width = share(w, n, i, gap)
    local height = max(round(h * fraction(values[i], low, high)), 2)
    color(i == marked and marked_c or c)
    fill_rect(x + left, y + h - height, width, height, min(r, width / 2, height / 2))
  end
end

-- Seven segments --------------------------------------------------------------------------------

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

-- Images ----------------------------------------------------------------------------------------

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

-- A picture or the first frame of a film, decoded by the chip; nil as above.
function media_image(folder, basename, suffix, mono)
  if basename == "" then
    report("no picture or film is set")
  else
    return load_image(asset_path(folder, basename, nil, suffix), mono)
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
