#pragma once

#include <cfenv>

namespace kestrel {

/// Gives the caller's floating-point environment back at the end of a scope in which foreign code (the Java
/// VM) may change it. Where it could not be saved nothing is restored.
class FloatEnvPreserver {
 public:
  FloatEnvPreserver();
  FloatEnvPreserver(FloatEnvPreserver const&) = delete;
  FloatEnvPreserver& operator=(FloatEnvPreserver const&) = delete;
  ~FloatEnvPreserver();

 private:
  std::fenv_t mEnvironment;
  bool mSaved;
};

}  // namespace kestrel
