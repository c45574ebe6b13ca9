// SPDX-License-Identifier: Apache-2.0
#include "Resources.h"

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace faults {

namespace {

constexpr double kSettleSeconds = 10;
// GLib ends unused threads of its pool after 15 s.
constexpr int kPoolThreads = 2;
// Memory that an allocator keeps for later requests.
constexpr long kMemorySlackKb = 8192;

int streamsOf(const sim::Appliance& appliance, pid_t process) {
    const std::string list = appliance.folder() / "streams.json";
    std::filesystem::remove(list);
    sim::Process pactl({"timeout", "5", "pactl", "--format=json", "list", "source-outputs"}, list);
    if (pactl.wait() != 0) {
        throw std::runtime_error("the sound server does not list its streams");
    }
    std::ifstream file(list);
    const nlohmann::json streams = nlohmann::json::parse(file, nullptr, false);
    int own = 0;
    for (const nlohmann::json& stream : streams) {
        const nlohmann::json properties = stream.value("properties", nlohmann::json::object());
        own += properties.value("application.process.id", "") == std::to_string(process) ? 1 : 0;
    }
    return own;
}

}  // namespace

Resources resourcesOf(sim::Appliance& appliance) {
    if (!appliance.service().runs()) {
        throw std::runtime_error("the service has ended");
    }
    const pid_t process = appliance.service().process();
    return {sim::usageOf(process), streamsOf(appliance, process)};
}

Resources settledResources(sim::Appliance& appliance, const Resources& before, long keptKb) {
    Resources last;
    try {
        sim::until(
            "the service uses no more resources than before",
            [&] {
                last = resourcesOf(appliance);
                return excess(before, last, keptKb).empty() && last.streams == before.streams;
            },
            kSettleSeconds);
    } catch (const std::runtime_error&) {  // the row shows what is left
        last = resourcesOf(appliance);
    }
    return last;
}

std::string excess(const Resources& before, const Resources& after, long keptKb) {
    if (after.streams != before.streams) {
        return std::to_string(after.streams) + " streams in place of " + std::to_string(before.streams);
    }
    if (after.files > before.files) {
        return std::to_string(after.files - before.files) + " more open files";
    }
    if (after.threads > before.threads + kPoolThreads) {
        return std::to_string(after.threads - before.threads) + " more threads";
    }
    if (after.residentKb > before.residentKb + kMemorySlackKb + keptKb) {
        return std::to_string((after.residentKb - before.residentKb) / 1024) + " MB more memory";
    }
    return {};
}

}  // namespace faults
