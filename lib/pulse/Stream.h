// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pulse/pulseaudio.h>

namespace pulse {

// Closes the stream and releases it. The library cannot close a stream that the server has not opened yet. Such a
// stream is closed as soon as it is open, or ends its connection as endUnanswered() does. No callback of the stream's
// owner runs afterward.
void closeStream(pa_stream* stream) noexcept;

// If the stream failed because the server did not answer the request to open it, ends the connection: the server may
// still open the stream later, and nothing else would close it. The owner of the context then destroys the stream,
// perhaps before this returns.
void endUnanswered(pa_stream* stream) noexcept;

}  // namespace pulse
