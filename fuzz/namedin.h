#pragma once

#include <string>
#include <utility>
#include <vector>

#include "standin/settingstext.h"

namespace fuzz {

// What a settings text names, a bounded part of it, and a few things that it need not name: good to ask about.
struct Named {
    std::vector<std::string> words{"", "STOCK", "600000"};
    std::vector<int> platforms{0, 12, -5};
    std::vector<std::pair<std::string, std::string>> instruments{{"SH", "600000"}, {"SZ", "123001"}, {"HK", "00700"}};
};

Named namedIn(const standin::SettingsText& text);

}  // namespace fuzz
