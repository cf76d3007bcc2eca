#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ttconfig {

// "09:30:00" for a second of the day; "24:00:00" for its end. Seconds outside the day are shown as plain numbers.
std::string clockText(int secondOfDay);

// The second of the day that HH:MM:SS or HH:MM means; nothing for any other text.
std::optional<int> secondOfClockText(std::string_view text);

}  // namespace ttconfig
