#include "support/float_env_preserver.h"

namespace kestrel {

FloatEnvPreserver::FloatEnvPreserver() : mEnvironment(), mSaved(std::fegetenv(&mEnvironment) == 0) {}

FloatEnvPreserver::~FloatEnvPreserver() {
  if (mSaved) std::fesetenv(&mEnvironment);
}

}  // namespace kestrel
