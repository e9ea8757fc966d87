#pragma once

/// Marks what libkestrel exports; everything else stays hidden in the library.
#if defined(__GNUC__)
#define KESTREL_API __attribute__((visibility("default")))
#else
#define KESTREL_API
#endif
