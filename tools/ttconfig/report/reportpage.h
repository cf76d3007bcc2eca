#pragma once

#include <functional>
#include <string_view>

#include "ttconfig/report/reportdata.h"

namespace ttconfig {

// Writes the page piece by piece. The page contains everything it shows, loads nothing from outside and runs no script
// but its own.
void writeReportPage(const std::function<void(std::string_view)>& sink, const ReportInput& input,
                     const ReportBounds& bounds = {});

}  // namespace ttconfig
