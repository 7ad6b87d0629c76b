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
