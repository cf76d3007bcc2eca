#pragma once

namespace standin {

class PlatformData;

// The data that the services answer from now, without sharing it: good for the length of one question.
const PlatformData& installedData();

}  // namespace standin
