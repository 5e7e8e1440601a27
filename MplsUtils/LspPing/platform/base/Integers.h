#pragma once

#include <cstdint>

// The widths in which every field, attribute and argument is given.
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;
using U64 = std::uint64_t;
