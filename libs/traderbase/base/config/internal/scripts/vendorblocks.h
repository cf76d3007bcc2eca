#pragma once

#include <string>

#include "traderbase/base/config/algorithmparamconfig.h"

namespace ttservice::internal {

// The group of rights that algorithm products belong to.
inline constexpr const char* kAlgorithmRights = "mdl_alg";

// One block of initAlgoParams().
struct VendorBlock {
    const char* product;      // the right to it is asked for first; null: the block is read always
    const char* alternative;  // asked for when the first is refused; null: there is none
    const char* function;     // of the algorithm script, called without arguments
    void (AlgorithmParamConfig::*read)(std::string text);
    void (AlgorithmParamConfig::*get)(std::string& out) const;
};

// In the order in which the blocks are read. To add a vendor, add its reader and getter and a row here.
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
    // The one function that does not end in ParamConfig; scripts define it by this name.
    {"mdl_alg_huachuang1", nullptr, "getHuachuangAlgoParams", &AlgorithmParamConfig::readHuaChuangConfig,
     &AlgorithmParamConfig::getHuaChuangStr},
};

}  // namespace ttservice::internal
