#pragma once

#include "kestrel_export.h"
#include "xbaseelement.h"

#include "host/data_types.h"
#include "model/chartstring.h"

#include <string>
#include <vector>

class CTVariableType;
class LumoCategoricalDomain;
class LumoDerivedVariable;
class LumoExpressionVariable;
class LumoFormat;
class LumoSourceVariable;
class XSource;

/// The builder of one chart variable: the variable in the chart text, the host's record of it (labels, print
/// format) and its data column in the store. Owns neither.
class KESTREL_API XVariable : public XBaseElement {
 public:
  /// Where the variable's values come from, as the chart text says it. Any other value writes nothing.
  enum CREATOR : int {
    CreatorExternalDatasource,
    CreatorExternalSystem,
    CreatorExternalAggregate,
    CreatorInternalAggregate,
    CreatorInternalVariable
  };

  /// What a computed variable holds; the client knows each by a number. `Statistic28` and any other value
  /// write nothing.
  enum ENUM_statistic : int {
    Statistic0,
    Statistic1,
    Statistic2,
    Statistic3,
    Statistic4,
    Statistic5,
    Statistic6,
    Statistic7,
    Statistic8,
    Statistic9,
    Statistic10,
    Statistic11,
    Statistic12,
    Statistic13,
    Statistic14,
    Statistic15,
    Statistic16,
    Statistic17,
    Statistic18,
    Statistic19,
    Statistic20,
    Statistic21,
    Statistic22,
    Statistic23,
    Statistic24,
    Statistic25,
    Statistic26,
    Statistic27,
    Statistic28,
    Statistic29,
    Statistic30
  };

  /// A variable over a column of the procedure's data: takes the host variable's labels and print format.
  /// Guarded.
  XVariable(LumoSourceVariable& variable, Vexa_Variable const& host, XSource& source,
            ProcedureDataSource const* data);

  /// A variable of the source with a data column but no host variable. Guarded.
  XVariable(LumoSourceVariable& variable, XSource& source);

  /// Wraps a variable as it stands: the wrapper has no data column, whatever the model's variable says.
  explicit XVariable(LumoSourceVariable& variable);

  /// The sum of at least two variables. With fewer the failure is reported and the expression stays unset.
  /// Guarded.
  XVariable(LumoExpressionVariable& variable, std::vector<XVariable*> operands);

  /// The case number. `systemVariable` false is not supported: reported, and the variable stays without a
  /// column. Guarded.
  XVariable(LumoSourceVariable& variable, bool systemVariable, XSource& source, bool categorical);

  /// Wraps a derived variable as it stands; it has no data column.
  explicit XVariable(LumoDerivedVariable& variable);

  /// Fills the first format from the host variable's print format. Guarded.
  virtual void setFormatBasedOnVexaVariable(Vexa_Variable const& host);

  /// Fills the first format, which is made if there is none (also for a type that then fills nothing).
  /// Guarded.
  virtual void setFormat(Vexa_Format format);

  /// Gives the variable a new categorical domain that is sorted by value. Guarded.
  virtual void sortCategories(bool descending);

  /// The variable in the chart model, which keeps it.
  virtual CTVariableType& getImplementation() const;
  /// Whether the variable has a format.
  virtual bool doesFormatExist() const;

  /// The id in the chart, valid until it changes; null where there is none.
  char16_t const* GetID() const;

  /// Name of the data column in the store, UTF-8; empty where the wrapper has none.
  std::string getSourceName() const { return mSourceName; }

  /// @{
  /// Whether the values are categories; false unless it was set.
  bool getCategorical() const;
  void setCategorical(bool categorical);
  /// @}

  /// Writes where the values come from, as text.
  void setCreator(CREATOR creator);

  /// Marks the variable as the one that labels cases where nothing else is said.
  void makeDefaultLabelingVar();

  /// @{
  /// Written unchanged, empty ones too.
  void setLabel(ChartString const& label);
  void setShortLabel(ChartString const& label);
  /// @}

  /// The model's label; empty where there is none.
  ChartString getLabel() const;

  /// The host variable's label without its leading blanks (trailing ones stay), or the model's label where
  /// there is no host variable.
  ChartString getVexaVariableLabel() const;
  /// The host variable's name, or the model's short label where there is no host variable.
  ChartString getVexaVariableShortLabel() const;

  /// @{
  /// Whether the variable is the weight of the cases; false unless it was set.
  void SetWeight(bool weight);
  bool isWeightVariable() const;
  /// @}

  /// Attaches a host variable, which the caller keeps. Labels, formats and the data index stay as they are.
  void setVexaVariable(Vexa_Variable const& host);

  /// The variable's value in the iterator's current case; the system-missing value where there is none.
  double getData(ProcDSIterator const* iterator);

  /// Fixes the number of decimals of the first format. Null and empty affixes leave what stands there.
  /// @param decimals cut to 32 bits
  bool SetNumberFormat(unsigned long decimals, bool grouping, char16_t const* prefix, char16_t const* suffix);

  /// @{
  /// Text before and behind each number, on the first format, which is made if there is none. False, and
  /// nothing made, for an empty or null text. Guarded.
  bool SetFormatPrefix(char16_t const* prefix);
  bool SetFormatSuffix(char16_t const* suffix);
  /// @}

  /// @{
  /// Relabels the values 1 to 7 (Sunday first) and 1 to 12 with the names in the output language: long ones
  /// for a width above 3.
  void addDayOfWeekRelabels(LumoFormat& format, Vexa_Format hostFormat);
  void addMonthOfYearRelabels(LumoFormat& format, Vexa_Format hostFormat);
  /// @}

  /// @{
  /// Shows a value as another text, on the first format. Nothing is done for a null or empty value; the text
  /// may be empty, and a backslash followed by n becomes a line feed in it. A second text for a value is
  /// added behind the first. Guarded.
  void addRelabel(char16_t const* value, char16_t const* text);
  void addRelabel(unsigned int value, char16_t const* text);
  /// @}

  /// The value is the cell in the host variable's format, or with up to 16 significant digits where there is
  /// no host variable.
  void addRelabel(OBS const& value, char16_t const* text);
  /// As the form above, but here the cell is the text that is shown. Line feeds are made in the value too.
  void addRelabel(char16_t const* value, OBS const& text);
  /// All value labels of the host variable, in their order; none without a host variable.
  void addRelabels();
  /// Of the first format. Guarded.
  void removeAllRelabels();

  /// Leaves a category out of the chart. Nothing is done for the empty text. Guarded.
  void excludeCategory(ChartString const& category);

  /// Says that the variable holds a computed statistic.
  /// @param value of a statistic with one argument, such as a percentile
  /// @param minimum and @param maximum of a statistic over a range
  /// @param groupedMidpoints whether the data are midpoints of groups, for the statistics that ask for it
  void setStatistic(ENUM_statistic statistic, double value, double minimum, double maximum,
                    bool groupedMidpoints);

 private:
  friend class XDataValue;

  void bindTo(XSource& source);
  void nameColumn(LumoSourceVariable& variable);
  LumoFormat& findOrMakeFormat();
  void appendRelabel(ChartString const& value, ChartString text);
  ChartString cellText(OBS const& cell) const;
  LumoCategoricalDomain* findCategoricalDomain() const;
  LumoCategoricalDomain& addOwnDomain();
  void setInputDateFormatPattern(char16_t const* pattern);
  void fillFormat(LumoFormat& format, Vexa_Format hostFormat);

  CTVariableType* mImplementation;
  std::string mSourceName;
  Vexa_Variable const* mVexaVariable = nullptr;
  int mVarIndex = -1;
  bool mIsSystemVariable = false;
};
