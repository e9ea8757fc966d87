#pragma once

// Marks the host's classes and functions that other libraries link against; everything else stays hidden.
#define VEXA_API __attribute__((visibility("default")))
