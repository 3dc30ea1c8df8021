-- Values as JSON: a surrogate that UTF-8 has no place for is \ud800 there and three bytes here, 5.0 is
-- not 5, and dates are texts.
local json = require "cjson"
local notation = {}

function notation.decode(line)
  line = line:gsub("\\(.)", {['"'] = "\\u0022", ["\\"] = "\\u005c"})
  line = line:gsub("\\u([dD][89abAB]%x%x)\\u([dD][c-fC-F]%x%x)", "\\U%1%2")  -- pairs are none of ours
  line = line:gsub("\\u[dD]([89a-fA-F]%x%x)", function(lone)
    local unit = tonumber(lone, 16)
    return string.char(237, 128 + bit.rshift(unit, 6), 128 + unit % 64)
  end):gsub("\\U(%x%x%x%x)", "\\u%1\\u")
  -- The decoder does not tell 5.0 from 5.
  return json.decode((line:gsub('([^"]*)("?[^"]*"?)', function(outside, text)
    return outside:gsub("%-?%d+[.eE][-+.eE%d]*", '{"double":%0}') .. text
  end)))
end

function notation.quoted(text)
  return (json.encode(text):gsub("\237([\160-\191])([\128-\191])", function(high, low)
    return ("\\u%04x"):format(0xD000 + (high:byte() - 128) * 64 + low:byte() - 128)
  end))
end

function notation.tagged(tag, content) return ('{"%s":%s}'):format(tag, content) end
function notation.list(texts) return "[" .. table.concat(texts, ",") .. "]" end

-- Days since 30 December 1899. TZ is UTC.
function notation.days_of(text)
  local year, month, day, hour, minute, second = text:match("(%d+)-(%d+)-(%d+)T?(%d*):?(%d*):?([%d.]*)")
  local whole = os.time {year = year, month = month, day = day, hour = 0} / 86400 + 25569
  if hour == "" then return whole end
  local clock = math.floor((hour * 3600 + minute * 60 + second) * 1000 + 0.5) / 86400000
  return whole < 0 and whole - clock or whole + clock
end

-- 5.0 is not 5.
function notation.double(number)
  local text = ("%.17g"):format(number)
  return number - number ~= 0 and "null" or text:find("[.e]") and text or text .. ".0"
end

function notation.iso_date(days)
  local whole = days < 0 and math.ceil(days) or math.floor(days)
  local clock = math.floor(math.abs(days - whole) * 86400000 + 0.5)
  local time = math.abs(days) < 1e7 and os.date("!*t", (whole - 25569) * 86400 + math.floor(clock / 1000))
  if not time or time.year < 100 or time.year > 9999 then return notation.double(days) end
  return ('"%04d-%02d-%02dT%02d:%02d:%02d%s"'):format(time.year, time.month, time.day, time.hour, time.min, time.sec,
    clock % 1000 > 0 and (".%03d"):format(clock % 1000) or "")
end

return notation
