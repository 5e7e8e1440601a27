#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Kiv/TypeName.h"
#include "MplsUtils/LspPing/platform/Kiv/Typed.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"

#include <iosfwd>
#include <string_view>

namespace LspPing {

/// What every value record offers in the same way. R is the record; it has `==` and a default.
template < class R >
class LspPingRecord : public Kiv::Typed< R > {
 public:
   /// Equality of two records, for the type system.
   static bool isEq( void const * a, void const * b ) {
      return *static_cast< R const * >( a ) == *static_cast< R const * >( b );
   }

   /// True when the record differs from a default one.
   explicit operator bool() const { return !( static_cast< R const & >( *this ) == R() ); }

   /// Writes the generic text.
   friend std::ostream & operator<<( std::ostream & out, R const & record ) {
      return KivOrlo::writeValue( out, Kiv::typeOf< R >(), &record );
   }

 protected:
   constexpr LspPingRecord() noexcept = default;

   /// For the text constructor of a record that parses: reads all its stored attributes.
   void parse( Kiv::CharRange & in ) {
      KivOrlo::parseAttributes( in, Kiv::typeOf< R >(), static_cast< R * >( this ) );
   }

   /// For the text constructor of a record that holds a collection: there is no such text. The
   /// condition's own text is what the process ends with.
   [[noreturn]] static void
   assertNoTextConstructor( char const * file = __builtin_FILE(), int line = __builtin_LINE(),
                            char const * function = __builtin_FUNCTION() ) {
      std::string_view name = Kiv::typeName< R >;
      name.remove_prefix( name.rfind( ':' ) + 1 );
      Orlo::String const condition =
         "\"No String constructor for " + Orlo::String( name ) + " - has collection\" == nullptr";
      Kiv::assertionFailed( file, line, function, condition.c_str() );
   }
};

} // namespace LspPing
