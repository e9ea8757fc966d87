#include "kestrelhost/data_source.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <unordered_map>

namespace kestrel::host {

namespace {

/// Cells of one width, one after the other. A cell takes as many whole OBS as it needs.
class CellList {
 public:
  explicit CellList(std::size_t width) : mWidth(width), mStride((std::max<std::size_t>(width, 1) + 7) / 8) {}

  std::size_t count() const { return mCells.size() / mStride; }
  OBS const* at(std::size_t index) const { return mCells.data() + index * mStride; }

  void add(double value) { mCells.emplace_back(value); }

  /// Filled up with blanks to the width.
  void add(std::string_view text) {
    std::string bytes(text.substr(0, mWidth));
    bytes.resize(mWidth, ' ');
    mCells.resize(mCells.size() + mStride);
    std::memcpy(static_cast<void*>(&mCells[mCells.size() - mStride]), bytes.data(), bytes.size());
  }

 private:
  std::size_t mWidth;
  std::size_t mStride;
  std::vector<OBS> mCells;
};

class LabelList : public Vexa_ValueLabels {
 public:
  explicit LabelList(std::size_t width) : mValues(width) {}

  unsigned int GetCount() const override { return static_cast<unsigned int>(mLabels.size()); }
  OBS const* GetValue(unsigned int index) const override { return mValues.at(index); }
  char const* GetLabel(unsigned int index) const override { return mLabels[index].c_str(); }

  template <typename Value>
  void add(Value value, std::string label) {
    mValues.add(value);
    mLabels.push_back(std::move(label));
  }

 private:
  CellList mValues;
  std::vector<std::string> mLabels;
};

}  // namespace

struct MemoryVariable::Column {
  Column(std::string columnName, Vexa_Format columnFormat)
      : name(std::move(columnName)),
        format(columnFormat),
        cells(columnFormat.IsString() ? columnFormat.Width() : sizeof(double)),
        labels(std::make_shared<LabelList>(columnFormat.IsString() ? columnFormat.Width() : sizeof(double))) {
  }

  std::string name;
  std::string label;
  Vexa_Format format;
  CellList cells;
  std::shared_ptr<LabelList> labels;
};

MemoryVariable::MemoryVariable(std::unique_ptr<Column> column) : mColumn(std::move(column)) {}
MemoryVariable::~MemoryVariable() = default;

char const* MemoryVariable::GetName() const { return mColumn->name.c_str(); }
char const* MemoryVariable::GetLabel() const { return mColumn->label.c_str(); }
Vexa_Format MemoryVariable::GetFormat() const { return mColumn->format; }
Vexa_VLImplPointer MemoryVariable::GetValueLabels() const { return Vexa_VLImplPointer(mColumn->labels); }

void MemoryVariable::setLabel(std::string label) { mColumn->label = std::move(label); }

void MemoryVariable::setFormat(Vexa_Format format) {
  Vexa_Format const& now = mColumn->format;
  bool const sameCells =
      now.IsString() ? format.IsString() && format.Width() == now.Width() : !format.IsString();
  if (!sameCells) throw std::invalid_argument("this format does not fit the cells of " + mColumn->name);
  mColumn->format = format;
}

void MemoryVariable::addValueLabel(double value, std::string label) {
  if (mColumn->format.IsString()) throw std::invalid_argument(mColumn->name + " is a text variable");
  mColumn->labels->add(value, std::move(label));
}

void MemoryVariable::addValueLabel(std::string_view value, std::string label) {
  if (!mColumn->format.IsString()) throw std::invalid_argument(mColumn->name + " is a variable of numbers");
  mColumn->labels->add(value, std::move(label));
}

OBS const* MemoryVariable::cell(std::uint64_t index) const { return mColumn->cells.at(index); }

MemoryDataSource::MemoryDataSource() = default;
MemoryDataSource::~MemoryDataSource() = default;

MemoryVariable& MemoryDataSource::add(std::unique_ptr<MemoryVariable::Column> column) {
  if (!mVariables.empty() && column->cells.count() != caseCount()) {
    throw std::invalid_argument(column->name + " has another number of cases than the columns before it");
  }
  mVariables.emplace_back(new MemoryVariable(std::move(column)));
  return *mVariables.back();
}

MemoryVariable& MemoryDataSource::addNumbers(std::string name, std::vector<double> const& values,
                                             Vexa_Format format) {
  if (format.IsString()) throw std::invalid_argument(name + " has numbers and the format of a text");
  auto column = std::make_unique<MemoryVariable::Column>(std::move(name), format);
  for (double const value : values) column->cells.add(value);
  return add(std::move(column));
}

MemoryVariable& MemoryDataSource::addTexts(std::string name, std::vector<std::string> const& values,
                                           unsigned short width) {
  std::size_t longest = 1;
  for (std::string const& value : values) longest = std::max(longest, value.size());
  std::size_t const room = width != 0 ? width : std::numeric_limits<unsigned short>::max();
  if (longest > room) throw std::length_error(name + " has a value that is longer than the variable is wide");
  Vexa_Format const format(Vexa_Format::FormatString, width != 0 ? width : static_cast<int>(longest), 0);
  auto column = std::make_unique<MemoryVariable::Column>(std::move(name), format);
  for (std::string const& value : values) column->cells.add(std::string_view(value));
  return add(std::move(column));
}

MemoryVariable& MemoryDataSource::addCategories(std::string name, std::vector<std::string> const& values) {
  auto column =
      std::make_unique<MemoryVariable::Column>(std::move(name), Vexa_Format(Vexa_Format::FormatNumber, 8, 0));
  std::unordered_map<std::string_view, double> codes;
  for (std::string const& value : values) {
    if (value.empty()) {
      column->cells.add(systemMissing);
      continue;
    }
    auto const [code, isNew] = codes.try_emplace(value, static_cast<double>(codes.size() + 1));
    if (isNew) column->labels->add(code->second, value);
    column->cells.add(code->second);
  }
  return add(std::move(column));
}

unsigned int MemoryDataSource::variableCount() const { return static_cast<unsigned int>(mVariables.size()); }
MemoryVariable& MemoryDataSource::variable(unsigned int index) { return *mVariables.at(index); }
MemoryVariable const& MemoryDataSource::variable(unsigned int index) const { return *mVariables.at(index); }

std::uint64_t MemoryDataSource::caseCount() const {
  return mVariables.empty() ? 0 : mVariables.front()->mColumn->cells.count();
}

int MemoryDataSource::FindVarIndex(char const* name, int) const {
  auto const matches = [name](auto const& variable) { return variable->mColumn->name == name; };
  auto const found =
      name != nullptr ? std::find_if(mVariables.begin(), mVariables.end(), matches) : mVariables.end();
  return found != mVariables.end() ? static_cast<int>(found - mVariables.begin()) : -1;
}

MemoryCaseIterator::MemoryCaseIterator(MemoryDataSource const& source) : mSource(source), mCase(0) {}
MemoryCaseIterator::~MemoryCaseIterator() = default;

bool MemoryCaseIterator::next() {
  if (mCase <= mSource.caseCount()) ++mCase;
  return mCase <= mSource.caseCount();
}

OBS const* MemoryCaseIterator::GetObsPointer(unsigned int index) const {
  bool const inside = mCase >= 1 && mCase <= mSource.caseCount() && index < mSource.variableCount();
  return inside ? mSource.variable(index).cell(mCase - 1) : nullptr;
}

std::int64_t MemoryCaseIterator::GetCaseNumber() const { return static_cast<std::int64_t>(mCase); }

}  // namespace kestrel::host
