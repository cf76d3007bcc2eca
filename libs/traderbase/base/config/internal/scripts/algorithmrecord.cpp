// Algorithm records: converts a vendor's text to a record.
// Entry points: algorithmRecord().
// Covered by tests/config/algorithmparamconfig_test.cpp.

#include "traderbase/base/config/internal/scripts/algorithmrecord.h"

#include <mongo/bson/bson.h>
#include <ttplatform/algorithmsparams.h>
#include <boost/make_shared.hpp>

#include "traderbase/base/config/internal/scripts/jsonobject.h"

namespace bson = mongo;

namespace ttservice::internal {

boost::shared_ptr<CAlgorithmsParams> algorithmRecord(const std::string& text) {
    const bson::BSONObj answer = parseJson(text);
    CAlgorithmsParams record;
    // Throws the BSON library's own error 10065 if the member is neither an object nor an array.
    record.bsonValueFromObj(answer.getField("content").embeddedObjectUserCheck(), true, nullptr);
    return boost::make_shared<CAlgorithmsParams>(record);
}

}  // namespace ttservice::internal
