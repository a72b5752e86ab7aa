#pragma once

#include "Raw.h"
#include "Sample.h"
#include "store/ConfigInfo.h"

/// Documents that are loaded once and shared by the benchmarks that work on items.
namespace bench {

/// Compared item by item with the sample when it is loaded; throws std::runtime_error where they differ.
ConfigInfo& loadedDocument(int projectors);
/// The same for storing, so that reading always meets the sample's values.
ConfigInfo& documentForStoring(int projectors);
xercesc::DOMDocument& loadedRawDocument(int projectors);
xercesc::DOMDocument& rawDocumentForStoring(int projectors);
/// To be called before the process ends.
void releaseLoadedDocuments();

}  // namespace bench
