#pragma once

#include "customizecharts.h"

#include "model/document.h"

struct customizeCharts::Data {
  LumoVisualization* mVisualization;
};
