#pragma once

#include "xember.h"

#include "support/side_content.h"

#include <string>

struct xEmber::xEmberData {
  std::string mLumoJSON;
  std::string mOptions;
  std::string mLumoJSONTemplate;
  kestrel::GeoJsonList mGeoJSON;
};
