#pragma once

#include <optional>
#include <vector>

#include "ttconfig/calls/records.h"
#include "ttconfig/findings/findingwriters.h"
#include "ttconfig/findings/textcolumns.h"

namespace ttconfig {

// One SARIF 2.1.0 log with one run. Columns count UTF-16 code units.
class SarifWriter : public FindingWriter {
public:
    // The severities of the rules after the options.
    SarifWriter(Output& target, std::vector<Severity> ruleSeverities)
        : FindingWriter(target), severities(std::move(ruleSeverities)) {}

    void begin() override;
    void beginFile(const std::string& path, const standin::SettingsText& text) override;
    void add(const Finding& finding) override;
    void addUnusable(const std::string& path, const std::string& message) override;
    void end() override;

private:
    const std::vector<Severity> severities;
    std::string uri;
    std::optional<TextColumns> columns;
    Answer notifications = Answer::array();  // what could not be checked
    bool any = false;
};

// A path as a URI reference: every byte except letters, digits and a few signs becomes %XX.
std::string uriOf(std::string_view path);

}  // namespace ttconfig
