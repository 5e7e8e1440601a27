#pragma once

#include <string>

namespace Orlo {

using String = std::string;

} // namespace Orlo
