#include "bench/measure.h"

namespace bench {
namespace {

struct Unit {
  double seconds;
  const char* name;
};

constexpr Unit kUnits[] = {{1.0, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}};

}  // namespace

std::string TimeText(double seconds) {
  const Unit* unit = std::find_if(std::begin(kUnits), std::end(kUnits) - 1,
                                  [seconds](const Unit& candidate) { return seconds >= candidate.seconds; });
  char text[64];
  std::snprintf(text, sizeof text, "%.3g %s", seconds / unit->seconds, unit->name);
  return text;
}

void PrintRatio(const std::string& name, double seconds, const std::string& reference, double referenceSeconds) {
  std::printf("%s: %.2f x %s (%s against %s)\n", name.c_str(), seconds / referenceSeconds, reference.c_str(),
              TimeText(seconds).c_str(), TimeText(referenceSeconds).c_str());
  std::fflush(stdout);
}

void PrintTime(const std::string& name, double seconds) {
  std::printf("%s: %s\n", name.c_str(), TimeText(seconds).c_str());
  std::fflush(stdout);
}

}  // namespace bench
