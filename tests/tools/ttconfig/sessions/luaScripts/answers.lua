-- A script of answers of every kind.
function text() return "an answer" end
function echo(word) return "<" .. tostring(word) .. ">" end
function number() return 5 end
function half() return 0.5 end
function withNul() return "a\0b" end
function nothing() end
function yes() return true end
function list() return {} end
function fails() error("100% broken", 0) end
function logs() printLog("from the script, 50%") return "logged" end
