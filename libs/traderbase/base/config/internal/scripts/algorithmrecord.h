#pragma once

#include <string>

#include <boost/shared_ptr.hpp>

class CAlgorithmsParams;

namespace ttservice::internal {

// The record that the member "content" of a vendor's text describes. Throws an exception derived from std::exception
// when the text is no JSON, has no such member or one that is neither an object nor an array, or when the record does
// not take it.
boost::shared_ptr<CAlgorithmsParams> algorithmRecord(const std::string& text);

}  // namespace ttservice::internal
