#pragma once

#include "kestrelhost/data_store.h"

namespace kestrel::host {

/// Whoever is told of the operations on data stores; null for nobody. The stores ask it for each cell, so it
/// is kept where asking costs no more than a comparison.
void watchStores(StoreObserver* observer);

}  // namespace kestrel::host
