#pragma once

#include <string>

#include "ttplatform/export.h"

namespace standin {

// Why a file could not be read.
enum class FileProblem { kNone, kBadPath, kMissing, kDirectory, kNotRegular, kUnreadable, kTooLarge };

// The largest file that is read, in bytes: far larger than any settings file, but small enough that every place in it
// fits in 32 bits.
constexpr std::size_t kLargestFile = std::size_t{1} << 30;

// Reads a whole regular file into bytes, replacing their content; on any problem bytes is left empty. Opens only
// regular files and links to them, so that a pipe or a device never blocks the caller. A path that is empty, too long
// or contains a NUL is a bad path. Throws only std::bad_alloc.
TTPLATFORM_API FileProblem readFileBytes(const std::string& path, std::string& bytes);

// A few words that can follow a file name and a colon, such as "is a directory".
TTPLATFORM_API const char* fileProblemText(FileProblem problem);

}  // namespace standin
