#pragma once

class LumoAxis;
class LumoDimension;
class LumoSchema;

namespace kestrel {

/// Parts that belong to no chart that is ever sent, for operations that owe their caller a wrapper and have
/// nothing in the chart to wrap. There is one of each for the process, shared by all who ask for it; it and
/// its document are never freed, so that no wrapper on it dangles.
LumoAxis& axisOutsideTheChart();
LumoSchema& elementOutsideTheChart();

}  // namespace kestrel
