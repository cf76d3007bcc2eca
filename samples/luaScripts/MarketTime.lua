-- When the markets trade, in Beijing time. Asked once, when the client starts:
--   getMarkets()                   the markets, as the member names of a JSON object; the values mean nothing
--   getMarketTradeDuration(market) a JSON object of clock times (HHMMSS) and what happens then
--
-- A session lasts from a time with code 50 to the next one with code 49 or 54 in clock order, or to midnight. Times with
-- other codes are for readers of the debug log. What a night session does after midnight is no session of its own here.

local AUCTION = 12 -- orders are collected; not a session
local OPEN = 50
local BREAK = 49 -- closed for a while
local CLOSE = 54 -- closed for the day

local order = {} -- markets as they are listed
local points = {} -- market -> list of {clock time, code}

local function market(name, ...)
    order[#order + 1] = name
    points[name] = { ... }
end

-- Mainland shares: a morning, a lunch break, an afternoon.
local function shares(name)
    market(name, { "91500", AUCTION }, { "93000", OPEN }, { "113000", BREAK }, { "130000", OPEN }, { "150000", CLOSE })
end

shares("SH")
shares("SZ")
shares("BJ")
market("NEEQ", { "93000", OPEN }, { "113000", BREAK }, { "130000", OPEN }, { "150000", CLOSE })

-- Options close after a last auction.
for _, name in ipairs({ "SHO", "SZO" }) do
    market(name, { "91500", AUCTION }, { "93000", OPEN }, { "113000", BREAK }, { "130000", OPEN },
        { "145700", AUCTION }, { "150000", CLOSE })
end

-- Hong Kong, and the same shares through the connect.
market("HK", { "90000", AUCTION }, { "93000", OPEN }, { "120000", BREAK }, { "130000", OPEN }, { "160000", CLOSE })
for _, name in ipairs({ "HGT", "SGT" }) do
    market(name, { "90000", AUCTION }, { "93000", OPEN }, { "120000", BREAK }, { "130000", OPEN }, { "160000", CLOSE })
end

-- Futures. The evening belongs to the next trading day; it ends at its own close, or here at midnight.
market("CFFEX", { "92500", AUCTION }, { "93000", OPEN }, { "113000", BREAK }, { "130000", OPEN }, { "150000", CLOSE })
market("GFEX", { "90000", OPEN }, { "101500", BREAK }, { "103000", OPEN }, { "113000", BREAK },
    { "133000", OPEN }, { "150000", CLOSE })
market("CZCE", { "205500", AUCTION }, { "210000", OPEN }, { "230000", BREAK }, { "90000", OPEN }, { "101500", BREAK },
    { "103000", OPEN }, { "113000", BREAK }, { "133000", OPEN }, { "150000", CLOSE })
market("SHFE", { "205500", AUCTION }, { "210000", OPEN }, { "23000", BREAK }, { "90000", OPEN }, { "101500", BREAK },
    { "103000", OPEN }, { "113000", BREAK }, { "133000", OPEN }, { "150000", CLOSE })
market("SHGE", { "200000", OPEN }, { "23000", BREAK }, { "90000", OPEN }, { "153000", CLOSE })

-- Overseas: an hour's pause in the morning, and the whole day otherwise; New York in winter.
market("GLOBEX", { "0", OPEN }, { "60000", BREAK }, { "70000", OPEN })
market("ICE", { "000000", OPEN })
market("NASDAQ", { "173000", AUCTION }, { "223000", OPEN }, { "50000", CLOSE })

-- Quoted all day, traded never: it has no sessions.
market("OVERSEAS", { "90000", AUCTION })

function getMarkets()
    local members = {}
    for position, name in ipairs(order) do
        members[position] = string.format('"%s": %d', name, position)
    end
    return "{" .. table.concat(members, ", ") .. "}"
end

function getMarketTradeDuration(name)
    local members = {}
    for position, point in ipairs(points[name] or {}) do
        members[position] = string.format('"%s": %d', point[1], point[2])
    end
    if #members == 0 then
        printLog("no trading times for market " .. name)
    end
    return "{" .. table.concat(members, ", ") .. "}"
end
