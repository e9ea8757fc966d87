#pragma once

/// Marks what the chart object model shows to those who link it; everything else stays hidden.
#if defined(__GNUC__)
#define LUMO_API __attribute__((visibility("default")))
#else
#define LUMO_API
#endif
