#pragma once

#include "xdocument_data.h"

namespace kestrel::test {

/// The record behind a document, which has no other way in.
auto& recordOf(XDocument& document);

template <auto Record>
struct RecordAccess {
  friend auto& recordOf(XDocument& document) { return *(document.*Record); }
};

// The names in an explicit instantiation may be private.
template struct RecordAccess<&XDocument::mData>;

}  // namespace kestrel::test
