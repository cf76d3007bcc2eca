#pragma once

#include <SimpleIni.h>
#include <glib.h>
#include <ini.h>

#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

#include "benchmarks/plainmaps.h"

// Other settings readers, each with load(path) and lists(key, platform): whether the key's list in section "setting"
// contains the platform. Each reader is used in the fastest way it offers.

namespace benchmarks {

class SimpleIniReader {
public:
    void load(const std::string& path) { ini.LoadFile(path.c_str()); }
    bool lists(const std::string& key, int platformId) const {
        const char* const value = ini.GetValue("setting", key.c_str());
        return value != nullptr && textLists(value, platformId);
    }

private:
    CSimpleIniCaseA ini;
};

class GKeyFileReader {
public:
    GKeyFileReader() = default;
    GKeyFileReader(const GKeyFileReader&) = delete;
    GKeyFileReader& operator=(const GKeyFileReader&) = delete;
    ~GKeyFileReader() { g_key_file_free(file); }

    void load(const std::string& path) { g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr); }
    bool lists(const std::string& key, int platformId) const {
        char* const value = g_key_file_get_value(file, "setting", key.c_str(), nullptr);
        const bool listed = value != nullptr && textLists(value, platformId);
        g_free(value);
        return listed;
    }

private:
    GKeyFile* file = g_key_file_new();
};

class PropertyTreeReader {
public:
    void load(const std::string& path) {
        boost::property_tree::read_ini(path, tree);
        section = &tree.get_child("setting");
    }
    bool lists(const std::string& key, int platformId) const {
        const auto found = section->find(key);
        return found != section->not_found() && textLists(found->second.data(), platformId);
    }

private:
    boost::property_tree::ptree tree;
    const boost::property_tree::ptree* section = nullptr;
};

// inih has no look-up: its callback fills the maps.
class InihReader {
public:
    void load(const std::string& path) { ini_parse(path.c_str(), enter, &sections); }
    bool lists(const std::string& key, int platformId) const {
        const auto section = sections.find("setting");
        if (section == sections.end()) return false;
        const auto found = section->second.find(key);
        return found != section->second.end() && textLists(found->second, platformId);
    }

private:
    static int enter(void* target, const char* section, const char* key, const char* value) {
        (*static_cast<PlainSections*>(target))[section].emplace(key, value);
        return 1;
    }

    PlainSections sections;
};

}  // namespace benchmarks
