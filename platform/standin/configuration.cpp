// utils::Configuration, on top of the INI text reader.
// Entry points: parse(), getProperties(), read(), readInt(), readDouble().
// Owns: the parsed text of one configuration.
// Test: tests/platform/configuration_test.cpp
#include "ttplatform/configuration.h"

#include <atomic>
#include <cstddef>
#include <vector>

#include "standin/numbertext.h"
#include "standin/queryhook.h"
#include "standin/settingstext.h"

namespace utils {

struct Configuration::Contents {
    standin::SettingsText text;
    // Keys are usually read in file order, so this is the index of the entry after the last one found. It is only a
    // hint, so threads may share it.
    std::atomic<std::size_t> next{0};

    const standin::SettingsEntry* find(const std::string& section, const std::string& key) {
        const standin::SettingsSection* found = text.findSection(section);
        if (found == nullptr) return nullptr;
        const std::vector<standin::SettingsEntry>& entries = found->entries;
        const std::size_t guess = next.load(std::memory_order_relaxed);
        const bool isRight = guess < entries.size() && entries[guess].key == key && !entries[guess].repeated;
        const standin::SettingsEntry* entry = isRight ? &entries[guess] : text.findEntry(section, key);
        if (entry != nullptr) {
            next.store(static_cast<std::size_t>(entry - entries.data()) + 1, std::memory_order_relaxed);
        }
        return entry;
    }
};

Configuration::Configuration(const std::string& /*path*/, bool /*flag*/) : contents(std::make_unique<Contents>()) {}

Configuration::~Configuration() = default;

bool Configuration::parse(std::string path) {
    standin::showQuery("Configuration::parse", 0, path, {});
    return standin::SettingsText::load(path, contents->text) == standin::FileProblem::kNone;
}

std::vector<std::string> Configuration::getProperties(const std::string& section) const {
    standin::showQuery("Configuration::getProperties", 0, section, {});
    std::vector<std::string> keys;
    const standin::SettingsSection* found = contents->text.findSection(section);
    if (found == nullptr) return keys;
    keys.reserve(found->entries.size());
    for (const standin::SettingsEntry& entry : found->entries) {
        if (!entry.repeated) keys.emplace_back(entry.key);
    }
    return keys;
}

std::string Configuration::read(const std::string& section, const std::string& key) const {
    standin::showQuery("Configuration::read", 0, section, key);
    const standin::SettingsEntry* entry = contents->find(section, key);
    return entry == nullptr ? std::string() : std::string(entry->value);
}

int Configuration::readInt(const std::string& section, const std::string& key, int fallback) const {
    standin::showQuery("Configuration::readInt", 0, section, key);
    const standin::SettingsEntry* entry = contents->find(section, key);
    int number = fallback;
    if (entry != nullptr) standin::readInt32(entry->value, number);
    return number;
}

double Configuration::readDouble(const std::string& section, const std::string& key, double fallback) const {
    standin::showQuery("Configuration::readDouble", 0, section, key);
    const standin::SettingsEntry* entry = contents->find(section, key);
    double number = fallback;
    if (entry != nullptr) standin::readDecimal(entry->value, number);
    return number;
}

}  // namespace utils
