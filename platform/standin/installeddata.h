#pragma once

namespace standin {

class PlatformData;

// The data that the services answer from now, without shared ownership: valid only while one query is answered.
const PlatformData& installedData();

}  // namespace standin
