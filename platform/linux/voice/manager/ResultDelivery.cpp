// SPDX-License-Identifier: Apache-2.0
#include "ResultDelivery.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

#include "Clients.h"
#include "Command.h"
#include "voice/Understanding.h"

namespace voice {

// The result as a list of commands: one per client, or a single one for the service if there are no clients.
struct ResultDelivery::Commands {
    Commands(std::vector<Client> to, const std::string& text, const std::string& json)
        : clients(std::move(to)), commands(std::max<std::size_t>(clients.size(), 1)) {
        for (std::size_t i = 0; i < commands.size(); ++i) {
            commands[i].text = text;
            commands[i].json = json;
            commands[i].pid = i < clients.size() ? clients[i].pid : getpid();
            list.commands.push_back(&commands[i]);
        }
    }

    std::vector<Client> clients;
    std::vector<vc_cmd_s> commands;
    vc_cmd_list_s list;
};

void ResultDelivery::deliver(const ResultCallback& callback, const Intent& intent, const std::string& text,
                             const std::function<bool()>& isCurrent) {
    const std::string json = toJson(intent, text);
    Commands commands(clientsFor(intent.agent), text, json);
    const bool carriedOut = call(callback, VC_RESULT_EVENT_RESULT_SUCCESS, &commands.list, text.c_str(), "");
    if (isCurrent() && (!carriedOut || mSelected)) {
        sendTo(commands, text, json);
    }
}

void ResultDelivery::sendTo(const Commands& commands, const std::string& text, const std::string& json) const {
    for (std::size_t i = 0; i < commands.clients.size(); ++i) {
        const bool chosen = std::find(mSelection.begin(), mSelection.end(), &commands.commands[i]) != mSelection.end();
        if (!mSelected || chosen) {
            deliverResult(commands.clients[i], text, json);
        }
    }
}

void ResultDelivery::reject(const ResultCallback& callback) {
    vc_cmd_list_s none;
    call(callback, VC_RESULT_EVENT_REJECTED, &none, "", "No command fits what was said");
}

bool ResultDelivery::call(const ResultCallback& callback, vc_result_event_e event, vc_cmd_list_h list, const char* text,
                          const char* message) {
    mInCallback = true;
    mSelected = false;
    const bool carriedOut = callback && callback(event, list, text, message);
    mInCallback = false;
    return carriedOut;
}

int ResultDelivery::select(vc_cmd_list_h list) {
    if (!list) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    if (!mInCallback) {
        return VC_ERROR_INVALID_STATE;
    }
    mSelected = true;
    mSelection = list->commands;
    return VC_ERROR_NONE;
}

}  // namespace voice
