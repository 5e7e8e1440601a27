#include "tests/memory/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t unlimited = std::numeric_limits< std::size_t >::max();

constinit std::atomic< std::size_t > taken{ 0 };
constinit std::atomic< std::size_t > given{ 0 };
constinit std::atomic< std::size_t > end{ unlimited };

void * takenBlock( std::size_t size, std::size_t alignment ) noexcept {
   if( taken >= end )
      return nullptr;
   std::size_t const rounded = ( size + alignment ) / alignment * alignment;
   void * const block = std::aligned_alloc( alignment, rounded );
   taken += block != nullptr ? 1 : 0;
   return block;
}

void * blockOrThrow( std::size_t size, std::size_t alignment ) {
   void * const block = takenBlock( size, alignment );
   if( block == nullptr )
      throw std::bad_alloc();
   return block;
}

void giveBack( void * block ) noexcept {
   given += block != nullptr ? 1 : 0;
   std::free( block );
}

constexpr std::size_t usual = alignof( std::max_align_t );

} // namespace

namespace MemoryTest {

std::size_t blocksTaken() noexcept {
   return taken;
}

std::size_t blocksHeld() noexcept {
   return taken - given;
}

MemoryFor::MemoryFor( std::size_t allocations ) noexcept {
   end = taken + allocations;
}

MemoryFor::~MemoryFor() {
   end = unlimited;
}

} // namespace MemoryTest

// All forms: a sanitizer has its own of each and wants block and release to match.
void * operator new( std::size_t size ) {
   return blockOrThrow( size, usual );
}
void * operator new[]( std::size_t size ) {
   return blockOrThrow( size, usual );
}
void * operator new( std::size_t size, std::align_val_t alignment ) {
   return blockOrThrow( size, static_cast< std::size_t >( alignment ) );
}
void * operator new( std::size_t size, std::nothrow_t const & ) noexcept {
   return takenBlock( size, usual );
}
void * operator new[]( std::size_t size, std::nothrow_t const & ) noexcept {
   return takenBlock( size, usual );
}
void * operator new( std::size_t size, std::align_val_t alignment,
                     std::nothrow_t const & ) noexcept {
   return takenBlock( size, static_cast< std::size_t >( alignment ) );
}
void operator delete( void * block ) noexcept {
   giveBack( block );
}
void operator delete[]( void * block ) noexcept {
   giveBack( block );
}
void operator delete( void * block, std::size_t ) noexcept {
   giveBack( block );
}
void operator delete[]( void * block, std::size_t ) noexcept {
   giveBack( block );
}
void operator delete( void * block, std::align_val_t ) noexcept {
   giveBack( block );
}
void operator delete( void * block, std::size_t, std::align_val_t ) noexcept {
   giveBack( block );
}
