#pragma once

/// Each registers its benchmarks under names "<operation>/<side>/<projectors>"; the side is "library" or "raw".
namespace bench {

void registerDocuments();  ///< load, save, open and close
void registerGetting();
void registerSetting();

// Beside other work of the library, which is the side "store" or "current".
void registerAccessors();  ///< every setting of projectors; time of one projector
void releaseAccessors();   ///< to be called before the process ends
void registerUpgrade();    ///< every conversion step; time of one device
void registerLayout();     ///< load and layout; time of one projector
void registerCheck();      ///< load and check; time of one projector
void registerDiff();       ///< load two and compare; time of one projector

}  // namespace bench
