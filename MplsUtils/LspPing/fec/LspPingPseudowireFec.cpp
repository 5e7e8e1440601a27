#include "MplsUtils/LspPing/fec/LspPingPseudowireFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingFec128Ipv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFec128Ipv4SubTlv >();
constinit Kiv::AllocationTracker LspPingFec129Ipv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFec129Ipv4SubTlv >();

namespace {

using Pseudowire::PseudowireAttachmentIdentifier;
using Pseudowire::PseudowireGenId;

constexpr U32 typesAndLengths = 6;
constexpr U8 maxLength = PseudowireAttachmentIdentifier::maxLength;

// What the length field must say at least before the identifiers are written.
U32 lengthFor( U16 minLength, U32 values ) noexcept {
   return lspPingPadded( minLength + values );
}

// Where the identifiers begin, counted from the header.
constexpr U32 behindFixed( U16 minLength ) noexcept {
   return U32{ sizeof( LspPingTlvHdr ) } + minLength - typesAndLengths;
}

// Writes type, length and value and returns the place behind them.
U8 * put( U8 * at, PseudowireAttachmentIdentifier const & id ) noexcept {
   *at++ = id.type();
   *at++ = id.length();
   for( U8 index = 0; index < id.length(); ++index )
      *at++ = id.value( index );
   return at;
}

} // namespace

Orlo::String LspPingFec128Ipv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid Fec128Ipv4SubTlv" );
   return Kiv::_fmt( "Fec128Ipv4:\tsender(%s),\treceiver(%s),\tpwId(%d),\tpwType(%d)", senderAddr(),
                     receiverAddr(), pwId(), pwType() );
}

PseudowireGenId LspPingAttachmentSubTlv::pwGenIdBehind( U16 minLength ) const noexcept {
   U16 const coveredLength = length();
   if( coveredLength < minLength )
      return {};
   // Whoever laid the view knows that the bytes covered by its length field are there, so the
   // identifiers lie right behind the view. `neededLength` is the least length that covers the
   // values read so far and the types and lengths of all three identifiers.
   U8 const * at = reinterpret_cast< U8 const * >( this ) + behindFixed( minLength );
   U32 neededLength = minLength;
   PseudowireAttachmentIdentifier ids[3];
   for( PseudowireAttachmentIdentifier & id : ids ) {
      id.typeIs( *at++ );
      id.lengthIs( *at++ );
      neededLength += id.length();
      if( id.length() > maxLength || coveredLength < neededLength )
         return {};
      for( U8 index = 0; index < id.length(); ++index )
         id.valueIs( index, *at++ );
   }
   return { ids[0], ids[1], ids[2] };
}

void LspPingAttachmentSubTlv::pwGenIdBehindIs( U16 minLength,
                                               PseudowireGenId const & pwGenId ) noexcept {
   PseudowireAttachmentIdentifier const & agi = pwGenId.agi();
   PseudowireAttachmentIdentifier const & saii = pwGenId.saii();
   PseudowireAttachmentIdentifier const & taii = pwGenId.taii();
   KIV_ASSERT( agi.length() <= maxLength );
   KIV_ASSERT( saii.length() <= maxLength );
   KIV_ASSERT( taii.length() <= maxLength );
   U32 const tlvLength = lengthFor( minLength, valueBytes( pwGenId ) );
   KIV_ASSERT( length() >= tlvLength );
   // The bytes covered by the length field are there, as for reading, and it covers all that is
   // written: the types and lengths of all three are part of `minLength`.
   U8 * at = reinterpret_cast< U8 * >( this ) + behindFixed( minLength );
   U8 const * const end =
      reinterpret_cast< U8 const * >( this ) + sizeof( LspPingTlvHdr ) + tlvLength;
   at = put( put( put( at, agi ), saii ), taii );
   while( at != end )
      *at++ = 0;
}

Orlo::String
LspPingAttachmentSubTlv::pwGenIdRefusalBehind( U16 minLength,
                                               PseudowireGenId const & pwGenId ) const {
   for( U8 const bytes :
        { pwGenId.agi().length(), pwGenId.saii().length(), pwGenId.taii().length() } )
      if( bytes > maxLength )
         return Orlo::stringOf( "an identifier has 8 bytes" );
   U32 const needed = lengthFor( minLength, valueBytes( pwGenId ) );
   if( length() < needed )
      return Kiv::_fmt( "needs %d bytes of value, the length is %d", needed, length() );
   return {};
}

U16 LspPingAttachmentSubTlv::valueBytes( PseudowireGenId const & id ) noexcept {
   return static_cast< U16 >( id.agi().length() + id.saii().length() + id.taii().length() );
}

bool LspPingFec129Ipv4SubTlv::valid() const noexcept {
   return element.hasCode( type() ) && hasIdentifiers() && isEthernet( pwType() );
}

Orlo::String LspPingFec129Ipv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid Fec129Ipv4SubTlv" );
   return Kiv::_fmt( "Fec129Ipv4:\tsender(%s),\treceiver(%s),\tpwType(%d),\tpwGenId(%s)",
                     senderAddr(), receiverAddr(), pwType(), pwGenId() );
}

} // namespace LspPing
