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

-- Turns what follows about the middle of a box when the angle asks for it.
function turn(angle, x, y, w, h)
  angle = number(angle) % 360
  if angle ~= 0 then
    rotate(angle, x + w / 2, y + h / 2)
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
