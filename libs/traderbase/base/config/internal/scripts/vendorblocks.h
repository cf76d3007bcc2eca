#pragma once

#include <string>

#include "traderbase/base/config/algorithmparamconfig.h"

namespace ttservice::internal {

// The rights group of the algorithm products.
inline constexpr const char* kAlgorithmRights = "mdl_alg";

// One block of initAlgoParams().
struct VendorBlock {
    const char* product;      // product whose right is checked first; null: the block is always read
    const char* alternative;  // product checked if the first is refused; null: none
    const char* function;     // function of the algorithm script, called without arguments
    void (AlgorithmParamConfig::*read)(std::string text);
    void (AlgorithmParamConfig::*get)(std::string& out) const;
};

// In reading order. To add a vendor, add its reader and getter, and a row here.
inline constexpr VendorBlock kVendorBlocks[] = {
    {"mdl_alg_zxzq1", nullptr, "getCiticAlgoParamConfig", &AlgorithmParamConfig::readCiticConfig,
     &AlgorithmParamConfig::getCiticOriginalStr},
    {"mdl_alg_zxjt1", nullptr, "getZxjtAlgoParamConfig", &AlgorithmParamConfig::readZxjtConfig,
     &AlgorithmParamConfig::getZxjtOriginalStr},
    {"mdl_alg_genus1", nullptr, "getGenusAlgoParamConfig", &AlgorithmParamConfig::readGenusConfig,
     &AlgorithmParamConfig::getGenusOriginalStr},
    {"mdl_alg_zsgs1", nullptr, "getZsgsAlgoParamConfig", &AlgorithmParamConfig::readZsgsConfig,
     &AlgorithmParamConfig::getZsgsOriginalStr},
    {"mdl_alg_jazz1", nullptr, "getJazzAlgoParamConfig", &AlgorithmParamConfig::readJazzConfig,
     &AlgorithmParamConfig::getJazzOriginalStr},
    {"mdl_alg_twap", "mdl_alg_vwap", "getTwapAlgoParamConfig", &AlgorithmParamConfig::readTwapConfig,
     &AlgorithmParamConfig::getTwapOriginalStr},
    {nullptr, nullptr, "getQeAlgoParamConfig", &AlgorithmParamConfig::readQeAlgConfig,
     &AlgorithmParamConfig::getQeAlgOriginalStr},
    {nullptr, nullptr, "getAlgorithmsHelpParamConfig", &AlgorithmParamConfig::readQeAlgHelpConfig,
     &AlgorithmParamConfig::getQeAlgoHelpStr},
    // The only name that does not end in ParamConfig; scripts define it like this.
    {"mdl_alg_huachuang1", nullptr, "getHuachuangAlgoParams", &AlgorithmParamConfig::readHuaChuangConfig,
     &AlgorithmParamConfig::getHuaChuangStr},
};

}  // namespace ttservice::internal
