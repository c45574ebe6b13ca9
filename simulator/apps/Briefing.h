// SPDX-License-Identifier: Apache-2.0
// The morning briefing: writes into the database "Morning Brief" whether it plays. Launched it plays, closed or ordered
// to it stops. Orders: play, stop, write TEXT (as the state, whatever it means).
#pragma once

#include "lib/Application.h"
#include "lib/Database.h"

namespace sim {

class Briefing : public Application {
public:
    explicit Briefing(const std::string& id);
    ~Briefing() override;

private:
    void onLaunch(const Request& request) override;
    void onOrder(const std::string& order, const std::string& argument) override;
    void write(const std::string& state);

    Database mDatabase{"Morning Brief"};
};

}  // namespace sim
