#pragma once

#include <cstddef>

// The program's operator new and delete, which count and can run out of memory.
namespace MemoryTest {

/// Blocks taken so far.
std::size_t blocksTaken() noexcept;

/// Blocks taken and not given back.
std::size_t blocksHeld() noexcept;

/// While one lives, the allocation of that number (from 0) and all after it fail.
class MemoryFor {
 public:
   explicit MemoryFor( std::size_t allocations ) noexcept;
   MemoryFor( MemoryFor const & ) = delete;
   MemoryFor & operator=( MemoryFor const & ) = delete;
   ~MemoryFor();
};

} // namespace MemoryTest
