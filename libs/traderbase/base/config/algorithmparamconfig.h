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

// The catalogue of algorithm parameters: for each vendor, the text returned by the algorithm script, unchanged, and one
// record made from it. Also the session text of every market.
//
// Thread safety: instance() may be called from anywhere at any time. Everything else takes no lock: the client calls
// initAlgoParams() before other threads query the catalogue; from then on any number of threads may query it at once.
//
// Copies have texts of their own and share the records. Each faulty script or text is logged as one line at ERROR
// level, and what it describes is left out. Only the readers, when called directly, let exceptions of the platform's
// settings reader through.
class TRADERBASE_API AlgorithmParamConfig {
public:
    // The process's one catalogue. The first call builds it with its market times; initAlgoParams() reads the vendors.
    // It is released when the process ends; later calls each return a new, empty catalogue. No other thread may use the
    // catalogue while static objects are destroyed.
    static boost::shared_ptr<AlgorithmParamConfig> instance();

    // Queries the script, which the client has loaded, for each vendor whose product the user has rights to, and always
    // for the platform's own algorithms and help text. A repeated call replaces the texts and appends the records once
    // more. After an exception, or when memory runs out (including in the script), the vendors read so far stay and the
    // others are left out.
    void initAlgoParams(luabase::LuaConfig& script);

    // Reads the market times from "../luaScripts/MarketTime.lua", as the constructor does; markets that the script does
    // not name stay. Throws std::bad_alloc when memory runs out, including in the script; all market times then stay.
    void initMarketTime();

    // The first record with exactly this name, shared; null if there is none.
    boost::shared_ptr<CAlgorithmsParams> getAlgoParam(std::string name) const;

    // All records in the order they were added, shared, including any null pointer that was pushed. (sic)
    std::vector<boost::shared_ptr<CAlgorithmsParams>> getAlgoritmsParams() const;

    // Appends a record of the client's own.
    void pushAlgoVec(boost::shared_ptr<CAlgorithmsParams> record);

    // The session text of each market as returned by the script; empty without a script.
    void getMarketTimeMap(std::map<std::string, std::string>& out) const;

    // The vendor's text as returned by the script; empty if it was not requested or the request failed. The names
    // differ for no reason but are frozen. (sic)
    void getCiticOriginalStr(std::string& out) const;
    void getZxjtOriginalStr(std::string& out) const;
    void getGenusOriginalStr(std::string& out) const;
    void getZsgsOriginalStr(std::string& out) const;
    void getJazzOriginalStr(std::string& out) const;
    void getTwapOriginalStr(std::string& out) const;
    void getQeAlgOriginalStr(std::string& out) const;
    void getQeAlgoHelpStr(std::string& out) const;
    void getHuaChuangStr(std::string& out) const;

    // Each keeps the text and appends the record described by its member "content". A text that is not JSON or has no
    // such member is kept as well, but gives no record and logs one line at ERROR level.
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
