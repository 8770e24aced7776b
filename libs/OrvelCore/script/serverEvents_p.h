#pragma once

/// Who registers things at the moment.
namespace serverEvents {

/// The mzComServerStateEventC that is being told of the server's start on this thread, or null.
void const *notified();

} // namespace serverEvents
