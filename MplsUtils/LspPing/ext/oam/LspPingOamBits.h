#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

namespace LspPing {

// What many of the MPLS OAM Functions TLV's sub-TLVs begin with, RFC 7759 section 2.2: single bits
// and small numbers in a word.
class LspPingOamBitsSubTlv : public LspPingTlvHdr {
 protected:
   using Code = LspPingOamFunctionSubTlvType;

   // From the `first` bit on, counted from the most significant one as RFC 7759 does.
   template < U32 first, U32 count = 1 >
   constexpr U32 bits() const noexcept {
      return word_.value() >> shift< first, count > & mask< count >;
   }
   template < U32 first, U32 count = 1 >
   constexpr void bitsAre( U32 bits ) noexcept {
      word_.valueIs( ( word_.value() & ~(mask< count > << shift< first, count >)) |
                     (bits & mask< count >) << shift< first, count > );
   }

 private:
   template < U32 count >
   static constexpr U32 mask = 0xffffffffu >> ( 32 - count );
   template < U32 first, U32 count >
   static constexpr U32 shift = 32 - first - count;

   Velnet::NetU32 word_;
};

/// "Name( ... )" as `append( text )` fills it, or "Invalid NameSubTlv".
template < class View, class Append >
Orlo::String lspPingOamText( View const & view, std::string_view name, Append append ) {
   Orlo::StringBuilder text;
   if( !view.valid() ) {
      text.append( "Invalid " );
      text.append( name );
      text.append( "SubTlv" );
   } else {
      text.append( name );
      text.append( "( " );
      append( text );
      text.append( " )" );
   }
   return std::move( text ).string();
}

inline void lspPingOamField( Orlo::StringBuilder & text, std::string_view name, U32 number ) {
   text.append( name );
   text.appendDecimal( number );
}

} // namespace LspPing
