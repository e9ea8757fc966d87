#include "support/dictionary.h"

#include "xutility.h"

#include "support/failure.h"

#include "host/files.h"

namespace kestrel {

namespace {

std::string dictionaryPath() {
  // 3 is the number under which the host keeps the product's own paths.
  return present(PathFactory::getPathInstance(3), "path to its dictionaries").getDictionaryPath();
}

}  // namespace

ChartDictionary::ChartDictionary() : mTable(dictionaryPath()) { mTable.SetProcedure("GRAPH"); }

ChartString ChartDictionary::text(char const* key) {
  return XUtility::ChartStringFromOLANG(mTable.LookUp(key).c_str());
}

ChartString ChartDictionary::indexedText(char const* key) {
  unsigned long index = 0;
  return XUtility::ChartStringFromOLANG(mTable.LookUp(key, index).c_str());
}

}  // namespace kestrel
