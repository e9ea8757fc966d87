#pragma once

#include "kestrel_export.h"
#include "xbaseelement.h"
#include "xrow.h"

#include <deque>
#include <memory_resource>
#include <optional>
#include <string>

class LumoUserSource;
class LumoVisualization;
class VarDataProcessor;

/// One table of chart data: the source in the chart text and the table of the same id in the store. Values go
/// straight into the store, never into the chart model.
class KESTREL_API XSource : public XBaseElement {
 public:
  /// Makes the source "source" with the next number and opens its table. Guarded.
  XSource(LumoVisualization& visualization, VarDataProcessor& processor);
  XSource(XSource const&) = delete;
  XSource& operator=(XSource const&) = delete;

  /// Destroys the rows; the store and the chart keep what was written.
  ~XSource() override;

  /// The next row; the source owns it until it is cleared or destroyed.
  virtual XRow* AddRow();

  /// How many rows were added since the source was made or cleared.
  unsigned int getNumRows() const { return static_cast<unsigned int>(mRows->size()); }

  /// Destroys the rows and opens the table in another store. Row numbers start at 0 again.
  /// @return the number of rows that there were
  unsigned int clear(VarDataProcessor& processor);

  /// The source in the chart model. (The spelling is the interface's own.)
  LumoUserSource* getImplemenation() const { return mUserSource; }

 private:
  /// Rows stay where they are until they are destroyed. A source may have millions: their blocks come out of
  /// ever larger pieces, and all go at once.
  std::pmr::monotonic_buffer_resource mRowMemory;
  std::optional<std::pmr::deque<XRow>> mRows{std::in_place, &mRowMemory};
  VarDataProcessor* mProcessor;
  std::string mSourceId;
  LumoUserSource* mUserSource = nullptr;
};
