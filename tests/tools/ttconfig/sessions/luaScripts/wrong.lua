before = function() return "kept" end
error("stops here", 0)
