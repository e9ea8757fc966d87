#include "byte_budget.h"

#include "problem.h"

namespace kestrel::tool {

void ByteBudget::take(std::size_t bytes, std::filesystem::path const& file) {
  if (bytes > mLeft) {
    throw Problem(file.string() + ": is written no further: all files together would take more than " +
                      counted(mAll, "byte") + "; --max-bytes allows more",
                  Exit::NotWritten);
  }
  mLeft -= bytes;
}

}  // namespace kestrel::tool
