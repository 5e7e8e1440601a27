#pragma once

namespace Kiv {

/// Base of a class that holds nothing but constants.
class ConstantHolder {};

} // namespace Kiv
