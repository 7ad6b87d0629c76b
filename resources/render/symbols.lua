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
