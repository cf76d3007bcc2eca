#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace tests {

// The folder of the sample settings, relative to the folder that the client runs in.
inline std::string sampleFolder() {
    return std::string(TT_SOURCE_DIR) + "/samples/bin";
}

// The page's JSON data as text; empty when the page has none.
inline std::string dataText(const std::string& page) {
    const std::string start = "<script type=\"application/json\" id=\"data\">";
    const auto begin = page.find(start);
    if (begin == std::string::npos) return {};
    const auto end = page.find("</script>", begin);
    return page.substr(begin + start.size(), end - begin - start.size());
}

// A settings file and the report that the program makes about it.
class MadeReport {
public:
    explicit MadeReport(const std::vector<std::string>& options, const std::string& folderToRunIn = sampleFolder()) {
        std::vector<std::string> words = {"report", "-C", folderToRunIn, "-o", path()};
        words.insert(words.end(), options.begin(), options.end());
        run = runTool(words);
        page = fileText(path());
    }

    std::string path() const { return folder.path("report.html"); }
    nlohmann::json data() const { return nlohmann::json::parse(dataText(page)); }

    ToolRun run;
    std::string page;

private:
    TempFolder folder;
};

}  // namespace tests
