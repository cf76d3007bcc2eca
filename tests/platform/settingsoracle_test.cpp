#include <SimpleIni.h>
#include <gmock/gmock.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "standin/settingstext.h"
#include "tests/support/slowsettings.h"

namespace standin {
namespace {

using namespace std::string_literals;
using tests::Section;
using tests::Sections;
using tests::slowlyRead;

Sections asRead(const std::string& bytes) {
    Sections all;
    const SettingsText text(bytes);
    for (const SettingsSection& section : text.sections()) {
        Section& copy = all.emplace_back(Section{std::string(section.name), {}});
        for (const SettingsEntry& entry : section.entries) {
            if (!entry.repeated) copy.entries.emplace_back(entry.key, entry.value);
            const SettingsEntry* counting = text.findEntry(section.name, entry.key);
            EXPECT_TRUE(counting != nullptr && !counting->repeated);
        }
    }
    return all;
}

Sections readBySimpleIni(const std::string& bytes) {
    CSimpleIniCaseA file(true, true, false);
    EXPECT_EQ(file.LoadData(bytes.data(), bytes.size()), SI_OK);
    Sections all;
    CSimpleIniCaseA::TNamesDepend sections;
    file.GetAllSections(sections);
    sections.sort(CSimpleIniCaseA::Entry::LoadOrder());
    for (const CSimpleIniCaseA::Entry& section : sections) {
        Section& copy = all.emplace_back(Section{section.pItem, {}});
        CSimpleIniCaseA::TNamesDepend keys;
        file.GetAllKeys(section.pItem, keys);
        keys.sort(CSimpleIniCaseA::Entry::LoadOrder());
        for (const CSimpleIniCaseA::Entry& key : keys) {
            copy.entries.emplace_back(key.pItem, file.GetValue(section.pItem, key.pItem, "(none)"));
        }
    }
    return all;
}

class Generator {
public:
    explicit Generator(unsigned seed) : random(seed) {}

    template <typename List>
    std::string oneOf(const List& list) {
        return list[std::uniform_int_distribution<std::size_t>(0, std::size(list) - 1)(random)];
    }

    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

private:
    std::mt19937 random;
};

// Compares with SimpleIni on files that both readers read alike. The generated files therefore contain no NULs, at
// which SimpleIni stops; no lone CRs, which it takes for line ends; no keys before the first header together with the
// header "[]", which it puts into one section; and no "[" line without "]" before other lines, which only the reader
// here ignores. The next test covers that last case with the slow rules alone. SimpleIni keeps the first of repeated
// keys only in its multi-key mode.
TEST(SettingsOracle, AgreesWithSimpleIniWhereBothReadAFileAlike) {
    static const std::string kNames[] = {"setting", "Setting", "a b", "StkExchangeOrderLimit", "股", "x;y", "#"};
    static const std::string kKeys[] = {"k", "K", "key", "a b", "SH-600000,SZ-000001", "x;", "x#y", "k[0]", "]", "股"};
    static const std::string kValues[] = {"", "1", "12:1;15:0;1", "a = b", "\"q\"", "x ; y", "1000000,股", "\\", "[v]"};
    static const std::string kBlanks[] = {"", "", " ", "\t", " \t "};
    static const std::string kEnds[] = {"\n", "\n", "\r\n"};
    static const std::string kOthers[] = {"; note", "# note", "", "word", "two words", "=v", " = "};
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Generator make(seed);
        std::string bytes = make.upTo(9) == 0 ? "\xEF\xBB\xBF" : "";
        bytes += "[" + make.oneOf(kNames) + "]" + make.oneOf(kEnds);
        for (int lines = make.upTo(30); lines > 0; --lines) {
            const int kind = make.upTo(9);
            const auto blank = [&make] { return make.oneOf(kBlanks); };
            if (kind == 0) {
                bytes += blank() + "[" + blank() + make.oneOf(kNames) + blank() + "]" + blank();
            } else if (kind == 1) {
                bytes += blank() + make.oneOf(kOthers) + blank();
            } else {
                bytes += blank() + make.oneOf(kKeys) + blank() + "=" + blank() + make.oneOf(kValues) + blank();
            }
            bytes += make.oneOf(kEnds);
        }
        ASSERT_EQ(asRead(bytes), readBySimpleIni(bytes)) << "seed " << seed << "\n" << bytes;
    }
}

TEST(SettingsOracle, AgreesWithTheSlowRulesOnAnyBytes) {
    static const std::string kPieces[] = {"[",  "]",    "=",  ";", "#",     " ",     "\t",    "\r",  "\n",
                                          "\n", "\r\n", "a",  "b", "[a]\n", "[b]\n", "a=1\n", "\0"s, "\xEF\xBB\xBF",
                                          "股", "\xff", "\"", "\\"};
    std::size_t entries = 0;
    for (unsigned seed = 0; seed < 30000; ++seed) {
        Generator make(seed);
        std::string bytes;
        for (int pieces = make.upTo(60); pieces > 0; --pieces)
            bytes += make.oneOf(kPieces);
        const Sections sections = asRead(bytes);
        ASSERT_EQ(sections, slowlyRead(bytes)) << "seed " << seed;
        for (const Section& section : sections)
            entries += section.entries.size();
    }
    // The generated texts must not be mere noise.
    EXPECT_GT(entries, 10000u);
}

}  // namespace
}  // namespace standin
