-- What the scripts beside this one share: files that hold JSON, and how a program ends badly.
local jsonfile = {}

--- Ends the program with one line on standard error.
function jsonfile.fail(exitCode, ...)
    io.stderr:write(arg[0], ": ", ...)
    io.stderr:write("\n")
    os.exit(exitCode)
end

--- Ends the program because of its command line.
function jsonfile.usage(text)
    jsonfile.fail(2, "usage: ", arg[0], " ", text)
end

--- The object or array in a file, and which of the two: "ObjectType" or "ArrayType".
function jsonfile.read(path)
    local file, why = io.open(path, "rb")
    local text = file and file:read("a")
    if not text then
        jsonfile.fail(1, why or path .. ": cannot be read")
    end
    file:close()
    -- An array tells what it was given; a text that is no JSON leaves a null.
    local box = dova.web.JSONArray()
    box:appendFromJSON(text)
    local kind = box:valueType(0)
    if kind == "NullType" then
        print() -- after what the parser said
        jsonfile.fail(1, path, ": holds no JSON object or array")
    end
    return box:value(0), kind
end

--- The object in a file.
function jsonfile.readObject(path)
    local object, kind = jsonfile.read(path)
    if kind ~= "ObjectType" then
        jsonfile.fail(1, path, ": holds no JSON object")
    end
    return object
end

return jsonfile
