-- Looks into a package lock file: lists its packages with their versions, or tells of one package
-- which versions there are and who needs it.
package.path = arg[0]:gsub("[^/]*$", "") .. "?.lua;" .. package.path
local jsonfile = require "jsonfile"

if #arg < 1 or #arg > 2 then
    jsonfile.usage("LOCKFILE [PACKAGE]")
end
local lock = jsonfile.readObject(arg[1])
if lock:valueType("packages") ~= "ObjectType" then
    jsonfile.fail(1, arg[1], ": is no package lock file")
end
local packages = lock:value("packages")

--- "@lit/context" for "node_modules/x/node_modules/@lit/context"; nil for the project itself.
local function nameOf(place)
    return place:match(".*node_modules/(.+)$")
end

local function needs(package, name)
    for _, group in ipairs { "dependencies", "devDependencies", "optionalDependencies" } do
        if package:valueType(group) == "ObjectType"
            and package:value(group):valueType(name) ~= "UndefinedType" then
            return true
        end
    end
    return false
end

local wanted, found = arg[2], false
for _, place in ipairs(packages:keys()) do
    local name = nameOf(place)
    if name and (not wanted or name == wanted) then
        found = true
        print(name .. " " .. packages:value(place):value("version"))
    end
end
if wanted and not found then
    jsonfile.fail(1, arg[1], ": has no package ", wanted)
end
for _, place in ipairs(wanted and packages:keys() or {}) do
    if needs(packages:value(place), wanted) then
        print("needed by " .. (nameOf(place) or "the project itself"))
    end
end
