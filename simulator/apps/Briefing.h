// SPDX-License-Identifier: Apache-2.0
// The morning briefing. It writes to the database "Morning Brief" whether it plays. A launch starts it playing.
// Actions: play, stop, write TEXT (as the state).
#pragma once

#include "shared/Application.h"
#include "shared/Database.h"

namespace sim {

class Briefing : public Application {
public:
    explicit Briefing(const std::string& id);
    ~Briefing() override;

private:
    void onLaunch(const Request& request) override;
    void onControl(const std::string& action, const std::string& argument) override;
    void write(const std::string& state);

    Database mDatabase{"Morning Brief"};
};

}  // namespace sim
