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
