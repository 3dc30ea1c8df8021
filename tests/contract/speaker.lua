-- speaker.lua LIBRARY
-- Answers create, invoke and release as `quorkit rpc` does, through the C interface by LuaJIT's ffi,
-- which reads the header itself.
local here = arg[0]:gsub("[^/]*$", "")
package.path = here .. "?.lua;" .. package.path
local ffi, json, mime, notation = require "ffi", require "cjson", require "mime", require "notation"
local decode, tagged, list = notation.decode, notation.tagged, notation.list
jit.off()  -- compiled code cannot be called back

local header = assert(io.open(here .. "../../hosts/c/quorkit.h")):read("*a")
ffi.cdef((header:gsub("#ifdef __cplusplus.-#endif", ""):gsub("\n#[^\n]*", "\n"):gsub("QUORKIT_API", "")))
local MISSING = tonumber(header:match("QUORKIT_MISSING (0x%x+)"))
local q = ffi.load(arg[1])
local library = ffi.new "quorkit_library[1]"
assert(q.quorkit_open(library) == q.QUORKIT_OK)

local function refuse(number, argument, text)
  error {number = number, argument = argument or 0, text = text or ""}
end

local function ask(name, ...)
  local outcome = q["quorkit_" .. name](library[0], ...)
  if outcome == q.QUORKIT_OK then return end
  refuse(outcome, tonumber(q.quorkit_error_argument(library[0])), ffi.string(q.quorkit_error_text(library[0])))
end

-- Hands a function its last argument, and gives it back.
local function fill(last, name, ...)
  local arguments, count = {...}, select("#", ...) + 1
  arguments[count] = last
  ask(name, unpack(arguments, 1, count))
  return last
end

-- What a function gives through its last pointer.
local function got(name, kind, ...) return fill(ffi.new(kind .. "[1]"), name, ...)[0] end

-- The bytes that a function gives as a pointer and a length.
local function block(name, kind, values, index)
  local start, length = ffi.new(kind .. "[1]"), ffi.new "size_t[1]"
  ask(name, values, index, start, length)
  return ffi.string(start[0], length[0])
end

local function base64(values, index)
  return '"' .. mime.b64(block("get_bytes", "const unsigned char*", values, index)) .. '"'
end

local function own(handle, release)
  return ffi.gc(handle, function(gone) q[release](library[0], gone) end)
end

local function object(name, ...) return own(got(name, "quorkit_object", ...), "quorkit_release_object") end

local write
local function new_values(content)
  local values = own(got("new_values", "quorkit_values"), "quorkit_release_values")
  for index, value in ipairs(content or {}) do write(values, index, value) end
  return values
end

local function call(handle, name, arguments)
  local values = new_values(arguments)
  ask("call_name", handle, name, q.QUORKIT_CALL, values)
  return values
end

-- From JSON, decoded.

local objects, foreign, last = {}, {}, 0  -- by number

local function known(number) return objects[number] or refuse(424) end

local function array(items, ...)
  local kind = #items > 0 and q.QUORKIT_TEXT_ARRAY or q.QUORKIT_VALUE_ARRAY
  for _, item in ipairs(items) do
    if type(item) ~= "string" then kind = q.QUORKIT_VALUE_ARRAY end
  end
  return "array", new_values(items), kind, #items > 0 and select("#", ...) or 0, ffi.new("quorkit_bounds[2]", {...})
end

local function filled(handle, additions)
  for _, addition in ipairs(additions) do call(handle, "Add", addition) end
  return "object", handle
end

-- Which function sets a value, and with what; by tag.
local setters = {
  missing = function() return "error", MISSING end,
  null = function() return "null" end,
  nothing = function() return "object", nil end,
  object = function(number) return "object", known(number) end,
  date = function(date)
    return "date", type(date) == "string" and notation.days_of(date) or type(date) == "table" and date.double or date
  end,
  array = function(items, lower) return array(items, {lower or 0, #items}) end,
  table = function(rows, lower)
    local items = {}
    for _, row in ipairs(rows) do
      for _, item in ipairs(row) do table.insert(items, item) end
    end
    lower = lower or {0, 0}
    return array(items, {lower[1], #(rows[1] or {})}, {lower[2], #rows})
  end,
  bytes = function(text, lower)
    if text == "" then return "bytes", nil, 0, 0 end
    local bytes = mime.unb64(text)
    return "bytes", bytes, #bytes, lower or 0
  end,
  collection = function(entries)
    local additions = {}
    for position, entry in ipairs(entries) do additions[position] = {entry.item, entry.key} end
    return filled(object "new_collection", additions)
  end,
  dictionary = function(entries) return filled(object "new_dictionary", entries) end,
  picture = function(text)
    local bytes = mime.unb64(text)
    return "object", object("new_picture", bytes, #bytes)
  end,
}

local function setter(value)
  local kind = type(value)
  if value == json.null then return "empty" end
  if kind == "boolean" then return "boolean", value and 1 or 0 end
  if kind == "number" then return math.abs(value + 0.5) < 2 ^ 31 and "long" or "double", value end
  if kind == "string" then return "utf8", value, #value end
  if #value > 0 or next(value) == nil then return setters.array(value) end
  for tag, content in pairs(value) do
    if setters[tag] then return setters[tag](content, value.lower) end
  end
  return next(value)  -- integer, double, error
end

function write(values, index, value)
  local function set(kind, ...) ask("set_" .. kind, values, index, ...) end
  set(setter(value))
end

-- To JSON, as text.

local read

local function read_all(values)
  local texts = {}
  for index = 1, tonumber(got("count", "size_t", values)) do texts[index] = read(values, index) end
  return texts
end

local function elements(name, ...) return read_all(fill(new_values(), name, ...)) end

local function number_of(handle)
  local identity = got("identity", "size_t", handle)
  for number, other in pairs(objects) do
    if got("identity", "size_t", other) == identity then return number end
  end
  last = last + 1
  objects[last] = handle
  return last
end

local function read_array(values, index)
  local dimensions, bounds = ffi.new "int[1]", ffi.new "quorkit_bounds[2]"
  ask("get_bounds", values, index, dimensions, bounds)
  local width, height = bounds[0].count, dimensions[0] == 2 and bounds[1].count or 1
  if dimensions[0] == 0 or width * height == 0 then return '{"array":[],"lower":0}' end
  local lower = bounds[0].lower
  if got("kind_of", "int", values, index) == q.QUORKIT_BYTE_ARRAY then
    return ('{"bytes":%s,"lower":%d}'):format(base64(values, index), lower)
  end
  local items = elements("get_elements", values, index)
  if dimensions[0] == 1 then return ('{"array":%s,"lower":%d}'):format(list(items), lower) end
  local rows = {}
  for row = 1, height do rows[row] = "[" .. table.concat(items, ",", (row - 1) * width + 1, row * width) .. "]" end
  return ('{"table":%s,"lower":[%d,%d]}'):format(list(rows), lower, bounds[1].lower)
end

local function read_collection(handle)
  local items, key = elements("elements", handle), new_values()
  for position, item in ipairs(items) do
    ask("set_key", key, 0, handle, position)
    local text = read(key, 0)
    items[position] = text == '""' and tagged("item", item) or ('{"key":%s,"item":%s}'):format(text, item)
  end
  return list(items)
end

local function read_dictionary(handle)
  local keys, items = elements("elements", handle), elements("get_elements", call(handle, "Items"), 0)
  for position, key in ipairs(keys) do keys[position] = list {key, items[position]} end
  return list(keys)
end

local function read_object(values, index)
  local handle = got("get_object", "quorkit_object", values, index)
  if handle == nil then return tagged("nothing", "true") end
  handle = own(handle, "quorkit_release_object")
  local class = ffi.string(got("class_name", "const char*", handle))
  if class == "Collection" then return tagged("collection", read_collection(handle)) end
  if class == "Dictionary" then return tagged("dictionary", read_dictionary(handle)) end
  if class == "Picture" then return tagged("picture", base64(call(handle, "File"), 0)) end
  return tagged("object", number_of(handle))
end

local readers = {
  [q.QUORKIT_EMPTY] = function() return "null" end,
  [q.QUORKIT_NULL] = function() return tagged("null", "true") end,
  [q.QUORKIT_ERROR_VALUE] = function(...)
    local code = got("get_error", "unsigned int", ...)
    return code == MISSING and tagged("missing", "true") or tagged("error", code)
  end,
  [q.QUORKIT_BOOLEAN] = function(...) return tostring(got("get_boolean", "int", ...) == 1) end,
  [q.QUORKIT_INTEGER] = function(...) return tagged("integer", got("get_integer", "short", ...)) end,
  [q.QUORKIT_LONG] = function(...) return tostring(got("get_long", "int", ...)) end,
  [q.QUORKIT_DOUBLE] = function(...) return notation.double(got("get_double", "double", ...)) end,
  [q.QUORKIT_DATE] = function(...) return tagged("date", notation.iso_date(got("get_date", "double", ...))) end,
  [q.QUORKIT_TEXT] = function(...) return notation.quoted(block("get_utf8", "const char*", ...)) end,
  [q.QUORKIT_TEXT_ARRAY] = read_array,
  [q.QUORKIT_BYTE_ARRAY] = read_array,
  [q.QUORKIT_VALUE_ARRAY] = read_array,
  [q.QUORKIT_OBJECT] = read_object,
}
function read(values, index) return readers[got("kind_of", "int", values, index)](values, index) end

-- Objects of our own, which have properties.

local function number_in(data) return tonumber(ffi.cast("intptr_t", data)) end

local function called(data, name, kind, values)
  local properties, let = foreign[number_in(data)], kind == q.QUORKIT_LET
  name = ffi.string(name):lower()
  if properties[name] == nil then refuse(438) end
  if got("count", "size_t", values) ~= (let and 1 or 0) then refuse(450) end
  if let then properties[name] = decode(read(values, 1)) else write(values, 0, properties[name]) end
end

local ours = ffi.new("quorkit_class", {
  name = "Object",
  call = function(data, _, ...)
    local good, failure = pcall(called, data, ...)
    return good and q.QUORKIT_OK or failure.number
  end,
  release = function(data) foreign[number_in(data)] = nil end,
})

local function new_foreign(properties)
  last = last + 1
  foreign[last] = {}
  for name, value in pairs(properties) do foreign[last][name:lower()] = value end
  return object("new_foreign", ours, ffi.cast("void*", last))
end

local function answer(method, params)
  if method == "release" then
    objects[params.object] = nil
    return "null"
  end
  local handle = params.object and known(params.object) or params.class and object("new", params.class)
    or new_foreign(params.properties)
  if method == "create" then return tagged("object", number_of(handle)) end
  local values, index = new_values(params.args), #(params.args or {})
  for name, value in pairs(params.named or {}) do
    index = index + 1
    write(values, index, value)
    ask("set_name", values, index, name)
  end
  ask("call_name", handle, params.member, q["QUORKIT_" .. (params.kind or "call"):upper()], values)
  return ('{"result":%s,"args":%s}'):format(read(values, 0), list(read_all(values)))
end

for line in io.lines() do
  local request = decode(line)
  local good, outcome = pcall(answer, request.method, request.params)
  if good then
    outcome = tagged("result", outcome)
  elseif type(outcome) == "table" then
    local code = outcome.number > 0 and -32000 or -32602
    outcome = tagged("error", json.encode {code = code, message = outcome.text, data = outcome})
  else
    io.stderr:write(outcome, "\n")
    os.exit(1)  -- without the release of objects, which would call back into what is gone
  end
  print(('{"jsonrpc":"2.0","id":%d,%s'):format(request.id, outcome:sub(2)))
  io.flush()
end
objects = {}
collectgarbage()
os.exit(q.quorkit_close(library[0]))
