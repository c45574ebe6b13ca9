// SPDX-License-Identifier: Apache-2.0
// Delivers a result: first to the all-result callback, and then to the clients that registered for its agent. Main loop
// only.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Callbacks.h"
#include "voice/Dialogue.h"

namespace voice {

class ResultDelivery {
public:
    using ResultCallback = Callback<vc_mgr_all_result_cb>;

    // The clients get the result unless the callback returns true, which means that it carried out the result, or
    // isCurrent() is false afterward. If the callback selects commands, only their clients get the result.
    void deliver(const ResultCallback& callback, const Intent& intent, const std::string& text,
                 const std::function<bool()>& isCurrent);
    void reject(const ResultCallback& callback);

    // Selects commands of the result. Call this only within the callback. Returns vc_error_e.
    int select(vc_cmd_list_h list);

private:
    struct Commands;

    bool call(const ResultCallback& callback, vc_result_event_e event, vc_cmd_list_h list, const char* text,
              const char* message);
    void sendTo(const Commands& commands, const std::string& text, const std::string& json) const;

    bool mInCallback = false;
    bool mSelected = false;
    std::vector<vc_cmd_h> mSelection;
};

}  // namespace voice
