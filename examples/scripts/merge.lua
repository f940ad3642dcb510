-- Merges JSON files that hold objects: members of later files win, objects in objects are merged,
-- too. Prints the result.
package.path = arg[0]:gsub("[^/]*$", "") .. "?.lua;" .. package.path
local jsonfile = require "jsonfile"

local function merge(into, from)
    for _, key in ipairs(from:keys()) do
        local value = from:value(key)
        if from:valueType(key) == "ObjectType" and into:valueType(key) == "ObjectType" then
            local inner = into:value(key) -- a copy
            merge(inner, value)
            value = inner
        end
        into:insert(key, value)
    end
end

if #arg < 2 then
    jsonfile.usage("FILE FILE...")
end
local result = jsonfile.readObject(arg[1])
for index = 2, #arg do
    merge(result, jsonfile.readObject(arg[index]))
end
print((result:toJSON():gsub("\n$", "")))
