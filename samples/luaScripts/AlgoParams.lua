-- The algorithms on offer and their parameters, a function for each vendor. The client asks for the vendors that the
-- user holds rights to, and for the platform's own algorithms and help always. Every answer is a JSON object:
--   {"content": {"name": "...", ...}}
-- The client finds a description by the name in "content"; what else stands in there is for the order screen.

local function quoted(text)
    return '"' .. text:gsub('[\\"]', "\\%0"):gsub("\n", "\\n") .. '"'
end

local function list(items)
    return "[" .. table.concat(items, ", ") .. "]"
end

-- One parameter. Numbers are given as texts, so that they are written here exactly as they will be read.
local function parameter(key, kind, label, options)
    local members = { '"key": ' .. quoted(key), '"type": ' .. quoted(kind), '"label": ' .. quoted(label) }
    for _, name in ipairs({ "default", "min", "max", "step" }) do
        if options and options[name] then
            members[#members + 1] = quoted(name) .. ": " .. options[name]
        end
    end
    if options and options.choices then
        local choices = {}
        for position, choice in ipairs(options.choices) do
            choices[position] = quoted(choice)
        end
        members[#members + 1] = '"choices": ' .. list(choices)
    end
    return "{" .. table.concat(members, ", ") .. "}"
end

local function algorithm(kind, label, ...)
    return '{"type": ' .. quoted(kind) .. ', "label": ' .. quoted(label) .. ', "parameters": ' .. list({ ... }) .. "}"
end

local function answer(name, version, ...)
    return '{"content": {"name": ' .. quoted(name) .. ', "version": ' .. version .. ', "algorithms": ' ..
        list({ ... }) .. "}}"
end

-- Parameters that many algorithms share.
local startTime = parameter("startTime", "time", "开始时间", { default = '"09:30:00"' })
local endTime = parameter("endTime", "time", "结束时间", { default = '"14:57:00"' })
local limitPrice = parameter("limitPrice", "price", "限价", { default = "0", min = "0" })
local urgency = parameter("urgency", "choice", "紧急程度", { default = '"normal"', choices = { "low", "normal", "high" } })

local function share(default)
    return parameter("volumeShare", "percent", "成交占比", { default = default, min = "0.5", max = "50", step = "0.5" })
end

function getCiticAlgoParamConfig()
    return answer("citic-basic", 3,
        algorithm("TWAP", "时间均分", startTime, endTime, limitPrice),
        algorithm("POV", "跟量", startTime, endTime, share("12.5"), limitPrice))
end

function getZxjtAlgoParamConfig()
    return answer("zxjt-smart", 1,
        algorithm("VWAP", "量价均分", startTime, endTime, urgency),
        algorithm("ICEBERG", "冰山", limitPrice,
            parameter("shownQuantity", "quantity", "显示数量", { default = "500", min = "100", step = "100" })))
end

function getGenusAlgoParamConfig()
    return answer("genus-plus", 7,
        algorithm("VWAP", "量价均分", startTime, endTime, share("20"), urgency),
        algorithm("CLOSE", "收盘跟踪", endTime,
            parameter("auctionShare", "percent", "竞价占比", { default = "7.5", min = "0", max = "30" })))
end

function getZsgsAlgoParamConfig()
    return answer("zsgs-twap", 2,
        algorithm("TWAP", "时间均分", startTime, endTime,
            parameter("slices", "count", "分片数", { default = "24", min = "2", max = "240" })))
end

function getJazzAlgoParamConfig()
    return answer("jazz-grid", 4,
        algorithm("T0GRID", "日内网格",
            parameter("gridStep", "percent", "网格间距", { default = "0.35", min = "0.05", max = "5", step = "0.05" }),
            parameter("layers", "count", "层数", { default = "6", min = "1", max = "40" }),
            parameter("flattenAtClose", "flag", "尾盘平仓", { default = "true" })))
end

function getTwapAlgoParamConfig()
    return answer("house-slices", 5,
        algorithm("TWAP", "时间均分", startTime, endTime, limitPrice, urgency),
        algorithm("VWAP", "量价均分", startTime, endTime, share("10")))
end

function getQeAlgoParamConfig()
    return answer("house-smart", 11,
        algorithm("SNIPER", "狙击", limitPrice,
            parameter("minQuantity", "quantity", "最小数量", { default = "1000", min = "100", step = "100" })),
        algorithm("BASKET", "篮子", startTime, endTime,
            parameter("drift", "percent", "偏离上限", { default = "1.5", min = "0.1", max = "10" })))
end

-- Not parameters but the texts behind the question marks of the order screen.
function getAlgorithmsHelpParamConfig()
    local texts = {
        { "TWAP", "Splits the order evenly over the time span." },
        { "VWAP", "Splits the order as the market's volume of past days was spread over the day." },
        { "POV", "Keeps to a share of what the market trades." },
        { "ICEBERG", "Shows a part of the order and refills it." },
        { "SNIPER", "Waits for enough quantity at the limit price, then takes \"all of it\"." },
    }
    local members = {}
    for position, text in ipairs(texts) do
        members[position] = quoted(text[1]) .. ": " .. quoted(text[2])
    end
    return '{"content": {"name": "help", "texts": {' .. table.concat(members, ", ") .. "}}}"
end

-- Without "AlgoParamConfig" at its end; the client asks for it by this name.
function getHuachuangAlgoParams()
    return answer("huachuang-trend", 2,
        algorithm("T0TREND", "日内趋势", urgency,
            parameter("stopLoss", "percent", "止损", { default = "0.8", min = "0.1", max = "5" })))
end
