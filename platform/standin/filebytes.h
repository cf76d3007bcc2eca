#pragma once

#include <string>

#include "ttplatform/export.h"

namespace standin {

// Why a file could not be read.
enum class FileProblem { kNone, kBadPath, kMissing, kDirectory, kNotRegular, kUnreadable, kTooLarge };

// The largest file that is read, in bytes: far beyond any settings file, small enough for every place in it to be held
// in 32 bits.
constexpr std::size_t kLargestFile = std::size_t{1} << 30;

// Reads a whole regular file into bytes, replacing what they held; on any problem they are left empty. Nothing but a
// regular file (or a link to one) is opened, so that a pipe or a device never blocks the caller. An empty path, an
// over-long one or one with a NUL is a bad path. Throws nothing but std::bad_alloc.
TTPLATFORM_API FileProblem readFileBytes(const std::string& path, std::string& bytes);

// The problem in a few plain words that fit behind a file name and a colon, such as "is a directory".
TTPLATFORM_API const char* fileProblemText(FileProblem problem);

}  // namespace standin
