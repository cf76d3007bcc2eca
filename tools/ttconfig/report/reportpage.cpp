// The report page: writes the whole HTML file.
// Entry points: writeReportPage().
// Owns: the page's content security policy; its markup, style and script are the files of page/.
// Covered by tests/tools/ttconfig/report/reportpage_test.cpp.

#include "ttconfig/report/reportpage.h"

#include <string>

#include "ttconfig/report/pagepieces.h"

namespace ttconfig {

namespace {

// Allows nothing from outside, and of the page's own content only our style and script.
std::string policy() {
    return "default-src 'none'; base-uri 'none'; form-action 'none'; style-src '" + std::string(kPagePieces.styleHash) +
           "'; script-src '" + std::string(kPagePieces.scriptHash) + "'";
}

}  // namespace

void writeReportPage(const std::function<void(std::string_view)>& sink, const ReportInput& input,
                     const ReportBounds& bounds) {
    const std::string title = markupText("Settings report: " + input.file.name);
    std::string_view rest = kPagePieces.markup;
    // Look for placeholders in our own markup only, never in inserted text.
    while (!rest.empty()) {
        const std::size_t start = rest.find('@');
        sink(rest.substr(0, start));
        if (start == std::string_view::npos) return;
        const std::size_t end = rest.find('@', start + 1);
        const std::string_view mark = rest.substr(start + 1, end - start - 1);
        if (mark == "POLICY") sink(policy());
        if (mark == "TITLE") sink(title);
        if (mark == "STYLE") sink(kPagePieces.style);
        if (mark == "SCRIPT") sink(kPagePieces.script);
        if (mark == "DATA") {
            JsonStream json(sink);
            writeReportData(json, input, bounds);
            json.flush();
        }
        rest.remove_prefix(end + 1);
    }
}

}  // namespace ttconfig
