#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <algorithm>
#include <memory>
#include <random>
#include <span>
#include <vector>

// Objects of any registered type, and random values for their attributes.
namespace ModuleTest {

/// Bytes at an odd address with nothing of ours behind them.
class OddBytes {
 public:
   OddBytes( std::size_t count, U8 fill )
      : count_( count ),
        block_( std::make_unique< U8[] >( count + 1 ) ) {
      std::fill_n( data(), count, fill );
   }
   U8 * data() const noexcept { return block_.get() + 1; }
   std::span< U8 > bytes() const noexcept { return { data(), count_ }; }
   std::vector< U8 > copy() const { return { data(), data() + count_ }; }

 private:
   std::size_t count_;
   std::unique_ptr< U8[] > block_;
};

using Random = std::mt19937_64;

/// All types of the library's two modules.
std::vector< Kiv::TypeRef > libraryTypes();

/// True for classes whose objects are the bytes of a message.
bool isWireView( Kiv::TypeRef type );

/// The attributes of the type and of its bases, with the type that declares them.
std::vector< Kiv::FoundAttribute > allAttributes( Kiv::TypeRef type );

/// A random value of the type, or the default one where only that is known.
std::unique_ptr< Kiv::Instance > randomValue( Kiv::TypeRef type, Random & random );

/// What the object reads as: the text of every attribute that may be read, by name.
Orlo::String readings( Kiv::TypeRef type, void const * object );

} // namespace ModuleTest
