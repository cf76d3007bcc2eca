#pragma once

#include <string>

#include <boost/shared_ptr.hpp>

class CAlgorithmsParams;

namespace ttservice::internal {

// The record described by the member "content" of a vendor's text. Throws an exception derived from std::exception if
// the text is not JSON, if that member is missing or is neither an object nor an array, or if the record rejects it.
boost::shared_ptr<CAlgorithmsParams> algorithmRecord(const std::string& text);

}  // namespace ttservice::internal
