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
