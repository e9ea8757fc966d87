#include "support/float_env_preserver.h"

#include "chart_test.h"

#include <dlfcn.h>

#include <cfenv>

namespace {

bool savingFails = false;

}  // namespace

// Stands before the one of the C library, which cannot be made to fail.
extern "C" int fegetenv(std::fenv_t* environment) noexcept {
  if (savingFails) return 1;
  using Saving = int (*)(std::fenv_t*);
  static auto const saving = reinterpret_cast<Saving>(::dlsym(RTLD_NEXT, "fegetenv"));
  return saving(environment);
}

namespace kestrel::test {
namespace {

class FloatEnvironment : public ::testing::Test {
 protected:
  FloatEnvironment() {
    std::fesetround(FE_TONEAREST);
    std::feclearexcept(FE_ALL_EXCEPT);
  }
  ~FloatEnvironment() override {
    savingFails = false;
    std::fesetround(FE_TONEAREST);
    std::feclearexcept(FE_ALL_EXCEPT);
  }
};

TEST_F(FloatEnvironment, GetsItsRoundingBackAtTheEndOfTheScope) {
  {
    FloatEnvPreserver const preserver;
    std::fesetround(FE_UPWARD);
  }
  EXPECT_EQ(std::fegetround(), FE_TONEAREST);
}

TEST_F(FloatEnvironment, GetsBackWhatWasSetBeforeTheScopeAndNotTheUsualOne) {
  std::fesetround(FE_DOWNWARD);
  {
    FloatEnvPreserver const preserver;
    std::fesetround(FE_UPWARD);
  }
  EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
}

TEST_F(FloatEnvironment, GetsItsFlagsBack) {
  {
    FloatEnvPreserver const preserver;
    std::feraiseexcept(FE_DIVBYZERO);
  }
  EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO), 0);
}

TEST_F(FloatEnvironment, IsFreeWithinTheScope) {
  FloatEnvPreserver const preserver;
  std::fesetround(FE_UPWARD);
  EXPECT_EQ(std::fegetround(), FE_UPWARD);
}

TEST_F(FloatEnvironment, ComesBackAlsoBehindAnException) {
  try {
    FloatEnvPreserver const preserver;
    std::fesetround(FE_UPWARD);
    throw OrdinaryFailure();
  } catch (OrdinaryFailure const&) {
    EXPECT_EQ(std::fegetround(), FE_TONEAREST);
  }
}

TEST_F(FloatEnvironment, StaysAsItIsWhereItCouldNotBeSaved) {
  savingFails = true;
  {
    FloatEnvPreserver const preserver;
    std::fesetround(FE_UPWARD);
  }
  EXPECT_EQ(std::fegetround(), FE_UPWARD);
}

}  // namespace
}  // namespace kestrel::test
