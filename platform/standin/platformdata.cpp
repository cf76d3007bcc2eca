// The data that the stand-in services answer from.
// Entry points: the add and set operations, the queries, current(), install().
// Owns: all tables, and the installed data.
// Test: tests/platform/platformdata_test.cpp
#include "standin/platformdata.h"

#include <atomic>
#include <boost/make_shared.hpp>
#include <iterator>
#include <mutex>
#include <utility>

#include "standin/installeddata.h"

namespace standin {

namespace {

class InstrumentRecord : public IInstrumentRecord {
public:
    explicit InstrumentRecord(std::map<int, int> values) : fields(std::move(values)) {}

    int getInt(int fieldId) const override {
        const auto found = fields.find(fieldId);
        return found == fields.end() ? 0 : found->second;
    }

    const std::map<int, int>& all() const { return fields; }

private:
    std::map<int, int> fields;
};

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

bool typeContains(const std::unordered_map<int, InstrumentSet>& types, int type, const std::string& market,
                  const std::string& code) {
    const auto found = types.find(type);
    return found != types.end() && found->second.contains(market, code);
}

template <typename Table>
auto findByCode(const Table& table, const std::string& market, const std::string& code) {
    using Value = typename Table::mapped_type::mapped_type;
    const auto inMarket = table.find(market);
    if (inMarket == table.end()) return static_cast<const Value*>(nullptr);
    const auto found = inMarket->second.find(code);
    return found == inMarket->second.end() ? nullptr : &found->second;
}

// The installed data and its predecessor. Never destroyed: static destructors may still query the services.
struct Installation {
    std::mutex mutex;
    std::shared_ptr<const PlatformData> current = std::make_shared<const PlatformData>();
    std::shared_ptr<const PlatformData> previous;
    std::atomic<const PlatformData*> answering{current.get()};
};

Installation& installation() {
    static Installation& only = *new Installation;
    return only;
}

}  // namespace

void CodePatterns::add(const std::string& pattern) {
    if (pattern.empty() || pattern.back() != '*') {
        exactCodes.insert(pattern);
        return;
    }
    const std::string prefix = pattern.substr(0, pattern.size() - 1);
    auto next = prefixes.upper_bound(prefix);
    if (next != prefixes.begin() && startsWith(prefix, *std::prev(next))) return;
    while (next != prefixes.end() && startsWith(*next, prefix))
        next = prefixes.erase(next);
    prefixes.insert(next, prefix);
}

bool CodePatterns::matches(const std::string& code) const {
    const auto next = prefixes.upper_bound(code);
    if (next != prefixes.begin() && startsWith(code, *std::prev(next))) return true;
    return exactCodes.find(code) != exactCodes.end();
}

void InstrumentSet::add(const std::string& market, const std::string& pattern) {
    byMarket[market].add(pattern);
}

bool InstrumentSet::contains(const std::string& market, const std::string& code) const {
    const auto found = byMarket.find(market);
    return found != byMarket.end() && found->second.matches(code);
}

void InstrumentSet::addMarketNames(std::set<std::string>& names) const {
    for (const auto& [market, patterns] : byMarket)
        names.insert(market);
}

void PlatformData::addStockType(int type, const std::string& market, const std::string& pattern) {
    stockTypes[type].add(market, pattern);
}

void PlatformData::addBaseType(int type, const std::string& market, const std::string& pattern) {
    baseTypes[type].add(market, pattern);
}

void PlatformData::setMarketNumber(const std::string& market, int number) {
    markets[market] = number;
}

void PlatformData::addInstrument(const std::string& market, const std::string& code, const std::map<int, int>& fields) {
    boost::shared_ptr<const IInstrumentRecord>& record = instruments[market][code];
    std::map<int, int> all;
    if (record) all = static_cast<const InstrumentRecord&>(*record).all();
    for (const auto& [field, value] : fields)
        all[field] = value;
    record = boost::make_shared<InstrumentRecord>(std::move(all));
}

void PlatformData::setBondRule(const std::string& market, const std::string& code, int tradeType,
                               const BondRuleRecord& rule) {
    bondRules[market][code][tradeType] = boost::make_shared<BondRuleRecord>(rule);
}

void PlatformData::addNewRulesBond(const std::string& market, const std::string& pattern) {
    newRulesBonds.add(market, pattern);
}

void PlatformData::setBondTradeType(int operation, int tradeType) {
    bondTradeTypes[operation] = tradeType;
}

void PlatformData::addTechBoardCdr(const std::string& market, const std::string& pattern) {
    techBoardCdr.add(market, pattern);
}

void PlatformData::addIssueAdditional(const std::string& market, const std::string& pattern) {
    issueAdditional.add(market, pattern);
}

void PlatformData::addFirstMarketTest(const std::string& market, const std::string& pattern) {
    firstMarketTest.add(market, pattern);
}

void PlatformData::addSecondMarketTest(const std::string& market, const std::string& pattern) {
    secondMarketTest.add(market, pattern);
}

void PlatformData::addRight(const std::string& group, const std::string& product) {
    rights[group].insert(product);
}

bool PlatformData::isStockType(int type, const std::string& market, const std::string& code) const {
    return typeContains(stockTypes, type, market, code);
}

bool PlatformData::isBaseType(int type, const std::string& market, const std::string& code) const {
    return typeContains(baseTypes, type, market, code);
}

int PlatformData::marketNumber(const std::string& market) const {
    const auto found = markets.find(market);
    return found == markets.end() ? -1 : found->second;
}

boost::shared_ptr<const IInstrumentRecord> PlatformData::instrument(const std::string& market,
                                                                    const std::string& code) const {
    const auto* record = findByCode(instruments, market, code);
    return record == nullptr ? boost::shared_ptr<const IInstrumentRecord>() : *record;
}

boost::shared_ptr<const BondRuleRecord> PlatformData::bondRule(const std::string& market, const std::string& code,
                                                               int tradeType) const {
    const auto* rules = findByCode(bondRules, market, code);
    if (rules == nullptr) return boost::shared_ptr<const BondRuleRecord>();
    const auto found = rules->find(tradeType);
    return found == rules->end() ? boost::shared_ptr<const BondRuleRecord>() : found->second;
}

bool PlatformData::isNewRulesBond(const std::string& market, const std::string& code) const {
    return newRulesBonds.contains(market, code);
}

int PlatformData::bondTradeType(int operation) const {
    const auto found = bondTradeTypes.find(operation);
    return found == bondTradeTypes.end() ? static_cast<int>(BOND_TRADE_ORDINARY) : found->second;
}

bool PlatformData::isTechBoardCdr(const std::string& market, const std::string& code) const {
    return techBoardCdr.contains(market, code);
}

bool PlatformData::isIssueAdditional(const std::string& market, const std::string& code) const {
    return issueAdditional.contains(market, code);
}

bool PlatformData::passesFirstMarketTest(const std::string& market, const std::string& code) const {
    return firstMarketTest.contains(market, code);
}

bool PlatformData::passesSecondMarketTest(const std::string& market, const std::string& code) const {
    return secondMarketTest.contains(market, code);
}

bool PlatformData::hasRight(const std::string& group, const std::string& product) const {
    const auto found = rights.find(group);
    return found != rights.end() && found->second.find(product) != found->second.end();
}

std::set<std::string> PlatformData::marketNames() const {
    std::set<std::string> names;
    for (const auto& [market, number] : markets)
        names.insert(market);
    for (const auto& [market, records] : instruments)
        names.insert(market);
    for (const auto& [market, rules] : bondRules)
        names.insert(market);
    for (const auto* types : {&stockTypes, &baseTypes}) {
        for (const auto& [type, set] : *types)
            set.addMarketNames(names);
    }
    for (const InstrumentSet* set :
         {&newRulesBonds, &techBoardCdr, &issueAdditional, &firstMarketTest, &secondMarketTest}) {
        set->addMarketNames(names);
    }
    return names;
}

std::shared_ptr<const PlatformData> PlatformData::current() {
    Installation& here = installation();
    const std::lock_guard<std::mutex> guard(here.mutex);
    return here.current;
}

void PlatformData::install(std::shared_ptr<const PlatformData> data) {
    if (!data) data = std::make_shared<const PlatformData>();
    Installation& here = installation();
    const std::lock_guard<std::mutex> guard(here.mutex);
    here.answering.store(data.get(), std::memory_order_release);
    here.previous = std::move(here.current);
    here.current = std::move(data);
}

void PlatformData::install(PlatformData data) {
    install(std::make_shared<const PlatformData>(std::move(data)));
}

const PlatformData& installedData() {
    return *installation().answering.load(std::memory_order_acquire);
}

}  // namespace standin
