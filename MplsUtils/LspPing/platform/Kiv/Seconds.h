#pragma once

namespace Kiv {

/// A duration, or a time since 1 January 1970 UTC, in seconds.
using Seconds = double;

} // namespace Kiv
