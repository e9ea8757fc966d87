#pragma once

#include "chartupdater.h"

#include "model/document.h"
#include "model/style.h"

/// The chart that is worked on. Owns nothing.
struct ChartUpdater::ChartUpdaterData {
  explicit ChartUpdaterData(LumoDocument& document);

  LumoVisualization& visualization() const;
  void reparentStyles() const;

  LumoDocument* mDocument;
  LumoStyle* mContainerStyle;
};
