#pragma once

#include <functional>
#include <string_view>

#include "ttconfig/report/reportdata.h"

namespace ttconfig {

// Writes the page piece by piece. It holds everything it shows, reaches for nothing outside and lets no script run but
// its own.
void writeReportPage(const std::function<void(std::string_view)>& sink, const ReportInput& input,
                     const ReportBounds& bounds = {});

}  // namespace ttconfig
