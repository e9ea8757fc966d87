#include "host/data_types.h"

Vexa_ValueLabels::~Vexa_ValueLabels() = default;
Vexa_Variable::~Vexa_Variable() = default;
Vexa_DataSource::~Vexa_DataSource() = default;
ProcedureDataSource::~ProcedureDataSource() = default;
Vexa_InputCaseIterator::~Vexa_InputCaseIterator() = default;
ProcDSIterator::~ProcDSIterator() = default;

Vexa_ValueLabelMap::Vexa_ValueLabelMap(Vexa_VLImplPointer const& labels) : mLabels(labels), mNext(0) {}
Vexa_ValueLabelMap::~Vexa_ValueLabelMap() = default;

void Vexa_ValueLabelMap::Reset() { mNext = 0; }

int Vexa_ValueLabelMap::GetNextPair(OBS const*& value, char const*& label) const {
  Vexa_ValueLabels const* const labels = mLabels.get();
  if (labels == nullptr || mNext >= labels->GetCount()) return 0;
  value = labels->GetValue(mNext);
  label = labels->GetLabel(mNext);
  ++mNext;
  return 1;
}
