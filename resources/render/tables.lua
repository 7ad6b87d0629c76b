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
