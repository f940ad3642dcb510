-- Prints a JSON file, indented or in one line.
package.path = arg[0]:gsub("[^/]*$", "") .. "?.lua;" .. package.path
local jsonfile = require "jsonfile"

local format = "Indented"
if arg[1] == "--compact" then
    format = "Compact"
    table.remove(arg, 1)
end
if #arg ~= 1 then
    jsonfile.usage("[--compact] FILE")
end
local document = jsonfile.read(arg[1])
print((document:toJSON(format):gsub("\n$", "")))
