-- The market times of the golden sessions.
local times = {
    SSE = '{"93000": 50, "113000": 49, "130000": 50, "150000": 49}',
    SHFE = '{"210000": 50, "23000": 49, "90000": 50, "101500": 49}',
    IDLE = '{"93000": 12}',
}
function getMarkets() return '{"SSE": 1, "SHFE": 1, "IDLE": 1}' end
function getMarketTradeDuration(market) return times[market] end
