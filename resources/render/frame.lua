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

function render(screen, items)
  if not pcall(clear, screen.color) then
    clear("#000000")
  end
  for i = 1, #items do
    draw_item(items[i])
  end
end
