// Reads platform data from JSON.
// Entry points: parsePlatformData(), installPlatformFile().
// Owns: the format of the file and the wording of its error messages.
// Test: tests/platform/platformdatafile_test.cpp
#include "standin/platformdatafile.h"

#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <unordered_set>
#include <utility>

#include "standin/filebytes.h"
#include "standin/strictjson.h"

namespace standin {

namespace {

// Thrown to stop reading; the caller turns it into an error message.
struct Refusal {
    std::string message;
};

const char* kindText(const JsonValue& value) {
    switch (value.kind) {
        case JsonValue::Kind::kNull:
            return "null";
        case JsonValue::Kind::kBoolean:
            return "true or false";
        case JsonValue::Kind::kInteger:
        case JsonValue::Kind::kNumber:
            return "a number";
        case JsonValue::Kind::kText:
            return "a text";
        case JsonValue::Kind::kList:
            return "a list";
        case JsonValue::Kind::kObject:
            return "an object";
    }
    return "something else";
}

// A value and its path; the path text is built only for an error message.
class Node {
public:
    explicit Node(const JsonValue& root) : value(&root) {}

    [[noreturn]] void refuse(const std::string& matter) const {
        const std::string where = path();
        throw Refusal{where.empty() ? matter : where + ": " + matter};
    }

    bool isList() const { return value->kind == JsonValue::Kind::kList; }

    int integer() const {
        const bool isNumber = value->kind == JsonValue::Kind::kInteger || value->kind == JsonValue::Kind::kNumber;
        if (!isNumber) refuse(std::string("expected an integer, found ") + kindText(*value));
        if (value->kind != JsonValue::Kind::kInteger || value->integer < std::numeric_limits<std::int32_t>::min() ||
            value->integer > std::numeric_limits<std::int32_t>::max()) {
            refuse("expected a 32-bit integer, found " + shownInMessage(value->text));
        }
        return static_cast<int>(value->integer);
    }

    const std::string& text() const {
        if (value->kind != JsonValue::Kind::kText) refuse(std::string("expected a text, found ") + kindText(*value));
        return value->text;
    }

    // Calls visit(item) for each item of the list.
    template <typename Visit>
    void eachItem(Visit visit) const {
        if (!isList()) refuse(std::string("expected a list, found ") + kindText(*value));
        for (std::size_t index = 0; index < value->items.size(); ++index) {
            visit(Node(value->items[index], *this, nullptr, index));
        }
    }

    // Calls visit(name, member) for each member of the object.
    template <typename Visit>
    void eachMember(Visit visit) const {
        requireObject();
        for (const auto& [name, member] : value->members)
            visit(name, Node(member, *this, &name, 0));
    }

    // Calls visit(number, member) for each member of an object whose names are decimal integers.
    template <typename Visit>
    void eachNumberedMember(Visit visit) const {
        std::unordered_set<int> seen;
        eachMember([&](const std::string& name, const Node& member) {
            int number = 0;
            const char* const end = name.data() + name.size();
            const std::from_chars_result result = std::from_chars(name.data(), end, number);
            if (result.ec != std::errc() || result.ptr != end) member.refuse("expected a decimal integer as the name");
            if (!seen.insert(number).second) member.refuse("given twice");
            visit(number, member);
        });
    }

    void allowOnly(std::initializer_list<std::string_view> names) const {
        eachMember([&](const std::string& name, const Node& member) {
            for (const std::string_view allowed : names) {
                if (name == allowed) return;
            }
            member.refuse("unknown name");
        });
    }

    // The member with that name, or null.
    const JsonValue* find(std::string_view name, const std::string*& storedName) const {
        requireObject();
        for (const auto& [memberName, member] : value->members) {
            if (memberName != name) continue;
            storedName = &memberName;
            return &member;
        }
        return nullptr;
    }

    Node member(std::string_view name) const {
        const std::string* storedName = nullptr;
        const JsonValue* found = find(name, storedName);
        if (found == nullptr) throw Refusal{pathWithName(path(), name) + ": missing"};
        return Node(*found, *this, storedName, 0);
    }

    int integerOr(std::string_view name, int fallback) const {
        const std::string* storedName = nullptr;
        const JsonValue* found = find(name, storedName);
        return found == nullptr ? fallback : Node(*found, *this, storedName, 0).integer();
    }

private:
    Node(const JsonValue& here, const Node& outer, const std::string* memberName, std::size_t itemIndex)
        : value(&here), parent(&outer), ownName(memberName), ownIndex(itemIndex) {}

    void requireObject() const {
        if (value->kind != JsonValue::Kind::kObject) {
            refuse(std::string("expected an object, found ") + kindText(*value));
        }
    }

    std::string path() const {
        if (parent == nullptr) return std::string();
        return ownName == nullptr ? pathWithIndex(parent->path(), ownIndex) : pathWithName(parent->path(), *ownName);
    }

    const JsonValue* value;
    const Node* parent = nullptr;
    const std::string* ownName = nullptr;  // in the parent object; null in a list
    std::size_t ownIndex = 0;              // in the parent list
};

using AddPattern = void (PlatformData::*)(const std::string&, const std::string&);
using AddTypePattern = void (PlatformData::*)(int, const std::string&, const std::string&);

template <AddPattern add>
void readPatterns(const Node& list, PlatformData& data) {
    list.eachItem([&](const Node& entry) {
        entry.allowOnly({"market", "codes"});
        const std::string& market = entry.member("market").text();
        entry.member("codes").eachItem([&](const Node& code) { (data.*add)(market, code.text()); });
    });
}

template <AddTypePattern add>
void readTypes(const Node& list, PlatformData& data) {
    list.eachItem([&](const Node& entry) {
        entry.allowOnly({"type", "market", "codes"});
        const int type = entry.member("type").integer();
        const std::string& market = entry.member("market").text();
        entry.member("codes").eachItem([&](const Node& code) { (data.*add)(type, market, code.text()); });
    });
}

void readMarkets(const Node& object, PlatformData& data) {
    object.eachMember(
        [&](const std::string& market, const Node& number) { data.setMarketNumber(market, number.integer()); });
}

void readInstruments(const Node& list, PlatformData& data) {
    list.eachItem([&](const Node& entry) {
        entry.allowOnly({"market", "code", "fields"});
        std::map<int, int> fields;
        entry.eachMember([&](const std::string& name, const Node& member) {
            if (name != "fields") return;
            member.eachNumberedMember([&](int field, const Node& value) { fields[field] = value.integer(); });
        });
        data.addInstrument(entry.member("market").text(), entry.member("code").text(), fields);
    });
}

void readBondRules(const Node& list, PlatformData& data) {
    list.eachItem([&](const Node& entry) {
        entry.allowOnly({"market", "code", "tradeType", "buyMinUnit", "sellMinUnit"});
        BondRuleRecord rule;
        rule.buyMinUnit = entry.integerOr("buyMinUnit", 0);
        rule.sellMinUnit = entry.integerOr("sellMinUnit", 0);
        data.setBondRule(entry.member("market").text(), entry.member("code").text(),
                         entry.member("tradeType").integer(), rule);
    });
}

void readBondTradeTypes(const Node& object, PlatformData& data) {
    object.eachNumberedMember(
        [&](int operation, const Node& tradeType) { data.setBondTradeType(operation, tradeType.integer()); });
}

void readMarketTests(const Node& object, PlatformData& data) {
    object.allowOnly({"first", "second"});
    object.eachMember([&](const std::string& name, const Node& member) {
        if (name == "first") {
            readPatterns<&PlatformData::addFirstMarketTest>(member, data);
        } else {
            readPatterns<&PlatformData::addSecondMarketTest>(member, data);
        }
    });
}

void readRights(const Node& object, PlatformData& data) {
    object.eachMember([&](const std::string& group, const Node& products) {
        products.eachItem([&](const Node& product) { data.addRight(group, product.text()); });
    });
}

struct TopMember {
    std::string_view name;
    void (*read)(const Node& member, PlatformData& data);
};

constexpr TopMember kTopMembers[] = {
    {"markets", readMarkets},
    {"stockTypes", readTypes<&PlatformData::addStockType>},
    {"baseTypes", readTypes<&PlatformData::addBaseType>},
    {"instruments", readInstruments},
    {"bondRules", readBondRules},
    {"newRulesBonds", readPatterns<&PlatformData::addNewRulesBond>},
    {"bondTradeTypes", readBondTradeTypes},
    {"techBoardCdr", readPatterns<&PlatformData::addTechBoardCdr>},
    {"issueAdditional", readPatterns<&PlatformData::addIssueAdditional>},
    {"marketTests", readMarketTests},
    {"rights", readRights},
};

void readTopMember(const std::string& name, const Node& member, PlatformData& data) {
    for (const TopMember& top : kTopMembers) {
        if (top.name != name) continue;
        top.read(member, data);
        return;
    }
    member.refuse("unknown name");
}

}  // namespace

bool parsePlatformData(std::string_view text, const std::string& source, PlatformData& data, std::string& error) {
    JsonValue root;
    std::string problem;
    if (!parseStrictJson(text, root, problem)) {
        error = source + ": " + problem;
        return false;
    }
    try {
        PlatformData fresh;
        Node(root).eachMember([&](const std::string& name, const Node& member) { readTopMember(name, member, fresh); });
        data = std::move(fresh);
        return true;
    } catch (const Refusal& refusal) {
        error = source + ": " + refusal.message;
        return false;
    }
}

bool installPlatformFile(const std::string& path, std::string& error) {
    std::string bytes;
    const std::string source = shownInMessage(path);
    const FileProblem problem = readFileBytes(path, bytes);
    if (problem != FileProblem::kNone) {
        error = source + ": " + fileProblemText(problem);
        return false;
    }
    PlatformData data;
    if (!parsePlatformData(bytes, source, data, error)) return false;
    PlatformData::install(std::move(data));
    return true;
}

}  // namespace standin
