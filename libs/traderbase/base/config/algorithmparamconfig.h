#pragma once

#include <map>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "luaconfig/export.h"

class CAlgorithmsParams;

namespace luabase {
class LuaConfig;
}

namespace ttservice {

namespace internal {
enum class Lifetime;
}

// The catalogue of algorithm parameters: for each vendor the text that the algorithm script answers, as it is, and one
// record made of it; besides them the session text of every market.
//
// Thread safety: instance() may be called from anywhere at any time. Everything else takes no lock: the client calls
// initAlgoParams() before other threads ask, and from then on any number of threads may ask at once.
//
// Copies hold texts of their own and share the records. Scripts and texts that are wrong cost one line at ERROR level
// and leave out what they describe; only the readers, called directly, pass on what the platform's settings reader
// throws.
class TRADERBASE_API AlgorithmParamConfig {
public:
    // The process's one catalogue. The first call builds it with its market times; vendors are read by
    // initAlgoParams(). Who asks after the process has ended and released it gets an empty one for himself. While
    // static objects are destroyed, no other thread may ask.
    static boost::shared_ptr<AlgorithmParamConfig> instance();

    // Asks the script, which the client has loaded, for the vendors that the user holds rights to, and always for the
    // algorithms and the help text of the platform itself. Called again it replaces the texts and appends the records
    // once more. After an exception, or when memory runs out, the script's included, the vendors read so far stay and
    // the others are left out.
    void initAlgoParams(luabase::LuaConfig& script);

    // Reads the market times from "../luaScripts/MarketTime.lua", as the construction does; markets that the script
    // does not name stay. Memory that runs out, the script's included, is std::bad_alloc and leaves all as they are.
    void initMarketTime();

    // The earliest record of exactly that name, shared; null without one.
    boost::shared_ptr<CAlgorithmsParams> getAlgoParam(std::string name) const;

    // All records in the order in which they came, shared; a null pointer that was pushed is among them. (sic)
    std::vector<boost::shared_ptr<CAlgorithmsParams>> getAlgoritmsParams() const;

    // Appends a record of the client's own.
    void pushAlgoVec(boost::shared_ptr<CAlgorithmsParams> record);

    // The session text of each market, as the script answers it; empty without a script.
    void getMarketTimeMap(std::map<std::string, std::string>& out) const;

    // The vendor's text as the script answered it; empty when it was not asked for or failed. The names differ for no
    // reason and stay. (sic)
    void getCiticOriginalStr(std::string& out) const;
    void getZxjtOriginalStr(std::string& out) const;
    void getGenusOriginalStr(std::string& out) const;
    void getZsgsOriginalStr(std::string& out) const;
    void getJazzOriginalStr(std::string& out) const;
    void getTwapOriginalStr(std::string& out) const;
    void getQeAlgOriginalStr(std::string& out) const;
    void getQeAlgoHelpStr(std::string& out) const;
    void getHuaChuangStr(std::string& out) const;

    // Each keeps the text and appends the record that its member "content" describes. A text without such a member, or
    // that is no JSON, is kept all the same; it costs one line at ERROR level and gives no record.
    void readCiticConfig(std::string text);
    void readZxjtConfig(std::string text);
    void readGenusConfig(std::string text);
    void readZsgsConfig(std::string text);
    void readJazzConfig(std::string text);
    void readTwapConfig(std::string text);
    void readQeAlgConfig(std::string text);
    void readQeAlgHelpConfig(std::string text);
    void readHuaChuangConfig(std::string text);

private:
    TRADERBASE_HIDDEN explicit AlgorithmParamConfig(internal::Lifetime lifetime);

    TRADERBASE_HIDDEN void readVendor(std::string& original, const std::string& text);
    TRADERBASE_HIDDEN void pushAlgotoVec(std::string text);

    std::string citicOriginal;
    std::string zxjtOriginal;
    std::string genusOriginal;
    std::string zsgsOriginal;
    std::string jazzOriginal;
    std::string twapOriginal;
    std::string qeAlgOriginal;
    std::string qeAlgHelp;
    std::map<std::string, std::string> marketTimes;
    std::string huaChuangOriginal;
    std::vector<boost::shared_ptr<CAlgorithmsParams>> records;
};

}  // namespace ttservice
