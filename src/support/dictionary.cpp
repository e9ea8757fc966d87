#include "support/dictionary.h"

#include "xutility.h"

#include "support/product_paths.h"

#include "host/files.h"

namespace kestrel {

ChartDictionary::ChartDictionary() : mTable(productPaths().getDictionaryPath()) {
  mTable.SetProcedure("GRAPH");
}

ChartString ChartDictionary::text(char const* key) {
  return XUtility::ChartStringFromOLANG(mTable.LookUp(key).c_str());
}

ChartString ChartDictionary::indexedText(char const* key) {
  unsigned long index = 0;
  return XUtility::ChartStringFromOLANG(mTable.LookUp(key, index).c_str());
}

}  // namespace kestrel
