// Random floating-point numbers, from the system's random source (see SystemRandom.h).
//
//   const double share = RandomDouble::random();              // 0 to 1
//   const double degrees = RandomDouble::random(-180, 180);
#pragma once

#include <Tolvanite/Platform/SystemRandom.h>

namespace tolvanite {

/// Random numbers of the type double, in steps of one 32-bit draw.
struct RandomDouble {
  RandomDouble() = delete;

  /// A number from 0 to 1, both included.
  static double random() { return systemRandom().word() / 4294967295.0; }
  /// A number from `min` to `max`, both included.
  static double random(double min, double max) { return min + random() * (max - min); }
  /// A number from 0 to `max`, both included.
  static double random(double max) { return random(0.0, max); }
};

/// Random numbers of the type float.
struct RandomFloat {
  RandomFloat() = delete;

  /// A number from 0 to 1, both included.
  static float random() { return static_cast<float>(systemRandom().word()) * 2.3283064e-10F; }
  /// A number from `min` to `max`, both included.
  static float random(float min, float max) { return min + random() * (max - min); }
  /// A number from 0 to `max`, both included.
  static float random(float max) { return random(0.0F, max); }
};

}  // namespace tolvanite
