#pragma once

#include <string>
#include <utility>
#include <vector>

#include "standin/settingstext.h"

namespace fuzz {

// Names to query: those in a settings text, up to a limit, and a few fixed ones.
struct Named {
    std::vector<std::string> words{"", "STOCK", "600000"};
    std::vector<int> platforms{0, 12, -5};
    std::vector<std::pair<std::string, std::string>> instruments{{"SH", "600000"}, {"SZ", "123001"}, {"HK", "00700"}};
};

Named namedIn(const standin::SettingsText& text);

}  // namespace fuzz
