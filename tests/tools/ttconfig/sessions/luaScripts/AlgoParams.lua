-- Vendors' answers: good ones, one without content, one that is no JSON.
function getCiticAlgoParamConfig() return '{"content":{"name":"CITIC","steps":[1,2.5],"deep":{"b":1,"a":null}}}' end
function getZxjtAlgoParamConfig() return '{"content":{"name":"ZXJT"}}' end
function getTwapAlgoParamConfig() return '{"content":[1,"two"]}' end
function getQeAlgoParamConfig() return '{"content":{"name":"QE"}}' end
function getAlgorithmsHelpParamConfig() return '{"help":true}' end
function getHuachuangAlgoParams() return 'no json' end
