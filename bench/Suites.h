#pragma once

/// Each registers its benchmarks under names "<operation>/<side>/<projectors>"; the side is "library", "raw" or another XML
/// library.
namespace bench {

void registerDocuments();  ///< load, save, open and close
void registerGetting();
void registerSetting();
void registerBeside();  ///< the jobs of users beside the other libraries that the build found

// Beside other work of the library, which is the side "store" or "load", or Xerces-C's load of the same file.
void registerAccessors();  ///< every setting of projectors; time of one projector
void releaseAccessors();   ///< to be called before the process ends
void registerUpgrade();    ///< every conversion step; time of one device
void registerReading();    ///< load and one value; time of one projector
void registerLayout();     ///< load and layout; time of one projector
void registerCheck();      ///< load and check; time of one projector
void registerDiff();       ///< load two and compare; time of one projector

/// 10,000 and 100,000 projectors, printed at once. Gives whether time and memory grow with the file and no faster.
bool measureLarge();

}  // namespace bench
