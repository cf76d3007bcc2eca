#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/tables/limittablefacts.h"

namespace ttconfig {

// A question that a limit table answers.
struct LimitLookup {
    const Question& question;
    const LimitTable& table;
    std::string market;  // in upper case, as it is looked for
    std::string code;
    ttservice::internal::LimitCategory category;
    std::vector<const ttservice::internal::SettingKey*>
        sections{};                                          // of the table, in the order in which they are read
    const ttservice::internal::LimitField* shape = nullptr;  // of the rows
    std::size_t fieldCount = 0;
    bool looksForCode = true;    // before it looks for the category
    bool insertsDefault = true;  // where there is no row
    Answer (*valueOf)(std::string_view value) = nullptr;
    Answer valueWithoutRow = nullptr;
    std::size_t firstField = 0;  // of the answer, among those of the row

    template <std::size_t Count>
    void setShape(const ttservice::internal::LimitRowShape<Count>& rowShape) {
        shape = rowShape.data();
        fieldCount = Count;
    }

    std::string categoryWord() const { return std::string(category.word); }
    // "SH-STOCK"
    std::string nameOf(std::string_view item) const;
    // What makes a row the right one, to be put behind its name.
    std::string describe(Reason reason) const;
};

// Edits of rows that might give the limit that was wanted.
void suggestLimit(const LimitLookup& asked, const Wanted& wanted, Edits& edits);

}  // namespace ttconfig
