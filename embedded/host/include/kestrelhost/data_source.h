#pragma once

#include "host/data_types.h"
#include "host/export.h"
#include "kestrelhost/missing.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::host {

/// A column of a data source in memory. All text is in the local code page.
class VEXA_API MemoryVariable : public Vexa_Variable {
 public:
  ~MemoryVariable() override;
  MemoryVariable(MemoryVariable const&) = delete;
  MemoryVariable& operator=(MemoryVariable const&) = delete;

  char const* GetName() const override;
  char const* GetLabel() const override;
  Vexa_Format GetFormat() const override;
  Vexa_VLImplPointer GetValueLabels() const override;

  /// @{
  /// The label and the print format; the label is empty unless it was set.
  void setLabel(std::string label);
  void setFormat(Vexa_Format format);
  /// @}

  /// For a column of numbers.
  void addValueLabel(double value, std::string label);
  /// For a column of text; a value longer than the column is wide is cut, as a cell could not hold it.
  void addValueLabel(std::string_view value, std::string label);

  /// A number's cell, or the first of the bytes of a text. The case must lie below the source's number of
  /// cases.
  OBS const* cell(std::uint64_t index) const;

 private:
  friend class MemoryDataSource;
  struct Column;

  explicit MemoryVariable(std::unique_ptr<Column> column);

  std::unique_ptr<Column> mColumn;
};

/// A data set in memory, column by column, as a procedure's data source. Every column must have as many cases
/// as the first; one that has not is refused with std::invalid_argument.
class VEXA_API MemoryDataSource : public ProcedureDataSource {
 public:
  /// @{
  /// Print formats where none is given.
  static constexpr Vexa_Format usualNumber{Vexa_Format::FormatNumber, 8, 2};
  static constexpr Vexa_Format usualDate{Vexa_Format::FormatDate, 11, 0};
  /// @}

  MemoryDataSource();
  ~MemoryDataSource() override;
  MemoryDataSource(MemoryDataSource const&) = delete;
  MemoryDataSource& operator=(MemoryDataSource const&) = delete;

  /// Numbers, or dates as seconds since 1970-01-01T00:00:00 with a date's format. The source keeps the
  /// variable.
  MemoryVariable& addNumbers(std::string name, std::vector<double> const& values,
                             Vexa_Format format = usualNumber);

  /// Text of a fixed width, which is that of the longest value if it is not given. A longer value is refused
  /// with std::length_error.
  MemoryVariable& addTexts(std::string name, std::vector<std::string> const& values,
                           unsigned short width = 0);

  /// Text as categories: the numbers 1, 2, ... in the order in which the texts first appear, with the texts
  /// as value labels. An empty text is system-missing.
  MemoryVariable& addCategories(std::string name, std::vector<std::string> const& values);

  /// How many variables there are.
  unsigned int variableCount() const;

  /// @{
  /// The variable of that index, from 0, which must lie below the count; the source keeps it.
  MemoryVariable& variable(unsigned int index);
  MemoryVariable const& variable(unsigned int index) const;
  /// @}

  /// How many cases each variable has.
  std::uint64_t caseCount() const;

  /// Of two variables of a name the first is found.
  int FindVarIndex(char const* name, int option) const override;

 private:
  MemoryVariable& add(std::unique_ptr<MemoryVariable::Column> column);

  std::vector<std::unique_ptr<MemoryVariable>> mVariables;
};

/// Walks the cases of a source in memory, which must outlive it. It stands before the first case at first.
class VEXA_API MemoryCaseIterator : public ProcDSIterator {
 public:
  /// Stands before the first case.
  explicit MemoryCaseIterator(MemoryDataSource const& source);
  ~MemoryCaseIterator() override;

  /// False behind the last case.
  bool next();

  OBS const* GetObsPointer(unsigned int index) const override;
  std::int64_t GetCaseNumber() const override;

 private:
  MemoryDataSource const& mSource;
  /// 0 before the first case.
  std::uint64_t mCase;
};

}  // namespace kestrel::host
