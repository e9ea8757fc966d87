#pragma once

#include "export.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>

/// The host's data cell. A number is a double in its eight bytes; a string variable's cell is the first of as
/// many bytes as the variable is wide, padded with blanks.
struct alignas(8) OBS {
  /// The double, in the byte order of the machine, or eight bytes of text.
  unsigned char bytes[8] = {};

  OBS() = default;
  /// The cell of that number.
  explicit OBS(double number) { std::memcpy(bytes, &number, sizeof number); }

  /// The eight bytes as a double, whatever they stand for.
  double number() const {
    double result;
    std::memcpy(&result, bytes, sizeof result);
    return result;
  }
};
static_assert(sizeof(OBS) == 8);
static_assert(alignof(OBS) == 8);

/// A print format: how wide a value is printed, as what, and with how many decimals.
class Vexa_Format {
 public:
  /// Open: a type that has no name here is no error. Types of one kind that differ only in the host's display
  /// carry their number.
  enum FormatType : int {
    FormatNone = 0,
    FormatString = 1,      ///< text of a fixed width
    FormatTextString = 2,  ///< text
    FormatNumber3 = 3,
    FormatNumber4 = 4,
    FormatNumber = 5,  ///< the plain number
    FormatNumber8 = 8,
    FormatNumber9 = 9,
    FormatNumber12 = 12,
    FormatNumber15 = 15,
    FormatNumber16 = 16,
    FormatNumber17 = 17,
    FormatDate = 20,
    FormatTime = 21,
    FormatDateTime = 22,
    FormatDate23 = 23,
    FormatDate24 = 24,
    FormatElapsedTime = 25,
    FormatDayOfWeek = 26,
    FormatMonthOfYear = 27,
    FormatDate28 = 28,
    FormatDate29 = 29,
    FormatDate30 = 30,
    FormatNumber31 = 31,
    FormatNumber32 = 32,
    FormatCustomCurrency1 = 33,
    FormatCustomCurrency2 = 34,
    FormatCustomCurrency3 = 35,
    FormatCustomCurrency4 = 36,
    FormatCustomCurrency5 = 37,
    FormatDate38 = 38,
    FormatDate39 = 39,
    FormatNumber40 = 40,
    FormatTime85 = 85,
    FormatDateTime86 = 86,
  };

  /// The widest a number or a date is printed, in characters.
  static constexpr unsigned short widestNumber = 40;

  constexpr Vexa_Format() = default;
  /// A format of that type, as the operations below set it. The width is in characters.
  constexpr Vexa_Format(FormatType type, int width, int decimals) {
    // The type first: the width's limit depends on it.
    Type(type);
    Width(static_cast<unsigned short>(width));
    Decimals(static_cast<unsigned char>(decimals));
  }

  /// Keeps the low eight bits.
  constexpr void Type(FormatType type) { mType = static_cast<std::uint8_t>(type); }
  /// Everything but a string is at most 40 wide; a string keeps any width.
  constexpr void Width(unsigned short width) {
    mWidth = width > widestNumber && !IsString() ? widestNumber : width;
  }
  /// Digits behind the decimal point; not limited.
  constexpr void Decimals(unsigned char decimals) { mDecimals = decimals; }

  /// @{
  /// The parts, as they were set.
  constexpr unsigned int TypeEx() const { return mType; }
  constexpr unsigned short Width() const { return mWidth; }
  constexpr unsigned char Decimals() const { return mDecimals; }
  /// @}

  /// Whether the type is one of the two of text.
  constexpr bool IsString() const { return mType == FormatString || mType == FormatTextString; }

 private:
  std::uint16_t mWidth = 0;
  std::uint8_t mType = 0;
  std::uint8_t mDecimals = 0;
};
static_assert(sizeof(Vexa_Format) == 4);

/// The value labels of one variable: pairs of a cell and a text in the local code page. What it gives lives
/// as long as it does.
class VEXA_API Vexa_ValueLabels {
 public:
  virtual ~Vexa_ValueLabels();

  /// The number of pairs. Indexes count from 0 and must lie below it.
  virtual unsigned int GetCount() const = 0;
  /// The cell of a string variable has as many bytes as the variable is wide.
  virtual OBS const* GetValue(unsigned int index) const = 0;
  /// May be null: a value without a text.
  virtual char const* GetLabel(unsigned int index) const = 0;
};

/// A shared hold on value labels; null stands for none.
class Vexa_VLImplPointer {
 public:
  Vexa_VLImplPointer() = default;
  /// A further hold on the labels.
  explicit Vexa_VLImplPointer(std::shared_ptr<Vexa_ValueLabels const> labels) : mLabels(std::move(labels)) {}

  /// The labels, which live as long as somebody holds them; null for none.
  Vexa_ValueLabels const* get() const { return mLabels.get(); }

 private:
  std::shared_ptr<Vexa_ValueLabels const> mLabels;
};

/// Walks the value labels of a variable in their order.
class VEXA_API Vexa_ValueLabelMap {
 public:
  /// Stands before the first pair. Keeps a hold on the labels of its own.
  explicit Vexa_ValueLabelMap(Vexa_VLImplPointer const& labels);
  ~Vexa_ValueLabelMap();

  /// Back before the first pair.
  void Reset();

  /// Gives the next pair and 1, or 0 at the end, where both arguments stay as they were.
  int GetNextPair(OBS const*& value, char const*& label) const;

 private:
  Vexa_VLImplPointer mLabels;
  mutable unsigned int mNext;
};

/// A variable of the data set. Texts are in the local code page and live as long as the variable.
class VEXA_API Vexa_Variable {
 public:
  virtual ~Vexa_Variable();

  /// The name, never null.
  virtual char const* GetName() const = 0;
  /// Null or empty where there is none.
  virtual char const* GetLabel() const = 0;
  /// The print format.
  virtual Vexa_Format GetFormat() const = 0;
  /// A hold on the value labels; an empty one where there are none.
  virtual Vexa_VLImplPointer GetValueLabels() const = 0;
};

/// A data set, as the variables of a chart ask for their columns.
class VEXA_API Vexa_DataSource {
 public:
  virtual ~Vexa_DataSource();

  /// The index of the variable of that name, or -1. Names compare byte by byte; the second argument is 0.
  virtual int FindVarIndex(char const* name, int option) const = 0;
};

/// The data of a procedure.
class VEXA_API ProcedureDataSource : public Vexa_DataSource {
 public:
  ~ProcedureDataSource() override;
};

/// Walks the cases of a data set. It belongs to the procedure, which moves it on.
class VEXA_API Vexa_InputCaseIterator {
 public:
  virtual ~Vexa_InputCaseIterator();

  /// The current case's cell of that variable, or null where there is none. Good until the iterator moves on.
  virtual OBS const* GetObsPointer(unsigned int index) const = 0;
};

/// Walks the cases of a procedure.
class VEXA_API ProcDSIterator : public Vexa_InputCaseIterator {
 public:
  ~ProcDSIterator() override;

  /// The number of the current case; the first is 1.
  virtual std::int64_t GetCaseNumber() const = 0;
};
