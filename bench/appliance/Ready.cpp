#include "appliance/Ready.h"

namespace bench {

namespace {

constexpr char kReady[] = "Previous(None) -> Current(Ready)";
constexpr double kSeconds = 30;

}  // namespace

void startReadyService(sim::Appliance& appliance, const std::string& program) {
    const std::size_t logged = appliance.serviceLog().size();
    appliance.startService(program);
    appliance.until(
        "the recogniser is ready", [&] { return appliance.serviceLog().find(kReady, logged) != std::string::npos; },
        kSeconds);
}

}  // namespace bench
