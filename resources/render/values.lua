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

local MAX_ITEMS = 512 -- entries of a list or points of a chart that are looked at

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

local DISABLED = "#2c3946" -- what a disabled part fades to
local SHADE = "#05080b" -- what a pressed part darkens to

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
