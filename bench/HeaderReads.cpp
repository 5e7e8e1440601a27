#include "bench/HeaderReads.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"

#include <cstring>

namespace Bench {

namespace {

// A sum would let the compiler rearrange the loads; this keeps their order on both sides.
constexpr U32 folded( U32 sum, U32 field ) noexcept {
   return sum * 31 + field;
}

U32 at16( U8 const * bytes ) noexcept {
   U16 raw;
   std::memcpy( &raw, bytes, sizeof raw );
   return __builtin_bswap16( raw );
}

U32 at32( U8 const * bytes ) noexcept {
   U32 raw;
   std::memcpy( &raw, bytes, sizeof raw );
   return __builtin_bswap32( raw );
}

} // namespace

U32 headerThroughView( U8 const * bytes ) {
   // The caller has 32 bytes there.
   auto const & header = *reinterpret_cast< LspPing::LspPingHdr const * >( bytes );
   U32 sum = header.version();
   sum = folded( sum, header.globalFlags() );
   sum = folded( sum, header.messageType() );
   sum = folded( sum, header.replyMode() );
   sum = folded( sum, header.returnCode() );
   sum = folded( sum, header.returnSubcode() );
   sum = folded( sum, header.senderHandle() );
   sum = folded( sum, header.sequenceNumber() );
   sum = folded( sum, header.tsSentSeconds() );
   sum = folded( sum, header.tsSentmSeconds() );
   sum = folded( sum, header.tsRcvdSeconds() );
   return folded( sum, header.tsRcvdmSeconds() );
}

U32 headerByHand( U8 const * bytes ) {
   U32 sum = at16( bytes );
   sum = folded( sum, at16( bytes + 2 ) );
   sum = folded( sum, bytes[4] );
   sum = folded( sum, bytes[5] );
   sum = folded( sum, bytes[6] );
   sum = folded( sum, bytes[7] );
   sum = folded( sum, at32( bytes + 8 ) );
   sum = folded( sum, at32( bytes + 12 ) );
   sum = folded( sum, at32( bytes + 16 ) );
   sum = folded( sum, at32( bytes + 20 ) );
   sum = folded( sum, at32( bytes + 24 ) );
   return folded( sum, at32( bytes + 28 ) );
}

} // namespace Bench
