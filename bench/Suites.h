#pragma once

/// Each registers its benchmarks under names "<operation>/<side>/<projectors>"; the side is "library" or "raw".
namespace bench {

void registerDocuments();  ///< load, save, open and close
void registerGetting();
void registerSetting();

}  // namespace bench
