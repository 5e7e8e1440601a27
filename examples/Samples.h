#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <cstddef>
#include <vector>

namespace Examples {

/// One frame of a sample file.
struct Frame {
   std::vector< U8 > bytes;
   std::size_t wireLength = 0; ///< more than the bytes when the capture cut it
};

/// Requests and replies with every element that has a view, in several encapsulations.
std::vector< Frame > echoSamples();

/// Messages that break a rule each: cut, with lengths that do not fit, with bytes left over.
std::vector< Frame > malformedSamples();

/// Messages with every element that the registries know and `echoSamples` does not have.
std::vector< Frame > registrySamples();

/// The same elements and those of the mappings, damaged one by one by a rule.
std::vector< Frame > registryDamagedSamples();

} // namespace Examples
