// Edits of the fields of a row: describes the fields that a row must have to give a wanted answer.
// Entry points: wantedFields().
// Covered by explaining/whynot_test.cpp and explaining/whynotpairs_test.cpp in tests/tools/ttconfig/.

#include "ttconfig/edits/fieldedits.h"

#include "ttconfig/edits/fieldtexts.h"

namespace ttconfig {

WantedPieces wantedFields(const ttservice::internal::LimitField* shape, std::vector<WantedField> fields) {
    WantedPieces wanted;
    wanted.count = fields.size();
    wanted.counts = [](std::string_view) { return true; };
    wanted.says = [shape, fields](std::size_t number, std::string_view old) {
        const WantedField& field = fields[number];
        return field.isAny || says(old, kindOf(shape[number]), field.text);
    };
    wanted.written = [shape, fields](std::size_t number, std::string_view old) {
        const WantedField& field = fields[number];
        if (field.isAny) return old.data() == nullptr ? field.text : std::string(old);
        return writtenLike(old, kindOf(shape[number]), field.text);
    };
    return wanted;
}

WantedPieces wantedFields(const ttservice::internal::LimitField* shape, const std::vector<std::string>& texts) {
    std::vector<WantedField> fields;
    fields.reserve(texts.size());
    for (const std::string& text : texts)
        fields.push_back({text});
    return wantedFields(shape, std::move(fields));
}

}  // namespace ttconfig
